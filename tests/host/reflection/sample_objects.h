#pragma once

#include <host/reflection/notifiers.h>
#include <host/reflection/static_meta_object.h>

#include <memory>
#include <stdexcept>
#include <string>

/// A few reflected classes for tests: a vehicle, a boat that is one, and its engine, an object of its own.
namespace sample {

class Engine : public zarn::Object
{
public:
    int power = 40;
};

class Vehicle : public zarn::Object
{
public:
    const std::string& name() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }
    int speed() const { return m_speed; }
    /// Refuses what is below zero, and breaks down above 200.
    bool setSpeed(int speed)
    {
        if (speed > 200)
            throw std::runtime_error("too fast");
        if (speed < 0)
            return false;
        m_speed = speed;
        return true;
    }
    int accelerate(int by) { return m_speed += by; }
    void stop() { m_speed = 0; }

private:
    std::string m_name = "vehicle";
    int m_speed = 10;
};

class Boat : public Vehicle
{
public:
    double draught = 1.5;
    bool isHidden = false;
    std::unique_ptr<Engine> engine = std::make_unique<Engine>();
    int anchors = 2;
};

} // namespace sample

template <>
struct zarn::Reflection<sample::Engine>
{
    static constexpr const char* name = "sample::Engine";
    static void declare(StaticMetaObject<sample::Engine>::Builder& engine)
    {
        engine.value("power", &sample::Engine::power, [](sample::Engine& self, int power) { self.power = power; });
    }
};

template <>
struct zarn::Reflection<sample::Vehicle>
{
    static constexpr const char* name = "sample::Vehicle";
    static void declare(StaticMetaObject<sample::Vehicle>::Builder& vehicle)
    {
        vehicle.value("name", &sample::Vehicle::name, &sample::Vehicle::setName, Meta::Label::Text("Name"))
            .value("speed", &sample::Vehicle::speed, &sample::Vehicle::setSpeed)
            .method("accelerate", &sample::Vehicle::accelerate)
            .method("stop", &sample::Vehicle::stop);
    }
};

template <>
struct zarn::Reflection<sample::Boat>
{
    static constexpr const char* name = "sample::Boat";
    using Bases = BaseList<sample::Vehicle>;
    static Annotations annotations() { return {Meta::ToolTip("floats")}; }
    static void declare(StaticMetaObject<sample::Boat>::Builder& boat)
    {
        boat.with(Meta::Precision{1})
            .value("draught", &sample::Boat::draught, [](sample::Boat& self, double draught) { self.draught = draught; })
            .readOnly("engine", [](sample::Boat& self) { return self.engine.get(); });
        boat.value("isHidden", &sample::Boat::isHidden, [](sample::Boat& self, bool hidden) { self.isHidden = hidden; },
                   Meta::Stateless());
        boat.value("anchors", &sample::Boat::anchors, [](sample::Boat& self, int anchors) { self.anchors = anchors; },
                   Meta::Visible([](const BoundProperty& property) { return !cast<sample::Boat>(property.object())->isHidden; }));
        boat.constant("wheels", [] { return 0; });
        boat.readOnly("path", [](const BoundProperty& property) { return property.name() + " of a boat"; });
    }
};
