#pragma once

#include <host/reflection/meta/functions.h>

#include <vector>

/// What the reflection itself reads.
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

namespace MultiSelection {

/// The name under which an object's type goes in selections: objects of equal name merge.
struct ObjectType
{
    std::function<std::string(const zarn::ReflectedObject&)> name;
};

/// What a selection shows of several objects: the result for their values, in the order of selection.
struct ReduceMap
{
    std::function<qelm::Variant(const std::vector<qelm::Variant>&)> reduce;
};

/// Whether the objects of a selection differ in a property; selections give it to their properties themselves.
struct Mixed
{
    std::function<bool(const zarn::BoundProperty&)> isMixed;
};

} // namespace MultiSelection
} // namespace Meta
