#include <support/tree_lines.h>

#include <QStandardItemModel>
#include <QtTest>

#include <stdexcept>

class tst_TreeLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyModelHasNoLines() { QCOMPARE(treeLines(QStandardItemModel()), QStringList()); }

    void everyLevelIsIndentedByTwoSpaces()
    {
        QStandardItemModel model;
        model.appendRow(new QStandardItem("a"));
        model.appendRow(new QStandardItem("b"));
        model.item(0)->appendRow(new QStandardItem("x"));
        model.item(0)->child(0)->appendRow(new QStandardItem("deep"));

        QCOMPARE(treeLines(model), (QStringList{"a", "  x", "    deep", "b"}));
    }

    void anotherRoleCanBeShown()
    {
        QStandardItemModel model;
        model.appendRow(new QStandardItem("a"));
        model.item(0)->setData(7, Qt::UserRole);

        QCOMPARE(treeLines(model, Qt::UserRole), QStringList{"7"});
    }

    void aMissingValueIsVisible()
    {
        QStandardItemModel model(1, 1);

        QCOMPARE(treeLines(model, Qt::UserRole), QStringList{"(invalid)"});
    }

    void aPartOfTheTreeBeginsAtItsRoot()
    {
        QStandardItemModel model;
        model.appendRow(new QStandardItem("a"));
        model.item(0)->appendRow(new QStandardItem("x"));

        QCOMPARE(treeLines(model, Qt::DisplayRole, model.index(0, 0)), QStringList{"x"});
    }

    void linesAreReadWithTheirDepth()
    {
        const std::vector<TreeLine> parsed = parseTree({"a", "  b c", "    d", "e"});

        QCOMPARE(parsed.size(), std::size_t(4));
        QCOMPARE(parsed[1].depth, 1);
        QCOMPARE(parsed[1].text, QStringLiteral("b c"));
        QCOMPARE(parsed[2].depth, 2);
        QCOMPARE(parsed[3].depth, 0);
    }

    void aWrongIndentationIsRefused()
    {
        QVERIFY_EXCEPTION_THROWN(parseTree({"a", " odd"}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(parseTree({"a", "    jump"}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(parseTree({"  first"}), std::invalid_argument);
    }
};

QTEST_GUILESS_MAIN(tst_TreeLines)
#include "tst_tree_lines.moc"
