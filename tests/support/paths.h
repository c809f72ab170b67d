#pragma once

#include <QModelIndex>
#include <QString>

class QAbstractItemModel;

/// The rows from the root down to an index: "/0/2", "/" for the root. A column other than 0 follows its row:
/// "/0/2:1".
QString pathOf(const QModelIndex& index);

/// The index at a path as `pathOf` writes it, or an invalid one when the model has no such row.
/// Throws `std::invalid_argument` for a text that is not a path.
QModelIndex indexAt(const QAbstractItemModel& model, const QString& path);
