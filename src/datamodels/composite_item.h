#pragma once

#include <datamodels/composite_model.h>

#include <QPersistentModelIndex>
#include <QVariant>

#include <vector>

/// A known row of a `CompositeModel`; owned by its parent. An index holds its address.
class CompositeModel::Item
{
public:
    enum Type
    {
        Path = 0,
        Model = 1,
        ModelIndex = 2,
    };
    using Children = std::vector<std::unique_ptr<Item>>;

    Item() = default;
    virtual ~Item();
    Q_DISABLE_COPY_MOVE(Item)

    virtual Type type() const = 0;
    virtual int rowCount() const;

    /// The slot that holds the item, -1 if none does.
    int row() const;
    /// The slots from the root's on down to the item.
    std::vector<int> path() const;
    int slotCount() const { return static_cast<int>(children_.size()); }
    /// The item in a slot; null for an empty slot and outside.
    Item* child(int row) const;
    /// Puts a child into a slot, the one behind the last for -1; makes empty slots ahead of it as needed.
    void addChild(std::unique_ptr<Item> child, int row);
    /// Inserts empty slots.
    bool insertChildren(int first, int count);
    /// Takes slots out. Intended: the last of them, or of those there are, stays.
    Children removeChildren(int first, int last);

    Children children_; // one slot a row, empty for a row not asked for; may be shorter than the rows
    Item* parent_ = nullptr;
    QHash<int, QVariant> data_;
    bool isRetired_ = false; // it has left the tree

private:
    mutable std::size_t row_ = 0; // where it was last seen
};

/// A row for a segment of a path.
class CompositeModel::PathItem : public Item
{
public:
    explicit PathItem(const QString& name);

    Type type() const override;
    int rowCount() const override;
};

/// A row of a mounted model.
class CompositeModel::ModelIndexItem : public Item
{
public:
    explicit ModelIndexItem(const QPersistentModelIndex& modelIndex);

    Type type() const override;
    /// 0 if the row has gone.
    int rowCount() const override;

    QPersistentModelIndex modelIndex_;
};
