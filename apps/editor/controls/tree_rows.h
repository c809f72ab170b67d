#pragma once

#include <KDescendantsProxyModel>

#include <QPersistentModelIndex>
#include <QSet>
#include <QString>

namespace editor {

/// A tree as a list of the rows that a view shows: which branches are open, which row is current, and where the keys
/// lead.
///
/// Branches and the current row are remembered by the text of a key role, so they outlive filtering and resets of the
/// source. While `opensAll` is set, as during a filter, branches are open unless they are closed by hand; leaving
/// it brings back what was open before. Roles for QML are those of the source and `kDescendantLevel` (from 1),
/// `kDescendantExpandable`, `kDescendantExpanded`.
/// Does not own its source. Thread: GUI.
class TreeRows : public KDescendantsProxyModel
{
    Q_OBJECT
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)

public:
    explicit TreeRows(int keyRole, QObject* parent = nullptr);

    void setSourceModel(QAbstractItemModel* source) override;

    /// -1 while nothing is current, or what is does not show.
    int currentRow() const { return m_current.isValid() ? m_current.row() : -1; }
    /// Out of range means none.
    void setCurrentRow(int row);
    /// In the source; invalid without a current row.
    QModelIndex currentSourceIndex() const;

    void setOpensAll(bool opensAll);

    /// Opens what leads to a row of the source and makes it current.
    void reveal(const QModelIndex& sourceIndex);

    Q_INVOKABLE void expandAll();
    Q_INVOKABLE void collapseAll();
    /// Opens or closes a row; nothing for one without children.
    Q_INVOKABLE void toggle(int row);

    /// Moves the current row as a key of a tree view does; `page` is the number of rows that a view shows.
    /// False for keys that mean nothing here.
    Q_INVOKABLE bool navigate(int key, int page);

Q_SIGNALS:
    void currentRowChanged();

private:
    /// What has been opened and closed by hand.
    struct Memory
    {
        bool isOpenByDefault = false;
        QSet<QString> exceptions;

        bool isOpen(const QString& key) const { return isOpenByDefault != exceptions.contains(key); }
        void set(const QString& key, bool open);
    };

    Memory& memory() { return m_opensAll ? m_filteredMemory : m_memory; }
    QString keyOf(const QModelIndex& index) const;
    void setOpen(const QModelIndex& sourceIndex, bool open);
    void setMemory(const Memory& memory);
    void recall();
    void recallBelow(const QModelIndex& sourceParent);
    void recallRow(const QModelIndex& sourceIndex);
    void findCurrent(int first, int last);
    void reportCurrent();
    void goToParent(int row);

    int m_keyRole;
    Memory m_memory;
    Memory m_filteredMemory;
    bool m_opensAll = false;
    QPersistentModelIndex m_current;
    QString m_currentKey; // stays while the row is filtered out
    int m_reportedRow = -1;
};

} // namespace editor
