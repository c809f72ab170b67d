#pragma once

#include <host/base/debug.h>
#include <host/base/pointers.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>

namespace ryk::signal_details {

class SignalImplBase;

/// How an argument travels to the slots: references as they are, values by a reference that no slot can
/// change.
template <class Argument>
using Passed = std::conditional_t<std::is_reference_v<Argument>, Argument, const Argument&>;

/// A place in the ring of a signal's slots. Emissions read `next` without a lock; all else needs the signal's
/// mutex.
struct SlotNode
{
    std::atomic<SlotNode*> next{nullptr};
    SlotNode* previous = nullptr;
};

/// What boost::intrusive needs to know of a node. The release of the last store publishes a new slot with its
/// fields.
struct SlotNodeTraits
{
    using node = SlotNode;
    using node_ptr = SlotNode*;
    using const_node_ptr = const SlotNode*;

    static node_ptr get_next(const_node_ptr place) { return place->next.load(std::memory_order_acquire); }
    static void set_next(node_ptr place, node_ptr next)
    {
        place->next.store(next, std::memory_order_release);
    }
    static node_ptr get_previous(const_node_ptr place) { return place->previous; }
    static void set_previous(node_ptr place, node_ptr previous) { place->previous = previous; }
};

/// A slot of a signal. Owned by the ring while it is linked, and by the connections on it.
///
/// The state word counts the running calls in its low 63 bits; the top bit means disconnected. Whoever brings
/// it to the top bit alone, by disconnecting or by ending the last call, unlinks the slot: this happens once.
class SlotHolderBase : public Ozy::SafeReferenceCount, private SlotNode
{
public:
    explicit SlotHolderBase(int group) : m_group(group) {}
    ~SlotHolderBase() override { OZY_ASSERT(!signal()); }

    /// Destroys the functor. Called once, when no call runs and none can begin, and with no lock held.
    virtual void releaseFunctor() = 0;

    /// The signal, until the slot is unlinked from it.
    SignalImplBase* signal() const { return m_signal; }

    bool isConnected() const { return !(m_state.load(std::memory_order_acquire) & disconnected); }

    /// Takes care that no call begins any more, and unlinks the slot unless one runs.
    void disconnect();

    /// Begins a call, unless the slot is disconnected; each pinned slot is unpinned when its call has ended.
    bool pin()
    {
        std::uint64_t state = m_state.load(std::memory_order_relaxed);
        while (!(state & disconnected)) {
            if (m_state.compare_exchange_weak(state, state + 1, std::memory_order_acquire,
                                              std::memory_order_relaxed))
                return true;
        }
        return false;
    }
    void unpin();

private:
    friend class SignalImplBase;

    static constexpr std::uint64_t disconnected = std::uint64_t(1) << 63;

    std::atomic<std::uint64_t> m_state{0};
    std::uint64_t m_stamp = 0;
    SignalImplBase* m_signal = nullptr;
    const int m_group;
};

template <class Signature>
class SlotHolder;

/// A slot that can be called with the arguments of its signal.
template <class... Args>
class SlotHolder<void(Args...)> : public SlotHolderBase
{
public:
    using SlotHolderBase::SlotHolderBase;

    virtual void call(Passed<Args>... args) = 0;
};

template <class Signature, class Functor>
class RegularSlotHolder;

/// A slot that calls a functor with exactly the arguments of the signal.
template <class... Args, class Functor>
class RegularSlotHolder<void(Args...), Functor> final : public SlotHolder<void(Args...)>
{
public:
    RegularSlotHolder(const Functor& functor, int group)
        : SlotHolder<void(Args...)>(group), m_functor(functor)
    {
    }

    void releaseFunctor() override { m_functor.reset(); }
    void call(Passed<Args>... args) override { (*m_functor)(args...); }

private:
    std::optional<Functor> m_functor;
};

} // namespace ryk::signal_details
