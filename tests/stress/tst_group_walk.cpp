#include <datamodels/proxy/group_by_proxy_model.h>
#include <datamodels/scene_roles.h>
#include <support/index_keeper.h>
#include <support/random_walk.h>
#include <support/tree_lines.h>
#include <support/tree_mirror.h>

#include <QtTest>

#include <map>
#include <set>

using qelm::datamodels::proxy::GroupByProxyModel;

namespace {

constexpr int idRole = ScriptedTree::IdRole;
constexpr int sharedRole = ScriptedTree::SizeRole;

/// What must hold of one group, whatever the order of rows.
struct Group
{
    std::set<int> ids;
    QVariant count;
    QVariant shared;
    QVariant icon;

    bool operator==(const Group&) const = default;
};

using Groups = std::map<QString, Group>;

Groups groupsOf(const GroupByProxyModel& proxy)
{
    Groups groups;
    for (int row = 0; row < proxy.rowCount(); ++row) {
        const QModelIndex index = proxy.index(row, 0);
        Group& group = groups[index.data().toString()];
        for (int member = 0; member < proxy.rowCount(index); ++member)
            group.ids.insert(proxy.index(member, 0, index).data(idRole).toInt());
        group.count = index.data(SceneRoles::Count);
        group.shared = index.data(sharedRole);
        group.icon = index.data(Qt::DecorationRole);
    }
    return groups;
}

std::unique_ptr<GroupByProxyModel> grouped(QAbstractItemModel& source, int role)
{
    auto proxy = std::make_unique<GroupByProxyModel>();
    proxy->setSourceModel(&source);
    proxy->setSharedRoles({sharedRole});
    proxy->setRole(role, "kind");
    proxy->setRootIndex({}); // the display role is set already
    return proxy;
}

/// What is wrong with the tables behind a proxy, as far as its interface shows them.
QString brokenInvariant(const GroupByProxyModel& proxy)
{
    const int rows = proxy.sourceModel()->rowCount();
    int members = 0;
    std::set<QString> names;
    for (int row = 0; row < proxy.rowCount(); ++row) {
        const QModelIndex group = proxy.index(row, 0);
        const int count = proxy.rowCount(group);
        if (count == 0)
            return "a group has no members";
        if (!names.insert(group.data().toString()).second)
            return "two groups have one name";
        for (int place = 0; place < count; ++place) {
            const QModelIndex member = proxy.index(place, 0, group);
            const QModelIndex source = proxy.mapToSource(member);
            if (!source.isValid() || source.parent().isValid())
                return "a member stands for no row of the source's top level";
            if (proxy.mapFromSource(source) != member || member.parent() != group)
                return "the two directions of mapping differ";
        }
        members += count;
    }
    return members == rows ? QString() : QString("a row is missing or there is one too many");
}

/// The names of group rows by persistent indexes.
class GroupKeeper
{
public:
    explicit GroupKeeper(const GroupByProxyModel& proxy)
    {
        for (int row = 0; row < proxy.rowCount(); ++row)
            m_kept.emplace_back(proxy.index(row, 0), proxy.index(row, 0).data());
    }

    bool hasStrayed() const
    {
        return std::any_of(m_kept.begin(), m_kept.end(), [](const auto& kept) {
            return kept.first.isValid() && kept.first.data() != kept.second;
        });
    }

private:
    std::vector<std::pair<QPersistentModelIndex, QVariant>> m_kept;
};

/// Makes one step; tells what is wrong then, nothing if all is well.
QString faultAfterStep(RandomWalk& walk, const ScriptedTree& source, const GroupByProxyModel& proxy,
                       const TreeMirror& mirror)
{
    const IndexKeeper members(proxy, idRole);
    const GroupKeeper groups(proxy);
    const int staleQuestions = source.staleQuestions();

    walk.step();

    if (source.staleQuestions() != staleQuestions)
        return "it asks about rows that are gone";
    if (!members.strayed().isEmpty())
        return "persistent indexes of members have strayed: " + members.strayed().join(", ");
    if (groups.hasStrayed())
        return "persistent indexes of groups have strayed";
    if (!mirror.faults().isEmpty() || mirror.lines() != treeLines(proxy, idRole))
        return "the signals told another story: " + mirror.faults().join(", ");
    return brokenInvariant(proxy);
}

// Moves are not followed.
constexpr RandomWalk::Settings everyChangeButMoves{6, 5, 0, 8, 2, 1, true, true};
// Groups grow old.
constexpr RandomWalk::Settings rowsAndValues{6, 5, 0, 8, 0, 0, true, true};

} // namespace

/// Random legal changes of a source under a grouping.
class tst_GroupWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theGroupsStayAsIfFilledAnew_data()
    {
        QTest::addColumn<int>("role");
        QTest::addColumn<bool>("isFilledAnewAtTimes");
        QTest::newRow("by kind") << int(ScriptedTree::KindRole) << true;
        QTest::newRow("by size") << int(ScriptedTree::SizeRole) << true;
        QTest::newRow("by text") << int(Qt::DisplayRole) << true;
        QTest::newRow("by kind, never filled anew") << int(ScriptedTree::KindRole) << false;
    }

    void theGroupsStayAsIfFilledAnew()
    {
        QFETCH(int, role);
        QFETCH(bool, isFilledAnewAtTimes);
        ScriptedTree source({"oak | kind=tree | size=1", "elm | kind=tree | size=1", "moss | kind=herb | size=2"});
        RandomWalk walk(source, 26, isFilledAnewAtTimes ? everyChangeButMoves : rowsAndValues);
        const std::unique_ptr<GroupByProxyModel> proxy = grouped(source, role);
        const TreeMirror mirror(*proxy, idRole);

        for (int step = 0; step < WALK_STEPS; ++step) {
            const QString fault = faultAfterStep(walk, source, *proxy, mirror);
            QVERIFY2(fault.isEmpty(), qPrintable(walk.where() + ": " + fault));
            QVERIFY2(groupsOf(*proxy) == groupsOf(*grouped(source, role)),
                     qPrintable(walk.where() + ":\n" + treeLines(*proxy).join('\n')));
        }
    }
};

QTEST_GUILESS_MAIN(tst_GroupWalk)
#include "tst_group_walk.moc"
