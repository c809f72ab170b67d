#pragma once

#include "scene_outliner.h"

#include <host/undo/commit_changes_scope.h>

#include <optional>

namespace editor {

/// The selected objects on their way over the map: from the press to the release they are one step of the history.
///
/// A group takes along what is in it, a path its points. Locked objects stay. Places are rounded to quarters of a
/// metre.
class MapDrag
{
public:
    MapDrag(LevelDocument& document, SceneOutliner& outliner);
    ~MapDrag();
    Q_DISABLE_COPY_MOVE(MapDrag)

    bool isEmpty() const { return m_moved.empty(); }
    /// By so many metres from where it began.
    void moveBy(const QPointF& metres);

private:
    struct Moved
    {
        zarn::ReflectedObject vector;
        QPointF start;
    };

    void add(Vector& vector);
    void addAll(LevelObject& object);

    std::vector<Moved> m_moved;
    std::optional<Ozy::CommitChangesScope> m_step;
};

} // namespace editor
