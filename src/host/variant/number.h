#pragma once

#include <host/variant/meta_type.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace qelm::Conversions {

/// A number on its way between two types: wide enough for each, and still knowing which side it came from.
class Number
{
public:
    static Number ofSigned(std::int64_t value) { return {Form::Signed, value, 0, 0}; }
    static Number ofUnsigned(std::uint64_t value) { return {Form::Unsigned, 0, value, 0}; }
    static Number ofReal(double value) { return {Form::Real, 0, 0, value}; }

    /// Reads a value of a number's type.
    static Number load(const MetaType& type, const void* value);
    /// A text that is a number from its first to its last character: decimal, or a real as C++ writes it.
    static std::optional<Number> parse(std::string_view text);

    /// Writes to a value of a number's type, if that can hold it.
    bool store(const MetaType& type, void* value) const;

private:
    enum class Form
    {
        Signed,
        Unsigned,
        Real
    };

    Number(Form form, std::int64_t signedValue, std::uint64_t unsignedValue, double real)
        : m_form(form), m_signed(signedValue), m_unsigned(unsignedValue), m_real(real)
    {
    }

    template <class Integer>
    bool storeInteger(void* value) const;
    bool storeReal(const MetaType& type, void* value) const;
    bool isZero() const { return m_signed == 0 && m_unsigned == 0 && m_real == 0; }
    double asReal() const;

    Form m_form;
    std::int64_t m_signed;
    std::uint64_t m_unsigned;
    double m_real;
};

} // namespace qelm::Conversions
