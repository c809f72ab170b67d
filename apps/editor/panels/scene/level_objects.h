#pragma once

#include <host/reflection/object.h>
#include <host/reflection/reflection_wrapper.h>

#include <memory>
#include <string>
#include <vector>

namespace editor {

struct Vector : zarn::Object
{
    double x = 0;
    double y = 0;
    double z = 0;
};

/// What a row of the outliner stands for. What it consists of is told in level_meta.cpp; it is edited through the
/// reflection, so that views hear of it and it can be undone. Thread: GUI.
class LevelObject : public zarn::Object
{
public:
    using Children = zarn::ReflectionWrapper<std::vector<std::shared_ptr<LevelObject>>>;

    explicit LevelObject(std::string startName) : name(std::move(startName)) {}

    virtual std::string typeName() const = 0;
    /// A file of icons/, without its extension.
    virtual std::string icon() const = 0;
    /// What is wrong with it, to be read by the designer; empty if nothing is.
    virtual std::string problem() const { return {}; }
    /// Where it stands; null for what stands nowhere.
    virtual Vector* place() { return nullptr; }
    /// Null for what has none.
    virtual Children* childObjects() { return nullptr; }

    /// Puts an object that nobody has seen yet to a place.
    virtual void moveTo(double x, double y);

    int state() const { return problem().empty() ? 0 : 1; }
    bool isModified() const { return m_isModified; }
    /// Whether it differs from what is saved; told, but no edit.
    void setModified(bool modified);

    std::string name;
    bool isEnabled = true;
    bool isVisible = true;
    bool isLocked = false;

protected:
    /// Sets one of its own properties in the way that an edit from outside would.
    template <class Value>
    void edit(const char* property, Value value);

private:
    bool m_isModified = false;
};

/// A folder of objects.
class Group : public LevelObject
{
public:
    Group() : LevelObject("New group") {}

    std::string typeName() const override { return "Group"; }
    std::string icon() const override { return "folder"; }
    Children* childObjects() override { return &children; }

    Children children;
};

/// The whole of a level. It is no row itself.
class Level : public Group
{
public:
    std::string typeName() const override { return "Level"; }
    std::string icon() const override { return "level"; }

    double width = 512;  ///< metres
    double height = 512; ///< metres
    std::string waterColour = "#2b4a5a";
    double waterLevel = 0; ///< metres
};

class Light : public LevelObject
{
public:
    enum class Kind
    {
        Point,
        Spot,
        Area
    };

    Light() : LevelObject("New light") {}

    std::string typeName() const override { return "Light"; }
    std::string icon() const override { return "lamp"; }
    std::string problem() const override { return m_intensity > 0 ? "" : "It is dark: its intensity is 0"; }
    Vector* place() override { return &position; }
    void dim();

    double intensity() const { return m_intensity; }
    void setIntensity(double intensity);

    Vector position;
    Kind kind = Kind::Point;
    std::string colour = "#ffd9a0";
    double range = 12; ///< metres
    bool castsShadows = true;

private:
    double m_intensity = 40;
};

class SpawnPoint : public LevelObject
{
public:
    SpawnPoint() : LevelObject("New spawn point") {}

    std::string typeName() const override { return "Spawn point"; }
    std::string icon() const override { return "flag"; }
    Vector* place() override { return &position; }
    void dropToWater();

    Vector position;
    double heading = 0; ///< degrees
    int crew = 1;
    double radius = 4; ///< metres
};

struct PathPoint : zarn::Object
{
    Vector position;
    double wait = 0; ///< seconds
};

/// The way that something takes through the level.
class Path : public LevelObject
{
public:
    using Points = zarn::ReflectionWrapper<std::vector<std::shared_ptr<PathPoint>>>;
    static constexpr std::size_t fewest = 2;
    static constexpr std::size_t most = 12;

    /// With two points, the second to the east of the first.
    Path();

    std::string typeName() const override { return "Path"; }
    std::string icon() const override { return "path"; }
    /// That of its first point.
    Vector* place() override { return points->empty() ? nullptr : &points->front()->position; }
    void moveTo(double x, double y) override;
    void reverse();

    std::string colour = "#7fc8a9";
    double speed = 4; ///< km/h
    bool isClosed = false;
    Points points;
};

} // namespace editor
