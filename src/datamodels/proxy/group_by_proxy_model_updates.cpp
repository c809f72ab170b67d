#include <datamodels/proxy/group_by_proxy_model.h>

#include <datamodels/model_scopes.h>
#include <datamodels/proxy/group_table.h>
#include <datamodels/scene_roles.h>
#include <host/base/debug.h>

#include <algorithm>
#include <set>

// How the proxy follows its source. Whoever hears a notification may read the model, or even change it: a group is
// looked up again after each.

namespace qelm::datamodels::proxy {
namespace {

void report(const char* fault, int line = __builtin_LINE())
{
    Ozy::DebugMessageHelper(Ozy::Priority::structural, "datamodels", __FILE__, line)
        .message("GroupByProxyModel(): %s\n", fault);
}

} // namespace

/// Rows of one notification that have one group name, in their order.
struct GroupByProxyModel::Batch
{
    QString name;
    std::vector<QPersistentModelIndex> rows;
};

void GroupByProxyModel::followSource(QAbstractItemModel& source)
{
    const auto follow = [&](auto signal, auto handler) {
        m_connections.push_back(connect(&source, signal, this, handler));
    };
    follow(&QAbstractItemModel::rowsInserted, &GroupByProxyModel::onItemsInserted);
    follow(&QAbstractItemModel::rowsAboutToBeRemoved, [this](const QModelIndex& parent, int first, int last) {
        onItemsAboutToBeRemoved(parent, first, last, false);
    });
    follow(&QAbstractItemModel::dataChanged, &GroupByProxyModel::onDataChanged);
    follow(&QAbstractItemModel::modelAboutToBeReset, [this] { beginResetModel(); });
    follow(&QAbstractItemModel::modelReset, [this] {
        populate();
        endResetModel();
    });
    follow(&QAbstractItemModel::layoutChanged, &GroupByProxyModel::onLayoutChanged);
    follow(&QAbstractItemModel::columnsInserted, [] { report("columnsInserted not supported"); });
    follow(&QAbstractItemModel::rowsMoved, [] { report("rowsMoved not supported"); });
    follow(&QAbstractItemModel::columnsMoved, [] { report("columnsMoved not supported"); });
}

void GroupByProxyModel::onItemsInserted(const QModelIndex& parent, int first, int last)
{
    if (m_rootIndex != parent || !sourceModel())
        return;
    std::vector<Batch> joining = batchesOf(parent, first, last, false);
    for (Batch& batch : joining) {
        std::erase_if(batch.rows, [this](const QPersistentModelIndex& row) {
            return !row.isValid() || m_groups->member(row); // a source may announce what it must not
        });
    }
    std::erase_if(joining, [](const Batch& batch) { return batch.rows.empty(); });

    const auto firstOld = std::stable_partition(joining.begin(), joining.end(),
                                                [this](const Batch& batch) { return !m_groups->find(batch.name); });
    std::vector<Batch> newGroups(std::make_move_iterator(joining.begin()), std::make_move_iterator(firstOld));
    joining.erase(joining.begin(), firstOld);

    insertGroups(newGroups);
    for (Batch& batch : joining)
        insertMembers(batch);
}

void GroupByProxyModel::insertGroups(std::vector<Batch>& batches)
{
    if (batches.empty())
        return;
    const ModelScopes::InsertRows scope(*this, QModelIndex(), static_cast<std::size_t>(m_groups->count()),
                                        batches.size());
    for (Batch& batch : batches) {
        Group& group = m_groups->fetch(batch.name);
        group.icon = getGroupIcon(batch.rows.front());
        for (QPersistentModelIndex& row : batch.rows)
            m_groups->append(group, std::move(row));
    }
}

void GroupByProxyModel::insertMembers(Batch& batch)
{
    const Group& before = m_groups->fetch(batch.name);
    const QModelIndex groupIndex = toIndex(before.index, -1, before);
    {
        const ModelScopes::InsertRows scope(*this, groupIndex, before.members.size(), batch.rows.size());
        Group& group = m_groups->fetch(batch.name);
        for (QPersistentModelIndex& row : batch.rows)
            m_groups->append(group, std::move(row));
    }
    QVector<int> roles{SceneRoles::Count};
    requestUpdateSharedData(groupIndex, roles, true);
}

void GroupByProxyModel::onItemsAboutToBeRemoved(const QModelIndex& parent, int first, int last, bool useCurrentGroup)
{
    if (m_rootIndex != parent || !sourceModel())
        return;
    std::vector<Batch> leaving = batchesOf(parent, first, last, useCurrentGroup);
    for (const Batch& batch : leaving) {
        // Intended: rows whose text has changed unsaid to one without a group are taken for members of the first
        // group, which has that name from then on.
        if (!m_groups->find(batch.name))
            m_groups->nameFirst(batch.name);
    }
    // Intended: a group goes when as many rows go as it has members; which ones is not asked.
    const auto firstPart = std::stable_partition(leaving.begin(), leaving.end(), [this](const Batch& batch) {
        const Group* group = m_groups->find(batch.name);
        return group && group->members.size() == batch.rows.size();
    });
    std::for_each(leaving.begin(), firstPart, [this](const Batch& batch) { removeGroup(batch.name); });
    std::for_each(firstPart, leaving.end(), [this](const Batch& batch) { removeMembers(batch); });
}

void GroupByProxyModel::removeGroup(const QString& name)
{
    // Under another name it may have gone just now.
    if (!m_groups->find(name))
        return report("unexpected index");
    const ModelScopes::RemoveRows scope(*this, QModelIndex(), static_cast<std::size_t>(m_groups->fetch(name).index), 1);
    if (!m_groups->remove(name))
        report("unexpected removal from container");
}

void GroupByProxyModel::removeMembers(const Batch& batch)
{
    if (!m_groups->find(batch.name))
        return report("unexpected index");
    const Group& group = m_groups->fetch(batch.name);
    const QModelIndex groupIndex = toIndex(group.index, -1, group);
    for (const QPersistentModelIndex& row : batch.rows)
        removeMember(groupIndex, row);
    QVector<int> roles{SceneRoles::Count};
    requestUpdateSharedData(groupIndex, roles, true);
}

// One bracket a member: views learn each row by itself.
void GroupByProxyModel::removeMember(const QModelIndex& groupIndex, const QPersistentModelIndex& sourceIndex)
{
    const Group::Member* member = m_groups->member(sourceIndex);
    if (!member || &m_groups->groupOf(*member) != fromIndex(groupIndex).first)
        return report("unexpected index");
    const ModelScopes::RemoveRows scope(*this, groupIndex, static_cast<std::size_t>(m_groups->rowOf(*member)), 1);
    if (!m_groups->removeMember(sourceIndex))
        report("unexpected removal from container");
}

void GroupByProxyModel::requestUpdateSharedData(const QModelIndex& groupIndex, QVector<int>& roles,
                                                bool addRequestedRoles)
{
    ++m_sharedGeneration;
    const Group* group = fromIndex(groupIndex).first;
    if (addRequestedRoles && group)
        roles += group->shared.requestedRoles();
    Q_EMIT dataChanged(groupIndex, groupIndex, roles);
}

void GroupByProxyModel::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                      const QVector<int>& roles)
{
    const QModelIndex root = m_rootIndex;
    if (topLeft.parent() != root)
        return;
    // Intended: the ends may lie in two groups.
    Q_EMIT dataChanged(mapFromSource(topLeft), mapFromSource(bottomRight), roles);

    std::set<QModelIndex> groupIndices;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        for (int column = topLeft.column(); column <= bottomRight.column(); ++column)
            groupIndices.insert(mapFromSource(topLeft.sibling(row, column)).parent());
    }
    for (const QModelIndex& groupIndex : groupIndices) {
        QVector<int> changedRoles = roles;
        requestUpdateSharedData(groupIndex, changedRoles, false);
    }

    const QAbstractItemModel* source = sourceModel();
    if (!source || (!roles.isEmpty() && !roles.contains(m_role)))
        return;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex index = source->index(row, 0, root);
        if (getGroupName(index, false) != getGroupName(index, true)) {
            // Intended: the whole range goes, also rows that kept their text.
            onItemsAboutToBeRemoved(root, topLeft.row(), bottomRight.row(), true);
            onItemsInserted(root, topLeft.row(), bottomRight.row());
            return;
        }
    }
}

// Intended: unannounced. What indexes meant before cannot be told afterwards, so the persistent ones become invalid.
void GroupByProxyModel::onLayoutChanged()
{
    const QModelIndexList indexes = persistentIndexList();
    changePersistentIndexList(indexes, QVector<QModelIndex>(indexes.size()).toList());
    populate();
    Q_EMIT layoutChanged({}, NoLayoutChangeHint);
}

std::vector<GroupByProxyModel::Batch> GroupByProxyModel::batchesOf(const QModelIndex& parent, int first, int last,
                                                                   bool useCurrentGroup) const
{
    std::vector<Batch> batches;
    QHash<QString, std::size_t> places;
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = sourceModel()->index(row, 0, parent);
        const QString name = getGroupName(index, useCurrentGroup);
        const auto place = places.find(name);
        if (place == places.end()) {
            places.insert(name, batches.size());
            batches.push_back({name, {index}});
        } else {
            batches[*place].rows.emplace_back(index);
        }
    }
    return batches;
}

} // namespace qelm::datamodels::proxy
