#pragma once

#include <QByteArray>
#include <QHash>

/// The roles of scene rows and of rows that are shown like them, known to views by the names behind.
namespace SceneRoles {

enum Role : int
{
    Type = Qt::UserRole + 100, ///< "type"
    Count,                     ///< "count"
    Object,                    ///< "object"
    Expanded,                  ///< "expanded"
    Enabled,                   ///< "enabled"
    RowButtonsModel,           ///< "rowButtonsModel"
    Hover,                     ///< "hoverRole"
    Modified,                  ///< "modified"
};

/// Adds these names to those of other roles, which stay where they use the same numbers.
QHash<int, QByteArray> namesBeside(QHash<int, QByteArray> others);

} // namespace SceneRoles
