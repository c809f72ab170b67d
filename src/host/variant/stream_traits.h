#pragma once

#include <host/variant/basic_stream.h>

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace qelm {

/// How values of a type are written to streams and read back. Specialise it for a type with members of its
/// own:
///
///     template <>
///     struct qelm::StreamTraits<Point>
///     {
///         static void write(BasicStream& stream, const Point& point);
///         static bool read(BasicStream& stream, Point& point); // false, or a failed stream, if it is no
///         point
///     };
template <class T>
struct StreamTraits;

template <class T>
concept Streamable = requires(BasicStream& stream, T& value, const T& constant)
{
    StreamTraits<T>::write(stream, constant);
    {
        StreamTraits<T>::read(stream, value)
        } -> std::same_as<bool>;
};

template <>
struct StreamTraits<bool>
{
    static void write(BasicStream& stream, bool value) { stream.writeBool(value); }
    static bool read(BasicStream& stream, bool& value) { return stream.readBool(value); }
};

template <std::integral T>
struct StreamTraits<T>
{
    using Wide = std::conditional_t<std::is_signed_v<T>, std::int64_t, std::uint64_t>;

    static void write(BasicStream& stream, T value)
    {
        if constexpr (std::is_signed_v<T>)
            stream.writeSigned(value);
        else
            stream.writeUnsigned(value);
    }
    static bool read(BasicStream& stream, T& value)
    {
        Wide wide = 0;
        if constexpr (std::is_signed_v<T>) {
            if (!stream.readSigned(wide))
                return false;
        } else {
            if (!stream.readUnsigned(wide))
                return false;
        }
        if (wide < Wide(std::numeric_limits<T>::min()) || wide > Wide(std::numeric_limits<T>::max()))
            return stream.fail("a number is out of the range of its type");
        value = static_cast<T>(wide);
        return true;
    }
};

template <std::floating_point T>
struct StreamTraits<T>
{
    static void write(BasicStream& stream, T value) { stream.writeReal(static_cast<double>(value)); }
    static bool read(BasicStream& stream, T& value)
    {
        double real = 0;
        if (!stream.readReal(real))
            return false;
        value = static_cast<T>(real);
        return true;
    }
};

template <class T>
requires std::is_enum_v<T>
struct StreamTraits<T>
{
    using Underlying = std::underlying_type_t<T>;

    static void write(BasicStream& stream, T value)
    {
        StreamTraits<Underlying>::write(stream, static_cast<Underlying>(value));
    }
    static bool read(BasicStream& stream, T& value)
    {
        Underlying number{};
        if (!StreamTraits<Underlying>::read(stream, number))
            return false;
        value = static_cast<T>(number);
        return true;
    }
};

template <>
struct StreamTraits<std::string>
{
    static void write(BasicStream& stream, const std::string& value) { stream.writeText(value); }
    static bool read(BasicStream& stream, std::string& value) { return stream.readText(value); }
};

template <>
struct DATAMODELS_HOST_API StreamTraits<QString>
{
    static void write(BasicStream& stream, const QString& value);
    static bool read(BasicStream& stream, QString& value);
};

/// Whatever Qt can stream: a value of a type without stream operators fails the stream.
template <>
struct DATAMODELS_HOST_API StreamTraits<QVariant>
{
    static void write(BasicStream& stream, const QVariant& value);
    static bool read(BasicStream& stream, QVariant& value);
};

template <>
struct DATAMODELS_HOST_API StreamTraits<Variant>
{
    static void write(BasicStream& stream, const Variant& value);
    static bool read(BasicStream& stream, Variant& value);
};

template <Streamable T>
struct StreamTraits<std::vector<T>>
{
    static void write(BasicStream& stream, const std::vector<T>& values)
    {
        stream.beginSequence(values.size());
        for (const T& value : values)
            StreamTraits<T>::write(stream, value);
        stream.endSequence();
    }
    static bool read(BasicStream& stream, std::vector<T>& values)
    {
        std::size_t count = 0;
        if (!stream.beginReadingSequence(count))
            return false;
        values.clear();
        while (values.size() < count) {
            T value{};
            if (!StreamTraits<T>::read(stream, value))
                return false;
            values.push_back(std::move(value));
        }
        return stream.endReadingSequence();
    }
};

} // namespace qelm
