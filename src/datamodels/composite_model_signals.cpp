#include <datamodels/composite_model.h>

#include <datamodels/composite_bracket.h>
#include <datamodels/composite_model_item.h>
#include <datamodels/composite_retired_items.h>
#include <host/base/debug.h>

#include <QPointer>

#include <algorithm>
#include <utility>

// What a mounted model says, in terms of the composite. The first signal of a pair opens a bracket, the second closes
// it; the mount remembers which, since in between more may become known.

void CompositeModel::listenModelItem(ModelItem* item)
{
    QAbstractItemModel* model = item->model();
    const auto listen = [&]<class Signal, class... Arguments>(
                            Signal signal, void (CompositeModel::*handler)(ModelItem*, Arguments...)) {
        // The model is shared and may outlive the composite.
        connect(model, signal, model,
                [this, life = QPointer<QObject>(life_.get()), item, handler](Arguments... arguments) {
                    if (life)
                        (this->*handler)(item, arguments...);
                });
    };
    listen(&QAbstractItemModel::rowsAboutToBeInserted, &CompositeModel::onRowsAboutToBeInserted);
    listen(&QAbstractItemModel::rowsInserted, &CompositeModel::onRowsInserted);
    listen(&QAbstractItemModel::rowsAboutToBeRemoved, &CompositeModel::onRowsAboutToBeRemoved);
    listen(&QAbstractItemModel::rowsRemoved, &CompositeModel::onRowsRemoved);
    listen(&QAbstractItemModel::rowsAboutToBeMoved, &CompositeModel::onRowsAboutToBeMoved);
    listen(&QAbstractItemModel::rowsMoved, &CompositeModel::onRowsMoved);
    listen(&QAbstractItemModel::layoutAboutToBeChanged, &CompositeModel::onLayoutAboutToBeChanged);
    listen(&QAbstractItemModel::layoutChanged, &CompositeModel::onLayoutChanged);
    listen(&QAbstractItemModel::modelAboutToBeReset, &CompositeModel::onModelAboutToBeReset);
    listen(&QAbstractItemModel::modelReset, &CompositeModel::onModelReset);
    listen(&QAbstractItemModel::dataChanged, &CompositeModel::onDataChanged);
}

CompositeModel::Item* CompositeModel::getItem(ModelItem* item, const QModelIndex& sourceIndex) const
{
    return item->find(sourceIndex);
}

void CompositeModel::onRowsAboutToBeInserted(ModelItem* item, const QModelIndex& parent, int first, int last)
{
    OZY_ASSERT(first <= last);
    Item* target = getItem(item, parent);
    if (target) {
        beginInsertRows(indexOf(*target), first, last);
        target->insertChildren(first, last - first + 1);
    }
    openBracket(*item, {target ? Bracket::Insertion : Bracket::None});
}

void CompositeModel::onRowsInserted(ModelItem* item, const QModelIndex&, int, int)
{
    closeBracket(*item);
}

void CompositeModel::onRowsAboutToBeRemoved(ModelItem* item, const QModelIndex& parent, int first, int last)
{
    Item* target = getItem(item, parent);
    if (target) {
        beginRemoveRows(indexOf(*target), first, last);
        removeItems(*item, *target, first, last);
    }
    openBracket(*item, {target ? Bracket::Removal : Bracket::None});
}

void CompositeModel::onRowsRemoved(ModelItem* item, const QModelIndex&, int, int)
{
    closeBracket(*item);
}

void CompositeModel::onRowsAboutToBeMoved(ModelItem* item, const QModelIndex& sourceParent, int first, int last,
                                          const QModelIndex& destParent, int destRow)
{
    Item* source = getItem(item, sourceParent);
    Item* dest = getItem(item, destParent);
    const int count = last - first + 1;
    Bracket bracket;
    if (source && dest) {
        bracket = beginMove(*source, first, last, *dest, destRow);
    } else if (dest) {
        beginInsertRows(indexOf(*dest), destRow, destRow + count - 1);
        bracket.kind = Bracket::Insertion;
    } else if (source) {
        beginRemoveRows(indexOf(*source), first, last);
        bracket.kind = Bracket::Removal;
    }

    if (source)
        removeItems(*item, *source, first, last);
    // Intended: within one parent the row is not adjusted to what has just left.
    if (dest)
        dest->insertChildren(destRow, count);
    openBracket(*item, bracket);
}

void CompositeModel::onRowsMoved(ModelItem* item, const QModelIndex&, int, int, const QModelIndex&, int)
{
    closeBracket(*item);
}

CompositeModel::Bracket CompositeModel::beginMove(Item& source, int first, int last, Item& dest, int destRow)
{
    // After removals rows stand where others should, and the move may seem to lead below itself, which Qt refuses.
    if (!beginMoveRows(indexOf(source), first, last, indexOf(dest), destRow)) {
        beginRemoveRows(indexOf(source), first, last);
        return {Bracket::RemovalAndInsertion, &dest, destRow, last - first + 1};
    }
    return {Bracket::Move};
}

