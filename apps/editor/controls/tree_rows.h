#pragma once

#include <QAbstractProxyModel>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace editor {

/// A tree as a list: the rows of its open branches, one below the other, for a list view.
///
/// What is open is remembered by the text of a key role, so it outlives filtering, sorting and resets of the source.
/// While `opensAll` is set, as during a filter, branches are open unless they are closed by hand; leaving it brings
/// back what was open before. Column 0 only.
/// Roles: those of the source, and "level" (from 0), "isExpandable", "isExpanded". Signals: `closing` precedes the
/// removal of the rows of a branch that is closed. Does not own its source; without one it is empty.
/// Cost: `data` takes the depth of the row; a change of the source moves the rows behind it. Thread: GUI.
class TreeRows : public QAbstractProxyModel
{
    Q_OBJECT

public:
    enum Role
    {
        LevelRole = 0x7ee0000,
        IsExpandableRole,
        IsExpandedRole,
    };

    explicit TreeRows(int keyRole, QObject* parent = nullptr);
    ~TreeRows() override;

    void setSourceModel(QAbstractItemModel* source) override;
    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
    /// Invalid for a row in a closed branch.
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Opens or closes a branch; nothing for a row without children or out of range.
    Q_INVOKABLE void toggle(int row);
    bool isOpen(int row) const;
    void setOpen(int row, bool open);
    Q_INVOKABLE void expandAll();
    Q_INVOKABLE void collapseAll();
    void setOpensAll(bool opensAll);

    /// Opens what leads to a row of the source; returns its row here, -1 for an invalid index.
    int reveal(const QModelIndex& sourceIndex);

    QString keyOf(int row) const;

Q_SIGNALS:
    /// The rows behind `row`, up to `lastRow`, are those of the branch.
    void closing(int row, int lastRow);

private:
    struct Node; // one for each row, and one for the root

    /// What has been opened and closed by hand.
    struct Memory
    {
        bool isOpenByDefault = false;
        QSet<QString> exceptions;

        bool isOpen(const QString& key) const { return isOpenByDefault != exceptions.contains(key); }
        void set(const QString& key, bool open);
    };

    /// A removal that the source has announced.
    struct Removal
    {
        Node* parent;
        int first;
        int last;
        int firstRow;
        int lastRow;
    };

    Memory& memory() { return m_opensAll ? m_filteredMemory : m_memory; }
    void setMemory(const Memory& memory);
    bool wantsOpen(const QModelIndex& sourceIndex);

    void rebuild();
    std::vector<Node*> makeNodes(Node& parent, const QModelIndex& sourceParent, int first, int last);
    void appendNodes(Node& parent, const QModelIndex& sourceParent, int first, int last, std::vector<Node*>& rows);
    void openBranch(Node& node, const QModelIndex& sourceIndex);
    void closeBranch(Node& node);
    void insertRows(int row, const std::vector<Node*>& nodes);
    void refresh(const Node& node);

    Node* nodeOf(const QModelIndex& sourceIndex) const;
    QModelIndex sourceIndexOf(const Node& node) const;
    int rowOf(const Node& node) const;
    int lastRowOf(const Node& node) const;

    void onRowsInserted(const QModelIndex& parent, int first, int last);
    void onRowsAboutToBeRemoved(const QModelIndex& parent, int first, int last);
    void onRowsRemoved(const QModelIndex& parent);
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onLayoutAboutToBeChanged();
    void onLayoutChanged();

    int m_keyRole;
    Memory m_memory;
    Memory m_filteredMemory;
    bool m_opensAll = false;

    std::unique_ptr<Node> m_root;
    std::vector<Node*> m_rows;
    std::optional<Removal> m_removal;
    bool m_isChangingLayout = false;
    QModelIndexList m_movingRows;
    QVector<QPersistentModelIndex> m_movingSources; // of the rows with persistent indexes, while the layout changes
};

} // namespace editor
