#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/reflected_object.h>

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

/// What annotations are made of: answers that are fixed, or that a function gives at each reading.
namespace Meta::Detail {

/// An answer of type `Answer` about a `Subject`, an object or a property. An empty function answers with a default one.
template <class Subject, class Answer>
class Function
{
public:
    Function(Answer answer) : m_fixed(std::move(answer)) {}
    template <class Functor>
    requires std::is_invocable_r_v<Answer, const Functor&, const Subject&>
    Function(Functor function) : m_function(std::move(function)) {}
    Answer operator()(const Subject& subject) const { return m_function ? m_function(subject) : m_fixed; }
    /// The answer, if it is the same for all; else null.
    const Answer* fixed() const { return m_function ? nullptr : &m_fixed; }

private:
    std::function<Answer(const Subject&)> m_function;
    Answer m_fixed{};
};

using ObjectBool = Function<zarn::ReflectedObject, bool>;
using PropertyBool = Function<zarn::BoundProperty, bool>;

/// A text that may depend on the property; empty by default.
class PropertyText : public Function<zarn::BoundProperty, std::string>
{
public:
    using Function::Function;
    PropertyText(const char* text = "") : Function(std::string(text)) {}
};

/// A range that may depend on the property and on how it is to be set, both ends included; none by default.
class PropertyRange
{
public:
    using Range = std::optional<std::pair<qelm::Variant, qelm::Variant>>;
    using Flags = ryk::Flags<zarn::SetterFlag>;

    PropertyRange() : PropertyRange([](const zarn::BoundProperty&) { return Range(); }) {}
    PropertyRange(qelm::Variant least, qelm::Variant most)
        : PropertyRange([range = Range(std::pair(std::move(least), std::move(most)))](const zarn::BoundProperty&) { return range; })
    {
    }
    explicit PropertyRange(std::function<Range(const zarn::BoundProperty&)> function)
        : m_function([function = std::move(function)](const zarn::BoundProperty& property, Flags) { return function(property); })
    {
    }
    explicit PropertyRange(std::function<Range(const zarn::BoundProperty&, Flags)> function) : m_function(std::move(function)) {}

    Range range(const zarn::BoundProperty& property, Flags flags = {}) const { return m_function(property, flags); }

private:
    std::function<Range(const zarn::BoundProperty&, Flags)> m_function;
};

} // namespace Meta::Detail
