#pragma once

#include <datamodels/composite_item.h>

/// Items whose rows have gone. Indexes from before hold their addresses, and whoever still keeps one may ask about
/// it: so they are not destroyed, but serve for other rows later, at the earliest when the next rows have gone.
class CompositeModel::RetiredItems
{
public:
    /// What has been retired so far can serve again.
    void startRemoval();
    /// Takes an item with all below it, out of the mount's knowledge too.
    void retire(ModelItem& mount, std::unique_ptr<Item> item);
    /// An item for a row, new or used.
    std::unique_ptr<ModelIndexItem> make(const QModelIndex& modelIndex);

private:
    std::vector<std::unique_ptr<ModelIndexItem>> retired_;
    std::vector<std::unique_ptr<ModelIndexItem>> spare_;
};
