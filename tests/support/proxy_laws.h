#pragma once

#include <QStringList>

class QAbstractProxyModel;

/// What a proxy does against the rules of mapping, as texts; empty when it keeps them.
///
/// Every index of the proxy has a source index that maps back to it; a source index that is shown maps to a
/// proxy index that maps back; the root maps to the root; a child knows its parent; there is an index in
/// every place that the counts promise and none beyond; `hasChildren` agrees with the counts; everything
/// belongs to the right model.
QStringList checkProxyLaws(const QAbstractProxyModel& proxy);
