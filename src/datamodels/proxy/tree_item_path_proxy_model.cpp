#include <datamodels/proxy/tree_item_path_proxy_model.h>

#include <host/base/debug.h>

#include <algorithm>

namespace qelm::datamodels::proxy {

TreeItemPathProxyModel::TreeItemPathProxyModel(bool includeRoot) : m_includeRoot(includeRoot) {}

TreeItemPathProxyModel::~TreeItemPathProxyModel() = default;

void TreeItemPathProxyModel::setSourceTailIndex(QPersistentModelIndex tail)
{
    beginResetModel();
    mappedIndexes_.clear();
    for (; tail.isValid(); tail = tail.parent())
        mappedIndexes_.push_back(tail);
    if (m_includeRoot)
        mappedIndexes_.push_back(tail);
    std::reverse(mappedIndexes_.begin(), mappedIndexes_.end());
    endResetModel();
}

QPersistentModelIndex TreeItemPathProxyModel::sourceTailIndex() const
{
    return mappedIndexes_.empty() ? QPersistentModelIndex() : mappedIndexes_.back();
}

void TreeItemPathProxyModel::setSourceModel(QAbstractItemModel* model)
{
    if (model == sourceModel())
        return;

    using Self = TreeItemPathProxyModel;
    using Model = QAbstractItemModel;
    beginResetModel();
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    QAbstractProxyModel::setSourceModel(model);
    if (model) {
        connect(model, &Model::dataChanged, this, &Self::onSourceDataChanged);
        connect(model, &Model::rowsAboutToBeInserted, this, &Self::onSourceRowsAboutToBeInserted);
        connect(model, &Model::rowsAboutToBeRemoved, this, &Self::onSourceRowsAboutToBeRemoved);
        connect(model, &Model::rowsAboutToBeMoved, this, &Self::onSourceRowsAboutToBeMoved);
        connect(model, &Model::rowsInserted, this, &Self::onSourceRowsInserted);
        connect(model, &Model::rowsRemoved, this, &Self::onSourceRowsRemoved);
        connect(model, &Model::rowsMoved, this, &Self::onSourceRowsMoved);
        connect(model, &Model::layoutAboutToBeChanged, this, &Self::onSourceLayoutAboutToBeChanged);
        connect(model, &Model::layoutChanged, this, &Self::onSourceLayoutChanged);
        connect(model, &Model::modelAboutToBeReset, this, &Self::onSourceModelAboutToBeReset);
        connect(model, &Model::modelReset, this, &Self::onSourceModelReset);
    }
    endResetModel();
}

QModelIndex TreeItemPathProxyModel::mapToSource(const QModelIndex& proxy) const
{
    if (!sourceModel() || proxy.model() != this)
        return {};
    const auto row = static_cast<int>(proxy.internalId());
    if (!OZY_ASSERT_AS("row >= 0 && row < mappedIndexes_.size()", row >= 0 && row < rowCount()))
        return {};
    return mappedIndexes_[static_cast<std::size_t>(row)];
}

QModelIndex TreeItemPathProxyModel::mapFromSource(const QModelIndex& source) const
{
    if (!sourceModel() || !source.isValid())
        return {};
    const auto found = std::find(mappedIndexes_.begin(), mappedIndexes_.end(), source);
    if (found == mappedIndexes_.end())
        return {};
    const auto row = static_cast<int>(found - mappedIndexes_.begin());
    return createIndex(row, 0, static_cast<quintptr>(row));
}

QModelIndex TreeItemPathProxyModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? mapFromSource(mappedIndexes_[static_cast<std::size_t>(row)]) : QModelIndex();
}

QModelIndex TreeItemPathProxyModel::parent(const QModelIndex&) const
{
    return {};
}

int TreeItemPathProxyModel::rowCount(const QModelIndex& parent) const
{
    return sourceModel() && !parent.isValid() ? static_cast<int>(mappedIndexes_.size()) : 0;
}

int TreeItemPathProxyModel::columnCount(const QModelIndex&) const
{
    return sourceModel() ? 1 : 0;
}

QVariant TreeItemPathProxyModel::data(const QModelIndex& index, int role) const
{
    return sourceModel() ? sourceModel()->data(mapToSource(index), role) : QVariant();
}

void TreeItemPathProxyModel::onSourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                                 const QVector<int>& roles)
{
    OZY_ASSERT(topLeft.parent() == bottomRight.parent());

    const QModelIndex parent = topLeft.parent();
    const auto covered = [&](const QPersistentModelIndex& entry) {
        return entry.isValid() && entry.parent() == parent && entry.row() >= topLeft.row()
            && entry.row() <= bottomRight.row() && entry.column() >= topLeft.column()
            && entry.column() <= bottomRight.column();
    };
    // Rows that have moved since the tail was set can be siblings, so that there is more than one. The path is shorter
    // than the range may be. Rows are told from a copy, since a slot may set another tail.
    std::vector<QModelIndex> changed;
    for (const QPersistentModelIndex& entry : mappedIndexes_) {
        if (covered(entry))
            changed.push_back(mapFromSource(entry));
    }
    for (auto first = changed.begin(); first != changed.end();) {
        const auto gap = std::adjacent_find(first, changed.end(), [](const QModelIndex& one, const QModelIndex& next) {
            return next.row() != one.row() + 1;
        });
        const auto last = gap == changed.end() ? std::prev(gap) : gap;
        Q_EMIT dataChanged(*first, *last, roles);
        first = std::next(last);
    }
}

} // namespace qelm::datamodels::proxy
