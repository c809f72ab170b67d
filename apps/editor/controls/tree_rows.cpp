#include "tree_rows.h"

#include <algorithm>

namespace editor {

void TreeRows::Memory::set(const QString& key, bool open)
{
    if (open == isOpenByDefault)
        exceptions.remove(key);
    else
        exceptions.insert(key);
}

TreeRows::TreeRows(int keyRole, QObject* parent) : KDescendantsProxyModel(parent), m_keyRole(keyRole)
{
    setExpandsByDefault(false);
    connect(this, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { findCurrent(first, last); });
    connect(this, &QAbstractItemModel::rowsRemoved, this, &TreeRows::reportCurrent);
    connect(this, &QAbstractItemModel::layoutChanged, this, &TreeRows::reportCurrent);
    connect(this, &QAbstractItemModel::modelReset, this, [this] { findCurrent(0, rowCount() - 1); });
}

void TreeRows::setSourceModel(QAbstractItemModel* source)
{
    if (sourceModel())
        sourceModel()->disconnect(this);
    KDescendantsProxyModel::setSourceModel(source);
    if (!source)
        return;
    // Behind the connections of the base, which has then taken the change in.
    connect(source, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex& parent, int first, int last) {
        if (parent.isValid())
            recallRow(parent);
        for (int row = first; row <= last; ++row)
            recallRow(sourceModel()->index(row, 0, parent));
    });
    connect(source, &QAbstractItemModel::modelReset, this, [this] { recallBelow({}); });
    recallBelow({});
}

void TreeRows::setCurrentRow(int row)
{
    m_current = index(row, 0);
    m_currentKey = keyOf(m_current);
    reportCurrent();
}

QModelIndex TreeRows::currentSourceIndex() const
{
    return mapToSource(m_current);
}

void TreeRows::setOpensAll(bool opensAll)
{
    if (m_opensAll == opensAll)
        return;
    const QPersistentModelIndex current = currentSourceIndex();
    m_opensAll = opensAll;
    m_filteredMemory = {true, {}};
    recall();
    // What was found and chosen during a filter is not lost from sight when the filter ends.
    if (current.isValid())
        reveal(current);
}

void TreeRows::reveal(const QModelIndex& sourceIndex)
{
    for (QModelIndex ancestor = sourceIndex.parent(); ancestor.isValid(); ancestor = ancestor.parent())
        memory().set(keyOf(ancestor), true);
    recallBelow({});
    setCurrentRow(mapFromSource(sourceIndex).row());
}

void TreeRows::expandAll()
{
    setMemory({true, {}});
}

void TreeRows::collapseAll()
{
    const QModelIndex current = currentSourceIndex();
    QModelIndex top = current;
    while (top.parent().isValid())
        top = top.parent();
    setMemory({false, {}});
    if (current.isValid())
        setCurrentRow(mapFromSource(top).row());
}

void TreeRows::toggle(int row)
{
    const QModelIndex sourceIndex = mapToSource(index(row, 0));
    if (sourceIndex.isValid() && sourceModel()->hasChildren(sourceIndex))
        setOpen(sourceIndex, !isSourceIndexExpanded(sourceIndex));
}

bool TreeRows::navigate(int key, int page)
{
    const int last = rowCount() - 1;
    const int row = std::max(currentRow(), 0);
    const QModelIndex here = index(currentRow(), 0);
    const bool isOpen = here.data(ExpandedRole).toBool() && here.data(ExpandableRole).toBool();
    switch (key) {
    case Qt::Key_Up: setCurrentRow(std::max(row - 1, 0)); return true;
    case Qt::Key_Down: setCurrentRow(here.isValid() ? std::min(row + 1, last) : 0); return true;
    case Qt::Key_PageUp: setCurrentRow(std::max(row - page, 0)); return true;
    case Qt::Key_PageDown: setCurrentRow(std::min(row + page, last)); return true;
    case Qt::Key_Home: setCurrentRow(0); return true;
    case Qt::Key_End: setCurrentRow(last); return true;
    case Qt::Key_Left:
        if (isOpen)
            toggle(row);
        else
            goToParent(row);
        return true;
    case Qt::Key_Right:
        if (isOpen)
            setCurrentRow(row + 1);
        else
            toggle(currentRow());
        return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: toggle(currentRow()); return true;
    default: return false;
    }
}

void TreeRows::goToParent(int row)
{
    const QModelIndex parent = mapToSource(index(row, 0)).parent();
    if (parent.isValid())
        setCurrentRow(mapFromSource(parent).row());
}

QString TreeRows::keyOf(const QModelIndex& index) const
{
    return index.data(m_keyRole).toString();
}

void TreeRows::setOpen(const QModelIndex& sourceIndex, bool open)
{
    memory().set(keyOf(sourceIndex), open);
    if (!open) {
        for (QModelIndex ancestor = currentSourceIndex().parent(); ancestor.isValid(); ancestor = ancestor.parent()) {
            if (ancestor == sourceIndex)
                setCurrentRow(mapFromSource(sourceIndex).row());
        }
    }
    recallRow(sourceIndex);
}

void TreeRows::setMemory(const Memory& memory)
{
    this->memory() = memory;
    recall();
}

// Through the default of the base where it can be done: that takes one reset, and opening row by row would renumber all
// rows behind each.
void TreeRows::recall()
{
    const bool isOpenByDefault = memory().isOpenByDefault;
    setExpandsByDefault(!isOpenByDefault);
    setExpandsByDefault(isOpenByDefault);
    recallBelow({});
}

void TreeRows::recallBelow(const QModelIndex& sourceParent)
{
    if (!sourceModel())
        return;
    for (int row = 0; row < sourceModel()->rowCount(sourceParent); ++row)
        recallRow(sourceModel()->index(row, 0, sourceParent));
}

// Rows that do not show are left alone: their turn comes when what is above them opens.
void TreeRows::recallRow(const QModelIndex& sourceIndex)
{
    if (!sourceModel()->hasChildren(sourceIndex) || !isSourceIndexVisible(sourceIndex))
        return;
    if (!memory().isOpen(keyOf(sourceIndex))) {
        collapseSourceIndex(sourceIndex);
        return;
    }
    expandSourceIndex(sourceIndex);
    recallBelow(sourceIndex);
}

void TreeRows::findCurrent(int first, int last)
{
    for (int row = first; row <= last && !m_current.isValid() && !m_currentKey.isEmpty(); ++row) {
        if (keyOf(index(row, 0)) == m_currentKey)
            m_current = index(row, 0);
    }
    reportCurrent();
}

void TreeRows::reportCurrent()
{
    if (m_reportedRow == currentRow())
        return;
    m_reportedRow = currentRow();
    Q_EMIT currentRowChanged();
}

} // namespace editor
