#pragma once

#include <QString>
#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace qelm {

/// How the conversions see a type. Integers, enumerations and floats are told apart further by size and sign.
enum class Kind : std::uint8_t
{
    Other,
    Bool,
    Signed,
    Unsigned,
    Real,
    Enumeration,
    String,
    QtString,
    QtVariant,
    Pointer,
    Sequence
};

/// The room for a value inside a variant; what does not fit is shared.
inline constexpr std::size_t inlineSize = 24;
inline constexpr std::size_t inlineAlignment = alignof(void*);

/// Whether a variant holds the value itself although copying it runs code. Specialise it for a small type
/// whose copy is as cheap as a reference count.
template <class T>
inline constexpr bool copiesCheaply = false;
template <>
inline constexpr bool copiesCheaply<QString> = true;
template <>
inline constexpr bool copiesCheaply<QVariant> = true;
template <class T>
inline constexpr bool copiesCheaply<std::shared_ptr<T>> = true;

template <class T>
inline constexpr bool
    isStoredInline = sizeof(T) <= inlineSize &&
                     alignof(T) <= inlineAlignment&& std::is_nothrow_move_constructible_v<T> &&
                     (std::is_trivially_copyable_v<T> || copiesCheaply<T>);

namespace Detail {

template <class T>
struct PointerProperties
{
    static constexpr bool isPointer = false;
    using Pointee = void;
};
template <class T>
struct PointerProperties<T*>
{
    static constexpr bool isPointer = true;
    using Pointee = T;
};
template <class T>
struct PointerProperties<std::shared_ptr<T>>
{
    static constexpr bool isPointer = true;
    using Pointee = T;
};

template <class T>
inline constexpr bool isSharedPointer = false;
template <class T>
inline constexpr bool isSharedPointer<std::shared_ptr<T>> = true;

template <class T>
inline constexpr bool isVector = false;
template <class T, class Allocator>
inline constexpr bool isVector<std::vector<T, Allocator>> = true;

} // namespace Detail

template <class T>
constexpr Kind kindOf()
{
    if constexpr (std::is_same_v<T, bool>)
        return Kind::Bool;
    else if constexpr (std::is_integral_v<T>)
        return std::is_signed_v<T> ? Kind::Signed : Kind::Unsigned;
    else if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>)
        return Kind::Real;
    else if constexpr (std::is_enum_v<T>)
        return Kind::Enumeration;
    else if constexpr (std::is_same_v<T, std::string>)
        return Kind::String;
    else if constexpr (std::is_same_v<T, QString>)
        return Kind::QtString;
    else if constexpr (std::is_same_v<T, QVariant>)
        return Kind::QtVariant;
    else if constexpr (Detail::PointerProperties<T>::isPointer)
        return Kind::Pointer;
    else if constexpr (Detail::isVector<T>)
        return Kind::Sequence;
    else
        return Kind::Other;
}

} // namespace qelm
