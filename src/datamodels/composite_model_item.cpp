#include <datamodels/composite_model_item.h>

#include <host/base/debug.h>

#include <algorithm>

CompositeModel::ModelItem::ModelItem(const QString& name, std::shared_ptr<QAbstractItemModel> model)
    : PathItem(name), model_(std::move(model)), guard_(model_.get())
{
}

CompositeModel::Item::Type CompositeModel::ModelItem::type() const
{
    return Model;
}

int CompositeModel::ModelItem::rowCount() const
{
    return guard_ ? guard_->rowCount(QModelIndex()) : 0;
}

CompositeModel::Item* CompositeModel::ModelItem::find(const QModelIndex& sourceIndex)
{
    if (!sourceIndex.isValid())
        return this;
    return isAligned_ ? findBySlots(sourceIndex) : findByHash(sourceIndex);
}

CompositeModel::Item* CompositeModel::ModelItem::findChild(Item& parent, const QModelIndex& sourceIndex)
{
    if (!sourceIndex.isValid())
        return this;
    if (!isAligned_)
        return findByHash(sourceIndex);
    Item* child = parent.child(sourceIndex.row());
    if (!child || !OZY_ASSERT(child->type() == Item::Type::ModelIndex))
        return nullptr;
    return static_cast<ModelIndexItem*>(child)->modelIndex_ == sourceIndex ? child : nullptr;
}

CompositeModel::Item* CompositeModel::ModelItem::findBySlots(const QModelIndex& sourceIndex)
{
    const QModelIndex sourceParent = sourceIndex.parent();
    Item* parent = sourceParent.isValid() ? findBySlots(sourceParent) : this;
    return parent ? findChild(*parent, sourceIndex) : nullptr;
}

CompositeModel::Item* CompositeModel::ModelItem::findByHash(const QModelIndex& sourceIndex) const
{
    const auto [first, last] = byIndex_.equal_range(QPersistentModelIndex(sourceIndex));
    if (first == last)
        return nullptr;
    const auto comesFirst = [](const auto& left, const auto& right) {
        return left.second->path() < right.second->path();
    };
    return std::next(first) == last ? first->second : std::min_element(first, last, comesFirst)->second;
}

void CompositeModel::ModelItem::itemAdded(ModelIndexItem& item)
{
    // While a change is under way the model's rows are not yet, or no longer, those of the slots.
    if (!changes_.empty())
        misalign();
    if (!isAligned_)
        byIndex_.emplace(item.modelIndex_, &item);
}

void CompositeModel::ModelItem::itemRemoved(const ModelIndexItem& item)
{
    const auto [first, last] = byIndex_.equal_range(item.modelIndex_);
    const auto found = std::find_if(first, last, [&](const auto& entry) { return entry.second == &item; });
    if (found != last)
        byIndex_.erase(found);
}

void CompositeModel::ModelItem::misalign()
{
    if (!isAligned_)
        return;
    isAligned_ = false;
    addAll(*this);
}

void CompositeModel::ModelItem::forgetAll()
{
    byIndex_.clear();
    isAligned_ = true;
}

bool CompositeModel::ModelItem::changeEnds()
{
    if (changes_.empty())
        return false;
    const bool isTold = changes_.back();
    changes_.pop_back();
    return isTold;
}

void CompositeModel::ModelItem::addAll(Item& parent)
{
    for (const auto& child : parent.children_) {
        if (!child)
            continue;
        auto& item = static_cast<ModelIndexItem&>(*child);
        byIndex_.emplace(item.modelIndex_, &item);
        addAll(item);
    }
}
