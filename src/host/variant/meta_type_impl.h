#pragma once

#include <host/variant/enum_names.h>
#include <host/variant/payload.h>
#include <host/variant/stream_traits.h>

#include <QMetaType>

#include <concepts>
#include <memory>
#include <new>
#include <type_traits>
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
struct SequenceValueOperations; // in variant.h, behind the class that its elements are

} // namespace Detail

/// Builds the description of a type from what the type can do.
template <class T>
class DefaultMetaTypeImpl
{
    static_assert(std::is_same_v<T, std::decay_t<T>> && std::is_copy_constructible_v<T>);

public:
    static const MetaType& instance()
    {
        static const MetaType& type = MetaType::intern(data(), operations());
        return type;
    }

private:
    using Pointer = Detail::PointerProperties<T>;
    using Payload = PayloadOf<T>;

    static constexpr bool isObjectPointer =
        Pointer::isPointer && !std::is_function_v<typename Pointer::Pointee>;

    static void set(MetaType::Data& data, MetaType::Flag flag, bool on)
    {
        if (on)
            data.flags |= flag;
    }

    static MetaType::Data data()
    {
        MetaType::Data data{typeid(T), sizeof(T), 0, nullptr};
        if constexpr (isObjectPointer) {
            using Pointee = typename Pointer::Pointee;
            data.pointee = &typeid(Pointee);
            set(data, MetaType::HasConstPointee, std::is_const_v<Pointee>);
            set(data, MetaType::HasVolatilePointee, std::is_volatile_v<Pointee>);
            set(data, MetaType::IsSharedPointer, Detail::isSharedPointer<T>);
        }
        if constexpr (std::is_enum_v<T>)
            set(data, MetaType::IsSignedEnumeration, std::is_signed_v<std::underlying_type_t<T>>);
        return data;
    }

    static MetaType::Operations operations()
    {
        using Values = Detail::ValueOperations<T>;
        using Payloads = Detail::PayloadOperations<Payload>;

        MetaType::Operations table{};
        table.kind = isObjectPointer || !Pointer::isPointer ? kindOf<T>() : Kind::Other;
        table.storage = Payload::storage;
        table.copy = &Payloads::copy;
        table.move = &Payloads::move;
        table.destroy = &Payloads::destroy;
        if constexpr (Payload::storage == MetaType::Storage::Box) {
            table.detach = &Payloads::detach;
            table.destroyBox = &Payloads::destroyBox;
        }
        if constexpr (std::is_default_constructible_v<T>)
            table.makeDefault = &Payloads::makeDefault;
        if constexpr (Detail::isComparable<T>)
            table.equals = &Values::equals;
        if constexpr (Streamable<T>) {
            table.write = &Values::write;
            table.read = &Values::read;
        }
        if constexpr (isObjectPointer)
            table.pointer = &Detail::PointerValueOperations<T>::table;
        if constexpr (kindOf<T>() == Kind::Sequence)
            table.sequence = &Detail::SequenceValueOperations<T>::table;
        if constexpr (QMetaTypeId2<T>::Defined && std::is_copy_assignable_v<T>) {
            static constexpr MetaType::QtOperations qt{&Values::qtId, &Values::assign};
            table.qt = &qt;
        }
        if constexpr (std::is_enum_v<T>)
            table.enumerators = &Values::enumerators;
        return table;
    }
};

/// The description of a type; the place for a type that needs another one than the default.
template <class T>
class MetaTypeImpl : public DefaultMetaTypeImpl<T>
{
};

/// The one description of a type in the process.
template <class T>
const MetaType& metaType()
{
    return MetaTypeImpl<T>::instance();
}

/// A file-scope object that makes the descriptions of some types when its library is loaded, so that streams
/// know them by name.
template <class... Types>
struct LoadTimeMetaTypes
{
    LoadTimeMetaTypes() { (metaType<Types>(), ...); }
};

} // namespace qelm
