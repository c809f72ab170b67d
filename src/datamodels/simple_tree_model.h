#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractItemModel>

#include <memory>
#include <vector>

struct ModelScopes;

/// The general one-column tree: rows are heap nodes under one root that the model owns.
///
/// Derived nodes supply `data`, `setData` and `flags`; derived models supply `roleNames` and may replace the reset. All
/// structure changes through the methods of `Node`, which send the notifications themselves, one bracket a call: a move
/// to another parent is a removal followed by an insertion. The model has no roles, signals or properties of its own.
/// An index holds its `Node*`, and lives no longer than the node.
///
/// Cost: `parent` and `indexFromNode` take constant time. An insertion or removal that is not at the end shifts the
/// slots behind it; their rows are counted anew when one of them is next asked for.
/// Bad input: an index with a row past the end is invalid; what breaks an invariant is logged as an assertion, and
/// nothing is lost. Thread: GUI only.
class DATAMODELS_API SimpleTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    class Node;

    explicit SimpleTreeModel(QObject* parent = nullptr);
    ~SimpleTreeModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    Node& root() { return *m_root; }
    const Node& root() const { return *m_root; }

    /// Invalid for null, for the root and for a node outside the tree.
    QModelIndex indexFromNode(const Node* node) const;
    /// The node of a valid index of this model; for the invalid one the root if `rootIfInvalid`, else null.
    Node* nodeFromIndex(const QModelIndex& index, bool rootIfInvalid) const;

    /// Exchanges the tree for what `doResetModel` installs, inside one reset.
    void resetModel();

public Q_SLOTS:
    /// Makes views read everything again without losing their state: `layoutAboutToBeChanged`, then `layoutChanged`.
    void fullRefresh();

protected:
    /// Installs the root of an emptied model; runs between the two reset signals. The old tree may still be read.
    virtual void doResetModel();

    /// Takes a new root over and destroys the old tree, without a signal; for constructors and `doResetModel`.
    void setRoot(std::unique_ptr<Node> root);

    /// Inserts several nodes in front of `row` of `parent` under one notification; none for an empty list.
    static void insertNodes(Node& parent, std::size_t row, std::vector<std::unique_ptr<Node>> nodes);

private:
    friend struct ModelScopes;

    std::unique_ptr<Node> m_root;
};

#include <datamodels/simple_tree_node.h>
