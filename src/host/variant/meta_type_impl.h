#pragma once

#include <host/variant/payload.h>
#include <host/variant/stream_traits.h>
#include <host/variant/type_operations.h>

#include <QMetaType>

#include <type_traits>

namespace qelm {
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
