#pragma once

#include <host/reflection/meta/functions.h>

#include <vector>

/// How property panels show and edit a property.
namespace Meta {

/// The allowed range of a value. Intended: it is for panels to keep to, and does not bind a `set`.
struct MinMax : Detail::PropertyRange
{
    using PropertyRange::PropertyRange;
};

/// The same for values that are checked only when they have been entered.
struct Validator : Detail::PropertyRange
{
    using PropertyRange::PropertyRange;
};

/// Digits behind the point.
struct Precision
{
    int digits = 2;
};

/// The value that a button puts back, and the text of the button.
struct DefaultValue
{
    std::function<qelm::Variant(const zarn::BoundProperty&)> value = [](const zarn::BoundProperty&) { return qelm::Variant(); };
    std::string label = "Set to default";
};

/// The properties to be read again when this one has changed.
struct Dependent
{
    std::vector<std::string> names;
    int value = 1;
};

/// The directory in which a file dialog starts.
struct DialogInitialPath
{
    std::wstring path;
};

/// What a file dialog offers, for instance "*_AM.png".
struct FilesFilter
{
    std::string pattern;
};

namespace Layout {

/// Whether the editor takes the whole width.
struct FillWidth
{
    bool fills = true;
};

} // namespace Layout

namespace Button {

/// The text of a method's button, in place of its name.
struct Text : Detail::PropertyText
{
    using PropertyText::PropertyText;
};

} // namespace Button

namespace View {

/// The value is the path of an image, to be shown.
struct ImagePath
{
};

} // namespace View
} // namespace Meta
