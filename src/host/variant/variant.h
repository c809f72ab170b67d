#pragma once

#include <host/base/host_export.h>
#include <host/variant/meta_type_impl.h>
#include <host/variant/stored_value.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace qelm {

/// A value of any type, or none (void).
///
/// Small values stand inside the variant (24 bytes; integers, pointers, `QString`, `QVariant`, shared
/// pointers); others, `std::string` among them, are shared by its copies until one is written to. A copy
/// allocates nothing. Threads: different variants may be used on different threads, also if they share a
/// value.
class DATAMODELS_HOST_API Variant
{
public:
    Variant() = default;
    Variant(const Variant& other) : m_type(other.m_type) { copyPayload(other); }
    Variant(Variant&& other) noexcept : m_type(other.m_type) { takePayload(other); }

    /// From a value of any copyable type; a text literal or view is kept as a `std::string`.
    template <class T>
    requires(!std::is_same_v<std::decay_t<T>, Variant> && Detail::Storable<T>) Variant(T&& value)
        : Variant(PayloadOf<Detail::Stored<T>>(stored(std::forward<T>(value))))
    {
    }
    template <class T>
    Variant(MetaType::InlinePayload<T> payload) : m_type(&metaType<T>())
    {
        new (m_room) MetaType::InlinePayload<T>(std::move(payload));
    }
    template <class T>
    Variant(const MetaType::CowPayload<T>& payload) : m_type(&metaType<T>())
    {
        static_assert(!isStoredInline<T>, "the type is kept inline");
        new (m_room) MetaType::CowPayload<T>(payload);
    }

    Variant& operator=(const Variant& other)
    {
        Variant copy(other);
        swap(copy);
        return *this;
    }
    Variant& operator=(Variant&& other) noexcept
    {
        Variant taken(std::move(other));
        swap(taken);
        return *this;
    }
    ~Variant() { destroyPayload(); }

    void swap(Variant& other) noexcept;

    bool isVoid() const { return !m_type; }

    /// Null for void.
    const MetaType* type() const { return m_type; }
    const std::type_info& typeId() const { return m_type ? m_type->typeInfo() : typeid(void); }

    /// Equal values of one type. Values of a type without `==` are equal only to copies that share them, void
    /// to void.
    bool operator==(const Variant& other) const;

    /// Throws a `CastError` with the names of the types.
    [[noreturn]] static void castError(const char* from, const char* to);

    /// The address of the value, null for void; valid until the variant is changed.
    const void* address() const
    {
        if (!m_type)
            return nullptr;
        return m_type->operations().storage == MetaType::Storage::Box ? std::as_const(*box()).value() : m_room;
    }
    /// The same for writing; a shared value is copied first.
    void* mutableAddress();
    /// The address that a pointer or shared pointer holds; null for other values.
    const void* pointee() const;

    /// The value if it is of exactly this type, else null.
    template <class T>
    const T* as() const
    {
        return m_type == &metaType<T>() ? static_cast<const T*>(address()) : nullptr;
    }
    template <class T>
    T* mutableAs()
    {
        return m_type == &metaType<T>() ? static_cast<T*>(mutableAddress()) : nullptr;
    }
    /// The value, which must be of exactly this type: a `CastError` otherwise.
    template <class T>
    const T& value() const
    {
        if (const T* found = as<T>())
            return *found;
        castError(m_type ? m_type->name() : "void", metaType<T>().name());
    }

    /// A default value of a type; void if the type has none.
    static Variant makeDefault(const MetaType& type);

private:
    template <class T>
    static decltype(auto) stored(T&& value)
    {
        if constexpr (std::is_convertible_v<T&&, const char*> &&
                      std::is_same_v<Detail::Stored<T>, std::string>)
            return upcast(value);
        else if constexpr (std::is_same_v<std::decay_t<T>, std::string_view>)
            return std::string(value);
        else
            return std::forward<T>(value);
    }

    Detail::BoxHead* box() const
    {
        Detail::BoxHead* head;
        std::memcpy(&head, m_room, sizeof head);
        return head;
    }

    void copyPayload(const Variant& other)
    {
        if (!m_type)
            return;
        switch (m_type->operations().storage) {
        case MetaType::Storage::Box:
            other.box()->addReference();
            [[fallthrough]];
        case MetaType::Storage::Bytes:
            std::memcpy(m_room, other.m_room, sizeof m_room);
            break;
        case MetaType::Storage::Object:
            m_type->operations().copy(m_room, other.m_room);
        }
    }
    void takePayload(Variant& other) noexcept
    {
        if (m_type && m_type->operations().storage == MetaType::Storage::Object)
            m_type->operations().move(m_room, other.m_room);
        else
            std::memcpy(m_room, other.m_room, sizeof m_room);
        other.m_type = nullptr;
    }
    void destroyPayload() noexcept
    {
        if (!m_type || m_type->operations().storage == MetaType::Storage::Bytes)
            return;
        if (m_type->operations().storage == MetaType::Storage::Object)
            m_type->operations().destroy(m_room);
        else if (Detail::BoxHead* head = box(); head->releaseReference())
            m_type->operations().destroyBox(head);
    }

    const MetaType* m_type = nullptr;
    alignas(inlineAlignment) std::byte m_room[inlineSize]{};
};

} // namespace qelm

Q_DECLARE_METATYPE(qelm::Variant)

#include <host/variant/sequence_operations.h>
