#include "kind_groups.h"

#include <datamodels/scene_roles.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QStringListModel>
#include <QtTest>

#include <limits>

using qelm::datamodels::proxy::GroupByProxyModel;

namespace {

const QString folder = QStringLiteral("resources/images/controls-folder");

/// Counts how often it is asked for a size.
class CountingTree : public ScriptedTree
{
public:
    using ScriptedTree::ScriptedTree;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override
    {
        questions += role == SizeRole ? 1 : 0;
        return ScriptedTree::data(index, role);
    }

    mutable int questions = 0;
};

/// Has a row without an index between two others.
class GappyList : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override
    {
        return row == 1 ? QModelIndex() : QStringListModel::index(row, column, parent);
    }
};

} // namespace

/// Structure, mapping and values; what happens when the source changes has a test of its own.
class tst_GroupByProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutASourceThereAreNoRows()
    {
        GroupByProxyModel proxy;

        QCOMPARE(proxy.rowCount(), 0);
        QCOMPARE(proxy.columnCount(), 1);
        QVERIFY(!proxy.index(0, 0).isValid());
    }

    void anEmptySourceGivesNoGroups()
    {
        ScriptedTree source;

        const KindGroups proxy(source);

        QCOMPARE(proxy.rowCount(), 0);
    }

    void rowsOfOneTextStandUnderOneRow()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm", "herb", "  moss"}));
    }

    void theDisplayTextDecidesUntilARoleIsSet()
    {
        ScriptedTree source({"oak", "elm", "oak"});
        GroupByProxyModel proxy;

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "  oak", "  oak", "elm", "  elm"}));
    }

    void valuesAreComparedAsText()
    {
        ScriptedTree source({"a | size=7", "b"});
        source.change(source.find("b"), QStringLiteral("7"), ScriptedTree::SizeRole);
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setRole(ScriptedTree::SizeRole, "size");

        QCOMPARE(treeLines(proxy), (QStringList{"7", "  a", "  b"}));
    }

    void rowsWithoutATextFormTheGroupEmpty()
    {
        ScriptedTree source({"a", "b | kind=", "c"});

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"empty", "  a", "  b", "  c"}));
    }

    void rowsThatReallySayEmptyJoinThoseWithoutAText()
    {
        ScriptedTree source({"a", "b | kind=empty"});

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"empty", "  a", "  b"}));
    }

    void whatStandsBelowTheRowsOfTheSourceIsNotShown()
    {
        ScriptedTree source({"oak | kind=tree", "  acorn | kind=fruit"});

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak"}));
        QVERIFY(!proxy.mapFromSource(source.find("acorn")).isValid());
        QVERIFY(!proxy.index(0, 0, proxy.mapFromSource(source.find("oak"))).isValid());
    }

    void hasChildrenIsWhatTheSourceSays()
    {
        ScriptedTree source({"oak | kind=tree", "  acorn", "elm | kind=tree"});
        const KindGroups proxy(source);

        QVERIFY(proxy.hasChildren(proxy.index(0, 0)));
        QVERIFY(proxy.hasChildren(proxy.mapFromSource(source.find("oak"))));
        QVERIFY(!proxy.hasChildren(proxy.mapFromSource(source.find("elm"))));
        QCOMPARE(proxy.rowCount(proxy.mapFromSource(source.find("oak"))), 0);
    }

    void membersMapBothWays()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        const KindGroups proxy(source);

        const QModelIndex elm = proxy.mapFromSource(source.find("elm"));

        QCOMPARE(elm, proxy.index(1, 0, proxy.index(0, 0)));
        QCOMPARE(proxy.parent(elm), proxy.index(0, 0));
        QCOMPARE(proxy.mapToSource(elm), source.find("elm"));
    }

    void groupRowsAndTheRootMapToNothing()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);

        QVERIFY(!proxy.mapToSource(proxy.index(0, 0)).isValid());
        QVERIFY(!proxy.mapToSource({}).isValid());
        QVERIFY(!proxy.mapFromSource({}).isValid());
        QVERIFY(!proxy.parent(proxy.index(0, 0)).isValid());
        QVERIFY(!proxy.parent({}).isValid());
    }

    void thereIsOneColumnWhateverTheSourceHas()
    {
        ScriptedTree source({"oak | kind=tree"}, 2);
        const KindGroups proxy(source);

        QCOMPARE(proxy.columnCount(), 1);
        QCOMPARE(proxy.columnCount(proxy.index(0, 0)), 1);
        QVERIFY(!proxy.index(0, 1).isValid());
        QVERIFY(!proxy.mapFromSource(source.index(0, 1)).isValid());
    }

    void placesThatDoNotExistHaveNoIndex()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);

        QVERIFY(!proxy.index(1, 0).isValid());
        QVERIFY(!proxy.index(-1, 0).isValid());
        QVERIFY(!proxy.index(-1, 0, proxy.index(0, 0)).isValid());
        QVERIFY(!proxy.index(0, 1, proxy.index(0, 0)).isValid());
    }

    // Intended: whoever goes by rowCount never gets there.
    void behindTheLastMemberThereIsAnIndexWithoutAValue()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);

        const QModelIndex behind = proxy.index(7, 0, proxy.index(0, 0));

        QVERIFY(behind.isValid());
        QCOMPARE(behind.parent(), proxy.index(0, 0));
        QCOMPARE(behind.data(), QVariant());
        QVERIFY(!proxy.mapToSource(behind).isValid());
    }

    void aMemberAnswersEveryRoleFromTheSource()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        const KindGroups proxy(source);

        const QModelIndex oak = proxy.mapFromSource(source.find("oak"));

        QCOMPARE(oak.data(), QVariant("oak"));
        QCOMPARE(oak.data(ScriptedTree::KindRole), QVariant("tree"));
        QCOMPARE(oak.data(ScriptedTree::SizeRole), QVariant(3));
    }

    void aMemberIsWrittenInTheSource()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);

        QVERIFY(proxy.setData(proxy.mapFromSource(source.find("oak")), "great oak"));

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  great oak"}));
    }

    void aGroupRowIsTheInvalidIndexForWhatItDoesNotAnswerItself()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);

        QCOMPARE(proxy.flags(proxy.index(0, 0)), source.flags({}));
        QVERIFY(!proxy.setData(proxy.index(0, 0), "wood"));
    }

    void theRoleNamesAreThoseOfTheSource()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);

        QCOMPARE(proxy.roleNames(), source.roleNames());
    }

    void aGroupRowCountsItsMembers()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        const KindGroups proxy(source);

        const QVariant count = proxy.index(0, 0).data(SceneRoles::Count);

        QCOMPARE(count, QVariant(quint64(2)));
        QCOMPARE(count.userType(), int(QMetaType::ULongLong));
        QCOMPARE(int(SceneRoles::Count), Qt::UserRole + 101);
    }

    void groupsHaveAFolderForAnIcon()
    {
        ScriptedTree source({"oak | kind=tree"});
        source.change(source.find("oak"), "oak.png", Qt::DecorationRole);

        const KindGroups proxy(source);

        QCOMPARE(proxy.index(0, 0).data(Qt::DecorationRole), QVariant(folder));
    }

    void groupsByNameTypeOrPathHaveTheIconOfTheirLastRow_data()
    {
        QTest::addColumn<QString>("roleName");
        QTest::addColumn<QVariant>("icon");
        QTest::newRow("Name") << "Name" << QVariant("elm.png");
        QTest::newRow("Type") << "Type" << QVariant("elm.png");
        QTest::newRow("Path") << "Path" << QVariant("elm.png");
        QTest::newRow("another") << "name" << QVariant(folder);
        QTest::newRow("none") << "" << QVariant(folder);
    }

    void groupsByNameTypeOrPathHaveTheIconOfTheirLastRow()
    {
        QFETCH(QString, roleName);
        QFETCH(QVariant, icon);
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        source.change(source.find("oak"), "oak.png", Qt::DecorationRole);
        source.change(source.find("elm"), "elm.png", Qt::DecorationRole);
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setRole(ScriptedTree::KindRole, roleName.toStdString());

        QCOMPARE(proxy.index(0, 0).data(Qt::DecorationRole), icon);
    }

    void aLastRowWithoutAnIconLeavesTheGroupWithoutOne()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        source.change(source.find("oak"), "oak.png", Qt::DecorationRole);
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setRole(ScriptedTree::KindRole, "Type");

        QCOMPARE(proxy.index(0, 0).data(Qt::DecorationRole), QVariant());
    }

    void theRoleIsSetInAReset()
    {
        ScriptedTree source({"oak | kind=tree"});
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);
        SignalLog log(proxy);

        proxy.setRole(ScriptedTree::KindRole, "kind");

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak"}));
    }

    // Intended: the name only counts together with another role.
    void theSameRoleUnderAnotherNameChangesNothing()
    {
        ScriptedTree source({"oak | kind=tree"});
        source.change(source.find("oak"), "oak.png", Qt::DecorationRole);
        KindGroups proxy(source);
        SignalLog log(proxy);

        proxy.setRole(ScriptedTree::KindRole, "Type");
        QCOMPARE(log.take(), QStringList());

        proxy.setRootIndex({});
        QCOMPARE(proxy.index(0, 0).data(Qt::DecorationRole), QVariant(folder));
    }

    void theChildrenOfAnyIndexCanBeGrouped()
    {
        ScriptedTree source({"wood", "  oak | kind=tree", "  moss | kind=herb", "field | kind=tree"});
        KindGroups proxy(source);

        proxy.setRootIndex(source.find("wood"));

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "herb", "  moss"}));
        QVERIFY(!proxy.mapFromSource(source.find("field")).isValid());
        QVERIFY(!proxy.mapFromSource(source.find("wood")).isValid());
    }

    void theRootIndexIsSetInAResetEvenIfItIsTheSame()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);
        SignalLog log(proxy);

        proxy.setRootIndex({});

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void aNewSourceIsSetInAReset()
    {
        ScriptedTree source({"oak | kind=tree"});
        ScriptedTree next({"moss | kind=herb"});
        KindGroups proxy(source);
        SignalLog log(proxy);
        log.addNamed(proxy, "sourceModelChanged()");

        proxy.setSourceModel(&next);

        QCOMPARE(log.take(), (QStringList{"resetting", "sourceModelChanged()", "reset"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss"}));
    }

    void theSourceBeforeIsNotFollowedAnyMore()
    {
        ScriptedTree source({"oak | kind=tree"});
        ScriptedTree next({"moss | kind=herb"});
        KindGroups proxy(source);
        proxy.setSourceModel(&next);
        SignalLog log(proxy);

        source.insert({}, 0, {"elm | kind=tree"});
        source.reset({});

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss"}));
    }

    void aNullSourceHasNoRows()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);
        SignalLog log(proxy);

        proxy.setSourceModel(nullptr);

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(proxy.rowCount(), 0);
        QVERIFY(!proxy.sourceModel());
    }

    void aGroupPropertyStandsBeforeAllOtherValues()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        KindGroups proxy(source);
        SignalLog log(proxy);

        proxy.setGroupProperty(Qt::DisplayRole, "group");
        proxy.setGroupProperty(SceneRoles::Count, 7);

        QCOMPARE(treeLines(proxy), (QStringList{"group", "  oak", "group", "  moss"}));
        QCOMPARE(proxy.index(1, 0).data(SceneRoles::Count), QVariant(7));
        QCOMPARE(log.take(), QStringList());
    }

    void theFirstGroupPropertyOfARoleStays()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);
        proxy.setGroupProperty(SceneRoles::Expanded, true);

        proxy.setGroupProperty(SceneRoles::Expanded, false);

        QCOMPARE(proxy.index(0, 0).data(SceneRoles::Expanded), QVariant(true));
    }

    void aGroupPropertyDoesNotChangeTheGrouping()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);
        proxy.setGroupProperty(Qt::DisplayRole, "group");

        source.insert({}, 1, {"elm | kind=tree"});

        QCOMPARE(treeLines(proxy), (QStringList{"group", "  oak", "  elm"}));
    }

    void aValueThatAllMembersHaveIsShared()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=3"});
        KindGroups proxy(source);

        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(3));
    }

    void onlySharedRolesAreShared()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);

        proxy.setSharedRoles({ScriptedTree::IdRole});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
    }

    void differentValuesAreNotShared()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=4"});
        KindGroups proxy(source);

        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
    }

    void valuesThatConvertToEachOtherAreEqual()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "elm | kind=tree"});
        source.change(source.find("elm"), QStringLiteral("3"), ScriptedTree::SizeRole);
        KindGroups proxy(source);

        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(3));
    }

    void aValueThatDoesNotEqualItselfIsNotShared()
    {
        ScriptedTree source({"oak | kind=tree"});
        source.change(source.find("oak"), std::numeric_limits<double>::quiet_NaN(), ScriptedTree::SizeRole);
        KindGroups proxy(source);

        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
    }

    void settingSharedRolesTellsNobody()
    {
        ScriptedTree source({"oak | kind=tree"});
        KindGroups proxy(source);
        SignalLog log(proxy);

        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QCOMPARE(log.take(), QStringList());
    }

    void aSharedValueIsLookedForOnce()
    {
        CountingTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        source.questions = 0;

        proxy.index(0, 0).data(ScriptedTree::SizeRole);

        QCOMPARE(source.questions, 0);
    }

    void withoutASharedValueTheMembersAreAskedEachTime()
    {
        CountingTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=4"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        source.questions = 0;

        proxy.index(0, 0).data(ScriptedTree::SizeRole);

        QVERIFY(source.questions > 0);
    }

    void aSharedRoleThatIsNoneAnyMoreIsNotAnswered()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);

        proxy.setSharedRoles({});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
    }

    void groupNamesAreToldApartInFullAndShownUpToAZero()
    {
        ScriptedTree source({"a | kind=x", "b", "c"});
        source.change(source.find("b"), QString::fromUtf16(u"x\0y", 3), ScriptedTree::KindRole);
        source.change(source.find("c"), QString::fromUtf16(u"x\0z", 3), ScriptedTree::KindRole);

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"x", "  a", "x", "  b", "x", "  c"}));
    }

    void halfCharactersAreOneNameWithQuestionMarks()
    {
        ScriptedTree source({"a", "b | kind=?"});
        source.change(source.find("a"), QString(QChar(0xd800)), ScriptedTree::KindRole);

        const KindGroups proxy(source);

        QCOMPARE(treeLines(proxy), (QStringList{"?", "  a", "  b"}));
    }

    void indexesOfOtherModelsMapToNothing()
    {
        ScriptedTree source({"oak | kind=tree"});
        ScriptedTree other({"elm | kind=tree", "  cone"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});

        QVERIFY(!proxy.mapFromSource(other.index(0, 0)).isValid());
        QVERIFY(!proxy.mapToSource(other.index(0, 0)).isValid());
        QVERIFY(!proxy.index(0, 0, other.index(0, 0)).isValid());
        QVERIFY(!proxy.parent(other.find("cone")).isValid());
        QCOMPARE(proxy.rowCount(other.index(0, 0)), 0);
        QCOMPARE(proxy.data(other.index(0, 0), Qt::DisplayRole), QVariant());
    }

    void aRootIndexOfAnotherModelHasNoRows()
    {
        ScriptedTree source({"oak | kind=tree"});
        ScriptedTree other({"wood", "  elm | kind=tree"});
        KindGroups proxy(source);

        proxy.setRootIndex(other.find("wood"));

        QCOMPARE(proxy.rowCount(), 0);
    }

    void theRootIndexStaysWhenTheSourceIsExchanged()
    {
        ScriptedTree source({"wood", "  oak | kind=tree"});
        ScriptedTree next({"field", "  elm | kind=tree"});
        KindGroups proxy(source);
        proxy.setRootIndex(source.find("wood"));

        proxy.setSourceModel(&next);
        QCOMPARE(proxy.rowCount(), 0);

        proxy.setRootIndex(next.find("field"));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  elm"}));
    }

    void rowsOfTheSourceWithoutAnIndexAreLeftOut()
    {
        GappyList source({"oak", "elm", "ash"});
        GroupByProxyModel proxy;

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "  oak", "ash", "  ash"}));
    }

    void groupsOutliveTheirSourceWithoutValues()
    {
        auto source = std::make_unique<ScriptedTree>(QStringList{"oak | kind=tree | size=3"});
        KindGroups proxy(*source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});

        source.reset();

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  (invalid)"}));
        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
        QVERIFY(!proxy.mapToSource(proxy.index(0, 0, proxy.index(0, 0))).isValid());
    }

    void afterItsSourceHasDiedAProxyTakesAnother()
    {
        auto source = std::make_unique<ScriptedTree>(QStringList{"oak | kind=tree"});
        ScriptedTree next({"moss | kind=herb"});
        KindGroups proxy(*source);
        source.reset();

        proxy.setSourceModel(&next);

        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss"}));
    }

    void followsQtsContract()
    {
        ScriptedTree source({"wood", "  oak | kind=tree", "  moss | kind=herb", "field | kind=tree"});
        KindGroups proxy(source);
        const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);

        proxy.setRootIndex(source.find("wood"));
        proxy.setRole(Qt::DisplayRole, "");
        proxy.setSourceModel(nullptr);

        QCOMPARE(proxy.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_GroupByProxyModel)
#include "tst_group_by_proxy_model.moc"
