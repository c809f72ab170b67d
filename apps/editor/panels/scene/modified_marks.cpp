#include "modified_marks.h"

#include "json_writer.h"

#include <host/reflection/cast.h>

namespace editor {

void ModifiedMarks::remember(Level& level)
{
    m_saved.clear();
    visitObjects(level, [this](LevelObject& object) { m_saved[&object] = ownJson(zarn::reflect(object)); });
    update(level);
}

void ModifiedMarks::update(Level& level) const
{
    visitObjects(level, [this](LevelObject& object) {
        const auto saved = m_saved.find(&object);
        object.setModified(saved == m_saved.end() || saved->second != ownJson(zarn::reflect(object)));
    });
}

} // namespace editor
