#include "level_meta.h"

#include "made_elements.h"

#include <host/reflection/meta.h>

namespace editor {
namespace {

std::vector<const zarn::MetaObject*> componentClasses()
{
    return {&zarn::StaticMetaObject<Collider>::instance(), &zarn::StaticMetaObject<Buoyancy>::instance(),
            &zarn::StaticMetaObject<Sound>::instance()};
}

Meta::CollectionSize upTo(std::size_t most)
{
    return {[most](const zarn::ReflectedObject&) { return std::pair<std::size_t, std::size_t>(0, most); }};
}

} // namespace
} // namespace editor

void zarn::Reflection<editor::Component>::declare(StaticMetaObject<editor::Component>::Builder& component)
{
    component.field("active", &editor::Component::isActive, Meta::Label::Text("Active"));
}

void zarn::Reflection<editor::Collider>::declare(StaticMetaObject<editor::Collider>::Builder& collider)
{
    using editor::Collider;
    collider.field("shape", &Collider::shape, Meta::Label::Text("Shape"))
        .readOnly("size", [](Collider& self) { return &self.size; }, Meta::Label::Text("Size"), Meta::Value())
        .field("trigger", &Collider::isTrigger, Meta::Label::Text("Trigger"),
               Meta::ToolTip("Tells of what enters, and stops nothing"));
}

void zarn::Reflection<editor::Buoyancy>::declare(StaticMetaObject<editor::Buoyancy>::Builder& buoyancy)
{
    using editor::Buoyancy;
    buoyancy.with(Meta::Precision{2})
        .field("density", &Buoyancy::density, Meta::Label::Text("Density"), Meta::MinMax(0.05, 4.0),
               Meta::ToolTip("Of water's; above 1 it sinks"))
        .field("drag", &Buoyancy::drag, Meta::Label::Text("Drag"), Meta::MinMax(0.0, 1.0));
}

void zarn::Reflection<editor::Sound>::declare(StaticMetaObject<editor::Sound>::Builder& sound)
{
    using editor::Sound;
    sound.field("file", &Sound::file, Meta::Label::Text("File"), Meta::FilesFilter{"*.bank"},
                Meta::DialogInitialPath{L"sounds"})
        .field("volume", &Sound::volume, Meta::Label::Text("Volume"), Meta::MinMax(0.0, 100.0), Meta::Precision{0},
               editor::Unit{"%"})
        .field("loops", &Sound::loops, Meta::Label::Text("Loops"));
}

void zarn::Reflection<editor::Actor>::declare(StaticMetaObject<editor::Actor>::Builder& actor)
{
    using editor::Actor;
    actor.readOnly(
        "position", [](Actor& self) { return &self.position; }, Meta::Label::Text("Position"), Meta::Value(),
        Meta::ToolTip("Metres from the level's south-west corner, z up from the water"));
    actor.field("heading", &Actor::heading, Meta::Label::Text("Heading"), Meta::MinMax(0.0, 360.0),
                Meta::Precision{0}, editor::Unit{"°"});
    actor.value("scale", &Actor::scale, &Actor::setScale, Meta::Label::Text("Scale"), Meta::MinMax(0.1, 20.0),
                Meta::Precision{2});
    actor.readOnly("mass", &Actor::mass, Meta::Label::Text("Mass"), Meta::Precision{0}, editor::Unit{"kg"},
                   Meta::ToolTip("Follows from the scale"));
    actor.field("mobility", &Actor::mobility, Meta::Label::Text("Mobility"));
    actor.value("model", &Actor::model, &Actor::setModel, Meta::Label::Text("Model"), Meta::FilesFilter{"*.mesh"},
                Meta::DialogInitialPath{L"models"});
    actor.field("notes", &Actor::notes, Meta::Label::Text("Notes"), editor::Lines{3});
    actor.with(Meta::Value())
        .readOnly("tags", [](Actor& self) { return &self.tags; }, Meta::Label::Text("Tags"))
        .readOnly("components", [](Actor& self) { return &self.components; }, Meta::Label::Text("Components"));
    actor.method("dropToWater", &Actor::dropToWater, Meta::Label::Text("Drop to water"));
    actor.method("turnAround", &Actor::turnAround, Meta::Label::Text("Turn around"));
}

namespace {

const zarn::ReflectAtLoad<editor::Collider> colliderClass;
const zarn::ReflectAtLoad<editor::Buoyancy> buoyancyClass;
const zarn::ReflectAtLoad<editor::Sound> soundClass;
const zarn::ReflectAtLoad<editor::Actor> actorClass;
const zarn::AutoregisterMetaObject<editor::Actor::Tags> tagsClass("Tags", {editor::upTo(6), Meta::CollectionInsert(),
                                                                           Meta::CollectionRemove()});
const editor::MadeElements<editor::Actor::Components>
    componentsClass("Components", {editor::upTo(4), Meta::CollectionInsert(), Meta::CollectionRemove(),
                                   editor::ElementClasses{&editor::componentClasses}});

} // namespace
