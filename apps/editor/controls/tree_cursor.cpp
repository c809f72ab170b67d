#include "tree_cursor.h"

#include <algorithm>

namespace editor {

TreeCursor::TreeCursor(TreeRows& rows, QObject* parent) : QObject(parent), m_rows(rows)
{
    using Model = QAbstractItemModel;
    connect(&rows, &Model::rowsInserted, this, [this](const QModelIndex&, int first, int last) { find(first, last); });
    connect(&rows, &Model::rowsRemoved, this, &TreeCursor::report);
    connect(&rows, &Model::layoutChanged, this, &TreeCursor::report);
    connect(&rows, &Model::modelReset, this, [this] { find(0, m_rows.rowCount() - 1); });
    connect(&rows, &TreeRows::closing, this, [this](int branch, int last) {
        if (row() > branch && row() <= last)
            setRow(branch);
    });
}

void TreeCursor::setRow(int row)
{
    m_index = m_rows.index(row, 0);
    m_key = m_rows.keyOf(row);
    report();
}

void TreeCursor::reveal(const QModelIndex& sourceIndex)
{
    setRow(m_rows.reveal(sourceIndex));
}

void TreeCursor::followFilter(bool isActive)
{
    const QPersistentModelIndex chosen = sourceIndex();
    m_rows.setOpensAll(isActive);
    if (!isActive && chosen.isValid())
        reveal(chosen);
}

bool TreeCursor::navigate(int key, int page)
{
    switch (key) {
    case Qt::Key_Up: step(row() - 1); return true;
    case Qt::Key_Down: step(row() + 1); return true;
    case Qt::Key_PageUp: step(row() - page); return true;
    case Qt::Key_PageDown: step(row() + page); return true;
    case Qt::Key_Home: step(0); return true;
    case Qt::Key_End: step(m_rows.rowCount()); return true;
    case Qt::Key_Left: goLeft(); return true;
    case Qt::Key_Right: goRight(); return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: m_rows.toggle(row()); return true;
    default: return false;
    }
}

void TreeCursor::step(int row)
{
    setRow(std::clamp(row, 0, std::max(m_rows.rowCount() - 1, 0)));
}

void TreeCursor::goLeft()
{
    if (m_rows.isOpen(row())) {
        m_rows.setOpen(row(), false);
        return;
    }
    const QModelIndex parent = m_rows.mapFromSource(sourceIndex().parent());
    if (parent.isValid())
        setRow(parent.row());
}

void TreeCursor::goRight()
{
    if (m_rows.isOpen(row()))
        setRow(row() + 1);
    else
        m_rows.setOpen(row(), true);
}

void TreeCursor::find(int first, int last)
{
    for (int row = first; row <= last && !m_index.isValid() && !m_key.isEmpty(); ++row) {
        if (m_rows.keyOf(row) == m_key)
            m_index = m_rows.index(row, 0);
    }
    report();
}

void TreeCursor::report()
{
    if (m_reportedRow == row())
        return;
    m_reportedRow = row();
    Q_EMIT rowChanged();
}

} // namespace editor
