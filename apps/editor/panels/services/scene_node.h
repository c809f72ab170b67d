#pragma once

#include <host/reflection/object.h>
#include <host/reflection/reflection_wrapper.h>

#include <memory>
#include <string>
#include <vector>

namespace editor {

/// Marks a text as a colour, "#rrggbb", for the form to show.
struct Colour
{
};

/// A place in the basin, in metres from its south-west corner, z up from the quay.
struct Position : zarn::Object
{
    double x = 0;
    double y = 0;
    double z = 0;
};

/// An object of the sample scene. What it consists of is told in scene_meta.cpp, and edited through the
/// reflection, so that views hear of it and it can be undone. Thread: GUI.
class SceneNode : public zarn::Object
{
public:
    using Children = zarn::ReflectionWrapper<std::vector<std::shared_ptr<SceneNode>>>;

    /// A file of icons/, without its extension.
    virtual const char* icon() const = 0;

    const std::string& colour() const { return m_colour; }
    /// False, with nothing changed, unless it is "#rrggbb".
    bool setColour(const std::string& colour);

    std::string name;
    bool isEnabled = true;
    Position position;
    Children children;

protected:
    /// Sets one of its own properties in the way that an edit from outside would.
    void edit(const char* property, double value);

private:
    std::string m_colour = "#a3abb6";
};

} // namespace editor
