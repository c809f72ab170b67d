#pragma once

#include <QIdentityProxyModel>

namespace editor {

/// A model as it is, but for removals: each is told as a reset.
///
/// For mounting: where rows are removed, a `CompositeModel` shows those behind them shifted, which a
/// sort-filter proxy on top does not survive; a reset it passes on as it should. Thread: GUI. Cost: a removal
/// is read anew as a whole.
class ResettingProxy : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit ResettingProxy(QAbstractItemModel& source);
};

} // namespace editor
