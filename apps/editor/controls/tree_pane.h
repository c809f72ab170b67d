#pragma once

#include "controls/tree_cursor.h"

#include <QItemSelectionModel>

namespace editor {

/// A tree view's rows, cursor and selection, of which the last two go together: the cursor is the current
/// index of the selection, and moving it selects that row alone.
///
/// The source and the selection must outlive it. Thread: GUI.
class TreePane : public QObject
{
    Q_OBJECT
    Q_PROPERTY(editor::TreeRows* rows READ rows CONSTANT)
    Q_PROPERTY(editor::TreeCursor* cursor READ cursor CONSTANT)

public:
    TreePane(QAbstractItemModel& source, QItemSelectionModel& selection, int keyRole);

    TreeRows* rows() { return &m_rows; }
    TreeCursor* cursor() { return &m_cursor; }

    Q_INVOKABLE bool isSelected(int row) const;
    /// Selects a row alone, or takes it into the selection or out of it.
    Q_INVOKABLE void press(int row, bool isToggling);

Q_SIGNALS:
    void selectionChanged();

protected:
    /// The row's index in the model of the selection.
    virtual QModelIndex selectable(int row) const;
    /// The row of an index of the selection's model, opened if need be; -1 if it does not show.
    virtual int reveal(const QModelIndex& selected);

    TreeRows m_rows;

private:
    void followCursor();
    void followSelection(const QModelIndex& current);

    TreeCursor m_cursor;
    QItemSelectionModel& m_selection;
    bool m_isFollowing = false;
};

} // namespace editor
