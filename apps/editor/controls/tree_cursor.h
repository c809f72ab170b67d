#pragma once

#include "tree_rows.h"

#include <QPersistentModelIndex>

namespace editor {

/// The current row of a `TreeRows`, and where the keys of a tree view lead from it.
///
/// It is remembered by its key as well: filtered out, it is none, and comes back with the row. The rows must outlive
/// it. Thread: GUI.
class TreeCursor : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged)

public:
    explicit TreeCursor(TreeRows& rows, QObject* parent = nullptr);

    /// -1 while nothing is current, or what is does not show.
    int row() const { return m_index.isValid() ? m_index.row() : -1; }
    /// Out of range means none.
    void setRow(int row);

    /// In the source of the rows; invalid without a current row.
    QModelIndex sourceIndex() const { return m_rows.mapToSource(m_index); }
    /// Makes a row of the source current and opens what leads to it.
    void reveal(const QModelIndex& sourceIndex);

    /// Opens everything while a filter is at work. When it ends the current row is kept in sight.
    void followFilter(bool isActive);

    /// Moves as a key of a tree view does; `page` is the number of rows that a view shows. False for keys that
    /// mean nothing here.
    Q_INVOKABLE bool navigate(int key, int page);

Q_SIGNALS:
    void rowChanged();

private:
    void step(int row);
    void goLeft();
    void goRight();
    void find(int first, int last);
    void report();

    TreeRows& m_rows;
    QPersistentModelIndex m_index;
    QString m_key;
    int m_reportedRow = -1;
};

} // namespace editor
