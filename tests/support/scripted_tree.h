#pragma once

#include <QAbstractItemModel>
#include <QStringList>

#include <memory>
#include <vector>

/// A source model that makes every legal change on demand, each under one notification, and gives each row an
/// id that it keeps for life.
///
/// Rows are written as lines of a tree (see `parseTree`), with values of other roles behind bars:
/// "oak | kind=tree | size=3". In further columns the text has the column behind it: "oak.1".
/// Roles: "display", "kind", "size" (a number) and "id" (a number, the same in all columns, read-only); any
/// other role can be set too. Rows have children in column 0 only.
///
/// A change that is not legal throws `std::invalid_argument` before anything is announced. A removed row is
/// kept in memory up to the reset after next, so that who still asks about it gets no answer and is counted,
/// in place of a crash.
class ScriptedTree : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role
    {
        KindRole = Qt::UserRole + 1,
        SizeRole,
        IdRole,
        KeyRole,
    };
    enum RolesTold
    {
        TellRole,
        TellNoRoles
    };
    enum ParentsTold
    {
        TellParent,
        TellNoParents
    };

    explicit ScriptedTree(int columns = 1, QObject* parent = nullptr);
    explicit ScriptedTree(const QStringList& lines, int columns = 1, QObject* parent = nullptr);
    ~ScriptedTree() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;
    bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;
    bool moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to, int before) override;

    /// The one row with this text, wherever it is. Throws `std::out_of_range` when there is none or more than
    /// one.
    QModelIndex find(const QString& text) const;
    /// The row with this id, or an invalid index when it has been removed.
    QModelIndex findId(int id) const;
    /// How many rows there are on all levels together.
    int size() const;

    /// How often somebody has asked about a removed row by an index from before: a fault of who kept the
    /// index.
    int staleQuestions() const { return m_staleQuestions; }

    /// Inserts the first level of the lines, with all that is below, in front of `row`. No lines, no
    /// notification.
    void insert(const QModelIndex& parent, int row, const QStringList& lines);
    void remove(const QModelIndex& parent, int row, int count = 1);
    /// As Qt counts: `before` is a row of `to` before the move. A row cannot be moved below itself, or to its
    /// own place.
    void move(const QModelIndex& from, int row, int count, const QModelIndex& to, int before);
    /// Sets a role of a range of cells of one parent, row by row, to the values in turn; one `dataChanged`
    /// for all.
    void change(const QModelIndex& topLeft, const QModelIndex& bottomRight, int role,
                const QVariantList& values, RolesTold told = TellRole);
    /// Sets one cell.
    void change(const QModelIndex& index, const QVariant& value, int role = Qt::DisplayRole);
    /// Puts the children of a row into another order: `order[i]` is the row before of the one that comes to
    /// stand at `i`. A layout change that persistent indexes follow.
    void rearrange(const QModelIndex& parent, const std::vector<int>& order, ParentsTold told = TellParent);
    void reset(const QStringList& lines);

private:
    struct Node;

    Node& nodeAt(const QModelIndex& index) const;
    bool isStale(const QModelIndex& index) const;
    void bury(std::vector<std::unique_ptr<Node>>&& removed);
    QModelIndex indexOf(const Node& node, int column = 0) const;
    std::vector<std::unique_ptr<Node>> makeNodes(const QStringList& lines, Node& parent);
    std::unique_ptr<Node> makeNode(const QString& line, Node& parent);
    void checkRange(const QModelIndex& parent, int row, int count) const;

    int m_columns;
    int m_lastId = 0;
    std::unique_ptr<Node> m_root;
    std::vector<std::unique_ptr<Node>> m_removed;
    mutable int m_staleQuestions = 0;
};
