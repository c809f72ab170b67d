#pragma once

#include <datamodels/simple_tree_model.h>

/// One row of a `SimpleTreeModel`, or its root. A parent owns its children; the owner is the model it was made for, and
/// stays it when the node moves.
class DATAMODELS_API SimpleTreeModel::Node
{
public:
    using Children = std::vector<std::unique_ptr<Node>>;

    explicit Node(SimpleTreeModel& owner);
    virtual ~Node();
    Q_DISABLE_COPY_MOVE(Node)

    /// The value of a role; the base has none.
    virtual QVariant data(int role) const;
    /// Whether the value was taken over; the model then sends `dataChanged` for the role. The base refuses.
    virtual bool setData(int role, const QVariant& value);
    /// The base is selectable and enabled.
    virtual Qt::ItemFlags flags() const;

    SimpleTreeModel& owner() { return m_owner; }
    const SimpleTreeModel& owner() const { return m_owner; }
    Node* parent() { return m_parent; }
    const Node* parent() const { return m_parent; }
    const Children& children() const { return m_children; }
    /// Not checked: `index` must be below the number of children.
    Node& child(std::size_t index) { return *m_children[index]; }
    const Node& child(std::size_t index) const { return *m_children[index]; }
    /// The position among the siblings; 0 for the root.
    std::size_t row() const;

    /// Makes a child behind the others: a `NodeType(owner, arguments...)`.
    template <class NodeType, class... Arguments>
    NodeType& addChild(Arguments&&... arguments)
    {
        auto node = std::make_unique<NodeType>(m_owner, std::forward<Arguments>(arguments)...);
        NodeType& added = *node;
        insert(m_children.size(), std::move(node));
        return added;
    }

    /// Destroys a child with its subtree. What is not a child of this node is refused with an assertion.
    void removeChild(Node* node);

    /// Destroys a range of children; a count of 0 does nothing, and what lies past the end is left out, with an assertion.
    /// The nodes are gone before `rowsRemoved` is sent.
    void removeChildren(std::size_t index, std::size_t count);

    /// Moves this node with its subtree in front of `row` of another parent, or behind its last child for
    /// `size_t(-1)`. Intended: persistent indexes do not survive it, and a move within one parent does nothing at all.
    void reparent(Node* newParent, std::size_t row);

    /// Tells views that the values of `roles` have changed, all of them when the list is empty. Silent on the root.
    void refresh(const QVector<int>& roles);

private:
    friend class SimpleTreeModel;

    void insert(std::size_t row, std::unique_ptr<Node>&& child);
    void insert(std::size_t row, Children&& nodes);
    std::unique_ptr<Node> extract(std::size_t row);
    void updateRows(std::size_t from);
    void countRows() const;
    bool isWithin(const Node& ancestor) const;

    SimpleTreeModel& m_owner;
    Node* m_parent = nullptr;
    Children m_children;
    mutable std::size_t m_row = 0;
    // Children whose m_row is at least this may have moved; those below it have not.
    mutable std::size_t m_firstStaleRow = 0;
};
