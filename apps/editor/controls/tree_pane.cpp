#include "tree_pane.h"

#include <QScopedValueRollback>

namespace editor {

TreePane::TreePane(QAbstractItemModel& source, QItemSelectionModel& selection, int keyRole)
    : m_rows(keyRole), m_cursor(m_rows), m_selection(selection)
{
    m_rows.setSourceModel(&source);
    connect(&m_cursor, &TreeCursor::rowChanged, this, &TreePane::followCursor);
    connect(&selection, &QItemSelectionModel::currentChanged, this, &TreePane::followSelection);
    connect(&selection, &QItemSelectionModel::selectionChanged, this, &TreePane::selectionChanged);
}

bool TreePane::isSelected(int row) const
{
    return m_selection.isSelected(selectable(row));
}

void TreePane::press(int row, bool isToggling)
{
    if (isToggling) {
        m_selection.select(selectable(row), QItemSelectionModel::Toggle);
        return;
    }
    m_cursor.setRow(row);
    m_selection.select(selectable(row),
                       QItemSelectionModel::ClearAndSelect); // also where the cursor was there already
}

QModelIndex TreePane::selectable(int row) const
{
    return m_rows.mapToSource(m_rows.index(row, 0));
}

int TreePane::reveal(const QModelIndex& selected)
{
    return m_rows.reveal(selected);
}

// A row that goes, or is filtered out, leaves the selection alone.
void TreePane::followCursor()
{
    const QModelIndex current = selectable(m_cursor.row());
    if (!m_isFollowing && current.isValid() && current != m_selection.currentIndex())
        m_selection.setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
}

void TreePane::followSelection(const QModelIndex& current)
{
    const QScopedValueRollback following(m_isFollowing, true);
    m_cursor.setRow(reveal(current));
}

} // namespace editor
