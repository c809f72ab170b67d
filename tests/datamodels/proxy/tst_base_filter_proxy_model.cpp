#include <datamodels/proxy/base_filter_proxy_model.h>

#include <support/index_keeper.h>
#include <support/log_capture.h>
#include <support/proxy_laws.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QStandardItemModel>
#include <QtTest>

using qelm::datamodels::proxy::BaseFilterProxyModel;

namespace {

std::function<bool(const QVariant&)> contains(const QString& text)
{
    return [text](const QVariant& value) { return value.toString().contains(text); };
}

/// Opens what subclasses may call.
class OpenProxy : public BaseFilterProxyModel
{
public:
    using BaseFilterProxyModel::filterAcceptsRowInternal;
    using BaseFilterProxyModel::filterRecursiveAcceptsRow;
    using BaseFilterProxyModel::invalidateFilter;
    using BaseFilterProxyModel::lessThan;
};

/// Resets itself while it is asked for the value of one row.
class ResettingList : public QAbstractListModel
{
public:
    explicit ResettingList(QStringList rows) : m_rows(std::move(rows)) {}

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_rows.size(); }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (index.row() == resetAtRow && role == Qt::DisplayRole)
            const_cast<ResettingList*>(this)->resetTo(rowsAfterReset);
        return index.row() < m_rows.size() && role == Qt::DisplayRole ? QVariant(m_rows[index.row()]) : QVariant();
    }
    void resetTo(QStringList rows)
    {
        beginResetModel();
        resetAtRow = -1;
        m_rows = std::move(rows);
        endResetModel();
    }

    mutable int resetAtRow = -1;
    QStringList rowsAfterReset;

private:
    QStringList m_rows;
};

} // namespace

