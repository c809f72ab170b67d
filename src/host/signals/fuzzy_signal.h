#pragma once

#include <host/signals/fuzzy_arguments.h>
#include <host/signals/signal.h>

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace ryk {
namespace signal_details {

template <class Signature>
class FuzzySlotHolder;

/// A slot whose functor may ask for the connection that it is called through.
template <class... Args>
class FuzzySlotHolder<void(Args...)> final : public SlotHolder<void(Args...)>
{
public:
    using Functor = std::function<void(SlotHolderBase&, Passed<Args>...)>;

    FuzzySlotHolder(Functor functor, int group)
        : SlotHolder<void(Args...)>(group), m_functor(std::move(functor))
    {
    }

    void releaseFunctor() override { m_functor = nullptr; }
    void call(Passed<Args>... args) override { m_functor(*this, args...); }

private:
    Functor m_functor;
};

} // namespace signal_details

/// A signal whose slots take what they need: the arguments, a prefix of them, or the `Connection` in front of
/// either.
///
/// `Convertor` adapts arguments to parameters of other types, as `zarn::FuzzyArgumentsAdaptor` tells. All
/// else is as with `Signal`.
template <class Signature, class Convertor = zarn::NoArgumentConvertor,
          class Combiner = OptionalLastValue<void>>
class FuzzySignal;

template <class... Args, class Convertor, class Combiner>
class FuzzySignal<void(Args...), Convertor, Combiner>
{
    using Adaptor = zarn::FuzzyArgumentsAdaptor<Convertor>;
    using Holder = signal_details::FuzzySlotHolder<void(Args...)>;

    template <class Functor>
    static constexpr bool takesArguments =
        Adaptor::template accepts<Functor, std::remove_reference_t<signal_details::Passed<Args>>...>();
    template <class Functor>
    static constexpr bool takesConnection = Adaptor::template accepts<
        Functor, const Connection, std::remove_reference_t<signal_details::Passed<Args>>...>();

public:
    using Signature = void(Args...);

    /// Any functor of one of the forms above, adapted once and then called like an exact one. Reading a
    /// functor prefers the form without the connection.
    class slot_type
    {
    public:
        template <class Functor>
        requires(!std::same_as<std::remove_cvref_t<Functor>, slot_type> &&
                 (takesArguments<std::decay_t<Functor>> || takesConnection<std::decay_t<Functor>>))
            slot_type(Functor&& functor)
        {
            using Stored = std::decay_t<Functor>;
            m_functor = [stored = Stored(std::forward<Functor>(functor))](
                            [[maybe_unused]] signal_details::SlotHolderBase& holder,
                            [[maybe_unused]] signal_details::Passed<Args>... args) mutable {
                if constexpr (takesArguments<Stored>) {
                    Adaptor::call(stored, args...);
                } else {
                    const Connection connection{Ozy::SmartPointer<signal_details::SlotHolderBase>(&holder)};
                    Adaptor::call(stored, connection, args...);
                }
            };
        }

    private:
        friend class FuzzySignal;
        typename Holder::Functor m_functor;
    };

    Connection connect(slot_type slot, int group = 0) const
    {
        return m_signal.link(
            Ozy::SmartPointer<signal_details::SlotHolderBase>(new Holder(std::move(slot.m_functor), group)));
    }

    void operator()(signal_details::Passed<Args>... args) const { m_signal(args...); }

private:
    Signal<Signature, Combiner> m_signal;
};

} // namespace ryk
