#include <datamodels/asset_tree_data_model.h>

#include <datamodels/scene_roles.h>
#include <host/base/stack_tracker.h>

#include <stdexcept>

namespace Ozy {

AssetTreeDataModel::AssetNode::AssetNode(SimpleTreeModel& owner, zarn::ReflectedObject object,
                                         std::unique_ptr<DataRolesDescription> description)
    : Node(owner), m_object(std::move(object)), m_description(std::move(description))
{
}

AssetTreeDataModel::AssetNode::~AssetNode() = default;

QVariant AssetTreeDataModel::AssetNode::data(int role) const
{
    switch (role) {
    case Qt::DisplayRole: return m_description ? QString::fromStdString(m_description->name) : QVariant();
    case Qt::DecorationRole: return m_description ? QString::fromStdString(m_description->icon) : QVariant();
    case SceneRoles::Object: return QVariant::fromValue(m_object);
    default: return {};
    }
}

AssetTreeDataModel::AssetTreeDataModel() = default;

AssetTreeDataModel::~AssetTreeDataModel() = default;

QHash<int, QByteArray> AssetTreeDataModel::roleNames() const
{
    return SceneRoles::namesBeside(QAbstractItemModel::roleNames());
}

void AssetTreeDataModel::addRow(const zarn::ReflectedObject& object, std::unique_ptr<DataRolesDescription> description,
                                const zarn::ReflectedObject& parent)
{
    const StackTracker::Scope entry("Ozy::AssetTreeDataModel::addRow");
    Node& parentNode = parent.isValid() ? *at(parent) : root();
    m_rows.emplace(object, &parentNode.addChild<AssetNode>(object, std::move(description)));
}

void AssetTreeDataModel::removeRow(const zarn::ReflectedObject& object)
{
    const StackTracker::Scope entry("Ozy::AssetTreeDataModel::removeRow");
    Node* const node = at(object);
    const zarn::ReflectedObject removed = object; // the caller's may belong to the row
    node->parent()->removeChild(node);
    m_rows.erase(removed);
}

QModelIndex AssetTreeDataModel::indexOf(const zarn::ReflectedObject& object)
{
    const StackTracker::Scope entry("Ozy::AssetTreeDataModel::indexOf");
    const auto found = m_rows.find(object);
    return found != m_rows.end() ? indexFromNode(found->second) : QModelIndex();
}

SimpleTreeModel::Node* AssetTreeDataModel::at(const zarn::ReflectedObject& object) const
{
    const auto found = m_rows.find(object);
    if (found == m_rows.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    return found->second;
}

} // namespace Ozy
