#pragma once

#include <string>
#include <vector>

namespace zarn {
class MetaObject;
}

/// What the editor's own classes say of their properties beside the vocabulary of the reflection.
namespace editor {

/// A text that is a colour, "#rrggbb".
struct Colour
{
};

/// A text of several lines.
struct Lines
{
    int shown = 3;
};

/// What a number is measured in, for the eye: "m", "°".
struct Unit
{
    std::string text;
};

/// What a collection of objects takes: the classes that new elements can be of, the usual one first. Files know
/// them by the last part of their names.
struct ElementClasses
{
    std::vector<const zarn::MetaObject*> (*list)() = nullptr;
};

} // namespace editor
