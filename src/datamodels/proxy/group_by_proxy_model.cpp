#include <datamodels/proxy/group_by_proxy_model.h>

#include <datamodels/model_scopes.h>
#include <datamodels/proxy/group_table.h>
#include <datamodels/scene_roles.h>

#include <algorithm>

namespace qelm::datamodels::proxy {
namespace {

constexpr int groupRow = -1;

// Lone surrogates do not survive as UTF-8, which is what names are compared as.
QString withoutLoneSurrogates(const QString& text)
{
    if (text.isValidUtf16())
        return text;
    return QString::fromUtf8(QByteArray(1, ' ') + text.toUtf8()).mid(1); // the space keeps a leading byte-order mark
}

} // namespace

GroupByProxyModel::GroupByProxyModel() : m_groups(std::make_unique<GroupTable>())
{
}

GroupByProxyModel::~GroupByProxyModel() = default;

void GroupByProxyModel::setSourceModel(QAbstractItemModel* source)
{
    const ModelScopes::Reset scope(*this);
    for (const QMetaObject::Connection& connection : m_connections)
        disconnect(connection);
    m_connections.clear();
    if (source)
        followSource(*source);
    QAbstractProxyModel::setSourceModel(source);
    populate();
}

QModelIndex GroupByProxyModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0)
        return {};
    if (!parent.isValid()) {
        const Group* group = m_groups->at(row);
        return group ? toIndex(row, groupRow, *group) : QModelIndex();
    }
    const auto [group, key] = fromIndex(parent);
    return group && key == groupRow ? toIndex(row, row, *group) : QModelIndex();
}

QModelIndex GroupByProxyModel::parent(const QModelIndex& child) const
{
    const auto [group, key] = fromIndex(child);
    return group && key != groupRow ? toIndex(group->index, groupRow, *group) : QModelIndex();
}

int GroupByProxyModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_groups->count();
    const auto [group, key] = fromIndex(parent);
    return group && key == groupRow ? group->count() : 0;
}

int GroupByProxyModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant GroupByProxyModel::data(const QModelIndex& index, int role) const
{
    const auto [group, key] = fromIndex(index);
    if (!group)
        return {};
    return key == groupRow ? groupData(*group, role) : mapToSource(index).data(role);
}

QModelIndex GroupByProxyModel::mapToSource(const QModelIndex& proxyIndex) const
{
    const auto [group, key] = fromIndex(proxyIndex);
    if (!group || key == groupRow || key >= group->count())
        return {};
    return group->members[static_cast<std::size_t>(key)]->first;
}

QModelIndex GroupByProxyModel::mapFromSource(const QModelIndex& sourceIndex) const
{
    const Group::Member* member = sourceIndex.isValid() ? m_groups->member(sourceIndex) : nullptr;
    if (!member)
        return {};
    const int row = m_groups->rowOf(*member);
    return toIndex(row, row, m_groups->groupOf(*member));
}

void GroupByProxyModel::setRole(int role, std::string roleName)
{
    static const std::unordered_set<std::string> rolesWithIcons{"Name", "Type", "Path"};
    if (m_role == role)
        return;
    m_role = role;
    m_roleName = std::move(roleName);
    m_iconFromSource = rolesWithIcons.count(m_roleName) > 0;

    const ModelScopes::Reset scope(*this);
    populate();
}

void GroupByProxyModel::setRootIndex(const QModelIndex& index)
{
    const ModelScopes::Reset scope(*this);
    m_rootIndex = index;
    populate();
}

void GroupByProxyModel::setSharedRoles(const std::unordered_set<int>& roles)
{
    m_sharedRoles = roles;
}

void GroupByProxyModel::setGroupProperty(int role, const QVariant& value)
{
    m_groupProperties.try_emplace(role, value);
}

/// The group of an index, with the row of a member in it or -1 for the group row; null for an index that is not ours
/// or whose group has gone.
std::pair<Group*, int> GroupByProxyModel::fromIndex(const QModelIndex& index) const
{
    Group* group = index.model() == this ? m_groups->groupOfId(index.internalId()) : nullptr;
    if (!group)
        return {nullptr, groupRow};
    return {group, GroupTable::isMemberId(index.internalId()) ? index.row() : groupRow};
}

QModelIndex GroupByProxyModel::toIndex(int row, int key, const Group& group) const
{
    return createIndex(row, 0, key == groupRow ? GroupTable::groupId(group) : GroupTable::memberId(group));
}

QVariant GroupByProxyModel::groupData(Group& group, int role) const
{
    const auto property = m_groupProperties.find(role);
    if (property != m_groupProperties.end())
        return property->second;
    switch (role) {
    case Qt::DisplayRole:
        // Intended: as zero-terminated text, though groups are told apart by the whole of it.
        return QString::fromUtf8(group.name.toUtf8().constData());
    case Qt::DecorationRole:
        return group.icon;
    case SceneRoles::Count:
        return static_cast<quint64>(group.count());
    default:
        return fetchSharedData(group, role);
    }
}

QVariant GroupByProxyModel::fetchSharedData(Group& group, int role) const
{
    if (group.members.empty() || m_sharedRoles.count(role) == 0)
        return {};
    group.shared.request(role);
    QVariant answer = group.shared.answer(role, m_sharedGeneration);
    if (answer.isValid())
        return answer;

    answer = group.members.front()->first.data(role);
    // The first member is compared too: a value that does not even equal itself is not shared.
    const auto agrees = [&](const Group::Member* member) { return member->first.data(role) == answer; };
    if (!answer.isValid() || !std::all_of(group.members.begin(), group.members.end(), agrees))
        return {};
    group.shared.keep(role, m_sharedGeneration, answer);
    return answer;
}

/// Never a null value.
QVariant GroupByProxyModel::getGroupIcon(const QModelIndex& sourceIndex) const
{
    static const QVariant folder(QStringLiteral("resources/images/controls-folder"));
    if (!m_iconFromSource)
        return folder;
    const QVariant icon = sourceIndex.data(Qt::DecorationRole);
    return icon.isNull() ? QVariant() : icon;
}

QString GroupByProxyModel::getGroupName(const QModelIndex& sourceIndex, bool useCurrentGroup) const
{
    const Group::Member* member = useCurrentGroup ? m_groups->member(sourceIndex) : nullptr;
    if (member)
        return m_groups->groupOf(*member).name;
    const QString text = sourceIndex.data(m_role).toString();
    return text.isEmpty() ? QStringLiteral("empty") : withoutLoneSurrogates(text);
}

void GroupByProxyModel::populate()
{
    m_groups->clear();
    const QAbstractItemModel* source = sourceModel();
    if (!source || (m_rootIndex.isValid() && m_rootIndex.model() != source))
        return;

    // First all persistent indexes, so that they lie together in memory: the source goes through them when its rows
    // move.
    std::vector<QPersistentModelIndex> members;
    const int rows = source->rowCount(m_rootIndex);
    members.reserve(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        members.emplace_back(source->index(row, 0, m_rootIndex));

    m_groups->reserve(rows);
    for (QPersistentModelIndex& member : members) {
        const QModelIndex index = member;
        if (!index.isValid())
            continue;
        Group& group = m_groups->fetch(getGroupName(index, false));
        if (m_iconFromSource || group.members.empty())
            group.icon = getGroupIcon(index); // the last row's stays
        m_groups->append(group, std::move(member));
    }
}

} // namespace qelm::datamodels::proxy
