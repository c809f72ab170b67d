#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractProxyModel>

#include <vector>

namespace qelm::datamodels::proxy {

/// The way from the top of a tree to one source index, the tail, as a list: what a breadcrumb bar shows. Row 0 is the
/// top ancestor, the last row the tail.
///
/// Set the source model first, then the tail. `setSourceTailIndex` sends a reset; a `dataChanged` of the source sends
/// one for each stretch of adjacent rows that it covers. The structure of the source is not followed: entries move with
/// their rows, and the entry of a removed row stays in the list, without a valid index and without data.
///
/// With `includeRoot` the list begins with the invisible root. That row counts, but has no valid index, so a delegate
/// shows it by its own means. `QAbstractItemModelTester` objects to such rows.
///
/// Finding a source index costs the length of the path. An index that is not in the path, or of another model, maps to
/// an invalid one. Thread: GUI only.
class DATAMODELS_API TreeItemPathProxyModel : public QAbstractProxyModel
{
public:
    explicit TreeItemPathProxyModel(bool includeRoot = false);
    ~TreeItemPathProxyModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Leaves the path as it is: set a new tail afterwards.
    void setSourceModel(QAbstractItemModel* model) override;
    QModelIndex mapToSource(const QModelIndex& proxy) const override;
    QModelIndex mapFromSource(const QModelIndex& source) const override;

    /// An invalid tail gives an empty list. Resets, also for the tail that is set already.
    void setSourceTailIndex(QPersistentModelIndex tail);
    /// The last entry, whether or not its row still exists; invalid for an empty list.
    QPersistentModelIndex sourceTailIndex() const;

private:
    void onSourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

    // Intended: the list does not follow the structure of its source.
    void onSourceRowsAboutToBeInserted(const QModelIndex&, int, int) {}
    void onSourceRowsAboutToBeRemoved(const QModelIndex&, int, int) {}
    void onSourceRowsAboutToBeMoved(const QModelIndex&, int, int, const QModelIndex&, int) {}
    void onSourceRowsInserted(const QModelIndex&, int, int) {}
    void onSourceRowsRemoved(const QModelIndex&, int, int) {}
    void onSourceRowsMoved(const QModelIndex&, int, int, const QModelIndex&, int) {}
    void onSourceLayoutAboutToBeChanged(const QList<QPersistentModelIndex>&, QAbstractItemModel::LayoutChangeHint) {}
    void onSourceLayoutChanged(const QList<QPersistentModelIndex>&, QAbstractItemModel::LayoutChangeHint) {}
    void onSourceModelAboutToBeReset() {}
    void onSourceModelReset() {}

    std::vector<QPersistentModelIndex> mappedIndexes_; // from the top down
    bool m_includeRoot;
};

} // namespace qelm::datamodels::proxy
