#include "scene_list_model.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>

#include <algorithm>
#include <iterator>

namespace editor {

SceneListModel::SceneListModel(SceneNode& root, QObject* parent) : QAbstractListModel(parent)
{
    appendTo(m_rows, root, 0);
}

int SceneListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SceneListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole:
        return QString::fromStdString(row.node->name);
    case IconRole:
        return QLatin1String(row.node->icon());
    case ColourRole:
        return QString::fromStdString(row.node->colour());
    case LevelRole:
        return row.level;
    case IsEnabledRole:
        return row.node->isEnabled;
    default:
        return {};
    }
}

QHash<int, QByteArray> SceneListModel::roleNames() const
{
    return {{NameRole, "name"},
            {IconRole, "icon"},
            {ColourRole, "colour"},
            {LevelRole, "level"},
            {IsEnabledRole, "isEnabled"}};
}

SceneNode* SceneListModel::nodeAt(int row) const
{
    return row < 0 || row >= rowCount() ? nullptr : m_rows[static_cast<std::size_t>(row)].node;
}

int SceneListModel::rowOf(const SceneNode* node) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [node](const Row& row) { return row.node == node; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int SceneListModel::parentRow(int row) const
{
    const int level = nodeAt(row) ? m_rows[static_cast<std::size_t>(row)].level : 0;
    while (row >= 0 && m_rows[static_cast<std::size_t>(row)].level >= level)
        --row;
    return row;
}

SceneListModel::Row SceneListModel::makeRow(SceneNode& node, int level)
{
    Row row{&node, level, {}};
    const zarn::ReflectedObject object = zarn::reflect(node);
    const auto follow = [&](const char* property, Role role) {
        row.connections.emplace_back(object.findPropertyByName(property).connectPropertyChanged(
            [this, &node, role] { tell(node, role); }));
    };
    follow("name", NameRole);
    follow("colour", ColourRole);
    follow("enabled", IsEnabledRole);

    const zarn::ReflectedObject children = zarn::reflect(node.children);
    row.connections.emplace_back(children.connectPropertyAdded(
        [this, &node](const zarn::ReflectedObject&, std::size_t first, std::size_t count) {
            insertChildren(node, first, count);
        }));
    row.connections.emplace_back(children.connectPropertyAboutToBeRemoved(
        [this, &node](const zarn::ReflectedObject&, std::size_t first, std::size_t count) {
            removeChildren(node, first, count);
        }));
    return row;
}

void SceneListModel::appendTo(std::vector<Row>& rows, SceneNode& node, int level)
{
    rows.push_back(makeRow(node, level));
    for (const std::shared_ptr<SceneNode>& child : *node.children)
        appendTo(rows, *child, level + 1);
}

int SceneListModel::endOf(int row) const
{
    const int level = m_rows[static_cast<std::size_t>(row)].level;
    do
        ++row;
    while (row < rowCount() && m_rows[static_cast<std::size_t>(row)].level > level);
    return row;
}

int SceneListModel::childRow(int parent, std::size_t child) const
{
    int row = parent + 1;
    for (std::size_t i = 0; i < child; ++i)
        row = endOf(row);
    return row;
}

// After the fact, since how many rows come is only known by then; what the model tells is its own list, which
// is in step.
void SceneListModel::insertChildren(SceneNode& parent, std::size_t first, std::size_t count)
{
    const int parentRow = rowOf(&parent);
    std::vector<Row> added;
    for (std::size_t i = first; i < first + count; ++i)
        appendTo(added, *(*parent.children)[i], m_rows[static_cast<std::size_t>(parentRow)].level + 1);

    const int row = childRow(parentRow, first);
    beginInsertRows({}, row, row + static_cast<int>(added.size()) - 1);
    m_rows.insert(m_rows.begin() + row, std::make_move_iterator(added.begin()),
                  std::make_move_iterator(added.end()));
    endInsertRows();
}

void SceneListModel::removeChildren(SceneNode& parent, std::size_t first, std::size_t count)
{
    const int parentRow = rowOf(&parent);
    const int row = childRow(parentRow, first);
    const int end = childRow(parentRow, first + count);
    beginRemoveRows({}, row, end - 1);
    m_rows.erase(m_rows.begin() + row, m_rows.begin() + end);
    endRemoveRows();
}

void SceneListModel::tell(const SceneNode& node, Role role)
{
    const QModelIndex changed = index(rowOf(&node));
    Q_EMIT dataChanged(changed, changed, {role});
}

} // namespace editor
