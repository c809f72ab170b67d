#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractProxyModel>

#include <memory>
#include <unordered_map>
#include <vector>

namespace qelm::datamodels::proxy {

/// The rows below one source index as a model of their own. Nothing is filtered or sorted, and every read goes through
/// to the source.
///
/// Set the source model first, then the root, and set the root again after any structural change of the source: its
/// signals are not followed, and rows from before would stay. `setSourceRoot` sends a reset; nothing else sends
/// anything. Stack no views on it that count on `dataChanged`.
///
/// Intended: the parent of a first-level row is the root's own index, which `index` never gives out. Who walks up stops
/// by comparing with what he holds. For that reason `QAbstractItemModelTester` objects to any row.
///
/// Owns one item for each source index it was ever asked for, until the next `setSourceRoot`. Indexes map in constant
/// time, but a source index can be mapped only after its parent has been; before that it fails an assertion and gives an
/// invalid index. An index of another model gives invalid values. Thread: GUI only.
class DATAMODELS_API SubtreeProxyModel : public QAbstractProxyModel
{
public:
    explicit SubtreeProxyModel(QObject* parent = nullptr);
    ~SubtreeProxyModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;
    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& source) const override;

    /// An invalid root shows the whole source. Resets, also for the root that is set already.
    void setSourceRoot(const QPersistentModelIndex& root);
    QPersistentModelIndex sourceRoot() const { return m_sourceRoot; }

private:
    struct Item
    {
        Item* parent = nullptr;
        std::vector<Item*> children;
        QPersistentModelIndex sourceIndex;
    };

    /// Changes when the row of the index does. It is not noexcept, so that the table keeps the value from the insertion
    /// with the entry and never asks again.
    struct IndexHash
    {
        using is_transparent = void;

        template <class Index>
        std::size_t operator()(const Index& index) const
        {
            return index.internalId() ^ static_cast<std::size_t>(index.column() ^ (index.row() + 1000000));
        }
    };

    Item* item(const QModelIndex& source) const;

    mutable std::unordered_map<QPersistentModelIndex, std::unique_ptr<Item>, IndexHash, std::equal_to<>> itemsMap_{8};
    QPersistentModelIndex m_sourceRoot;
};

} // namespace qelm::datamodels::proxy
