#pragma once

#include <host/signals/connection.h>

#include <QModelIndex>

#include <functional>

class QAbstractItemModel;

namespace zarn {
class ReflectedObject;
}

/// What an asset panel needs of its model beside the item model itself: where an object lies, hover, double clicks.
/// Thread: GUI only.
class IAssetModel
{
public:
    virtual ~IAssetModel() = default;

    /// Never null; belongs to the implementation.
    virtual QAbstractItemModel* itemModel() = 0;
    /// Tells the rows of an object whether the mouse is over one of them.
    virtual void updateHoverRole(const zarn::ReflectedObject& object, bool hovered) = 0;
    /// An index of the innermost asset model as one of this model.
    virtual QModelIndex mapIndex(const QModelIndex& index) const = 0;
    /// The first row of an object, in the order of the tree; invalid if there is none.
    virtual QModelIndex indexOf(const zarn::ReflectedObject& object) = 0;
    virtual ryk::Connection connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const = 0;
    virtual void onDoubleClicked(const QModelIndex& index) = 0;
};