void CompositeModel::openBracket(ModelItem& item, const Bracket& bracket)
{
    item.changeBegins(bracket.kind != Bracket::None);
    if (bracket.kind != Bracket::None)
        brackets_.push_back(bracket);
}

// Qt closes the bracket that was opened last, whosever it is.
void CompositeModel::closeBracket(ModelItem& item)
{
    if (!item.changeEnds())
        return;
    const Bracket bracket = brackets_.back();
    brackets_.pop_back();
    switch (bracket.kind) {
    case Bracket::None:
        return;
    case Bracket::Insertion:
        return endInsertRows();
    case Bracket::Removal:
        endRemoveRows();
        return invalidateRetiredIndexes();
    case Bracket::Move:
        endMoveRows();
        return invalidateRetiredIndexes();
    case Bracket::RemovalAndInsertion:
        endRemoveRows();
        invalidateRetiredIndexes();
        if (const QModelIndex dest = indexOf(*bracket.dest); dest.isValid()) {
            beginInsertRows(dest, bracket.row, bracket.row + bracket.count - 1);
            endInsertRows();
        }
    }
}

void CompositeModel::onLayoutAboutToBeChanged(ModelItem* item, const Parents& parents, LayoutChangeHint hint)
{
    std::vector<Item*> targets;
    Parents indexes;
    for (const QPersistentModelIndex& parent : parents) {
        if (Item* target = getItem(item, parent)) {
            targets.push_back(target);
            indexes.append(indexOf(*target));
        }
    }
    Q_EMIT layoutAboutToBeChanged(indexes, hint);

    retiredItems_->startRemoval();
    for (Item* target : targets) {
        const int slotCount = target->slotCount();
        dropChildren(*item, *target);
        target->insertChildren(0, slotCount);
    }
    // Intended: without parents nothing is forgotten, though rows change their places.
    if (parents.isEmpty())
        item->misalign();
    item->changeBegins(false);
}

void CompositeModel::onLayoutChanged(ModelItem* item, const Parents& parents, LayoutChangeHint hint)
{
    item->changeEnds();
    // Not every model announces it.
    if (parents.isEmpty())
        item->misalign();
    Parents indexes;
    for (const QPersistentModelIndex& parent : parents) {
        if (Item* target = getItem(item, parent))
            indexes.append(indexOf(*target));
    }
    Q_EMIT layoutChanged(indexes, hint);
}

void CompositeModel::onModelAboutToBeReset(ModelItem* item)
{
    const int rows = item->rowCount();
    if (rows < 1)
        return;
    beginRemoveRows(indexOf(*item), 0, rows - 1);
    retiredItems_->startRemoval();
    dropChildren(*item, *item);
    resettingItems_.insert(item);
}

void CompositeModel::onModelReset(ModelItem* item)
{
    if (resettingItems_.erase(item) > 0)
        endRemoveRows();
    const int rows = item->rowCount();
    if (rows < 1)
        return;
    beginInsertRows(indexOf(*item), 0, rows - 1);
    endInsertRows();
}

void CompositeModel::onDataChanged(ModelItem* item, const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                   const QVector<int>& roles)
{
    OZY_ASSERT(topLeft.isValid() && topLeft.column() == 0);
    OZY_ASSERT(bottomRight.isValid() && bottomRight.column() == 0);
    OZY_ASSERT(topLeft.parent() == bottomRight.parent());
    const QAbstractItemModel* model = item->model();
    const QModelIndex sourceParent = topLeft.parent();
    Item* parent = getItem(item, sourceParent);
    Item* first = nullptr;
    Item* last = nullptr;
    const auto finishRun = [&] {
        // Intended: the roles are the model's own numbers.
        if (Item* begin = std::exchange(first, nullptr))
            Q_EMIT dataChanged(indexOf(*begin), indexOf(*last), roles);
    };

    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex sourceIndex = model->index(row, 0, sourceParent);
        Item* changed = parent ? item->findChild(*parent, sourceIndex) : getItem(item, sourceIndex);
        if (changed) {
            first = first ? first : changed;
            last = changed;
        } else {
            finishRun();
        }
    }
    finishRun();
}

void CompositeModel::removeItems(ModelItem& mount, Item& parent, int first, int last)
{
    if (first < parent.slotCount())
        mount.misalign();
    retiredItems_->startRemoval();
    for (std::unique_ptr<Item>& child : parent.removeChildren(first, last))
        retiredItems_->retire(mount, std::move(child));
}

void CompositeModel::dropChildren(ModelItem& mount, Item& parent)
{
    for (std::unique_ptr<Item>& child : std::exchange(parent.children_, {}))
        retiredItems_->retire(mount, std::move(child));
    if (&parent == &mount)
        mount.forgetAll();
    invalidateRetiredIndexes();
}

/// Qt moves persistent indexes along directly below a parent whose rows change, and by their rows, which after
/// removals are not always those of the items. Whichever still has an item that is gone must not get the next one
/// that it becomes.
void CompositeModel::invalidateRetiredIndexes()
{
    const QModelIndexList indexes = persistentIndexList();
    for (const QModelIndex& index : indexes) {
        if (getItem(index)->isRetired_)
            changePersistentIndex(index, QModelIndex());
    }
}
