#include <support/paths.h>

#include <QStandardItemModel>
#include <QtTest>

#include <stdexcept>

namespace {

QStandardItem* row(std::initializer_list<QStandardItem*> children)
{
    auto* item = new QStandardItem;
    for (QStandardItem* child : children)
        item->appendRow(child);
    return item;
}

/// A model whose one index is its own parent.
class CircularModel : public QStandardItemModel
{
public:
    QModelIndex parent(const QModelIndex& index) const override { return index; }
};

} // namespace

class tst_Paths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theRootIsASlash() { QCOMPARE(pathOf({}), QStringLiteral("/")); }

    void aPathCountsTheRowsFromTheRoot()
    {
        QStandardItemModel model;
        model.appendRow(row({}));
        model.appendRow(row({row({}), row({}), row({})}));

        QCOMPARE(pathOf(model.index(1, 0)), QStringLiteral("/1"));
        QCOMPARE(pathOf(model.index(2, 0, model.index(1, 0))), QStringLiteral("/1/2"));
    }

    void aColumnOtherThanTheFirstFollowsItsRow()
    {
        QStandardItemModel model(2, 3);

        QCOMPARE(pathOf(model.index(1, 2)), QStringLiteral("/1:2"));
    }

    void parentsInACircleEnd()
    {
        CircularModel model;
        model.appendRow(row({}));

        const QString path = pathOf(model.index(0, 0));

        QVERIFY(path.startsWith(QStringLiteral(".../0/0")));
    }

    void aPathLeadsBackToItsIndex()
    {
        QStandardItemModel model(2, 3);
        model.setItem(1, 0, row({row({}), row({})}));

        QCOMPARE(indexAt(model, QStringLiteral("/1/1")), model.index(1, 0, model.index(1, 0)));
        QCOMPARE(indexAt(model, QStringLiteral("/1:2")), model.index(1, 2));
        QCOMPARE(indexAt(model, QStringLiteral("/")), QModelIndex());
    }

    void aRowThatIsNotThereGivesAnInvalidIndex()
    {
        QStandardItemModel model(2, 1);

        QCOMPARE(indexAt(model, QStringLiteral("/2")), QModelIndex());
        QCOMPARE(indexAt(model, QStringLiteral("/0/0")), QModelIndex());
    }

    void aTextThatIsNoPathIsRefused()
    {
        QStandardItemModel model(2, 1);

        QVERIFY_EXCEPTION_THROWN(indexAt(model, QStringLiteral("1")), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(indexAt(model, QStringLiteral("/a")), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(indexAt(model, QStringLiteral("/0/")), std::invalid_argument);
    }
};

QTEST_GUILESS_MAIN(tst_Paths)
#include "tst_paths.moc"
