#pragma once

#include <host/reflection/cast.h>
#include <host/reflection/bound_property.h>

#include <boost/callable_traits/args.hpp>

#include <functional>
#include <tuple>
#include <type_traits>

namespace zarn {

/// A getter, setter or method of a class: it takes the object, as a reference or pointer, or the `BoundProperty`, or
/// neither, and the arguments behind it. Pointers to members work as well.
template <class T, class Functor>
class FuzzyFunction
{
public:
    explicit FuzzyFunction(Functor functor) : m_functor(std::move(functor)) {}

    /// Throws a `qelm::CastError` if the function takes the object and the property's object is no `T`.
    template <class... Arguments>
    decltype(auto) operator()(const BoundProperty& property, Arguments&&... arguments) const
    {
        if constexpr (std::is_invocable_v<const Functor&, T&, Arguments...>)
            return std::invoke(m_functor, objectOf(property), std::forward<Arguments>(arguments)...);
        else if constexpr (std::is_invocable_v<const Functor&, T*, Arguments...>)
            return std::invoke(m_functor, &objectOf(property), std::forward<Arguments>(arguments)...);
        else if constexpr (std::is_invocable_v<const Functor&, const BoundProperty&, Arguments...>)
            return std::invoke(m_functor, property, std::forward<Arguments>(arguments)...);
        else
            return std::invoke(m_functor, std::forward<Arguments>(arguments)...);
    }

private:
    static T& objectOf(const BoundProperty& property)
    {
        T* object = cast<T>(property.object());
        if (!object)
            meta_property_details::throwCastError(property.object().metaObject(), qelm::MetaType::prettyName(typeid(T)));
        return *object;
    }

    Functor m_functor;
};

namespace detail {

template <class T, class Parameter>
inline constexpr bool isSubject = std::is_base_of_v<std::remove_cvref_t<Parameter>, T> || std::is_same_v<std::remove_cvref_t<Parameter>, BoundProperty>
    || (std::is_pointer_v<std::remove_cvref_t<Parameter>>
        && std::is_base_of_v<std::remove_cv_t<std::remove_pointer_t<std::remove_cvref_t<Parameter>>>, T>);

/// The parameters of a method behind its subject.
template <class T, class Parameters>
struct MethodArguments;
template <class T>
struct MethodArguments<T, std::tuple<>>
{
    using type = std::tuple<>;
};
template <class T, class First, class... Rest>
struct MethodArguments<T, std::tuple<First, Rest...>>
{
    using type = std::conditional_t<isSubject<T, First>, std::tuple<std::decay_t<Rest>...>,
                                    std::tuple<std::decay_t<First>, std::decay_t<Rest>...>>;
};

/// The one type that a property of type `V` is set with; null for a variant, which takes all.
template <class V>
const qelm::MetaType* valueType()
{
    if constexpr (std::is_same_v<V, qelm::Variant>)
        return nullptr;
    else
        return &qelm::metaType<V>();
}

/// A variant as a `V`; void if it cannot be.
template <class V>
qelm::Variant convertedTo(const qelm::Variant& value)
{
    if constexpr (std::is_same_v<V, qelm::Variant>) {
        return value;
    } else {
        if (value.as<V>())
            return value;
        if (auto converted = qelm::VariantConverter::convertTo<V>(value))
            return qelm::Variant(*std::move(converted));
        if constexpr (std::is_pointer_v<V> && std::is_class_v<std::remove_pointer_t<V>>) {
            if (V object = cast<std::remove_cv_t<std::remove_pointer_t<V>>>(value))
                return qelm::Variant(object);
        } else if constexpr (isSharedPointer<V>) {
            const qelm::MetaType::PointerOperations* pointer = value.isVoid() ? nullptr : value.type()->operations().pointer;
            const std::shared_ptr<const void> owner = pointer ? pointer->owner(value.address()) : nullptr;
            if (auto* object = owner ? cast<std::remove_cv_t<typename V::element_type>>(value) : nullptr)
                return qelm::Variant(V(std::const_pointer_cast<void>(owner), object));
        }
        return {};
    }
}

template <class V>
decltype(auto) valueAs(const qelm::Variant& value)
{
    if constexpr (std::is_same_v<V, qelm::Variant>)
        return (value);
    else
        return value.value<V>();
}

/// An argument of a method; a `qelm::CastError` if it cannot be converted.
template <class V>
V argumentAs(const qelm::Variant& value)
{
    const qelm::Variant converted = convertedTo<V>(value);
    if (converted.isVoid() && !std::is_same_v<V, qelm::Variant>)
        qelm::Variant::castError(value.isVoid() ? "void" : value.type()->name(), qelm::metaType<V>().name());
    return valueAs<V>(converted);
}

} // namespace detail
} // namespace zarn
