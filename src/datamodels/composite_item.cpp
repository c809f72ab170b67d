#include <datamodels/composite_item.h>

#include <host/base/debug.h>

#include <algorithm>
#include <iterator>

CompositeModel::Item::~Item() = default;

int CompositeModel::Item::rowCount() const
{
    return slotCount();
}

int CompositeModel::Item::row() const
{
    if (!OZY_ASSERT(parent_))
        return -1;
    const Children& siblings = parent_->children_;
    const auto isInPlace = [&] { return row_ < siblings.size() && siblings[row_].get() == this; };
    if (!isInPlace()) {
        // All at once: when one has moved, those behind it have too.
        for (std::size_t row = 0; row < siblings.size(); ++row) {
            if (siblings[row])
                siblings[row]->row_ = row;
        }
    }
    return isInPlace() ? static_cast<int>(row_) : -1;
}

std::vector<int> CompositeModel::Item::path() const
{
    std::vector<int> path;
    for (const Item* item = this; item->parent_; item = item->parent_)
        path.push_back(item->row());
    std::reverse(path.begin(), path.end());
    return path;
}

CompositeModel::Item* CompositeModel::Item::child(int row) const
{
    return row >= 0 && row < slotCount() ? children_[static_cast<std::size_t>(row)].get() : nullptr;
}

void CompositeModel::Item::addChild(std::unique_ptr<Item> child, int row)
{
    OZY_ASSERT(child->parent_ == nullptr);
    const std::size_t slot = row == -1 ? children_.size() : static_cast<std::size_t>(row);
    if (slot >= children_.size())
        children_.resize(slot + 1);
    child->parent_ = this;
    child->row_ = slot;
    children_[slot] = std::move(child);
}

bool CompositeModel::Item::insertChildren(int first, int count)
{
    if (first < 0 || count < 1)
        return false;
    if (first > slotCount())
        children_.resize(static_cast<std::size_t>(first));
    Children slots(static_cast<std::size_t>(count));
    children_.insert(children_.begin() + first, std::make_move_iterator(slots.begin()),
                     std::make_move_iterator(slots.end()));
    return true;
}

CompositeModel::Item::Children CompositeModel::Item::removeChildren(int first, int last)
{
    if (first < 0 || first >= slotCount() || last < first)
        return {};
    const auto begin = children_.begin() + first;
    const auto end = children_.begin() + std::min(last, slotCount() - 1);
    Children removed(std::make_move_iterator(begin), std::make_move_iterator(end));
    children_.erase(begin, end);
    return removed;
}

CompositeModel::PathItem::PathItem(const QString& name)
{
    data_[Qt::DisplayRole] = name;
}

CompositeModel::Item::Type CompositeModel::PathItem::type() const
{
    return Path;
}

int CompositeModel::PathItem::rowCount() const
{
    return slotCount();
}

CompositeModel::ModelIndexItem::ModelIndexItem(const QPersistentModelIndex& modelIndex) : modelIndex_(modelIndex)
{
    OZY_ASSERT(modelIndex_.isValid());
}

CompositeModel::Item::Type CompositeModel::ModelIndexItem::type() const
{
    return ModelIndex;
}

int CompositeModel::ModelIndexItem::rowCount() const
{
    const QAbstractItemModel* model = modelIndex_.model();
    return model ? model->rowCount(modelIndex_) : 0;
}
