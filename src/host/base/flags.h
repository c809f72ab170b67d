#pragma once

#include <cstdint>
#include <type_traits>

namespace ryk {

/// A set of bits of one enumeration, whose enumerators are masks. The size of a 32-bit value, which it is.
template <class Enum>
class Flags
{
    static_assert(std::is_enum_v<Enum>);

public:
    constexpr Flags() = default;
    constexpr Flags(Enum flag) : m_value(static_cast<std::uint32_t>(flag)) {}
    constexpr explicit Flags(std::uint32_t value) : m_value(value) {}

    constexpr std::uint32_t value() const { return m_value; }

    /// True if all bits of `flag` are set; for an enumerator without bits, if none is.
    constexpr bool test(Enum flag) const
    {
        const auto mask = static_cast<std::uint32_t>(flag);
        return mask == 0 ? m_value == 0 : (m_value & mask) == mask;
    }

    constexpr Flags operator|(Flags other) const { return Flags(m_value | other.m_value); }
    constexpr Flags operator&(Flags other) const { return Flags(m_value & other.m_value); }
    constexpr Flags operator~() const { return Flags(~m_value); }
    constexpr Flags& operator|=(Flags other) { return *this = *this | other; }
    constexpr Flags& operator&=(Flags other) { return *this = *this & other; }
    constexpr bool operator==(const Flags&) const = default;

private:
    std::uint32_t m_value = 0;
};

} // namespace ryk
