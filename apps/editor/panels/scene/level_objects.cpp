#include "level_actor.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/reflection/notifiers.h>

#include <cmath>

namespace editor {

void LevelObject::setModified(bool modified)
{
    if (m_isModified == modified)
        return;
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {"_isModified"}, {});
    m_isModified = modified;
}

template <class Value>
void LevelObject::edit(const char* property, Value value)
{
    zarn::reflect(*this).findPropertyByName(property).set(value, {});
}

void LevelObject::moveTo(double x, double y)
{
    if (Vector* position = place()) {
        position->x = x;
        position->y = y;
    }
}

void Light::dim()
{
    edit("intensity", m_intensity / 2);
}

void Light::setIntensity(double intensity)
{
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {"_objectState"}, {});
    m_intensity = intensity;
}

void SpawnPoint::dropToWater()
{
    edit("position.z", 0.0);
}

Path::Path() : LevelObject("New path")
{
    *points = {std::make_shared<PathPoint>(), std::make_shared<PathPoint>()};
    points->back()->position.x = 20;
}

void Path::moveTo(double x, double y)
{
    points->front()->position.x = x;
    points->front()->position.y = y;
    points->back()->position.x = x + 20;
    points->back()->position.y = y;
}

// One element after the other, so that each step can be undone by itself.
void Path::reverse()
{
    const zarn::ReflectedObject elements = zarn::reflect(points);
    for (std::size_t place = 0; place + 1 < points->size(); ++place) {
        const std::shared_ptr<PathPoint> last = points->back();
        elements.removePropertyAt(points->size() - 1);
        elements.addProperty(place, last);
    }
}

void Actor::dropToWater()
{
    edit("position.z", 0.0);
}

void Actor::turnAround()
{
    edit("heading", std::fmod(heading + 180, 360));
}

void Actor::setModel(const std::string& model)
{
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {"_objectState"}, {});
    m_model = model;
}

void Actor::setScale(double scale)
{
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {"mass"}, {});
    m_scale = scale;
}

} // namespace editor
