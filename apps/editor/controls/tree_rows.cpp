#include "tree_rows.h"

#include "tree_rows_node.h"

#include <iterator>

namespace editor {

void TreeRows::Memory::set(const QString& key, bool open)
{
    if (open == isOpenByDefault)
        exceptions.remove(key);
    else
        exceptions.insert(key);
}

TreeRows::TreeRows(int keyRole, QObject* parent)
    : QAbstractProxyModel(parent), m_keyRole(keyRole), m_root(std::make_unique<Node>())
{
}

TreeRows::~TreeRows() = default;

void TreeRows::setSourceModel(QAbstractItemModel* source)
{
    beginResetModel();
    if (sourceModel())
        sourceModel()->disconnect(this);
    QAbstractProxyModel::setSourceModel(source);
    if (source) {
        using Model = QAbstractItemModel;
        connect(source, &Model::rowsInserted, this, &TreeRows::onRowsInserted);
        connect(source, &Model::rowsAboutToBeRemoved, this, &TreeRows::onRowsAboutToBeRemoved);
        connect(source, &Model::rowsRemoved, this, &TreeRows::onRowsRemoved);
        connect(source, &Model::dataChanged, this, &TreeRows::onDataChanged);
        connect(source, &Model::layoutAboutToBeChanged, this, &TreeRows::onLayoutAboutToBeChanged);
        connect(source, &Model::layoutChanged, this, &TreeRows::onLayoutChanged);
        connect(source, &Model::rowsAboutToBeMoved, this, &TreeRows::onLayoutAboutToBeChanged);
        connect(source, &Model::rowsMoved, this, &TreeRows::onLayoutChanged);
        connect(source, &Model::modelAboutToBeReset, this, [this] { beginResetModel(); });
        connect(source, &Model::modelReset, this, [this] {
            rebuild();
            endResetModel();
        });
        connect(source, &QObject::destroyed, this, [this] { setSourceModel(nullptr); });
    }
    rebuild();
    endResetModel();
}

QModelIndex TreeRows::mapToSource(const QModelIndex& proxyIndex) const
{
    if (!proxyIndex.isValid() || proxyIndex.row() >= rowCount())
        return {};
    return sourceIndexOf(*m_rows[static_cast<std::size_t>(proxyIndex.row())]);
}

QModelIndex TreeRows::mapFromSource(const QModelIndex& sourceIndex) const
{
    const Node* node = nodeOf(sourceIndex);
    return node && node != m_root.get() ? createIndex(rowOf(*node), 0) : QModelIndex();
}

QModelIndex TreeRows::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex TreeRows::parent(const QModelIndex&) const
{
    return {};
}

int TreeRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TreeRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 1;
}

bool TreeRows::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant TreeRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Node& node = *m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case LevelRole: return node.level;
    case IsExpandableRole: return sourceModel()->hasChildren(sourceIndexOf(node));
    case IsExpandedRole: return node.isOpen;
    default: return sourceIndexOf(node).data(role);
    }
}

Qt::ItemFlags TreeRows::flags(const QModelIndex& index) const
{
    return index.isValid() ? QAbstractProxyModel::flags(index) : Qt::NoItemFlags;
}

QHash<int, QByteArray> TreeRows::roleNames() const
{
    QHash<int, QByteArray> names = sourceModel() ? sourceModel()->roleNames() : QHash<int, QByteArray>();
    names.insert(LevelRole, "level");
    names.insert(IsExpandableRole, "isExpandable");
    names.insert(IsExpandedRole, "isExpanded");
    return names;
}

void TreeRows::toggle(int row)
{
    setOpen(row, !isOpen(row));
}

bool TreeRows::isOpen(int row) const
{
    return row >= 0 && row < rowCount() && m_rows[static_cast<std::size_t>(row)]->isOpen;
}

void TreeRows::setOpen(int row, bool open)
{
    if (row < 0 || row >= rowCount())
        return;
    Node& node = *m_rows[static_cast<std::size_t>(row)];
    const QModelIndex sourceIndex = sourceIndexOf(node);
    if (node.isOpen == open || !sourceModel()->hasChildren(sourceIndex))
        return;
    memory().set(keyOf(row), open);
    if (open)
        openBranch(node, sourceIndex);
    else
        closeBranch(node);
}

void TreeRows::expandAll()
{
    setMemory({true, {}});
}

void TreeRows::collapseAll()
{
    for (const std::unique_ptr<Node>& node : m_root->children)
        Q_EMIT closing(rowOf(*node), lastRowOf(*node));
    setMemory({false, {}});
}

void TreeRows::setOpensAll(bool opensAll)
{
    if (m_opensAll == opensAll)
        return;
    m_opensAll = opensAll;
    setMemory(opensAll ? Memory{true, {}} : m_memory);
}

