#include <host/variant/number.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace qelm::Conversions {
namespace {

template <class T>
T loadAs(const void* value)
{
    T number;
    std::memcpy(&number, value, sizeof number);
    return number;
}

template <class T>
void storeAs(void* value, T number)
{
    std::memcpy(value, &number, sizeof number);
}

std::int64_t loadSigned(std::size_t size, const void* value)
{
    switch (size) {
    case 1:
        return loadAs<std::int8_t>(value);
    case 2:
        return loadAs<std::int16_t>(value);
    case 4:
        return loadAs<std::int32_t>(value);
    default:
        return loadAs<std::int64_t>(value);
    }
}

std::uint64_t loadUnsigned(std::size_t size, const void* value)
{
    switch (size) {
    case 1:
        return loadAs<std::uint8_t>(value);
    case 2:
        return loadAs<std::uint16_t>(value);
    case 4:
        return loadAs<std::uint32_t>(value);
    default:
        return loadAs<std::uint64_t>(value);
    }
}

bool isSigned(const MetaType& type)
{
    return type.kind() == Kind::Signed || type.is(MetaType::IsSignedEnumeration);
}

template <class T>
std::optional<T> parseAs(std::string_view text)
{
    T number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return {};
    return number;
}

} // namespace

Number Number::load(const MetaType& type, const void* value)
{
    if (type.kind() == Kind::Real)
        return ofReal(type.size() == sizeof(float) ? static_cast<double>(loadAs<float>(value))
                                                   : loadAs<double>(value));
    if (type.kind() == Kind::Bool)
        return ofUnsigned(loadAs<bool>(value) ? 1 : 0);
    return isSigned(type) ? ofSigned(loadSigned(type.size(), value))
                          : ofUnsigned(loadUnsigned(type.size(), value));
}

std::optional<Number> Number::parse(std::string_view text)
{
    if (const auto number = parseAs<std::int64_t>(text))
        return ofSigned(*number);
    if (const auto number = parseAs<std::uint64_t>(text))
        return ofUnsigned(*number);
    if (const auto number = parseAs<double>(text))
        return ofReal(*number);
    return {};
}

double Number::asReal() const
{
    switch (m_form) {
    case Form::Signed:
        return static_cast<double>(m_signed);
    case Form::Unsigned:
        return static_cast<double>(m_unsigned);
    default:
        return m_real;
    }
}

template <class Integer>
bool Number::storeInteger(void* value) const
{
    // The first reals on either side that are out of range are powers of two, and with that exact.
    static constexpr double end =
        2.0 * static_cast<double>(Integer(1) << (std::numeric_limits<Integer>::digits - 1));
    static constexpr double begin = std::is_signed_v<Integer> ? -end : 0.0;

    if (m_form == Form::Real) {
        const double rounded = std::round(m_real);
        if (!(rounded >= begin && rounded < end))
            return false;
        storeAs(value, static_cast<Integer>(rounded));
        return true;
    }
    const bool fits =
        m_form == Form::Signed ? std::in_range<Integer>(m_signed) : std::in_range<Integer>(m_unsigned);
    if (fits)
        storeAs(value, static_cast<Integer>(m_form == Form::Signed ? m_signed
                                                                   : static_cast<std::int64_t>(m_unsigned)));
    return fits;
}

bool Number::storeReal(const MetaType& type, void* value) const
{
    const double real = asReal();
    if (type.size() == sizeof(double)) {
        storeAs(value, real);
        return true;
    }
    if (std::isfinite(real) && std::abs(real) > static_cast<double>(std::numeric_limits<float>::max()))
        return false;
    storeAs(value, static_cast<float>(real));
    return true;
}

bool Number::store(const MetaType& type, void* value) const
{
    if (type.kind() == Kind::Real)
        return storeReal(type, value);
    if (type.kind() == Kind::Bool) {
        if (std::isnan(m_real))
            return false;
        storeAs(value, !isZero());
        return true;
    }
    switch (type.size()) {
    case 1:
        return isSigned(type) ? storeInteger<std::int8_t>(value) : storeInteger<std::uint8_t>(value);
    case 2:
        return isSigned(type) ? storeInteger<std::int16_t>(value) : storeInteger<std::uint16_t>(value);
    case 4:
        return isSigned(type) ? storeInteger<std::int32_t>(value) : storeInteger<std::uint32_t>(value);
    default:
        return isSigned(type) ? storeInteger<std::int64_t>(value) : storeInteger<std::uint64_t>(value);
    }
}

} // namespace qelm::Conversions
