#include "sample_scene.h"

#include <host/reflection/cast.h>
#include <host/reflection/meta.h>

namespace {

Meta::IconButton button(const char* on, const char* off, std::size_t position)
{
    Meta::IconButton button;
    button.firstIcon = on;
    button.secondIcon = off;
    button.firstIconState = true;
    button.position = position;
    return button;
}

} // namespace

template <>
struct zarn::Reflection<stage::Limits>
{
    static constexpr const char* name = "stage::Limits";
    static void declare(StaticMetaObject<stage::Limits>::Builder& limits)
    {
        using stage::Limits;
        limits.field("reach", &Limits::reach)
            .field("isOpen", &Limits::isOpen, button("open", "closed", 4));
    }
};

template <>
struct zarn::Reflection<stage::Actor>
{
    static constexpr const char* name = "stage::Actor";
    static void declare(StaticMetaObject<stage::Actor>::Builder& actor)
    {
        using stage::Actor;
        actor.field("_objectName", &Actor::name)
            .field("_objectIcon", &Actor::icon)
            .field("_objectState", &Actor::state)
            .readOnly("_typeName", [] { return std::string("Actor"); })
            .field("_isEnabled", &Actor::isEnabled)
            .field("_isModified", &Actor::isModified)
            .field("isVisible", &Actor::isVisible, button("eye", "shut", 2),
                   Meta::ToolTip("Show"))
            .method(
                "reset", [](Actor& self) { ++self.resets; }, button("reset", "reset", 3))
            .readOnly("limits", [](Actor& self) { return &self.limits; })
            .readOnly("parts", [](Actor& self) { return &self.parts; });
    }
};

template <>
struct zarn::Reflection<stage::Plain>
{
    static constexpr const char* name = "stage::Plain";
    static void declare(StaticMetaObject<stage::Plain>::Builder& plain)
    {
        using stage::Plain;
        plain.field("shown", &Plain::shown, Meta::SceneItem(), Meta::Label::Text("Shown"),
                    Meta::Expanded(false));
    }
};

namespace stage {
namespace {

const zarn::ReflectAtLoad<Limits> limitsClass;
const zarn::ReflectAtLoad<Actor> actorClass;
const zarn::ReflectAtLoad<Plain> plainClass;
const zarn::AutoregisterMetaObject<Parts>
    partsClass("Parts", {Meta::Children{"*", {Meta::SceneItem()}}, Meta::CollectionInsert(), Meta::CollectionRemove(),
                         Meta::CollectionSize{[](const zarn::ReflectedObject&) { return std::pair<std::size_t, std::size_t>(1, 4); }}});

} // namespace

std::shared_ptr<Actor> actor(const std::string& name, std::vector<std::shared_ptr<Actor>> parts)
{
    auto made = std::make_shared<Actor>(name);
    *made->parts = std::move(parts);
    return made;
}

bool Selection::isSelected(const zarn::ReflectedObject& object)
{
    for (const zarn::PersistentObject& selected : objects) {
        if (selected.object() == object)
            return true;
    }
    return false;
}

void Selection::onMethodAboutToRun(const zarn::BoundProperty& method)
{
    methods.push_back(zarn::cast<Actor>(method.object())->name + "." + method.name());
}

void Selection::select(const std::vector<std::shared_ptr<Actor>>& actors)
{
    objects.clear();
    for (const std::shared_ptr<Actor>& selected : actors)
        objects.emplace_back(zarn::reflect(*selected));
}

} // namespace stage