int TreeRows::reveal(const QModelIndex& sourceIndex)
{
    if (sourceIndex.parent().isValid())
        setOpen(reveal(sourceIndex.parent()), true);
    return mapFromSource(sourceIndex).row();
}

QString TreeRows::keyOf(int row) const
{
    return index(row, 0).data(m_keyRole).toString();
}

void TreeRows::setMemory(const Memory& memory)
{
    beginResetModel();
    this->memory() = Memory(memory);
    rebuild();
    endResetModel();
}

bool TreeRows::wantsOpen(const QModelIndex& sourceIndex)
{
    return sourceModel()->hasChildren(sourceIndex) && memory().isOpen(sourceIndex.data(m_keyRole).toString());
}

void TreeRows::rebuild()
{
    m_removal.reset();
    m_root = std::make_unique<Node>();
    m_root->isOpen = true;
    m_rows.clear();
    if (sourceModel())
        m_rows = makeNodes(*m_root, {}, 0, sourceModel()->rowCount() - 1);
}

// The rows of the source from `first` to `last` and those of the open branches in them, as they show.
std::vector<TreeRows::Node*> TreeRows::makeNodes(Node& parent, const QModelIndex& sourceParent, int first, int last)
{
    std::vector<Node*> rows;
    appendNodes(parent, sourceParent, first, last, rows);
    return rows;
}

void TreeRows::appendNodes(Node& parent, const QModelIndex& sourceParent, int first, int last, std::vector<Node*>& rows)
{
    std::vector<std::unique_ptr<Node>> nodes;
    for (int position = first; position <= last; ++position) {
        nodes.push_back(std::make_unique<Node>());
        Node& node = *nodes.back();
        node.parent = &parent;
        node.level = parent.level + 1;
        node.position = position;
        rows.push_back(&node);

        const QModelIndex sourceIndex = sourceModel()->index(position, 0, sourceParent);
        if (!wantsOpen(sourceIndex))
            continue;
        node.isOpen = true;
        appendNodes(node, sourceIndex, 0, sourceModel()->rowCount(sourceIndex) - 1, rows);
    }
    parent.children.insert(parent.children.begin() + first, std::make_move_iterator(nodes.begin()),
                           std::make_move_iterator(nodes.end()));
}

void TreeRows::openBranch(Node& node, const QModelIndex& sourceIndex)
{
    node.isOpen = true;
    insertRows(rowOf(node) + 1, makeNodes(node, sourceIndex, 0, sourceModel()->rowCount(sourceIndex) - 1));
    refresh(node);
}

void TreeRows::closeBranch(Node& node)
{
    const int row = rowOf(node);
    const int last = lastRowOf(node);
    Q_EMIT closing(row, last);
    if (last > row) {
        beginRemoveRows({}, row + 1, last);
        m_rows.erase(m_rows.begin() + row + 1, m_rows.begin() + last + 1);
        node.children.clear();
        endRemoveRows();
    }
    node.isOpen = false;
    refresh(node);
}

// The nodes stand in the tree already, where the source has them; the rows follow.
void TreeRows::insertRows(int row, const std::vector<Node*>& nodes)
{
    if (nodes.empty())
        return;
    beginInsertRows({}, row, row + static_cast<int>(nodes.size()) - 1);
    m_rows.insert(m_rows.begin() + row, nodes.begin(), nodes.end());
    endInsertRows();
}

void TreeRows::refresh(const Node& node)
{
    if (&node == m_root.get())
        return;
    const QModelIndex here = createIndex(rowOf(node), 0);
    Q_EMIT dataChanged(here, here, {IsExpandableRole, IsExpandedRole});
}

TreeRows::Node* TreeRows::nodeOf(const QModelIndex& sourceIndex) const
{
    if (!sourceIndex.isValid())
        return m_root.get();
    const Node* parent = nodeOf(sourceIndex.parent());
    const auto row = static_cast<std::size_t>(sourceIndex.row());
    return parent && row < parent->children.size() ? parent->children[row].get() : nullptr;
}

QModelIndex TreeRows::sourceIndexOf(const Node& node) const
{
    if (!node.parent)
        return {};
    return sourceModel()->index(node.positionInParent(), 0, sourceIndexOf(*node.parent));
}

int TreeRows::rowOf(const Node& node) const
{
    if (&node == m_root.get())
        return -1;
    if (node.row < 0 || node.row >= rowCount() || m_rows[static_cast<std::size_t>(node.row)] != &node) {
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            m_rows[row]->row = static_cast<int>(row);
    }
    return node.row;
}

int TreeRows::lastRowOf(const Node& node) const
{
    const Node* last = &node;
    while (!last->children.empty())
        last = last->children.back().get();
    return rowOf(*last);
}

} // namespace editor
