#pragma once

#include <datamodels/composite_item.h>
#include <datamodels/persistent_index_key.h>

#include <QPointer>

/// The row under which a model is mounted, and the way from the model's indexes to the known rows below it.
///
/// As long as slots stand at the rows of the model, the way is down the slots. A removal, a move or an unspecific
/// layout change ends that, and several items may be for one row from then on: a hash table is used, and of several
/// the first in the order of the tree is taken.
class CompositeModel::ModelItem : public PathItem
{
public:
    ModelItem(const QString& name, std::shared_ptr<QAbstractItemModel> model);

    Type type() const override;
    /// 0 if the model has died.
    int rowCount() const override;

    QAbstractItemModel* model() const { return guard_; }

    /// The item for a row of the model, itself for the invalid index; null if the row is not known.
    Item* find(const QModelIndex& sourceIndex);
    /// The same for a child of a row whose item is `parent`.
    Item* findChild(Item& parent, const QModelIndex& sourceIndex);

    void itemAdded(ModelIndexItem& item);
    void itemRemoved(const ModelIndexItem& item);
    /// Slots and rows no longer agree.
    void misalign();
    /// Nothing is known below any more.
    void forgetAll();

    /// The model has announced a change; whether the composite has too.
    void changeBegins(bool isTold) { changes_.push_back(isTold); }
    /// The change has happened. False if the composite had not announced it.
    bool changeEnds();

private:
    Item* findBySlots(const QModelIndex& sourceIndex);
    Item* findByHash(const QModelIndex& sourceIndex) const;
    void addAll(Item& parent);

    std::shared_ptr<QAbstractItemModel> model_;
    QPointer<QAbstractItemModel> guard_; // others may delete what they share
    bool isAligned_ = true;
    std::unordered_multimap<QPersistentModelIndex, ModelIndexItem*, PersistentIndexHash, SamePersistentIndex> byIndex_;
    std::vector<bool> changes_; // under way
};
