#include <datamodels/simple_tree_node.h>

#include <datamodels/model_scopes.h>
#include <host/base/debug.h>

#include <algorithm>
#include <iterator>

using Node = SimpleTreeModel::Node;

Node::Node(SimpleTreeModel& owner) : m_owner(owner) {}

Node::~Node() = default;

QVariant Node::data(int) const
{
    return {};
}

bool Node::setData(int, const QVariant&)
{
    return false;
}

Qt::ItemFlags Node::flags() const
{
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
}

std::size_t Node::row() const
{
    if (m_parent && m_row >= m_parent->m_firstStaleRow)
        m_parent->countRows();
    return m_row;
}

void Node::removeChild(Node* node)
{
    const std::size_t row = node && node->m_parent == this ? node->row() : m_children.size();
    if (OZY_ASSERT_AS("m_children[node->row()].get() == node", row < m_children.size()))
        removeChildren(row, 1);
}

void Node::removeChildren(std::size_t index, std::size_t count)
{
    if (count == 0)
        return;
    const std::size_t available = m_children.size() - std::min(index, m_children.size());
    if (!OZY_ASSERT_AS("index + count <= m_children.size()", count <= available)) {
        count = available;
        if (count == 0)
            return;
    }

    const ModelScopes::RemoveRows scope(m_owner, m_owner.indexFromNode(this), index, count);
    const auto first = m_children.begin() + static_cast<std::ptrdiff_t>(index);
    m_children.erase(first, first + static_cast<std::ptrdiff_t>(count));
    updateRows(index);
}

void Node::reparent(Node* newParent, std::size_t row)
{
    if (!OZY_ASSERT(m_parent && newParent))
        return;
    if (newParent == m_parent)
        return;
    if (!OZY_ASSERT(!newParent->isWithin(*this)))
        return;

    std::unique_ptr<Node> self = m_parent->extract(this->row());
    OZY_ASSERT(self.get() == this);
    if (row == std::size_t(-1))
        row = newParent->m_children.size();
    newParent->insert(row, std::move(self));
}

void Node::refresh(const QVector<int>& roles)
{
    const QModelIndex index = m_owner.indexFromNode(this);
    if (index.isValid())
        Q_EMIT m_owner.dataChanged(index, index, roles);
}

void Node::insert(std::size_t row, std::unique_ptr<Node>&& child)
{
    Children nodes;
    nodes.push_back(std::move(child));
    insert(row, std::move(nodes));
}

void Node::insert(std::size_t row, Children&& nodes)
{
    if (!OZY_ASSERT(row <= m_children.size()))
        row = m_children.size();

    const ModelScopes::InsertRows scope(m_owner, m_owner.indexFromNode(this), row, nodes.size());
    for (std::size_t offset = 0; offset < nodes.size(); ++offset) {
        nodes[offset]->m_parent = this;
        nodes[offset]->m_row = row + offset;
    }
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(row), std::make_move_iterator(nodes.begin()),
                      std::make_move_iterator(nodes.end()));
    updateRows(row);
}

std::unique_ptr<Node> Node::extract(std::size_t row)
{
    const ModelScopes::RemoveRows scope(m_owner, m_owner.indexFromNode(this), row, 1);
    const auto slot = m_children.begin() + static_cast<std::ptrdiff_t>(row);
    std::unique_ptr<Node> child = std::move(*slot);
    child->m_parent = nullptr;
    m_children.erase(slot);
    updateRows(row);
    return child;
}

// Only remembers where the rows are wrong: a series of edits then counts once, when a row is asked for.
void Node::updateRows(std::size_t from)
{
    m_firstStaleRow = std::min(m_firstStaleRow, from);
}

void Node::countRows() const
{
    for (std::size_t row = m_firstStaleRow; row < m_children.size(); ++row)
        m_children[row]->m_row = row;
    m_firstStaleRow = m_children.size();
}

bool Node::isWithin(const Node& ancestor) const
{
    const Node* node = this;
    while (node && node != &ancestor)
        node = node->m_parent;
    return node;
}
