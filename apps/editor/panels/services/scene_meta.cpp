#include "scene_objects.h"

#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>

// What the objects of the sample scene are made of, as tables: names, access, labels, bounds.

namespace {

template <auto field>
struct FieldOf;
template <class T, class V, V T::*field>
struct FieldOf<field>
{
    static void set(T& object, const V& value) { object.*field = value; }
};

/// Writes a field that takes every value.
template <auto field>
constexpr auto setField = &FieldOf<field>::set;

} // namespace

template <>
struct zarn::Reflection<editor::Position>
{
    static constexpr const char* name = "editor::Position";
    static void declare(StaticMetaObject<editor::Position>::Builder& position)
    {
        using editor::Position;
        position.with(Meta::Precision{2}, Meta::MinMax(-500.0, 500.0))
            .value("x", &Position::x, setField<&Position::x>, Meta::Label::Text("Position x"))
            .value("y", &Position::y, setField<&Position::y>, Meta::Label::Text("Position y"))
            .value("z", &Position::z, setField<&Position::z>, Meta::Label::Text("Position z"));
    }
};

template <>
struct zarn::Reflection<editor::SceneNode>
{
    static constexpr const char* name = "editor::SceneNode";
    static void declare(StaticMetaObject<editor::SceneNode>::Builder& node)
    {
        using editor::SceneNode;
        node.value("name", &SceneNode::name, setField<&SceneNode::name>, Meta::Label::Text("Name"))
            .value("enabled", &SceneNode::isEnabled, setField<&SceneNode::isEnabled>,
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
        basin.value("level", &Basin::level, setField<&Basin::level>, Meta::Label::Text("Water level"),
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
            .value("speed", &Barge::speed, setField<&Barge::speed>, Meta::Label::Text("Speed"),
                   Meta::MinMax(0.0, 12.0), Meta::ToolTip("Kilometres an hour"))
            .value("length", &Barge::length, setField<&Barge::length>, Meta::Label::Text("Length"),
                   Meta::MinMax(6.0, 40.0), Meta::ToolTip("Metres"));
        barge.value("bells", &Barge::bells, setField<&Barge::bells>, Meta::Label::Text("Bells rung"),
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
        lamp.value("brightness", &Lamp::brightness, setField<&Lamp::brightness>,
                   Meta::Label::Text("Brightness"), Meta::Precision{0}, Meta::MinMax(0, 100),
                   Meta::ToolTip("Per cent"));
        lamp.value("range", &Lamp::range, setField<&Lamp::range>, Meta::Label::Text("Range"),
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
        gate.value("opening", &Gate::opening, setField<&Gate::opening>, Meta::Label::Text("Opening"),
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
