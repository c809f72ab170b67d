#pragma once

#include <host/variant/enum_names.h>
#include <host/variant/payload.h>
#include <host/variant/stream_traits.h>

#include <QMetaType>

#include <concepts>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace qelm {
namespace Detail {

template <class T>
concept Comparable = requires(const T& value)
{
    {
        value == value
        } -> std::convertible_to<bool>;
};

// A vector has an operator even if its elements have none.
template <class T>
inline constexpr bool isComparable = Comparable<T>;
template <class T, class Allocator>
inline constexpr bool isComparable<std::vector<T, Allocator>> = isComparable<T>;

template <class Payload>
struct PayloadOperations
{
    static void copy(void* payload, const void* from)
    {
        new (payload) Payload(*static_cast<const Payload*>(from));
    }
    static void move(void* payload, void* from) noexcept
    {
        new (payload) Payload(std::move(*static_cast<Payload*>(from)));
        destroy(from);
    }
    static void destroy(void* payload) noexcept { static_cast<Payload*>(payload)->~Payload(); }
    static void makeDefault(void* payload) { new (payload) Payload(); }
    static void detach(void* payload) { static_cast<Payload*>(payload)->detach(); }
    static void destroyBox(void* box) noexcept { delete static_cast<Box<typename Payload::Value>*>(box); }
};

template <class T>
struct ValueOperations
{
    static bool equals(const void* value, const void* other)
    {
        return static_cast<bool>(*static_cast<const T*>(value) == *static_cast<const T*>(other));
    }
    static void write(BasicStream& stream, const void* value)
    {
        StreamTraits<T>::write(stream, *static_cast<const T*>(value));
    }
    static bool read(BasicStream& stream, void* value)
    {
        return StreamTraits<T>::read(stream, *static_cast<T*>(value));
    }

    static int qtId() { return qMetaTypeId<T>(); }
    static void assign(void* value, const void* from)
    {
        *static_cast<T*>(value) = *static_cast<const T*>(from);
    }

    static const std::vector<MetaType::Enumerator>& enumerators()
    {
        static const std::vector<MetaType::Enumerator> values = EnumNames<T>::values();
        return values;
    }
};

template <class T>
struct PointerValueOperations
{
    using Pointee = typename PointerProperties<T>::Pointee;

    static const void* pointee(const void* value)
    {
        if constexpr (isSharedPointer<T>)
            return const_cast<const void*>(
                static_cast<const volatile void*>(static_cast<const T*>(value)->get()));
        else
            return const_cast<const void*>(static_cast<const volatile void*>(*static_cast<const T*>(value)));
    }
    static std::shared_ptr<const void> owner(const void* value)
    {
        if constexpr (isSharedPointer<T>)
            return {*static_cast<const T*>(value), pointee(value)};
        else
            return {};
    }
    static void assign(void* value, const std::shared_ptr<const void>& owner, const void* pointee)
    {
        auto* target = static_cast<Pointee*>(const_cast<void*>(pointee));
        if constexpr (isSharedPointer<T>)
            *static_cast<T*>(value) = T(owner, target);
        else
            *static_cast<T*>(value) = target;
    }
    static constexpr MetaType::PointerOperations table{&pointee, &owner, &assign};
};

template <class T>
struct SequenceValueOperations; // in sequence_operations.h, since it needs the variant

} // namespace Detail
} // namespace qelm
