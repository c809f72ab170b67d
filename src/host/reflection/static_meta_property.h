#pragma once

#include <host/reflection/accessors.h>
#include <host/reflection/meta_property.h>

namespace zarn {

/// A value property of a class `T`, read by `Getter` and written by `Setter`; `std::nullptr_t` for a read-only one. A
/// setter of the object and the value may take the setter flags as well.
template <class T, class Getter, class Setter>
class ValueProperty final : public NotifyableMetaProperty<1>
{
    using Value = std::decay_t<std::invoke_result_t<FuzzyFunction<T, Getter>, const BoundProperty&>>;
    static constexpr bool isWritable = !std::is_same_v<Setter, std::nullptr_t>;
    static constexpr bool wantsFlags = std::is_invocable_v<const Setter&, T&, const Value&, ryk::Flags<SetterFlag>>;
    using Write = std::conditional_t<isWritable, FuzzyFunction<T, Setter>, std::nullptr_t>;

public:
    ValueProperty(std::string name, Getter getter, Setter setter, bool isConst, Annotations annotations)
        : NotifyableMetaProperty<1>(Kind::Value, qelm::Variant(std::move(name)), std::move(annotations), detail::valueType<Value>())
        , m_get(std::move(getter))
        , m_set(std::move(setter))
        , m_isConst(isConst)
    {
    }

    bool isConst() const override { return m_isConst; }
    bool isReadOnly() const override { return !isWritable; }
    qelm::Variant get(const BoundProperty& property) const override { return qelm::Variant(m_get(property)); }
    qelm::Variant converted(const qelm::Variant& value) const override { return detail::convertedTo<Value>(value); }
    bool set(const BoundProperty& property, const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const override
    {
        if constexpr (!isWritable) {
            return false;
        } else if constexpr (std::is_same_v<bool, decltype(write(property, value, flags))>) {
            return write(property, value, flags);
        } else {
            write(property, value, flags);
            return true;
        }
    }

private:
    decltype(auto) write(const BoundProperty& property, const qelm::Variant& value,
                         [[maybe_unused]] ryk::Flags<SetterFlag> flags) const
    {
        if constexpr (wantsFlags)
            return m_set(property, detail::valueAs<Value>(value), flags);
        else
            return m_set(property, detail::valueAs<Value>(value));
    }

    FuzzyFunction<T, Getter> m_get;
    Write m_set;
    bool m_isConst;
};

/// A method of a class `T`.
template <class T, class Functor>
class MethodProperty final : public NotifyableMetaProperty<1>
{
    using Arguments = typename detail::MethodArguments<T, boost::callable_traits::args_t<Functor>>::type;
    static constexpr std::size_t arity = std::tuple_size_v<Arguments>;

public:
    MethodProperty(std::string name, Functor functor, Annotations annotations)
        : NotifyableMetaProperty<1>(Kind::Method, qelm::Variant(std::move(name)), std::move(annotations))
        , m_call(std::move(functor))
    {
    }

    std::size_t argumentCount() const override { return arity; }
    qelm::Variant invoke(const BoundProperty& property, std::size_t count, const qelm::Variant* arguments) const override
    {
        if (count != arity)
            throw GenericFunctionError(arity, count);
        return invoke(property, arguments, std::make_index_sequence<arity>());
    }

private:
    template <std::size_t... I>
    qelm::Variant invoke(const BoundProperty& property, [[maybe_unused]] const qelm::Variant* arguments,
                         std::index_sequence<I...>) const
    {
        const auto call = [&]() -> decltype(auto) {
            return m_call(property, detail::argumentAs<std::tuple_element_t<I, Arguments>>(arguments[I])...);
        };
        if constexpr (std::is_void_v<decltype(call())>) {
            call();
            return {};
        } else {
            return qelm::Variant(call());
        }
    }

    FuzzyFunction<T, Functor> m_call;
};

} // namespace zarn
