#pragma once

#include <host/signals/slot_holder.h>

#include <boost/intrusive/circular_list_algorithms.hpp>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <utility>

namespace ryk::signal_details {

/// What a signal has from its first connection on: its slots, in a ring ordered by group and then by
/// connection.
///
/// Emissions walk the ring without the lock. For that, a slot that is unlinked while an emission runs keeps
/// its `next` and its memory until none runs; its functor goes at once. One word counts the running
/// emissions, numbers them, and tells the last one whether there is work left for it, so that an emission
/// costs two atomic operations and each slot two more. The object deletes itself when its signal has
/// abandoned it, no slot is linked and no emission runs.
class SignalImplBase
{
public:
    SignalImplBase() { Ring::init_header(&m_ring); }
    SignalImplBase(const SignalImplBase&) = delete;
    SignalImplBase& operator=(const SignalImplBase&) = delete;

    bool empty() const { return m_count.load(std::memory_order_relaxed) == 0; }

    /// Links a new slot behind those of its group or lower ones. A slot of a lower group than others walks
    /// past them.
    void link(Ozy::SmartPointer<SlotHolderBase> slot)
    {
        const std::lock_guard lock(m_mutex);
        SlotNode* place = &m_ring;
        while (place->previous != &m_ring && slotAt(place->previous).m_group > slot->m_group)
            place = place->previous;

        slot->m_signal = this;
        slot->m_stamp = m_word.load(std::memory_order_relaxed) >> numberShift;
        Ring::link_before(place, slot.detach());
        m_count.fetch_add(1, std::memory_order_relaxed);
    }

    /// Takes a slot out of the ring, and destroys its functor without a lock held: a destructor may use the
    /// signal.
    void unlink(SlotHolderBase& slot)
    {
        const auto ofTheRing = Ozy::SmartPointer<SlotHolderBase>::adopt(&slot);
        bool last = false;
        {
            const std::lock_guard lock(m_mutex);
            Ring::unlink(&slot);
            slot.m_signal = nullptr;
            m_count.fetch_sub(1, std::memory_order_relaxed);
            if (leaveWorkToEmissions())
                bury(slot);
            else
                last = m_abandoned && empty();
        }
        if (last)
            delete this;
        slot.releaseFunctor();
    }

    /// The signal lets go: every slot is disconnected.
    void abandon()
    {
        m_word.fetch_add(1, std::memory_order_acq_rel);
        for (SlotNode* node = SlotNodeTraits::get_next(&m_ring); node != &m_ring;
             node = SlotNodeTraits::get_next(node))
            slotAt(node).disconnect();
        {
            const std::lock_guard lock(m_mutex);
            m_abandoned = true;
            m_word.fetch_or(workLeft, std::memory_order_relaxed);
        }
        endEmission();
    }

protected:
    virtual ~SignalImplBase() = default;

    /// One walk over the slots, by a number that the slots connected inside it carry.
    class Emission
    {
    public:
        explicit Emission(SignalImplBase& signal)
            : m_signal(signal)
            , m_number((signal.m_word.fetch_add(oneEmission, std::memory_order_acq_rel) >> numberShift) + 1)
        {
        }
        ~Emission()
        {
            if (m_current)
                m_current->unpin();
            m_signal.endEmission();
        }
        Emission(const Emission&) = delete;
        Emission& operator=(const Emission&) = delete;

        /// Pins the next slot to call, null at the end. The one before stays pinned, and with that linked,
        /// until then.
        SlotHolderBase* next()
        {
            for (;;) {
                SlotHolderBase* found = findAndPin();
                if (SlotHolderBase* done = std::exchange(m_current, found))
                    done->unpin();
                // The functor of the slot before may just have died, and disconnected this one.
                if (!found || found->isConnected())
                    return found;
            }
        }

    private:
        SlotHolderBase* findAndPin() const
        {
            SlotNode* node = m_current ? static_cast<SlotNode*>(m_current) : &m_signal.m_ring;
            while ((node = SlotNodeTraits::get_next(node)) != &m_signal.m_ring) {
                SlotHolderBase& candidate = slotAt(node);
                if (candidate.m_stamp != m_number && candidate.pin())
                    return &candidate;
            }
            return nullptr;
        }

