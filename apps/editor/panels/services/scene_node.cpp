#include "scene_node.h"

#include "scene_objects.h"

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>

#include <algorithm>
#include <cctype>

namespace editor {

bool SceneNode::setColour(const std::string& colour)
{
    const auto isHex = [](unsigned char character) { return std::isxdigit(character) != 0; };
    if (colour.size() != 7 || colour[0] != '#' || !std::all_of(colour.begin() + 1, colour.end(), isHex))
        return false;
    m_colour = colour;
    return true;
}

void SceneNode::edit(const char* property, double value)
{
    zarn::reflect(*this).findPropertyByName(property).set(value, {});
}

void Basin::fill()
{
    edit("level", highest);
}

void Basin::drain()
{
    edit("level", 0);
}

void Barge::ringBell()
{
    edit("bells", bells + 1);
}

void Barge::stop()
{
    edit("speed", 0);
}

void Lamp::dim()
{
    edit("brightness", brightness / 2);
}

void Gate::open()
{
    edit("opening", widest);
}

void Gate::close()
{
    edit("opening", 0);
}

} // namespace editor
