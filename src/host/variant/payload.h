#pragma once

#include <host/base/profiler.h>
#include <host/variant/meta_type.h>

#include <atomic>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace qelm {
namespace Detail {

/// The head of a shared value. Its size is also the offset of the value, whatever that is.
struct alignas(16) BoxHead
{
    std::atomic<std::uint32_t> references{1};

    void addReference() noexcept { references.fetch_add(1, std::memory_order_relaxed); }
    bool releaseReference() noexcept { return references.fetch_sub(1, std::memory_order_acq_rel) == 1; }
    bool isShared() const noexcept { return references.load(std::memory_order_acquire) > 1; }
    const void* value() const noexcept { return this + 1; }
    void* value() noexcept { return this + 1; }
};

// The head is a member, since a base class would lend its padding to the value.
template <class T>
struct Box
{
    static_assert(alignof(T) <= alignof(BoxHead), "the value must stand right behind the head");

    template <class... Args>
    explicit Box(Args&&... args) : value(std::forward<Args>(args)...)
    {
    }
    BoxHead head;
    T value;
};

} // namespace Detail

template <class T>
class MetaType::InlinePayload
{
public:
    static_assert(isStoredInline<T>, "the value has no room inside a variant, or a copy of it is too dear");
    using Value = T;
    static constexpr Storage storage = std::is_trivially_copyable_v<T> ? Storage::Bytes : Storage::Object;

    InlinePayload() : m_value() {}
    explicit InlinePayload(T value) noexcept : m_value(std::move(value)) {}

private:
    T m_value;
};

template <class T>
class MetaType::CowPayload
{
public:
    using Value = T;
    static constexpr Storage storage = Storage::Box;

    CowPayload() : m_box(make()) {}
    explicit CowPayload(const T& value) : m_box(make(value)) {}
    explicit CowPayload(T&& value) : m_box(make(std::move(value))) {}
    CowPayload(const CowPayload& other) noexcept : m_box(other.m_box) { m_box->head.addReference(); }
    CowPayload& operator=(const CowPayload& other) = delete;
    ~CowPayload()
    {
        if (m_box->head.releaseReference())
            delete m_box;
    }

    /// Makes the value the own one of this payload.
    void detach()
    {
        if (!m_box->head.isShared())
            return;
        CowPayload own(std::as_const(m_box->value));
        std::swap(m_box, own.m_box);
    }

private:
    template <class... Args>
    static Detail::Box<T>* make(Args&&... args)
    {
        const RYK::Profiler::Scope scope("Reflection|Variant|COW");
        return new Detail::Box<T>(std::forward<Args>(args)...);
    }

    Detail::Box<T>* m_box;
};

template <class T>
using PayloadOf = std::conditional_t<isStoredInline<T>, MetaType::InlinePayload<T>, MetaType::CowPayload<T>>;

} // namespace qelm
