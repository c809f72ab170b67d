#pragma once

#include <host/base/flags.h>

#include <cstdint>

namespace zarn {

/// How a value is set.
enum class SetterFlag : std::uint32_t
{
    None = 0,
    Unseen = 1,    ///< by who shows the change himself: rows of the outliner do not follow it
    Undo = 2,      ///< by undo or redo
    Unlimited = 4, ///< by who keeps to no range: annotations may answer with none
};

/// What a change notification is about. A plain `set` tells `Value`; an element of a collection that comes to stand at
/// another index tells both.
enum class NotifyFlag : std::uint32_t
{
    Value = 1,
    Index = 2,
};

namespace meta_property {

/// Where a property is shown; all four bits make it fully visible, none hides it.
enum class VisibilityFlag : std::uint32_t
{
    Panel = 1,
    Script = 2,
    Outliner = 4,
    History = 8,
};

inline constexpr ryk::Flags<VisibilityFlag> fullyVisible{15U};
inline constexpr ryk::Flags<VisibilityFlag> hidden{0U};

} // namespace meta_property
} // namespace zarn