class tst_BaseFilterProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAFunctionTheFilterOfTheBaseDecides()
    {
        ScriptedTree source({"oak", "elm", "ash"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setFilterFixedString("a");

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "ash"}));
    }

    void aFunctionDecidesByTheFilterRole()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=plant"});
        BaseFilterProxyModel proxy;
        proxy.setFilterRole(ScriptedTree::KindRole);
        proxy.setFilterPredicate(contains("tree"));

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), QStringList{"oak"});
    }

    void anyOfTheExtraRolesSuffices()
    {
        ScriptedTree source({"oak | kind=tree", "tree house | kind=building", "moss | kind=plant"});
        BaseFilterProxyModel proxy;
        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.setFilterPredicate(contains("tree"));

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "tree house"}));
    }

    void theFilterRoleIsAskedFirstAndAMatchIsTheLastQuestion()
    {
        ScriptedTree source({"oak | kind=tree"});
        QStringList asked;
        OpenProxy proxy;
        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.setFilterPredicate([&asked](const QVariant& value) {
            asked << value.toString();
            return value == "oak";
        });
        proxy.setSourceModel(&source);

        QVERIFY(proxy.filterAcceptsRowInternal(0, {}));

        QCOMPARE(asked, QStringList{"oak"});
    }

    void extraRolesCanBeTakenBackOneByOneOrAtOnce()
    {
        ScriptedTree source({"oak | kind=tree", "5 | kind=tree | size=5"});
        OpenProxy proxy;
        proxy.setFilterPredicate(contains("5"));
        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.addFilterRole(ScriptedTree::SizeRole);
        proxy.setFilterRole(ScriptedTree::IdRole);
        proxy.setSourceModel(&source);
        QCOMPARE(treeLines(proxy), QStringList{"5"});

        proxy.removeFilterRole(ScriptedTree::SizeRole);
        proxy.invalidateFilter();
        QCOMPARE(treeLines(proxy), QStringList());

        proxy.setFilterPredicate(contains("tree"));
        proxy.clearFilterRoles();
        proxy.invalidateFilter();
        QCOMPARE(treeLines(proxy), QStringList());
    }

    void theSettersDoNotFilterAgain()
    {
        ScriptedTree source({"oak", "elm"});
        OpenProxy proxy;
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 2);
        SignalLog log(proxy);

        proxy.setFilterPredicate(contains("oak"));
        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.setFilteringMode(BaseFilterProxyModel::Hierarchical);
        QCOMPARE(log.take(), QStringList());

        proxy.invalidateFilter();
        QCOMPARE(log.take(), (QStringList{"removing / [1..1]", "removed / [1..1]"}));
    }

    void theSortFunctionDoesNotSortAgain()
    {
        ScriptedTree source({"a", "bb"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.sort(0);
        SignalLog log(proxy);

        proxy.setSortPredicate([](const QVariant& left, const QVariant& right) { return left.toString().size() > right.toString().size(); });
        QCOMPARE(log.take(), QStringList());

        proxy.invalidate();
        QCOMPARE(treeLines(proxy), (QStringList{"bb", "a"}));
    }

    void theFunctionSurvivesAChangeOfTheSource()
    {
        ScriptedTree first({"oak", "elm"});
        ScriptedTree second({"big oak", "fir"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&first);

        proxy.setSourceModel(&second);

        QCOMPARE(treeLines(proxy), QStringList{"big oak"});
    }

    void flatShowsOnlyMatchesUnderShownParents()
    {
        ScriptedTree source({"wood", "  oak", "oak park", "  oak", "  elm"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak park", "  oak"}));
        QCOMPARE(proxy.filteringMode(), BaseFilterProxyModel::Flat);
    }

    void recursiveShowsTheAncestorsOfMatches()
    {
        ScriptedTree source({"wood", "  oak", "  elm", "field", "  grass"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setFilteringMode(BaseFilterProxyModel::Recursive);

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
        QVERIFY(proxy.isRecursiveFilteringEnabled());
    }

    void hierarchicalShowsAncestorsAndDescendantsOfMatches()
    {
        ScriptedTree source({"park", "  wood", "    oak", "    elm", "  pond", "wood", "  fir", "    cone", "field"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("wood"));
        proxy.setFilteringMode(BaseFilterProxyModel::Hierarchical);

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"park", "  wood", "    oak", "    elm", "wood", "  fir", "    cone"}));
        QVERIFY(!proxy.isRecursiveFilteringEnabled());
    }

    void hierarchicalAsksTheRowThenItsAncestorsThenItsDescendants()
    {
        ScriptedTree source({"top", "  middle", "    left", "      deep", "    right"});
        QStringList asked;
        OpenProxy proxy;
        proxy.setFilterPredicate([&asked](const QVariant& value) {
            asked << value.toString();
            return false;
        });
        proxy.setSourceModel(&source);

        QVERIFY(!proxy.filterRecursiveAcceptsRow(0, source.find("top"), true));

        QCOMPARE(asked, (QStringList{"middle", "top", "left", "deep", "right"}));
    }

    void hierarchicalStopsAtTheFirstMatch()
    {
        ScriptedTree source({"top", "  middle", "    left", "    right"});
        QStringList asked;
        OpenProxy proxy;
        proxy.setFilterPredicate([&asked](const QVariant& value) {
            asked << value.toString();
            return value == "left";
        });
        proxy.setSourceModel(&source);

        QVERIFY(proxy.filterRecursiveAcceptsRow(0, source.find("top"), true));

        QCOMPARE(asked, (QStringList{"middle", "top", "left"}));
    }

    // Intended: nothing but a new filter run sees that a row's relatives have changed.
    void hierarchicalFollowsAChangeOfARelativeOnlyWhenFilteredAgain()
    {
        ScriptedTree source({"wood", "  elm"});
        OpenProxy proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setFilteringMode(BaseFilterProxyModel::Hierarchical);
        proxy.setSourceModel(&source);
        QCOMPARE(treeLines(proxy), QStringList());

        source.change(source.find("elm"), "oak");
        QCOMPARE(treeLines(proxy), QStringList());

        proxy.invalidateFilter();
        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
    }

    void theHierarchicalTestReportsThatQtFiltersRecursivelyToo()
    {
        ScriptedTree source({"oak"});
        OpenProxy proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        proxy.setRecursiveFilteringEnabled(true);
        LogCapture log;

        QVERIFY(proxy.filterRecursiveAcceptsRow(0, {}, true));

        QCOMPARE(log.assertions(), QStringList{"!isRecursiveFilteringEnabled()"});
    }

    void theModeThatItHasIsNoChange()
    {
        BaseFilterProxyModel proxy;
        proxy.setRecursiveFilteringEnabled(true);

        proxy.setFilteringMode(BaseFilterProxyModel::Flat);

        QVERIFY(proxy.isRecursiveFilteringEnabled());
    }

    void goingToRecursiveFiltersAtOnce()
    {
        ScriptedTree source({"wood", "  oak"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 0);

        proxy.setFilteringMode(BaseFilterProxyModel::Recursive);

        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
    }

    void sortsByTheNameOfARole()
    {
        ScriptedTree source({"a | size=3", "b | size=1", "c | size=2"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        SignalLog log;
        log.add(proxy, &BaseFilterProxyModel::sortingChanged);

        proxy.sortByRole("size");

        QCOMPARE(treeLines(proxy), (QStringList{"b", "c", "a"}));
        QCOMPARE(proxy.sortRole(), int(ScriptedTree::SizeRole));
        QCOMPARE(log.take(), QStringList{"sortingChanged()"});
    }

    void anotherOrderOfThePresentRoleSortsAndThenTells()
    {
        ScriptedTree source({"a", "b"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);
        log.add(proxy, &BaseFilterProxyModel::sortingChanged);

        proxy.sortByRole("display", Qt::DescendingOrder);

        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows", "sortingChanged()"}));
        QCOMPARE(treeLines(proxy), (QStringList{"b", "a"}));
    }

    void sortsDownwardsToo()
    {
        ScriptedTree source({"a | size=3", "b | size=1", "c | size=2"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        QVERIFY(QMetaObject::invokeMethod(&proxy, "sortByRole", Q_ARG(QString, "size"), Q_ARG(Qt::SortOrder, Qt::DescendingOrder)));

        QCOMPARE(treeLines(proxy), (QStringList{"a", "c", "b"}));
        QCOMPARE(proxy.property("sortOrder").toInt(), int(Qt::DescendingOrder));
    }

    void anUnknownRoleNameSortsNothing()
    {
        ScriptedTree source({"b", "a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        SignalLog log;
        log.addAll(proxy);

        proxy.sortByRole("weight", Qt::DescendingOrder);

        QCOMPARE(proxy.sortRole(), int(Qt::DisplayRole));
        QCOMPARE(proxy.sortOrder(), Qt::AscendingOrder);
        QCOMPARE(log.take(), QStringList());
    }

    void thePresentRoleAndOrderSortNothing()
    {
        ScriptedTree source({"b", "a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        SignalLog log;
        log.addAll(proxy);

        proxy.sortByRole("display");

        QCOMPARE(treeLines(proxy), (QStringList{"b", "a"}));
        QCOMPARE(log.take(), QStringList());
    }

    // Intended: a binding reads the order once, and hears of sorting by the signal.
    void theOrderIsAConstantForBindings()
    {
        const QMetaObject& meta = BaseFilterProxyModel::staticMetaObject;
        const QMetaProperty order = meta.property(meta.indexOfProperty("sortOrder"));

        QVERIFY(order.isConstant());
        QVERIFY(!order.isWritable());
        QVERIFY(!order.hasNotifySignal());
    }

    void qmlFindsRolesByName()
    {
        ScriptedTree source;
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        int role = 0;

        QVERIFY(QMetaObject::invokeMethod(&proxy, "roleByName", Q_RETURN_ARG(int, role), Q_ARG(QString, "size")));

        QCOMPARE(role, int(ScriptedTree::SizeRole));
    }

    void rolesAreFoundByName()
    {
        ScriptedTree source;
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        QCOMPARE(proxy.roleByName("size"), int(ScriptedTree::SizeRole));
        QCOMPARE(proxy.roleByName("Size"), -1);
        QCOMPARE(proxy.roleByName(""), -1);
    }

    // A character beyond Latin-1 becomes a question mark, and no role is called that.
    void aRoleNameBeyondLatin1IsUnknown()
    {
        ScriptedTree source({"b", "a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.sortByRole(QString::fromUtf8("größe\u03B1"));

        QCOMPARE(proxy.roleByName(QString::fromUtf8("\u03B1")), -1);
        QCOMPARE(treeLines(proxy), (QStringList{"b", "a"}));
    }

    void textsSortWithoutRegardToCaseAndDigitsHaveNoValue()
    {
        ScriptedTree source({"item9", "Item10", "apple"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.sort(0);

        QCOMPARE(treeLines(proxy), (QStringList{"apple", "Item10", "item9"}));
    }

    void aSortFunctionIsGivenTheValuesOfTheSortRole()
    {
        ScriptedTree source({"a | size=3", "b | size=1", "c | size=2"});
        BaseFilterProxyModel proxy;
        proxy.setSortRole(ScriptedTree::SizeRole);
        proxy.setSortPredicate([](const QVariant& left, const QVariant& right) { return left.toInt() > right.toInt(); });
        proxy.setSourceModel(&source);

        proxy.sort(0);

        QCOMPARE(treeLines(proxy), (QStringList{"a", "c", "b"}));
    }

    void theSortFunctionSurvivesAChangeOfTheSource()
    {
        ScriptedTree first({"a"});
        ScriptedTree second({"a", "bbb", "cc"});
        BaseFilterProxyModel proxy;
        proxy.setSortPredicate([](const QVariant& left, const QVariant& right) { return left.toString().size() > right.toString().size(); });
        proxy.setSourceModel(&first);

        proxy.setSourceModel(&second);
        proxy.sort(0);

        QCOMPARE(treeLines(proxy), (QStringList{"bbb", "cc", "a"}));
    }

    void anIndexWithoutAModelComparesAsAnInvalidValue()
    {
        ScriptedTree source({"a"});
        OpenProxy proxy;
        proxy.setSourceModel(&source);

        QVERIFY(proxy.lessThan(QModelIndex(), source.index(0, 0)));
        QVERIFY(!proxy.lessThan(source.index(0, 0), QModelIndex()));
        QVERIFY(!proxy.lessThan(QModelIndex(), QModelIndex()));
    }

    void aSortFunctionDecidesAboutRowsThatComeLater()
    {
        ScriptedTree source({"bb", "a", "dddd"});
        BaseFilterProxyModel proxy;
        proxy.setSortPredicate([](const QVariant& left, const QVariant& right) { return left.toString().size() < right.toString().size(); });
        proxy.setSourceModel(&source);
        proxy.sort(0);

        source.insert({}, 0, {"ccc"});

        QCOMPARE(treeLines(proxy), (QStringList{"a", "bb", "ccc", "dddd"}));
    }

    void aSortFetchesEachValueOnce()
    {
        struct Counting : ScriptedTree
        {
            using ScriptedTree::ScriptedTree;
            QVariant data(const QModelIndex& index, int role) const override
            {
                fetched += role == SizeRole;
                return ScriptedTree::data(index, role);
            }
            mutable int fetched = 0;
        };
        Counting source(QStringList{"a | size=3", "b | size=1", "c | size=2", "d | size=9", "e | size=4", "f | size=0"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();

        proxy.sortByRole("size");

        QCOMPARE(source.fetched, 6);
        QCOMPARE(treeLines(proxy), (QStringList{"f", "b", "c", "a", "e", "d"}));
    }

    void everyLevelIsSorted()
    {
        ScriptedTree source({"b", "  z", "  y", "a", "  x", "  w"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        treeLines(proxy);

        proxy.sort(0, Qt::DescendingOrder);

        QCOMPARE(treeLines(proxy), (QStringList{"b", "  z", "  y", "a", "  x", "  w"}));
        proxy.sort(0, Qt::AscendingOrder);
        QCOMPARE(treeLines(proxy), (QStringList{"a", "  w", "  x", "b", "  y", "  z"}));
    }

    void persistentIndexesFollowASort()
    {
        ScriptedTree source({"c", "a", "b"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        const IndexKeeper keeper(proxy, ScriptedTree::IdRole);

        proxy.sort(0);

        QCOMPARE(keeper.strayed(), QStringList());
        QCOMPARE(keeper.lost(), QStringList());
    }

    void aChangeMadeByAListenerOfTheSortIsSortedByItsNewValue()
    {
        ScriptedTree source({"c", "a", "b"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        const QPersistentModelIndex c = source.find("c");
        connect(&proxy, &QAbstractItemModel::layoutChanged, this, [&] {
            if (c.data() == "c")
                source.change(c, "Aa");
        });

        proxy.sort(0);

        QCOMPARE(treeLines(proxy), (QStringList{"a", "Aa", "b"}));
    }

    // Intended: a layout change for given parents is repeated for the whole model.
    void aLayoutChangeForParentsIsFollowedByOneForAll()
    {
        ScriptedTree source({"top", "  b", "  a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        treeLines(proxy);
        SignalLog log(proxy);

        source.rearrange(source.find("top"), {1, 0});

        QCOMPARE(log.take(), (QStringList{"layout changing /0", "layout changed /0", "layout changed"}));
    }

    void theRepeatedLayoutChangeHasTheSameHint()
    {
        ScriptedTree source({"top", "  b"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        const QPersistentModelIndex top = proxy.index(0, 0);
        SignalLog log(proxy);

        Q_EMIT proxy.layoutChanged({top}, QAbstractItemModel::VerticalSortHint);

        QCOMPARE(log.take(), (QStringList{"layout changed /0 sorted rows", "layout changed sorted rows"}));
    }

    void everyListenerHearsTheParentsFirst()
    {
        ScriptedTree source({"top", "  b", "  a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        treeLines(proxy);
        qRegisterMetaType<QList<QPersistentModelIndex>>();
        qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
        QStringList heard;
        const auto hear = [&heard](const char* who) {
            return [&heard, who](const QList<QPersistentModelIndex>& parents) { heard << QString(who).arg(parents.size()); };
        };
        connect(&proxy, &QAbstractItemModel::layoutChanged, this, hear("first %1"));
        QSignalSpy spy(&proxy, &QAbstractItemModel::layoutChanged);
        connect(&proxy, &QAbstractItemModel::layoutChanged, this, hear("second %1"));

        source.rearrange(source.find("top"), {1, 0});

        QCOMPARE(heard, (QStringList{"first 1", "second 1", "first 0", "second 0"}));
        QCOMPARE(spy.at(0).at(0).value<QList<QPersistentModelIndex>>().size(), 1);
        QCOMPARE(spy.at(1).at(0).value<QList<QPersistentModelIndex>>().size(), 0);
    }

    void aLayoutChangeOfTheWholeModelIsNotRepeated()
    {
        ScriptedTree source({"b", "a"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);

        proxy.sort(0);

        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));
    }

    void withoutASourceThereAreNoRows()
    {
        ScriptedTree source({"oak"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        QCOMPARE(proxy.rowCount(), 0);
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 1);

        proxy.setSourceModel(nullptr);

        QCOMPARE(proxy.rowCount(), 0);
        proxy.sortByRole("display", Qt::DescendingOrder);
    }

    void withoutASourceNoRowIsAccepted()
    {
        OpenProxy proxy;

        QVERIFY(!proxy.filterAcceptsRowInternal(0, {}));
        QVERIFY(!proxy.filterRecursiveAcceptsRow(0, {}, true));
    }

    void aProxyWhoseSourceDiesIsEmpty()
    {
        auto source = std::make_unique<ScriptedTree>(QStringList{"oak", "  acorn"});
        BaseFilterProxyModel proxy;
        proxy.setSourceModel(source.get());
        QCOMPARE(treeLines(proxy), (QStringList{"oak", "  acorn"}));

        source.reset();

        QCOMPARE(proxy.rowCount(), 0);
        QCOMPARE(proxy.sourceModel(), nullptr);
        proxy.sort(0, Qt::DescendingOrder);
    }

    void aResetOfTheSourceResetsTheProxyAtOnce()
    {
        ScriptedTree source({"oak", "elm"});
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);

        source.reset({"fir", "old oak"});

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(proxy), QStringList{"old oak"});
    }

    void aResetInsideTheFirstFilterRunIsFollowedFromTheEventLoop()
    {
        ResettingList source({"oak 1", "elm", "oak 2", "oak 3"});
        source.resetAtRow = 1;
        source.rowsAfterReset = QStringList{"new oak", "new elm"};
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        SignalLog log(proxy);

        proxy.rowCount();
        QCOMPARE(log.take(), QStringList());
        QCoreApplication::processEvents();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(proxy), QStringList{"new oak"});
        QCOMPARE(checkProxyLaws(proxy), QStringList());
    }

    void aResetInsideALaterFilterRunIsFollowedFromTheEventLoop()
    {
        ResettingList source({"oak 1", "elm", "oak 2", "oak 3"});
        OpenProxy proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 3);
        source.resetAtRow = 2;
        source.rowsAfterReset = QStringList{"new oak"};

        proxy.invalidateFilter();
        treeLines(proxy);
        QCoreApplication::processEvents();

        QCOMPARE(treeLines(proxy), QStringList{"new oak"});
        QCOMPARE(checkProxyLaws(proxy), QStringList());
    }

    void aSourceTakenAwayAfterSuchAResetIsNotFollowed()
    {
        ResettingList source({"oak 1", "oak 2"});
        source.resetAtRow = 1;
        BaseFilterProxyModel proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setSourceModel(&source);
        proxy.rowCount();
        ScriptedTree other({"other oak"});

        proxy.setSourceModel(&other);
        SignalLog log(proxy);
        QCoreApplication::processEvents();

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(proxy), QStringList{"other oak"});
    }

    void followsQtsContract_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("flat") << int(BaseFilterProxyModel::Flat);
        QTest::newRow("hierarchical") << int(BaseFilterProxyModel::Hierarchical);
        QTest::newRow("recursive") << int(BaseFilterProxyModel::Recursive);
    }
    void followsQtsContract()
    {
        QFETCH(int, mode);
        ScriptedTree source({"wood", "  oak", "  elm", "field", "  grass", "oak park", "  pond"});
        OpenProxy proxy;
        proxy.setFilterPredicate(contains("oak"));
        proxy.setFilteringMode(BaseFilterProxyModel::FilteringMode(mode));
        proxy.setSourceModel(&source);
        const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);

        source.insert({}, 1, {"oak alley", "  oak"});
        source.change(source.find("elm"), "oaken");
        source.remove(source.find("wood"), 0);
        proxy.sort(0, Qt::DescendingOrder);
        proxy.invalidateFilter();
        source.reset({"oak", "  leaf"});

        QCOMPARE(checkProxyLaws(proxy), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_BaseFilterProxyModel)
#include "tst_base_filter_proxy_model.moc"
