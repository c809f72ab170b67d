#include <datamodels/composite_retired_items.h>

#include <datamodels/composite_model_item.h>
#include <host/base/debug.h>

#include <iterator>
#include <utility>

void CompositeModel::RetiredItems::startRemoval()
{
    spare_.insert(spare_.end(), std::make_move_iterator(retired_.begin()), std::make_move_iterator(retired_.end()));
    retired_.clear();
}

void CompositeModel::RetiredItems::retire(ModelItem& mount, std::unique_ptr<Item> item)
{
    if (!item)
        return;
    // Only rows of models go.
    std::unique_ptr<ModelIndexItem> gone(static_cast<ModelIndexItem*>(item.release()));
    for (std::unique_ptr<Item>& child : std::exchange(gone->children_, {}))
        retire(mount, std::move(child));
    mount.itemRemoved(*gone);
    gone->modelIndex_ = QPersistentModelIndex();
    gone->data_.clear();
    gone->isRetired_ = true;
    retired_.push_back(std::move(gone));
}

std::unique_ptr<CompositeModel::ModelIndexItem> CompositeModel::RetiredItems::make(const QModelIndex& modelIndex)
{
    if (spare_.empty())
        return std::make_unique<ModelIndexItem>(modelIndex);
    std::unique_ptr<ModelIndexItem> item = std::move(spare_.back());
    spare_.pop_back();
    item->isRetired_ = false;
    item->parent_ = nullptr;
    item->children_.clear();
    item->data_.clear();
    item->modelIndex_ = modelIndex;
    OZY_ASSERT(item->modelIndex_.isValid());
    return item;
}
