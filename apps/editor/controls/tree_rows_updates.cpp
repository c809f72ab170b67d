#include "tree_rows.h"

#include "tree_rows_node.h"

namespace editor {

void TreeRows::onRowsInserted(const QModelIndex& parent, int first, int last)
{
    Node* const node = nodeOf(parent);
    if (!node || last < first) // trees that read on demand announce an empty folder each time that they are asked
        return;
    if (node->isOpen) {
        const auto position = static_cast<std::size_t>(first);
        const int row = first == 0 ? rowOf(*node) + 1 : lastRowOf(*node->children[position - 1]) + 1;
        insertRows(row, makeNodes(*node, parent, first, last));
    } else if (wantsOpen(parent)) {
        openBranch(*node, parent);
    }
    if (last - first + 1 == sourceModel()->rowCount(parent))
        refresh(*node);
}

void TreeRows::onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    Node* const node = nodeOf(parent);
    if (!node || !node->isOpen)
        return;
    const int firstRow = rowOf(*node->children[static_cast<std::size_t>(first)]);
    const int lastRow = lastRowOf(*node->children[static_cast<std::size_t>(last)]);
    m_removal = Removal{node, first, last, firstRow, lastRow};
    beginRemoveRows({}, firstRow, lastRow);
}

void TreeRows::onRowsRemoved(const QModelIndex& parent)
{
    Node* const node = nodeOf(parent);
    if (m_removal) {
        const Removal removal = *m_removal;
        m_removal.reset();
        m_rows.erase(m_rows.begin() + removal.firstRow, m_rows.begin() + removal.lastRow + 1);
        auto& children = removal.parent->children;
        children.erase(children.begin() + removal.first, children.begin() + removal.last + 1);
        endRemoveRows();
    }
    if (!node || node == m_root.get() || sourceModel()->hasChildren(parent))
        return;
    node->isOpen = false;
    refresh(*node);
}

void TreeRows::onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    const QModelIndex first = mapFromSource(topLeft.sibling(topLeft.row(), 0));
    const QModelIndex last = mapFromSource(bottomRight.sibling(bottomRight.row(), 0));
    // Open branches in between are told as well; that is cheaper than a signal a row, and harms nobody.
    if (first.isValid() && last.isValid())
        Q_EMIT dataChanged(first, last, roles);
}

void TreeRows::onLayoutAboutToBeChanged()
{
    m_isChangingLayout = true;
    Q_EMIT layoutAboutToBeChanged();
    m_movingRows = persistentIndexList();
    m_movingSources.clear();
    for (const QModelIndex& index : std::as_const(m_movingRows))
        m_movingSources.append(mapToSource(index));
}

void TreeRows::onLayoutChanged()
{
    // A filter proxy of the library tells a second time, unannounced, that its layout has changed.
    if (!m_isChangingLayout)
        return;
    m_isChangingLayout = false;
    rebuild();
    QModelIndexList moved;
    for (const QPersistentModelIndex& sourceIndex : std::as_const(m_movingSources))
        moved.append(mapFromSource(sourceIndex));
    changePersistentIndexList(m_movingRows, moved);
    m_movingRows.clear();
    m_movingSources.clear();
    Q_EMIT layoutChanged();
}

} // namespace editor
