#include "resetting_proxy.h"

namespace editor {

ResettingProxy::ResettingProxy(QAbstractItemModel& source)
{
    setSourceModel(&source);
    disconnect(&source, &QAbstractItemModel::rowsAboutToBeRemoved, this, nullptr);
    disconnect(&source, &QAbstractItemModel::rowsRemoved, this, nullptr);
    connect(&source, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { beginResetModel(); });
    connect(&source, &QAbstractItemModel::rowsRemoved, this, [this] { endResetModel(); });
}

} // namespace editor
