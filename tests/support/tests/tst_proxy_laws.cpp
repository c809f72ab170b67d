#include <support/proxy_laws.h>
#include <support/scripted_tree.h>

#include <QIdentityProxyModel>
#include <QtTest>

namespace {

class LosesTheWayBack : public QIdentityProxyModel
{
public:
    QModelIndex index(int row, int column, const QModelIndex& parent) const override
    {
        const QModelIndex source = sourceModel()->index(row, column, mapToSource(parent));
        return source.isValid() ? createIndex(row, column, source.internalPointer()) : QModelIndex();
    }
    QModelIndex mapFromSource(const QModelIndex& index) const override
    {
        return index.data() == "b" ? QModelIndex() : QIdentityProxyModel::mapFromSource(index);
    }
};

class ShowsOneRowTwice : public QIdentityProxyModel
{
public:
    QModelIndex mapToSource(const QModelIndex& index) const override
    {
        const QModelIndex source = QIdentityProxyModel::mapToSource(index);
        return source.row() == 1 ? source.sibling(0, 0) : source;
    }
};

class CountsOneRowTooMany : public QIdentityProxyModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return QIdentityProxyModel::rowCount(parent) + 1;
    }
};

class ForgetsParents : public QIdentityProxyModel
{
public:
    QModelIndex parent(const QModelIndex&) const override { return {}; }
};

class DeniesChildren : public QIdentityProxyModel
{
public:
    bool hasChildren(const QModelIndex&) const override { return false; }
};

class MapsTheRoot : public QIdentityProxyModel
{
public:
    QModelIndex mapToSource(const QModelIndex& index) const override
    {
        return index.isValid() ? QIdentityProxyModel::mapToSource(index) : sourceModel()->index(0, 0);
    }
};

class HandsSourceIndexesOut : public QIdentityProxyModel
{
public:
    QModelIndex index(int row, int column, const QModelIndex& parent) const override
    {
        return sourceModel()->index(row, column, mapToSource(parent));
    }
};

template <class Proxy>
QStringList violationsOf(const QStringList& lines = {"a", "  x", "b"})
{
    ScriptedTree source(lines);
    Proxy proxy;
    proxy.setSourceModel(&source);
    return checkProxyLaws(proxy);
}

} // namespace

class tst_ProxyLaws : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aProxyThatKeepsThemHasNoViolations()
    {
        QCOMPARE(violationsOf<QIdentityProxyModel>(), QStringList());
        QCOMPARE(violationsOf<QSortFilterProxyModel>(), QStringList());
    }

    void hiddenRowsAreNoViolation()
    {
        ScriptedTree source({"a", "  x", "b"}, 2);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.setFilterFixedString("a");

        QCOMPARE(checkProxyLaws(proxy), QStringList());
    }

    void aRowThatIsNotMappedBackIsFound()
    {
        QCOMPARE(violationsOf<LosesTheWayBack>(),
                 QStringList{"/1: the way to the source and back leads elsewhere"});
    }

    void twoRowsForOneOfTheSourceAreFound()
    {
        const QStringList violations = violationsOf<ShowsOneRowTwice>();

        QVERIFY(violations.contains("/1: the way to the source and back leads elsewhere"));
        QVERIFY(violations.contains("/1: the way from this source row and back leads elsewhere"));
    }

    void aRowWithoutAnIndexIsFound()
    {
        QVERIFY(violationsOf<CountsOneRowTooMany>({"a"}).contains("/: there is no index at row 1, column 0"));
    }

    void aChildThatDoesNotKnowItsParentIsFound()
    {
        QVERIFY(violationsOf<ForgetsParents>().contains("/0: a child has another parent"));
    }

    void deniedChildrenAreFound()
    {
        QCOMPARE(violationsOf<DeniesChildren>(), (QStringList{"/: hasChildren is not what the counts say",
                                                              "/0: hasChildren is not what the counts say"}));
    }

    void aMappedRootIsFound()
    {
        QVERIFY(violationsOf<MapsTheRoot>().contains("/: the root maps to a source row"));
    }

    void indexesOfAnotherModelAreFound()
    {
        QVERIFY(violationsOf<HandsSourceIndexesOut>({"a"}).contains("/0: an index belongs to another model"));
    }

    void aProxyWithoutASourceIsNotInspected()
    {
        QCOMPARE(checkProxyLaws(QSortFilterProxyModel()), QStringList{"/: there is no source"});
    }
};

QTEST_GUILESS_MAIN(tst_ProxyLaws)
#include "tst_proxy_laws.moc"
