#include "level_meta.h"

#include "made_elements.h"

#include <host/reflection/cast.h>
#include <host/reflection/meta.h>

#include <algorithm>
#include <cctype>

// What the objects of a level are made of, as tables: names, access, labels, bounds. The parts of actors stand in
// level_actor_meta.cpp.

namespace editor {
namespace {

Meta::IconButton button(const char* on, const char* off, bool firstIconState, std::size_t position, bool onHover)
{
    Meta::IconButton button;
    button.firstIcon = on;
    button.secondIcon = off;
    button.firstIconState = firstIconState;
    button.position = position;
    button.showOnlyOnHover = onHover;
    button.colour = 0xD4D4D4;
    return button;
}

Meta::CollectionSize sizes(std::size_t fewest, std::size_t most)
{
    return {[bounds = std::pair(fewest, most)](const zarn::ReflectedObject&) { return bounds; }};
}

/// Refuses what is not "#rrggbb".
template <auto Member, class Object>
bool setColour(Object& object, const std::string& colour)
{
    const auto isHex = [](unsigned char character) { return std::isxdigit(character) != 0; };
    if (colour.size() != 7 || colour[0] != '#' || !std::all_of(colour.begin() + 1, colour.end(), isHex))
        return false;
    object.*Member = colour;
    return true;
}

/// Groups of groups.
bool startsOpen(const zarn::ReflectedObject& object)
{
    const auto* group = zarn::cast<Group>(object);
    return group && std::any_of(group->children->begin(), group->children->end(),
                                [](const auto& child) { return child->childObjects() != nullptr; });
}

std::string pointLabel(const zarn::BoundProperty& element)
{
    return "Point " + std::to_string(std::stoul(element.name()) + 1);
}

std::vector<const zarn::MetaObject*> objectClasses()
{
    return {&zarn::StaticMetaObject<Actor>::instance(), &zarn::StaticMetaObject<Group>::instance(),
            &zarn::StaticMetaObject<Light>::instance(), &zarn::StaticMetaObject<SpawnPoint>::instance(),
            &zarn::StaticMetaObject<Path>::instance()};
}

std::vector<const zarn::MetaObject*> pointClasses()
{
    return {&zarn::StaticMetaObject<PathPoint>::instance()};
}

} // namespace
} // namespace editor

void zarn::Reflection<editor::Vector>::declare(StaticMetaObject<editor::Vector>::Builder& vector)
{
    using editor::Vector;
    vector.with(Meta::Precision{2}, Meta::MinMax(-2000.0, 2000.0))
        .field("x", &Vector::x)
        .field("y", &Vector::y)
        .field("z", &Vector::z);
}

void zarn::Reflection<editor::LevelObject>::declare(StaticMetaObject<editor::LevelObject>::Builder& object)
{
    using editor::LevelObject;
    object.field("_objectName", &LevelObject::name, Meta::Label::Text("Name"));
    object.with(Meta::Visible(false))
        .readOnly("_objectIcon", &LevelObject::icon)
        .readOnly("_typeName", &LevelObject::typeName)
        .readOnly("_objectState", &LevelObject::state)
        .readOnly("_isModified", &LevelObject::isModified);
    object.field("_isEnabled", &LevelObject::isEnabled, Meta::Label::Text("Enabled"),
                 Meta::ToolTip("Whether the game loads it, and all that is in it"));
    object.field("visible", &LevelObject::isVisible, Meta::Label::Text("Visible"), Meta::ToolTip("Show on the map"),
                 editor::button("eye", "eye-off", true, 4, false));
    object.field("locked", &LevelObject::isLocked, Meta::Label::Text("Locked"),
                 Meta::ToolTip("Lock against changes"), editor::button("lock", "unlock", true, 3, true));
}

void zarn::Reflection<editor::Group>::declare(StaticMetaObject<editor::Group>::Builder& group)
{
    group.readOnly(
        "children", [](editor::Group& self) { return &self.children; }, Meta::Label::Text("Objects"),
        Meta::Visible(Meta::Visible::Flags(zarn::meta_property::VisibilityFlag::Outliner)));
}

void zarn::Reflection<editor::Level>::declare(StaticMetaObject<editor::Level>::Builder& level)
{
    using editor::Level;
    level.with(Meta::MinMax(64.0, 2000.0), Meta::Precision{0}, editor::Unit{"m"})
        .field("width", &Level::width, Meta::Label::Text("Width"))
        .field("height", &Level::height, Meta::Label::Text("Height"));
    level.value("waterColour", &Level::waterColour, &editor::setColour<&Level::waterColour, Level>,
                Meta::Label::Text("Water colour"), editor::Colour());
    level.field("waterLevel", &Level::waterLevel, Meta::Label::Text("Water level"), Meta::MinMax(-5.0, 5.0),
                Meta::Precision{2}, editor::Unit{"m"});
}

