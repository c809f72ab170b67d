#include <datamodels/simple_tree_model.h>

#include <datamodels/model_scopes.h>
#include <host/base/debug.h>

#include <utility>

SimpleTreeModel::SimpleTreeModel(QObject* parent) : QAbstractItemModel(parent), m_root(std::make_unique<Node>(*this))
{
}

SimpleTreeModel::~SimpleTreeModel() = default;

QModelIndex SimpleTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    OZY_ASSERT(column == 0);
    OZY_ASSERT(row >= 0);
    const Node::Children& children = nodeFromIndex(parent, true)->m_children;
    if (static_cast<std::size_t>(row) >= children.size())
        return {};
    return createIndex(row, column, children[static_cast<std::size_t>(row)].get());
}

QModelIndex SimpleTreeModel::parent(const QModelIndex& child) const
{
    const Node* node = nodeFromIndex(child, true);
    if (!OZY_ASSERT(node))
        return {};
    return indexFromNode(node->m_parent);
}

int SimpleTreeModel::rowCount(const QModelIndex& parent) const
{
    const Node* node = nodeFromIndex(parent, true);
    return OZY_ASSERT(node) ? static_cast<int>(node->m_children.size()) : 0;
}

int SimpleTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant SimpleTreeModel::data(const QModelIndex& index, int role) const
{
    const Node* node = nodeFromIndex(index, true);
    return OZY_ASSERT(node) ? node->data(role) : QVariant();
}

bool SimpleTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid())
        return false;
    Node* node = nodeFromIndex(index, true);
    if (!OZY_ASSERT(node) || !node->setData(role, value))
        return false;
    Q_EMIT dataChanged(index, index, {role});
    return true;
}

Qt::ItemFlags SimpleTreeModel::flags(const QModelIndex& index) const
{
    // Intended: the invalid index has the root's flags, though views expect none of it.
    const Node* node = nodeFromIndex(index, true);
    return OZY_ASSERT(node) ? node->flags() : Qt::NoItemFlags;
}

QModelIndex SimpleTreeModel::indexFromNode(const Node* node) const
{
    if (!node || !node->m_parent)
        return {};
    return createIndex(static_cast<int>(node->row()), 0, const_cast<Node*>(node));
}

SimpleTreeModel::Node* SimpleTreeModel::nodeFromIndex(const QModelIndex& index, bool rootIfInvalid) const
{
    if (index.isValid())
        return static_cast<Node*>(index.internalPointer());
    return rootIfInvalid ? m_root.get() : nullptr;
}

void SimpleTreeModel::resetModel()
{
    const ModelScopes::Reset scope(*this);
    doResetModel();
}

void SimpleTreeModel::fullRefresh()
{
    Q_EMIT layoutAboutToBeChanged({}, NoLayoutChangeHint);
    Q_EMIT layoutChanged({}, NoLayoutChangeHint);
}

void SimpleTreeModel::doResetModel()
{
    setRoot(std::make_unique<Node>(*this));
}

void SimpleTreeModel::setRoot(std::unique_ptr<Node> root)
{
    if (!OZY_ASSERT(root))
        return;
    // The old tree goes last: what its nodes do while they die still finds a root.
    std::swap(m_root, root);
}

void SimpleTreeModel::insertNodes(Node& parent, std::size_t row, std::vector<std::unique_ptr<Node>> nodes)
{
    if (!nodes.empty())
        parent.insert(row, std::move(nodes));
}
