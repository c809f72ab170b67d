#pragma once

#include <QModelIndex>

/// A model whose root has no flags, so that it can stand under `QAbstractItemModelTester`.
///
/// The tester wants a root that is no item or takes drops; a `SimpleTreeModel` answers for its root node
/// instead.
template <class Model>
class WithoutRootFlags : public Model
{
public:
    using Model::Model;

    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return index.isValid() ? Model::flags(index) : Qt::NoItemFlags;
    }
};