void zarn::Reflection<editor::Light>::declare(StaticMetaObject<editor::Light>::Builder& light)
{
    using editor::Light;
    light.readOnly(
        "position", [](Light& self) { return &self.position; }, Meta::Label::Text("Position"), Meta::Value(),
        Meta::ToolTip("Metres from the level's south-west corner, z up from the water"));
    light.field("kind", &Light::kind, Meta::Label::Text("Kind"))
        .value("colour", &Light::colour, &editor::setColour<&Light::colour, Light>, Meta::Label::Text("Colour"),
               editor::Colour())
        .value("intensity", &Light::intensity, &Light::setIntensity, Meta::Label::Text("Intensity"),
               Meta::MinMax(0.0, 100.0), Meta::Precision{1}, editor::Unit{"%"})
        .field("range", &Light::range, Meta::Label::Text("Range"), Meta::MinMax(0.5, 60.0), Meta::Precision{1},
               editor::Unit{"m"}, Meta::ToolTip("How far it reaches"))
        .field("castsShadows", &Light::castsShadows, Meta::Label::Text("Casts shadows"));
    light.method("dim", &Light::dim, Meta::Label::Text("Dim"), Meta::ToolTip("Half the intensity"));
}

void zarn::Reflection<editor::SpawnPoint>::declare(StaticMetaObject<editor::SpawnPoint>::Builder& spawn)
{
    using editor::SpawnPoint;
    spawn.readOnly(
        "position", [](SpawnPoint& self) { return &self.position; }, Meta::Label::Text("Position"), Meta::Value());
    spawn.field("heading", &SpawnPoint::heading, Meta::Label::Text("Heading"), Meta::MinMax(0.0, 360.0),
                Meta::Precision{0}, editor::Unit{"°"})
        .field("crew", &SpawnPoint::crew, Meta::Label::Text("Crew"), Meta::MinMax(1, 4), Meta::Precision{0},
               Meta::ToolTip("Who starts here"))
        .field("radius", &SpawnPoint::radius, Meta::Label::Text("Radius"), Meta::MinMax(1.0, 20.0),
               Meta::Precision{1}, editor::Unit{"m"});
    spawn.method("dropToWater", &SpawnPoint::dropToWater, Meta::Label::Text("Drop to water"));
}

void zarn::Reflection<editor::PathPoint>::declare(StaticMetaObject<editor::PathPoint>::Builder& point)
{
    using editor::PathPoint;
    point.constant("_objectIcon", [] { return std::string("point"); }, Meta::Visible(false))
        .constant("_typeName", [] { return std::string("Point"); }, Meta::Visible(false))
        .readOnly("position", [](PathPoint& self) { return &self.position; }, Meta::Label::Text("Position"),
                  Meta::Value())
        .field("wait", &PathPoint::wait, Meta::Label::Text("Wait"), Meta::MinMax(0.0, 120.0), Meta::Precision{1},
               editor::Unit{"s"});
}

void zarn::Reflection<editor::Path>::declare(StaticMetaObject<editor::Path>::Builder& path)
{
    using editor::Path;
    path.value("colour", &Path::colour, &editor::setColour<&Path::colour, Path>, Meta::Label::Text("Colour"),
               editor::Colour())
        .field("speed", &Path::speed, Meta::Label::Text("Speed"), Meta::MinMax(0.5, 30.0), Meta::Precision{1},
               editor::Unit{"km/h"})
        .field("closed", &Path::isClosed, Meta::Label::Text("Closed"))
        .readOnly(
            "points", [](Path& self) { return &self.points; }, Meta::Label::Text("Points"));
    path.method("reverse", &Path::reverse, Meta::Label::Text("Reverse"), Meta::ToolTip("Reverse the way"),
                editor::button("reverse", "reverse", true, 2, true));
}

namespace {

using editor::MadeElements;

const zarn::ReflectAtLoad<editor::Vector> vectorClass;
const zarn::ReflectAtLoad<editor::Level> levelClass;
const zarn::ReflectAtLoad<editor::Light> lightClass;
const zarn::ReflectAtLoad<editor::SpawnPoint> spawnPointClass;
const zarn::ReflectAtLoad<editor::Path> pathClass;
const zarn::ReflectAtLoad<editor::PathPoint> pathPointClass;
const MadeElements<editor::LevelObject::Children>
    childrenClass("LevelObjects", {Meta::Children{"*", {Meta::SceneItem(), Meta::Expanded(&editor::startsOpen)}},
                                   Meta::CollectionInsert(), Meta::CollectionRemove(), editor::sizes(0, 1000),
                                   editor::ElementClasses{&editor::objectClasses}});
const MadeElements<editor::Path::Points>
    pointsClass("PathPoints", {Meta::Children{"*", {Meta::SceneItem(), Meta::Label::Text(&editor::pointLabel)}},
                               Meta::CollectionInsert(), Meta::CollectionRemove(),
                               editor::sizes(editor::Path::fewest, editor::Path::most),
                               editor::ElementClasses{&editor::pointClasses}});

} // namespace
