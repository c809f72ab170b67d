#pragma once

#include <host/reflection/meta/functions.h>

#include <cstddef>
#include <cstdint>

/// How objects and properties are shown as rows of trees.
namespace Meta {

/// The tool tip of a row button.
struct ToolTip : Detail::PropertyText
{
    using PropertyText::PropertyText;
};

namespace Label {

/// A fixed name for a row or an editor.
struct Text : Detail::PropertyText
{
    using PropertyText::PropertyText;
};

/// Whether the label is shown.
struct Visible : Detail::PropertyBool
{
    using Function::Function;
    Visible() : Function(true) {}
};

} // namespace Label

/// The property is a plain value, not to be walked into.
struct Value
{
};

/// Whether the row of an object starts open.
struct Expanded : Detail::ObjectBool
{
    using Function::Function;
    Expanded() : Function(true) {}
};

/// Whether the property is an item of the outliner.
struct SceneItem : Detail::PropertyBool
{
    using Function::Function;
    SceneItem() : Function(true) {}
};

/// The method is a button in a row. Colours are packed, red in the lowest byte, then green and blue.
struct IconButton
{
    std::function<std::uint32_t(const zarn::BoundProperty&)> colourFunction = {}; ///< may be empty
    bool showOnlyOnHover = false;
    bool firstIconState = false; ///< the checked state that shows the first icon
    std::size_t position = 0;
    std::string firstIcon = {};
    std::string secondIcon = {};
    std::optional<std::uint32_t> colour = {};
};

} // namespace Meta
