#include "scene_objects.h"

#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>

// What the objects of the sample scene are made of, as tables: names, access, labels, bounds.

template <>
struct zarn::Reflection<editor::Position>
{
    static constexpr const char* name = "editor::Position";
    static void declare(StaticMetaObject<editor::Position>::Builder& position)
    {
        using editor::Position;
        position.with(Meta::Precision{2}, Meta::MinMax(-500.0, 500.0))
            .field("x", &Position::x, Meta::Label::Text("Position x"))
            .field("y", &Position::y, Meta::Label::Text("Position y"))
            .field("z", &Position::z, Meta::Label::Text("Position z"));
    }
};

template <>
struct zarn::Reflection<editor::SceneNode>
{
    static constexpr const char* name = "editor::SceneNode";
    static void declare(StaticMetaObject<editor::SceneNode>::Builder& node)
    {
        using editor::SceneNode;
        node.field("name", &SceneNode::name, Meta::Label::Text("Name"))
            .field("enabled", &SceneNode::isEnabled,
                   Meta::Label::Text("Enabled"))
            .readOnly(
                "position", [](SceneNode& self) { return &self.position; }, Meta::Label::Text("Position"),
                Meta::ToolTip("Metres from the basin's south-west corner"))
            .value("colour", &SceneNode::colour, &SceneNode::setColour, Meta::Label::Text("Colour"),
                   editor::Colour())
            .readOnly(
                "children", [](SceneNode& self) { return &self.children; }, Meta::Visible(false));
    }
};

template <>
struct zarn::Reflection<editor::Basin>
{
    static constexpr const char* name = "editor::Basin";
    using Bases = BaseList<editor::SceneNode>;
    static void declare(StaticMetaObject<editor::Basin>::Builder& basin)
    {
        using editor::Basin;
        basin.field("level", &Basin::level, Meta::Label::Text("Water level"),
                    Meta::Precision{2}, Meta::MinMax(0.0, Basin::highest),
                    Meta::ToolTip("Metres above the sill"));
        basin.method("fill", &Basin::fill, Meta::Label::Text("Fill"));
        basin.method("drain", &Basin::drain, Meta::Label::Text("Drain"));
    }
};

template <>
struct zarn::Reflection<editor::Barge>
{
    static constexpr const char* name = "editor::Barge";
    using Bases = BaseList<editor::SceneNode>;
    static void declare(StaticMetaObject<editor::Barge>::Builder& barge)
    {
        using editor::Barge;
        barge.with(Meta::Precision{1})
            .field("speed", &Barge::speed, Meta::Label::Text("Speed"),
                   Meta::MinMax(0.0, 12.0), Meta::ToolTip("Kilometres an hour"))
            .field("length", &Barge::length, Meta::Label::Text("Length"),
                   Meta::MinMax(6.0, 40.0), Meta::ToolTip("Metres"));
        barge.field("bells", &Barge::bells, Meta::Label::Text("Bells rung"),
                    Meta::Precision{0}, Meta::MinMax(0, 99));
        barge.method("ringBell", &Barge::ringBell, Meta::Label::Text("Ring bell"));
        barge.method("stop", &Barge::stop, Meta::Label::Text("Stop"));
    }
};

template <>
struct zarn::Reflection<editor::Lamp>
{
    static constexpr const char* name = "editor::Lamp";
    using Bases = BaseList<editor::SceneNode>;
    static void declare(StaticMetaObject<editor::Lamp>::Builder& lamp)
    {
        using editor::Lamp;
        lamp.field("brightness", &Lamp::brightness,
                   Meta::Label::Text("Brightness"), Meta::Precision{0}, Meta::MinMax(0, 100),
                   Meta::ToolTip("Per cent"));
        lamp.field("range", &Lamp::range, Meta::Label::Text("Range"),
                   Meta::Precision{1}, Meta::MinMax(0.5, 60.0), Meta::ToolTip("Metres"));
        lamp.method("dim", &Lamp::dim, Meta::Label::Text("Dim"));
    }
};

template <>
struct zarn::Reflection<editor::Gate>
{
    static constexpr const char* name = "editor::Gate";
    using Bases = BaseList<editor::SceneNode>;
    static void declare(StaticMetaObject<editor::Gate>::Builder& gate)
    {
        using editor::Gate;
        gate.field("opening", &Gate::opening, Meta::Label::Text("Opening"),
                   Meta::Precision{0}, Meta::MinMax(0.0, Gate::widest), Meta::ToolTip("Degrees"));
        gate.method("open", &Gate::open, Meta::Label::Text("Open gate"));
        gate.method("close", &Gate::close, Meta::Label::Text("Close gate"));
    }
};

namespace {

const zarn::ReflectAtLoad<editor::Position> positionClass;
const zarn::ReflectAtLoad<editor::Basin> basinClass;
const zarn::ReflectAtLoad<editor::Barge> bargeClass;
const zarn::ReflectAtLoad<editor::Lamp> lampClass;
const zarn::ReflectAtLoad<editor::Gate> gateClass;
const zarn::AutoregisterMetaObject<editor::SceneNode::Children> childrenClass("Children", {});

} // namespace
