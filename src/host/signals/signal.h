#pragma once

#include <host/signals/connection.h>
#include <host/signals/signal_impl.h>

#include <atomic>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace ryk {

/// What becomes of the results of slots; there is only the one that discards them.
template <class Result>
struct OptionalLastValue;

template <>
struct OptionalLastValue<void>
{
    using result_type = void;
};

template <class Signature, class Convertor, class Combiner>
class FuzzySignal;

template <class Signature, class Combiner = OptionalLastValue<void>>
class Signal;

/// A synchronous notification inside the process, for classes that are no `QObject`s.
///
/// Slots run on the emitting thread, in the order of their groups and then of their connection, with no lock
/// held: a slot may emit, connect, disconnect and destroy the signal. A slot connected during an emission is
/// first called by the next one, a disconnected slot is not called again. Nested emissions call all slots
/// anew. Cost: a pointer while nothing was ever connected; an emission allocates nothing. Threads: any may
/// connect, disconnect and emit. Moving and destroying exclude all else, save emissions that have begun: they
/// go on without slots.
template <class... Args, class Combiner>
class Signal<void(Args...), Combiner>
{
    static_assert((!std::is_rvalue_reference_v<Args> && ...), "one argument serves all slots");

public:
    using Signature = void(Args...);

    Signal() = default;
    Signal(Signal&& other) noexcept : m_impl(other.m_impl.exchange(nullptr, std::memory_order_acq_rel)) {}
    Signal& operator=(Signal&& other)
    {
        if (this != &other)
            abandon(m_impl.exchange(other.m_impl.exchange(nullptr, std::memory_order_acq_rel),
                                    std::memory_order_acq_rel));
        return *this;
    }
    ~Signal() { abandon(m_impl.exchange(nullptr, std::memory_order_acq_rel)); }

    /// Calls a copy of `slot` at each emission until it is disconnected. Slots of a lower group come first.
    Connection connect(const std::function<Signature>& slot, int group = 0) const
    {
        using Holder = signal_details::RegularSlotHolder<Signature, std::function<Signature>>;
        return link(Ozy::SmartPointer<signal_details::SlotHolderBase>(new Holder(slot, group)));
    }

    void operator()(signal_details::Passed<Args>... args) const
    {
        if (Impl* impl = m_impl.load(std::memory_order_acquire))
            impl->emit(args...);
    }

private:
    using Impl = signal_details::SignalImpl<Signature>;

    template <class, class, class>
    friend class FuzzySignal;

    Connection link(Ozy::SmartPointer<signal_details::SlotHolderBase> slot) const
    {
        impl().link(slot);
        return Connection(std::move(slot));
    }

    Impl& impl() const
    {
        if (Impl* impl = m_impl.load(std::memory_order_acquire))
            return *impl;
        auto made = std::make_unique<Impl>();
        Impl* first = nullptr;
        if (m_impl.compare_exchange_strong(first, made.get(), std::memory_order_acq_rel))
            return *made.release();
        return *first;
    }

    static void abandon(Impl* impl)
    {
        if (impl)
            impl->abandon();
    }

    mutable std::atomic<Impl*> m_impl{nullptr};
};

} // namespace ryk
