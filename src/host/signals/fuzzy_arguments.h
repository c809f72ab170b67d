#pragma once

#include <boost/callable_traits/args.hpp>

#include <cstddef>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace zarn {

/// The convertor of callers whose arguments are to arrive as they are.
struct NoArgumentConvertor
{
};

/// Calls a functor with as many of the given arguments as it has parameters for, from the first on.
///
/// A parameter of another type than its argument gets what `Convertor::convert<Parameter>(argument)` makes of
/// it, or, where the convertor has nothing for the pair, the implicit conversion. A functor with one plain
/// call operator, or a function, is read exactly; of a generic one the longest prefix is taken that it can be
/// called with, unconverted.
template <class Convertor = NoArgumentConvertor>
class FuzzyArgumentsAdaptor
{
    template <class Functor>
    static constexpr bool readable = requires
    {
        typename boost::callable_traits::args_t<Functor>;
    };

    template <class Parameter, class Argument>
    static constexpr bool converted =
        !std::is_same_v<std::remove_cvref_t<Parameter>, std::remove_cvref_t<Argument>> &&
        requires(const std::remove_cvref_t<Argument>& argument)
    {
        Convertor::template convert<std::remove_cvref_t<Parameter>>(argument);
    };

    template <class Parameter, class Argument>
    static constexpr bool fits =
        converted<Parameter, Argument> || std::is_convertible_v<Argument&, Parameter>;

    template <class Parameter, class Argument>
    static decltype(auto) pass(Argument& argument)
    {
        if constexpr (converted<Parameter, Argument>)
            return Convertor::template convert<std::remove_cvref_t<Parameter>>(argument);
        else
            return static_cast<Argument&>(argument);
    }

    template <class Parameters, class Arguments, class Count>
    struct Fit;
    template <class... Parameters, class Arguments, std::size_t... I>
    struct Fit<std::tuple<Parameters...>, Arguments, std::index_sequence<I...>>
    {
        static constexpr bool value = (fits<Parameters, std::tuple_element_t<I, Arguments>> && ...);
    };

    template <class Parameters, class... Args>
    static constexpr bool takesPrefix()
    {
        constexpr std::size_t count = std::tuple_size_v<Parameters>;
        if constexpr (count > sizeof...(Args))
            return false;
        else
            return Fit<Parameters, std::tuple<Args...>, std::make_index_sequence<count>>::value;
    }

    template <class Functor, class Arguments, class Count>
    struct Invocable;
    template <class Functor, class Arguments, std::size_t... I>
    struct Invocable<Functor, Arguments, std::index_sequence<I...>>
    {
        static constexpr bool value = std::is_invocable_v<Functor&, std::tuple_element_t<I, Arguments>&...>;
    };

    template <class Functor, std::size_t Count, class... Args>
    static constexpr bool invocableWith()
    {
        return Invocable<Functor, std::tuple<Args...>, std::make_index_sequence<Count>>::value;
    }

    template <class Functor, std::size_t Count, class... Args>
    static constexpr std::size_t longestPrefix()
    {
        if constexpr (Count == 0 || invocableWith<Functor, Count, Args...>())
            return Count;
        else
            return longestPrefix<Functor, Count - 1, Args...>();
    }

public:
    /// Whether the functor can be called with a prefix of arguments of these types.
    template <class Functor, class... Args>
    static constexpr bool accepts()
    {
        if constexpr (readable<Functor>)
            return takesPrefix<boost::callable_traits::args_t<Functor>, Args...>();
        else
            return invocableWith<Functor, longestPrefix<Functor, sizeof...(Args), Args...>(), Args...>();
    }

    template <class Functor, class... Args>
    static decltype(auto) call(Functor& functor, Args&... args)
    {
        static_assert(accepts<Functor, Args...>(), "the functor takes no prefix of these arguments");
        const auto arguments = std::tie(args...);
        if constexpr (readable<Functor>)
            return callExactly<boost::callable_traits::args_t<Functor>>(functor, arguments);
        else
            return callPrefix(functor, arguments,
                              std::make_index_sequence<longestPrefix<Functor, sizeof...(Args), Args...>()>());
    }

private:
    template <class Parameters, class Functor, class Arguments>
    static decltype(auto) callExactly(Functor& functor, const Arguments& arguments)
    {
        return [&]<std::size_t... I>(std::index_sequence<I...>)->decltype(auto)
        {
            return std::invoke(functor, pass<std::tuple_element_t<I, Parameters>>(std::get<I>(arguments))...);
        }
        (std::make_index_sequence<std::tuple_size_v<Parameters>>());
    }

    template <class Functor, class Arguments, std::size_t... I>
    static decltype(auto) callPrefix(Functor& functor, const Arguments& arguments, std::index_sequence<I...>)
    {
        return std::invoke(functor, std::get<I>(arguments)...);
    }
};

} // namespace zarn
