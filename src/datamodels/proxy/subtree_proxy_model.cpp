#include <datamodels/proxy/subtree_proxy_model.h>

#include <host/base/debug.h>

namespace qelm::datamodels::proxy {

SubtreeProxyModel::SubtreeProxyModel(QObject* parent) : QAbstractProxyModel(parent) {}

SubtreeProxyModel::~SubtreeProxyModel() = default;

void SubtreeProxyModel::setSourceRoot(const QPersistentModelIndex& root)
{
    beginResetModel();
    itemsMap_.clear();
    auto item = std::make_unique<Item>();
    item->sourceIndex = root;
    itemsMap_.emplace(root, std::move(item));
    m_sourceRoot = root;
    endResetModel();
}

QModelIndex SubtreeProxyModel::mapToSource(const QModelIndex& index) const
{
    if (!sourceModel())
        return {};
    if (!index.isValid())
        return m_sourceRoot;
    return index.model() == this ? QModelIndex(static_cast<const Item*>(index.internalPointer())->sourceIndex)
                                 : QModelIndex();
}

QModelIndex SubtreeProxyModel::mapFromSource(const QModelIndex& source) const
{
    if (!sourceModel())
        return {};
    Item* const found = item(source);
    return found ? createIndex(source.row(), source.column(), found) : QModelIndex();
}

/// The item of a source index, made on the first question. The table grows from the root downwards only: null where
/// the parent has no item.
SubtreeProxyModel::Item* SubtreeProxyModel::item(const QModelIndex& source) const
{
    if (const auto known = itemsMap_.find(source); known != itemsMap_.cend())
        return known->second.get();

    const auto parentIt = itemsMap_.find(source.parent());
    if (!OZY_ASSERT(parentIt != itemsMap_.cend()))
        return nullptr;
    Item* const parent = parentIt->second.get();

    auto made = std::make_unique<Item>();
    made->parent = parent;
    made->sourceIndex = source;
    const auto res = itemsMap_.emplace(source, std::move(made));
    OZY_ASSERT(res.second);
    Item* const item = res.first->second.get();
    parent->children.push_back(item);
    OZY_ASSERT(item);
    return item;
}

QModelIndex SubtreeProxyModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return mapFromSource(sourceModel()->index(row, column, mapToSource(parent)));
}

QModelIndex SubtreeProxyModel::parent(const QModelIndex& index) const
{
    if (!sourceModel() || !index.isValid())
        return {};
    return mapFromSource(mapToSource(index).parent());
}

int SubtreeProxyModel::rowCount(const QModelIndex& parent) const
{
    return sourceModel() ? sourceModel()->rowCount(mapToSource(parent)) : 0;
}

int SubtreeProxyModel::columnCount(const QModelIndex& parent) const
{
    return sourceModel() ? sourceModel()->columnCount(mapToSource(parent)) : 0;
}

QVariant SubtreeProxyModel::data(const QModelIndex& index, int role) const
{
    return sourceModel() ? sourceModel()->data(mapToSource(index), role) : QVariant();
}

QHash<int, QByteArray> SubtreeProxyModel::roleNames() const
{
    return sourceModel() ? sourceModel()->roleNames() : QHash<int, QByteArray>();
}

} // namespace qelm::datamodels::proxy
