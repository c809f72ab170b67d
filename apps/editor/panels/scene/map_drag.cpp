#include "map_drag.h"

#include "panels/texts.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>

#include <algorithm>
#include <cmath>

namespace editor {

MapDrag::MapDrag(LevelDocument& document, SceneOutliner& outliner)
{
    for (const zarn::ReflectedObject& selected : outliner.selectedObjects()) {
        if (outliner.isLocked(selected))
            continue;
        if (auto* point = zarn::cast<PathPoint>(selected))
            add(point->position);
        else if (auto* object = zarn::cast<LevelObject>(selected))
            addAll(*object);
    }
    if (!isEmpty())
        m_step.emplace("Move " + counted(outliner.selectedCount(), "object", "objects").toStdString(),
                       document.history());
}

MapDrag::~MapDrag() = default;

void MapDrag::add(Vector& vector)
{
    const zarn::ReflectedObject handle = zarn::reflect(vector);
    const bool isKnown =
        std::any_of(m_moved.begin(), m_moved.end(), [&handle](const Moved& one) { return one.vector == handle; });
    if (!isKnown)
        m_moved.push_back({handle, {vector.x, vector.y}});
}

void MapDrag::addAll(LevelObject& object)
{
    visitObjects(object, [this](LevelObject& one) {
        if (one.isLocked)
            return;
        if (auto* path = dynamic_cast<Path*>(&one)) {
            for (const std::shared_ptr<PathPoint>& point : *path->points)
                add(point->position);
        } else if (Vector* place = one.place()) {
            add(*place);
        }
    });
}

void MapDrag::moveBy(const QPointF& metres)
{
    const auto rounded = [](double value) { return std::round(value * 4) / 4; };
    for (const Moved& one : m_moved) {
        one.vector.findPropertyByName("x").set(rounded(one.start.x() + metres.x()), {});
        one.vector.findPropertyByName("y").set(rounded(one.start.y() + metres.y()), {});
    }
}

} // namespace editor
