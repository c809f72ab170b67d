#pragma once

#include <QAbstractItemModel>
#include <QStringList>

#include <memory>
#include <vector>

/// A copy of a model's tree that knows of changes only what the signals say, as a view does.
///
///     const TreeMirror mirror(proxy, ScriptedTree::IdRole);
///     source.remove({}, 0);
///     QCOMPARE(mirror.lines(), treeLines(proxy, ScriptedTree::IdRole));
///
/// It follows rows in column 0, not values: the role should be one that a row keeps for life.
class TreeMirror
{
public:
    explicit TreeMirror(const QAbstractItemModel& model, int role = Qt::DisplayRole);
    ~TreeMirror();
    Q_DISABLE_COPY_MOVE(TreeMirror)

    /// The copy, as `treeLines` writes a model.
    QStringList lines() const;
    /// Signals that do not fit what there was before: "removed /2 [0..0]: there are 0 rows".
    QStringList faults() const { return m_faults; }

private:
    struct Node;
    using Rows = std::vector<std::unique_ptr<Node>>;

    Rows* rowsAt(const QModelIndex& parent);
    Rows read(const QModelIndex& parent, int first, int last) const;
    void readAll();
    void insert(const QModelIndex& parent, int first, int last);
    void remove(const QModelIndex& parent, int first, int last);
    void addFault(const char* what, const QModelIndex& parent, int first, int last, const Rows* rows);

    const QAbstractItemModel& m_model;
    int m_role;
    std::unique_ptr<Node> m_root;
    QStringList m_faults;
    QObject m_context;
};
