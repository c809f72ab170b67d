#pragma once

#include "level_objects.h"

namespace editor {

/// A part of an actor that does one thing.
struct Component : zarn::Object
{
    bool isActive = true;
};

struct Collider : Component
{
    enum class Shape
    {
        Box,
        Sphere,
        Hull
    };

    Shape shape = Shape::Box;
    Vector size;
    bool isTrigger = false;
};

struct Buoyancy : Component
{
    double density = 0.6; ///< of water's
    double drag = 0.2;
};

struct Sound : Component
{
    std::string file;
    double volume = 80; ///< per cent
    bool loops = true;
};

/// A thing that stands or moves in the level.
class Actor : public LevelObject
{
public:
    using Components = zarn::ReflectionWrapper<std::vector<std::shared_ptr<Component>>>;
    using Tags = zarn::ReflectionWrapper<std::vector<std::string>>;
    enum class Mobility
    {
        Static,
        Movable,
        Driven
    };

    Actor() : LevelObject("New actor") {}

    std::string typeName() const override { return "Actor"; }
    std::string icon() const override { return "actor"; }
    std::string problem() const override { return m_model.empty() ? "It has no model" : ""; }
    Vector* place() override { return &position; }
    void dropToWater();
    void turnAround();

    const std::string& model() const { return m_model; }
    void setModel(const std::string& model);
    double scale() const { return m_scale; }
    void setScale(double scale);
    double mass() const { return 120 * m_scale * m_scale * m_scale; } ///< kilograms

    Vector position;
    double heading = 0; ///< degrees
    Mobility mobility = Mobility::Static;
    std::string notes;
    Tags tags;
    Components components;

private:
    std::string m_model;
    double m_scale = 1;
};

} // namespace editor
