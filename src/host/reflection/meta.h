#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/reflected_object.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

/// The vocabulary of annotations: what classes say of themselves and of their properties, for the service, the models and
/// the panels to read. Functions are asked at each reading, and must not be empty.
namespace Meta {

/// Whether the edits of an object, or of one property, are not to be undone: non-zero for yes.
class Stateless
{
public:
    Stateless(int value = 1) : m_function([value](const zarn::ReflectedObject&) { return value; }) {}
    Stateless(std::function<int(const zarn::ReflectedObject&)> function) : m_function(std::move(function)) {}
    int operator()(const zarn::ReflectedObject& object) const { return m_function(object); }

private:
    std::function<int(const zarn::ReflectedObject&)> m_function;
};

/// Where a property is shown; from a `bool` everywhere or nowhere.
class Visible
{
public:
    using Flags = ryk::Flags<zarn::meta_property::VisibilityFlag>;

    Visible(bool isVisible = true) : Visible(of(isVisible)) {}
    Visible(Flags flags) : m_function([flags](const zarn::BoundProperty&) { return flags; }) {}
    /// A function of the property that gives a `bool` or flags.
    template <class Function>
    requires std::is_invocable_v<const Function&, const zarn::BoundProperty&>
    Visible(Function function)
        : m_function([function = std::move(function)](const zarn::BoundProperty& property) { return of(function(property)); })
    {
    }
    Flags operator()(const zarn::BoundProperty& property) const { return m_function(property); }

private:
    static Flags of(Flags flags) { return flags; }
    static Flags of(bool isVisible)
    {
        return isVisible ? zarn::meta_property::fullyVisible : zarn::meta_property::hidden;
    }

    std::function<Flags(const zarn::BoundProperty&)> m_function;
};

namespace Detail {

/// A text that may depend on the property; empty by default.
class PropertyText
{
public:
    PropertyText(std::string text = {}) : m_function([text = std::move(text)](const zarn::BoundProperty&) { return text; }) {}
    PropertyText(const char* text) : PropertyText(std::string(text)) {}
    PropertyText(std::function<std::string(const zarn::BoundProperty&)> function) : m_function(std::move(function)) {}
    std::string operator()(const zarn::BoundProperty& property) const { return m_function(property); }

private:
    std::function<std::string(const zarn::BoundProperty&)> m_function;
};

} // namespace Detail

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
struct Visible
{
    bool isVisible = true;
};

} // namespace Label

/// The property is a plain value, not to be walked into.
struct Value
{
};

/// The property is a collection; collections say so themselves.
struct Collection
{
};

/// What every element of a collection whose name matches `pattern` ("*" for all) gets.
struct Children
{
    std::string pattern;
    zarn::Annotations annotations;
};

/// The bounds that a collection's size is kept in; it may ask the collection.
struct CollectionSize
{
    std::function<std::pair<std::size_t, std::size_t>(const zarn::ReflectedObject&)> bounds;
};

/// The allowed range of a value, both ends included; none where the function gives none.
struct MinMax
{
    using Range = std::optional<std::pair<qelm::Variant, qelm::Variant>>;

    MinMax() = default;
    MinMax(qelm::Variant least, qelm::Variant most)
        : range([range = Range(std::pair(std::move(least), std::move(most)))](const zarn::BoundProperty&) { return range; })
    {
    }
    explicit MinMax(std::function<Range(const zarn::BoundProperty&)> function) : range(std::move(function)) {}

    std::function<Range(const zarn::BoundProperty&)> range = [](const zarn::BoundProperty&) { return Range(); };
};

/// Digits behind the point.
struct Precision
{
    int digits = 2;
};

namespace MultiSelection {

/// The name under which an object's type goes in selections: objects of equal name merge.
struct ObjectType
{
    std::function<std::string(const zarn::ReflectedObject&)> name;
};

} // namespace MultiSelection
} // namespace Meta