        SignalImplBase& m_signal;
        const std::uint64_t m_number;
        SlotHolderBase* m_current = nullptr;
    };

private:
    using Ring = boost::intrusive::circular_list_algorithms<SlotNodeTraits>;

    // The word: running emissions in the low bits, one bit for work left to the last of them, the emission
    // number.
    static constexpr unsigned numberShift = 24;
    static constexpr std::uint64_t workLeft = std::uint64_t(1) << (numberShift - 1);
    static constexpr std::uint64_t running = workLeft - 1;
    static constexpr std::uint64_t oneEmission = (std::uint64_t(1) << numberShift) + 1;

    static SlotHolderBase& slotAt(SlotNode* node) { return static_cast<SlotHolderBase&>(*node); }

    // A read-modify-write even if nothing changes: an emission that begins after it sees the ring as it is
    // now.
    bool leaveWorkToEmissions()
    {
        std::uint64_t word = m_word.load(std::memory_order_relaxed);
        while (!m_word.compare_exchange_weak(word, word & running ? word | workLeft : word,
                                             std::memory_order_acq_rel, std::memory_order_relaxed)) {
        }
        return word & running;
    }

    // Unlinked slots wait in a chain through `previous`, which they do not need any more.
    void bury(SlotHolderBase& slot)
    {
        slot.addReference();
        slot.previous = std::exchange(m_grave, static_cast<SlotNode*>(&slot));
    }

    void endEmission()
    {
        std::uint64_t word = m_word.load(std::memory_order_relaxed);
        do {
            if ((word & (running | workLeft)) == (workLeft | 1))
                return endLastEmission();
        } while (!m_word.compare_exchange_weak(word, word - 1, std::memory_order_acq_rel,
                                               std::memory_order_relaxed));
    }

    // The emission counts as running until it holds the lock, so that nobody else can think itself the last.
    void endLastEmission()
    {
        SlotNode* grave = nullptr;
        bool last = false;
        {
            const std::lock_guard lock(m_mutex);
            if ((m_word.fetch_sub(1, std::memory_order_acq_rel) & running) == 1) {
                m_word.fetch_and(~workLeft, std::memory_order_relaxed);
                grave = std::exchange(m_grave, nullptr);
                last = m_abandoned && empty();
            }
        }
        while (grave)
            slotAt(std::exchange(grave, grave->previous)).releaseReference();
        if (last)
            delete this;
    }

    std::mutex m_mutex;
    std::atomic<std::size_t> m_count{0};
    SlotNode m_ring;
    std::atomic<std::uint64_t> m_word{0};
    SlotNode* m_grave = nullptr;
    bool m_abandoned = false;
};

inline void SlotHolderBase::disconnect()
{
    std::uint64_t state = m_state.load(std::memory_order_relaxed);
    while (!(state & disconnected)) {
        if (m_state.compare_exchange_weak(state, state | disconnected, std::memory_order_acq_rel,
                                          std::memory_order_relaxed)) {
            if (state == 0)
                m_signal->unlink(*this);
            return;
        }
    }
}

inline void SlotHolderBase::unpin()
{
    if (m_state.fetch_sub(1, std::memory_order_acq_rel) == (disconnected | 1))
        m_signal->unlink(*this);
}

template <class Signature>
class SignalImpl;

/// The implementation for one signature.
template <class... Args>
class SignalImpl<void(Args...)> final : public SignalImplBase
{
public:
    /// Calls the slots that are connected now and stay so until their turn. What a slot throws ends the
    /// emission and reaches the emitter.
    void emit(Passed<Args>... args)
    {
        if (empty())
            return;
        Emission emission(*this);
        while (SlotHolderBase* slot = emission.next())
            static_cast<SlotHolder<void(Args...)>*>(slot)->call(args...);
    }
};

} // namespace ryk::signal_details
