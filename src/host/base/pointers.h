#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace Ozy {

/// The base of objects that count their owners. They are made with `new`, start without an owner, and delete
/// themselves when the last one leaves. Threads: any, for the count.
class SafeReferenceCount
{
public:
    SafeReferenceCount() = default;
    SafeReferenceCount(const SafeReferenceCount&) = delete;
    SafeReferenceCount& operator=(const SafeReferenceCount&) = delete;

    void addReference() const noexcept { m_references.fetch_add(1, std::memory_order_relaxed); }
    void releaseReference() const
    {
        if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

protected:
    virtual ~SafeReferenceCount() = default;

private:
    mutable std::atomic<std::uint32_t> m_references{0};
};

/// An owner of a counted object, the size of a pointer. One pointer belongs to one thread at a time.
template <class T>
class SmartPointer
{
public:
    SmartPointer() = default;
    explicit SmartPointer(T* object) noexcept : m_object(object)
    {
        if (m_object)
            m_object->addReference();
    }
    SmartPointer(const SmartPointer& other) noexcept : SmartPointer(other.m_object) {}
    SmartPointer(SmartPointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    SmartPointer& operator=(SmartPointer other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~SmartPointer()
    {
        if (m_object)
            m_object->releaseReference();
    }

    /// Takes over a reference that is counted already, and gives up the own one without releasing it.
    static SmartPointer adopt(T* object) noexcept
    {
        SmartPointer pointer;
        pointer.m_object = object;
        return pointer;
    }
    T* detach() noexcept { return std::exchange(m_object, nullptr); }

    T* get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }
    bool operator==(const SmartPointer&) const = default;

private:
    T* m_object = nullptr;
};

} // namespace Ozy
