#include "kind_groups.h"

#include <datamodels/scene_roles.h>
#include <support/index_keeper.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QtTest>

using qelm::datamodels::proxy::GroupByProxyModel;

namespace {

/// Changes rows without telling anyone, or tells what is not so.
class SecretiveTree : public ScriptedTree
{
public:
    using ScriptedTree::ScriptedTree;

    void changeSecretly(const QString& text, const QString& kind)
    {
        const QSignalBlocker silence(this);
        change(find(text), kind, KindRole);
    }

    void announceInsertionOfWhatIsThere(int row)
    {
        Q_EMIT rowsInserted({}, row, row, {});
    }
};

QStringList trees(int count)
{
    QStringList lines;
    std::fill_n(std::back_inserter(lines), count, QStringLiteral("oak | kind=tree"));
    return lines;
}

/// The source rows that the members of a group map to and that do not map back to them.
QStringList brokenMappings(const GroupByProxyModel& proxy, const QModelIndex& group)
{
    QStringList broken;
    for (int row = 0; row < proxy.rowCount(group); ++row) {
        const QModelIndex member = proxy.index(row, 0, group);
        if (proxy.mapFromSource(proxy.mapToSource(member)) != member)
            broken << QString::number(row);
    }
    return broken;
}

} // namespace

/// What the proxy tells when its source changes. In the texts 257 is the role of the kind, 258 the size, 357 the count.
class tst_GroupByUpdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstRowsMakeTheFirstGroups()
    {
        ScriptedTree source;
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert({}, 0, {"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting / [0..1]", "inserted / [0..1]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm", "herb", "  moss"}));
    }

    void aNewTextMakesAGroupAtTheEndWithItsMembersInIt()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert({}, 0, {"moss | kind=herb", "fern | kind=herb"});

        QCOMPARE(log.take(), (QStringList{"inserting / [1..1]", "inserted / [1..1]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "herb", "  moss", "  fern"}));
        QCOMPARE(proxy.index(0, 0).data(SceneRoles::Count), QVariant(quint64(1)));
    }

    void severalNewTextsMakeTheirGroupsInOneInsertion()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert({}, 1, {"moss | kind=herb", "box | kind=bush", "fern | kind=herb"});

        QCOMPARE(log.take(), (QStringList{"inserting / [1..2]", "inserted / [1..2]"}));
        QCOMPARE(treeLines(proxy),
                 (QStringList{"tree", "  oak", "herb", "  moss", "  fern", "bush", "  box"}));
    }

    void rowsOfAKnownTextJoinAtTheEndAndTheGroupTellsItsCount()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert({}, 0, {"elm | kind=tree", "ash | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting /0 [1..2]", "inserted /0 [1..2]", "changed /0 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm", "  ash", "herb", "  moss"}));
    }

    void theCountIsFollowedByTheSharedRolesThatWereAskedForInTheirOrder()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "moss | kind=herb"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole, ScriptedTree::IdRole, Qt::ToolTipRole});
        proxy.index(0, 0).data(ScriptedTree::IdRole);
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        proxy.index(0, 0).data(ScriptedTree::IdRole);
        proxy.index(1, 0).data(Qt::ToolTipRole);
        SignalLog log(proxy);

        source.insert({}, 2, {"elm | kind=tree"});

        QCOMPARE(log.take(),
                 (QStringList{"inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357,259,258"}));
    }

    void rolesThatWereNotSharedWhenTheyWereAskedForAreNotTold()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        SignalLog log(proxy);

        source.insert({}, 1, {"elm | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357"}));
    }

    void newGroupsComeBeforeThoseThatGrow()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert({}, 0, {"fern | kind=herb", "box | kind=bush", "elm | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting / [2..2]", "inserted / [2..2]",
                                          "inserting /1 [1..1]", "inserted /1 [1..1]", "changed /1 roles 357",
                                          "inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357"}));
    }

    void aNewGroupHasTheIconOfItsFirstRowAndAGrowingOneKeepsIts()
    {
        ScriptedTree source({"oak | kind=tree"});
        source.change(source.find("oak"), "oak.png", Qt::DecorationRole);
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.setRole(ScriptedTree::KindRole, "Type");

        source.insert({}, 1, {"elm | kind=tree", "moss | kind=herb"});

        QCOMPARE(proxy.index(0, 0).data(Qt::DecorationRole), QVariant("oak.png"));
        QCOMPARE(proxy.index(1, 0).data(Qt::DecorationRole), QVariant());
    }

    void rowsBelowOtherIndexesAreNotFollowed()
    {
        ScriptedTree source({"oak | kind=tree", "  acorn"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.insert(source.find("oak"), 0, {"leaf | kind=herb"});
        source.remove(source.find("oak"), 0, 2);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak"}));
    }

    void rowsBelowTheRootIndexAreFollowed()
    {
        ScriptedTree source({"field", "wood", "  oak | kind=tree"});
        KindGroups proxy(source);
        proxy.setRootIndex(source.find("wood"));
        source.remove({}, 0);
        SignalLog log(proxy);

        source.insert(source.find("wood"), 0, {"elm | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm"}));
    }

    void aRowThatIsAnnouncedTwiceIsAMemberOnce()
    {
        SecretiveTree source({"oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.announceInsertionOfWhatIsThere(0);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak"}));
    }

    void membersLeaveOneByOneAndTheGroupTellsItsCount()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree", "ash | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.remove({}, 0, 2);

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..0]", "removed /0 [0..0]",
                                          "removing /0 [0..0]", "removed /0 [0..0]", "changed /0 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  ash"}));
    }

    void membersLeaveBeforeTheSourceLosesThem()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        const KindGroups proxy(source);
        QStringList heard;
        connect(&proxy, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                [&](const QModelIndex& parent, int row) { heard << proxy.index(row, 0, parent).data().toString(); });
        connect(&proxy, &QAbstractItemModel::rowsRemoved, this, [&] { heard << treeLines(proxy); });

        source.remove({}, 0);

        QCOMPARE(heard, (QStringList{"oak", "tree", "  elm"}));
    }

    void aRemovalTellsTheSharedRolesToo()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=4"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        SignalLog log(proxy);

        source.remove({}, 0);

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..0]", "removed /0 [0..0]", "changed /0 roles 357,258"}));
        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(4));
    }

    void withItsLastMemberAGroupGoesAndSaysNothingElse()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.remove({}, 0);

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss"}));
    }

    void groupsThatGoComeBeforeThoseThatShrink()
    {
        ScriptedTree source({"elm | kind=tree", "box | kind=bush", "moss | kind=herb", "fern | kind=herb",
                             "oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.remove({}, 0, 4);

        QCOMPARE(log.take(), (QStringList{"removing / [1..1]", "removed / [1..1]",
                                          "removing / [1..1]", "removed / [1..1]",
                                          "removing /0 [0..0]", "removed /0 [0..0]", "changed /0 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak"}));
    }

    void afterAGroupHasGoneTheLaterOnesAreOneLower()
    {
        ScriptedTree source({"oak | kind=tree", "box | kind=bush", "moss | kind=herb", "fern | kind=herb"});
        const KindGroups proxy(source);
        const IndexKeeper members(proxy, ScriptedTree::IdRole);
        const IndexKeeper groups(proxy);

        source.remove({}, 1);

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "herb", "  moss", "  fern"}));
        QCOMPARE(proxy.mapFromSource(source.find("fern")), proxy.index(1, 0, proxy.index(1, 0)));
        QCOMPARE(members.strayed(), QStringList());
        QCOMPARE(groups.strayed(), QStringList());
        QCOMPARE(groups.lost(), (QStringList{"bush", "box"}));
    }

    void persistentIndexesOfMembersFollowTheirSourceRowsWhenAnEarlierGroupGoes()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "fern | kind=herb"});
        const KindGroups proxy(source);
        const QPersistentModelIndex fern = proxy.mapFromSource(source.find("fern"));

        source.remove({}, 0);

        QCOMPARE(proxy.mapToSource(fern), source.find("fern"));
        QCOMPARE(fern.parent(), proxy.index(0, 0));
        QCOMPARE(fern.row(), 1);
    }

    void anIndexOfAGroupThatHasGoneFindsNothing()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        KindGroups proxy(source);
        const QModelIndex group = proxy.index(1, 0);
        const QModelIndex member = proxy.index(0, 0, group);

        source.remove({}, 1);

        QCOMPARE(proxy.data(group), QVariant());
        QCOMPARE(proxy.data(member), QVariant());
        QCOMPARE(proxy.rowCount(group), 0);
        QVERIFY(!proxy.index(0, 0, group).isValid());
        QVERIFY(!proxy.parent(member).isValid());
        QVERIFY(!proxy.mapToSource(member).isValid());
    }

    void aGroupThatComesBackStandsAtTheEndAndForgetsWhatItWasAskedFor()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "moss | kind=herb"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        source.remove({}, 0);
        source.insert({}, 0, {"elm | kind=tree | size=4"});
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "tree", "  elm"}));
        SignalLog log(proxy);

        source.insert({}, 0, {"ash | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"inserting /1 [1..1]", "inserted /1 [1..1]", "changed /1 roles 357"}));
    }

    void membersKnowTheirPlacesAfterManyHaveLeft()
    {
        ScriptedTree source(trees(300));
        const KindGroups proxy(source);
        const QModelIndex group = proxy.index(0, 0);
        const IndexKeeper members(proxy, ScriptedTree::IdRole);

        source.remove({}, 0, 50);
        QCOMPARE(brokenMappings(proxy, group), QStringList());
        source.remove({}, 60, 50);
        source.insert({}, 0, trees(3));
        QCOMPARE(brokenMappings(proxy, group), QStringList());
        source.remove({}, 100, 103);
        QCOMPARE(brokenMappings(proxy, group), QStringList());

        QCOMPARE(proxy.rowCount(group), 100);
        QCOMPARE(members.strayed(), QStringList());
    }

    void theRowsAreInPlaceAtEachNotification()
    {
        ScriptedTree source({"box | kind=bush", "oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        const KindGroups proxy(source);
        QStringList heard;
        const auto note = [&] { heard << treeLines(proxy).join(" ").simplified(); };
        connect(&proxy, &QAbstractItemModel::rowsAboutToBeRemoved, this, note);
        connect(&proxy, &QAbstractItemModel::rowsRemoved, this, note);
        connect(&proxy, &QAbstractItemModel::dataChanged, this, note);

        source.remove({}, 0, 2);

        QCOMPARE(heard, (QStringList{"bush box tree oak elm herb moss", "tree oak elm herb moss",
                                     "tree oak elm herb moss", "tree elm herb moss", "tree elm herb moss"}));
    }

    void aChangeOfAnotherRoleIsForwardedAndToldOfTheGroup()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("elm"), 7, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), (QStringList{"changed /0/1 roles 258", "changed /0 roles 258"}));
    }

    void whatTheSourceSaidHasChangedIsNotAddedTo()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::IdRole});
        proxy.index(0, 0).data(ScriptedTree::IdRole);
        SignalLog log(proxy);

        source.change(source.find("oak"), 7, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), (QStringList{"changed /0/0 roles 258", "changed /0 roles 258"}));
    }

    void aChangeAcrossGroupsIsForwardedWithItsTwoEnds()
    {
        ScriptedTree source({"moss | kind=herb", "oak | kind=tree", "fern | kind=herb", "elm | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), source.find("fern"), ScriptedTree::SizeRole, {7});

        QCOMPARE(log.take(), (QStringList{"changed /1/0 .. /0/1 roles 258", "changed /0 roles 258",
                                          "changed /1 roles 258"}));
    }

    void aRowThatChangesItsTextLeavesAndJoins()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), "herb", ScriptedTree::KindRole);

        QCOMPARE(log.take(), (QStringList{"changed /0/0 roles 257", "changed /0 roles 257",
                                          "removing /0 [0..0]", "removed /0 [0..0]", "changed /0 roles 357",
                                          "inserting /1 [1..1]", "inserted /1 [1..1]", "changed /1 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  elm", "herb", "  moss", "  oak"}));
    }

    void aChangeWithoutRolesMayBeOneOfTheText()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), source.find("oak"), ScriptedTree::KindRole, {"herb"},
                      ScriptedTree::TellNoRoles);

        QCOMPARE(log.take(), (QStringList{"changed /0/0", "changed /0", "removing / [0..0]", "removed / [0..0]",
                                          "inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "  oak"}));
    }

    void aChangeWithoutRolesThatLeavesTheTextsRegroupsNothing()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), source.find("oak"), ScriptedTree::SizeRole, {7}, ScriptedTree::TellNoRoles);

        QCOMPARE(log.take(), (QStringList{"changed /0/0", "changed /0"}));
    }

    void aChangeOfTheTextThatIsToldForAnotherRoleIsNotSeen()
    {
        ScriptedTree source({"oak", "elm"});
        GroupByProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.setRole(ScriptedTree::KeyRole, "key"); // made of the display text and the id
        SignalLog log(proxy);

        source.change(source.find("oak"), "ash");

        QCOMPARE(log.take(), (QStringList{"changed /0/0 roles 0", "changed /0 roles 0"}));
        QCOMPARE(treeLines(proxy), (QStringList{"oak 1", "  ash", "elm 2", "  elm"}));
    }

    // Intended: also the rows that kept their text.
    void theWholeRangeLeavesAndJoinsWhenOneRowChangesItsText()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree", "ash | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), source.find("elm"), ScriptedTree::KindRole, {"tree", "herb"});

        QCOMPARE(log.take(), (QStringList{"changed /0/0 .. /0/1 roles 257", "changed /0 roles 257",
                                          "removing /0 [0..0]", "removed /0 [0..0]",
                                          "removing /0 [0..0]", "removed /0 [0..0]", "changed /0 roles 357",
                                          "inserting /0 [1..1]", "inserted /0 [1..1]", "changed /0 roles 357",
                                          "inserting /1 [1..1]", "inserted /1 [1..1]", "changed /1 roles 357"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  ash", "  oak", "herb", "  moss", "  elm"}));
    }

    void aGroupThatIsLeftByAllGoesAndComesBackAtTheEnd()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("oak"), source.find("elm"), ScriptedTree::KindRole, {"tree", "bush"});

        QCOMPARE(log.take(), (QStringList{"changed /0/0 .. /0/1 roles 257", "changed /0 roles 257",
                                          "removing / [0..0]", "removed / [0..0]",
                                          "inserting / [1..2]", "inserted / [1..2]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "tree", "  oak", "bush", "  elm"}));
    }

    void aRowThatLosesItsTextJoinsTheGroupEmpty()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        const KindGroups proxy(source);

        source.change(source.find("oak"), "", ScriptedTree::KindRole);

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  elm", "empty", "  oak"}));
    }

    void changesBelowOtherIndexesAreIgnored()
    {
        ScriptedTree source({"oak | kind=tree", "  acorn | kind=fruit"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.find("acorn"), "seed", ScriptedTree::KindRole);

        QCOMPARE(log.take(), QStringList());
    }

    void theTopLevelIsIgnoredUnderAnotherRootIndex()
    {
        ScriptedTree source({"wood | kind=place", "  oak | kind=tree"});
        KindGroups proxy(source);
        proxy.setRootIndex(source.find("wood"));
        SignalLog log(proxy);

        source.change(source.find("wood"), "home", ScriptedTree::KindRole);

        QCOMPARE(log.take(), QStringList());
    }

    // Intended: a view of one column has nothing to show for it.
    void aChangeOfAnotherColumnIsForwardedWithoutAPlace()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"}, 2);
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.index(0, 1), 7, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), (QStringList{"changed / roles 258", "changed / roles 258"}));
    }

    void aChangeOfSeveralColumnsIsToldOfNoPlaceAndThenOfTheGroups()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"}, 2);
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.change(source.index(0, 0), source.index(1, 1), ScriptedTree::SizeRole, {7});

        QCOMPARE(log.take(), (QStringList{"changed /0/0 .. / roles 258", "changed / roles 258",
                                          "changed /0 roles 258", "changed /1 roles 258"}));
    }

    void sharedValuesEndWhenAMemberThatDiffersJoins()
    {
        ScriptedTree source({"oak | kind=tree | size=3", "elm | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(3));

        source.insert({}, 0, {"ash | kind=tree | size=4"});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant());
    }

    void sharedValuesAreLookedForAgainAfterAChange()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(3));

        source.change(source.find("oak"), 4, ScriptedTree::SizeRole);

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(4));
    }

    void aSharedValueIsStillTheOldOneWhileTheChangeIsForwarded()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        QVariantList heard;
        connect(&proxy, &QAbstractItemModel::dataChanged, this,
                [&] { heard << proxy.index(0, 0).data(ScriptedTree::SizeRole); });

        source.change(source.find("oak"), 4, ScriptedTree::SizeRole);

        QCOMPARE(heard, (QVariantList{3, 4}));
    }

    void aResetIsOneReset()
    {
        ScriptedTree source({"oak | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.reset({"moss | kind=herb", "elm | kind=tree"});

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "tree", "  elm"}));
    }

    void afterAResetSharedValuesAreNew()
    {
        ScriptedTree source({"oak | kind=tree | size=3"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        proxy.index(0, 0).data(ScriptedTree::SizeRole);

        source.reset({"elm | kind=tree | size=4"});

        QCOMPARE(proxy.index(0, 0).data(ScriptedTree::SizeRole), QVariant(4));
    }

    // Intended: only the end of a layout change is told.
    void aLayoutChangeGroupsAnewAndIsNotAnnounced()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);

        source.rearrange({}, {2, 1, 0});

        QCOMPARE(log.take(), QStringList{"layout changed"});
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  elm", "  oak", "herb", "  moss"}));
    }

    void afterALayoutChangeThePersistentIndexesAreInvalid()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        const IndexKeeper indexes(proxy);

        source.rearrange({}, {1, 0});

        QCOMPARE(indexes.lost(), (QStringList{"tree", "oak", "herb", "moss"}));
    }

    void rowsThatGoAfterALayoutChangeAreFollowed()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        const IndexKeeper indexes(proxy);
        proxy.index(0, 0).data(ScriptedTree::SizeRole);
        source.rearrange({}, {1, 0, 2});

        source.remove({}, 1);

        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "tree", "  elm"}));
    }

    void aSortFilterProxyOnTopGoesAlongWithALayoutChange()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "elm | kind=tree"});
        KindGroups proxy(source);
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&proxy);
        sorted.sort(0);
        QCOMPARE(treeLines(sorted), (QStringList{"herb", "  moss", "tree", "  elm", "  oak"}));

        source.rearrange({}, {2, 1, 0});
        source.remove({}, 1);

        QCOMPARE(treeLines(sorted), (QStringList{"tree", "  elm", "  oak"}));
    }

    void aMoveIsReportedAndNotFollowed()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree"});
        const KindGroups proxy(source);
        SignalLog log(proxy);
        LogCapture messages;

        source.move({}, 1, 1, {}, 0);

        QCOMPARE(messages.messages(), QStringList{"6 GroupByProxyModel(): rowsMoved not supported"});
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm"}));
        QCOMPARE(proxy.mapToSource(proxy.index(0, 0, proxy.index(0, 0))), source.find("oak"));
    }

    void insertedAndMovedColumnsAreReportedAndNotFollowed()
    {
        QStandardItemModel source(1, 2);
        const KindGroups proxy(source);
        SignalLog log(proxy);
        LogCapture messages;

        source.insertColumn(0);
        Q_EMIT source.columnsMoved({}, 0, 0, {}, 2, {});

        QCOMPARE(messages.messages(), (QStringList{"6 GroupByProxyModel(): columnsInserted not supported",
                                                   "6 GroupByProxyModel(): columnsMoved not supported"}));
        QCOMPARE(log.take(), QStringList());
    }

    void aRowThatChangedItsTextSecretlyIsNotFoundWhenItGoes()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb", "fern | kind=herb"});
        const KindGroups proxy(source);
        source.changeSecretly("oak", "herb");
        SignalLog log(proxy);
        LogCapture messages;

        source.remove({}, 0);

        QCOMPARE(messages.messages(), QStringList{"6 GroupByProxyModel(): unexpected index"});
        QCOMPARE(log.take(), QStringList{"changed /1 roles 357"});
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  (invalid)", "  elm", "herb", "  moss", "  fern"}));
    }

    void aMemberThatWasLostAnswersNothingUntilTheNextReset()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb", "fern | kind=herb"});
        KindGroups proxy(source);
        const LogCapture messages;
        source.changeSecretly("oak", "herb");
        source.remove({}, 0);
        const QModelIndex lost = proxy.index(0, 0, proxy.index(0, 0));
        QVERIFY(!proxy.mapToSource(lost).isValid());

        proxy.setRootIndex({});

        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  elm", "herb", "  moss", "  fern"}));
    }

    void aGroupGoesWithItsLostMembers()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "fir | kind=tree", "moss | kind=herb",
                              "fern | kind=herb"});
        const KindGroups proxy(source);
        const LogCapture messages;
        source.changeSecretly("oak", "herb");
        source.changeSecretly("elm", "herb");
        source.remove({}, 1);
        source.remove({}, 0);
        source.changeSecretly("moss", "tree");
        source.changeSecretly("fern", "tree");
        QCOMPARE(treeLines(proxy),
                 (QStringList{"tree", "  (invalid)", "  (invalid)", "  fir", "herb", "  moss", "  fern"}));

        source.remove({}, 0, 3);

        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  (invalid)", "  (invalid)"}));
    }

    // Intended: the first group stands in for one that is not there.
    void aSecretTextWithoutAGroupIsTakenForTheFirstGroupWhichTakesItsName()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        source.changeSecretly("moss", "weed");
        SignalLog log(proxy);
        LogCapture messages;

        source.remove({}, 2);

        QCOMPARE(messages.messages(), QStringList{"6 GroupByProxyModel(): unexpected index"});
        QCOMPARE(log.take(), QStringList{"changed /0 roles 357"});
        QCOMPARE(treeLines(proxy), (QStringList{"weed", "  oak", "  elm", "herb", "  (invalid)"}));
    }

    void theFirstGroupAnswersToBothNamesThen()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        const LogCapture messages;
        source.changeSecretly("moss", "weed");
        source.remove({}, 2);

        source.insert({}, 2, {"nettle | kind=weed"});
        QCOMPARE(treeLines(proxy), (QStringList{"weed", "  oak", "  elm", "  nettle", "herb", "  (invalid)"}));

        source.insert({}, 3, {"ash | kind=tree"});
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  oak", "  elm", "  nettle", "  ash", "herb", "  (invalid)"}));
    }

    void aMemberOfTheFirstGroupWithASecretTextLeavesItAllTheSame()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree"});
        const KindGroups proxy(source);
        source.changeSecretly("oak", "weed");
        LogCapture messages;

        source.remove({}, 0);

        QCOMPARE(messages.messages(), QStringList());
        QCOMPARE(treeLines(proxy), (QStringList{"weed", "  elm"}));
    }

    void aFirstGroupThatGoesUnderAnotherNameLeavesNoNameBehind()
    {
        SecretiveTree source({"oak | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        source.changeSecretly("oak", "weed");
        SignalLog log(proxy);

        source.remove({}, 0);
        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]"}));

        source.insert({}, 0, {"elm | kind=tree", "nettle | kind=weed"});
        QCOMPARE(log.take(), (QStringList{"inserting / [1..2]", "inserted / [1..2]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  moss", "tree", "  elm", "weed", "  nettle"}));
    }

    void aGroupThatGoesUnderTwoOtherNamesGoesOnce()
    {
        SecretiveTree source({"oak | kind=tree", "moss | kind=herb", "fern | kind=herb"});
        const KindGroups proxy(source);
        source.changeSecretly("moss", "weed");
        source.changeSecretly("fern", "bush");
        SignalLog log(proxy);
        LogCapture messages;

        source.remove({}, 1, 2);

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]"}));
        QCOMPARE(messages.messages(), QStringList{"6 GroupByProxyModel(): unexpected index"});
        QCOMPARE(treeLines(proxy), (QStringList{"herb", "  (invalid)", "  (invalid)"}));
    }

    // Intended: the number decides, not which rows they are.
    void aSecretTextTakesAGroupAlongThatHasAsManyMembersAsRowsGo()
    {
        SecretiveTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        const KindGroups proxy(source);
        source.changeSecretly("oak", "herb");
        SignalLog log(proxy);

        source.remove({}, 0);

        QCOMPARE(log.take(), (QStringList{"removing / [1..1]", "removed / [1..1]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  (invalid)", "  elm"}));
    }

    void rowsThatGoUnseenWithoutAnyGroupAreReported()
    {
        SecretiveTree source;
        const KindGroups proxy(source);
        {
            const QSignalBlocker silence(&source);
            source.insert({}, 0, {"oak | kind=tree"});
        }
        SignalLog log(proxy);
        LogCapture messages;

        source.remove({}, 0);

        QCOMPARE(messages.messages(), QStringList{"6 GroupByProxyModel(): unexpected index"});
        QCOMPARE(log.take(), QStringList());
    }

    void withItsRootIndexGoneTheProxyFollowsTheTopLevel()
    {
        ScriptedTree source({"wood", "  oak | kind=tree", "field"});
        KindGroups proxy(source);
        proxy.setRootIndex(source.find("wood"));

        source.remove({}, 0);
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  (invalid)"}));

        source.insert({}, 1, {"house | kind=building"});
        QCOMPARE(treeLines(proxy), (QStringList{"tree", "  (invalid)", "building", "  house"}));
    }

    void aListenerThatChangesTheRoleInTheMiddleDoesNoHarm()
    {
        ScriptedTree source({"oak | kind=tree", "elm | kind=tree", "moss | kind=herb"});
        KindGroups proxy(source);
        connect(&proxy, &QAbstractItemModel::rowsRemoved, this, [&] { proxy.setRole(Qt::DisplayRole, ""); });

        source.remove({}, 0);
        proxy.setRootIndex({});

        QCOMPARE(treeLines(proxy), (QStringList{"elm", "  elm", "moss", "  moss"}));
    }

    // A change across groups is left out: it breaks the contract on purpose, since its ends have two parents.
    void followsQtsContract()
    {
        ScriptedTree source({"oak | kind=tree", "moss | kind=herb", "fern | kind=herb"});
        KindGroups proxy(source);
        proxy.setSharedRoles({ScriptedTree::SizeRole});
        const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);

        source.insert({}, 1, {"elm | kind=tree", "box | kind=bush", "  leaf", "ash"});
        source.change(source.find("elm"), "herb", ScriptedTree::KindRole);
        source.change(source.find("box"), "bush", ScriptedTree::KindRole);
        source.rearrange({}, {5, 4, 3, 2, 1, 0});
        source.remove({}, 1, 3);
        source.reset({"fir | kind=tree", "pine | kind=tree"});
        source.remove({}, 0, 2);

        QCOMPARE(treeLines(proxy), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_GroupByUpdates)
#include "tst_group_by_updates.moc"
