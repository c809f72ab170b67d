#include <datamodels/reflection_tree_model.h>

#include <datamodels/reflection_tree_node.h>
#include <host/base/debug.h>

ReflectionTreeModel::ReflectionTreeModel(zarn::ReflectedObject object, bool wrapRoot, QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Node>(*this, std::move(object)))
{
    if (wrapRoot)
        root_ = std::make_unique<Node>(*this, std::move(root_));
}

ReflectionTreeModel::ReflectionTreeModel(zarn::BoundProperty property, bool wrapRoot, QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Node>(*this, nullptr, std::move(property)))
{
    if (wrapRoot)
        root_ = std::make_unique<Node>(*this, std::move(root_));
}

ReflectionTreeModel::~ReflectionTreeModel() = default;

QModelIndex ReflectionTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    // Intended: whatever the row.
    Node* const above = node(parent);
    return above ? createIndex(row, column, above) : QModelIndex();
}

QModelIndex ReflectionTreeModel::parent(const QModelIndex& child) const
{
    const Node* const above = parentNode(child);
    return above ? above->index() : QModelIndex();
}

int ReflectionTreeModel::rowCount(const QModelIndex& parent) const
{
    const Node* const above = node(parent);
    return above ? above->count() : 0;
}

int ReflectionTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant ReflectionTreeModel::data(const QModelIndex& index, int role) const
{
    // Intended: column 1 has data as well.
    Node* const shown = index.column() < 2 ? node(index) : nullptr;
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case ValueRole: return shown->value();
    case ObjectAnnotationsRole: return shown->objectAnnotations();
    case PropertyAnnotationsRole: return shown->propertyAnnotations();
    default: return {};
    }
}

bool ReflectionTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != ValueRole)
        return false;
    Node* const shown = node(index);
    return shown && shown->setValue(value);
}

QHash<int, QByteArray> ReflectionTreeModel::roleNames() const
{
    return {{ValueRole, "value"},
            {ObjectAnnotationsRole, "objectAnnotations"},
            {PropertyAnnotationsRole, "propertyAnnotations"}};
}

Qt::ItemFlags ReflectionTreeModel::flags(const QModelIndex& index) const
{
    const Node* const shown = node(index);
    if (!shown)
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return shown->isEditable() ? flags | Qt::ItemIsEditable : flags;
}

/// What an index carries: the node of its parent, null for the invalid index and for one of another model.
ReflectionTreeModel::Node* ReflectionTreeModel::parentNode(const QModelIndex& index) const
{
    auto* const result = static_cast<Node*>(index.internalPointer());
    if (!OZY_ASSERT(!result || index.model() == this) || !OZY_ASSERT(result || !index.isValid()))
        return nullptr;
    return result;
}

/// The node of an index itself, made at the first need; the root for the invalid one.
ReflectionTreeModel::Node* ReflectionTreeModel::node(const QModelIndex& index) const
{
    Node* const above = parentNode(index);
    if (!above) {
        OZY_ASSERT_AS("root_", root_ != nullptr);
        return index.isValid() ? nullptr : root_.get();
    }
    Node* const result = above->child(index.row());
    OZY_ASSERT(result);
    return result;
}
