#pragma once

#include "level_objects.h"

#include <QByteArray>

#include <unordered_map>

namespace editor {

/// Tells the objects of a level whether they differ from what is saved.
///
/// What each object looked like is remembered as the text that a file has of it, so undo and redo to the saved state
/// take the mark away. An object that was not saved differs. A group differs when it has lost or got objects, but not
/// when they have changed. Cost: that of writing the level, once a question.
class ModifiedMarks
{
public:
    /// The level is saved as it is.
    void remember(Level& level);
    void update(Level& level) const;

private:
    std::unordered_map<const LevelObject*, QByteArray> m_saved;
};

/// Shows an object and all that lie below it, parents first.
template <class Visitor>
void visitObjects(LevelObject& object, const Visitor& visitor)
{
    visitor(object);
    if (const LevelObject::Children* children = object.childObjects()) {
        for (const std::shared_ptr<LevelObject>& child : **children)
            visitObjects(*child, visitor);
    }
}

} // namespace editor
