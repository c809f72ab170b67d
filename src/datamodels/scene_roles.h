#pragma once

#include <Qt>

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

} // namespace SceneRoles
