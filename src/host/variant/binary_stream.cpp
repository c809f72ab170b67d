#include <host/variant/binary_stream.h>

#include <bit>
#include <utility>

namespace qelm {
namespace {

constexpr std::string_view head = "qelmvar1";
constexpr std::size_t numberSize = 8;

} // namespace

BinaryStream::BinaryStream() : m_bytes(head), m_position(head.size()) {}

BinaryStream::BinaryStream(std::string bytes) : m_bytes(std::move(bytes)), m_position(head.size())
{
    if (m_bytes.compare(0, head.size(), head) == 0)
        return;
    m_position = m_bytes.size();
    fail("these are no variants, or of another version");
}

void BinaryStream::writeBool(bool value)
{
    m_bytes.push_back(value ? 1 : 0);
}

void BinaryStream::writeUnsigned(std::uint64_t value)
{
    for (std::size_t i = 0; i < numberSize; ++i)
        m_bytes.push_back(static_cast<char>(value >> (8 * i)));
}

void BinaryStream::writeSigned(std::int64_t value)
{
    writeUnsigned(static_cast<std::uint64_t>(value));
}

void BinaryStream::writeReal(double value)
{
    writeUnsigned(std::bit_cast<std::uint64_t>(value));
}

void BinaryStream::writeText(std::string_view value)
{
    writeUnsigned(value.size());
    m_bytes.append(value);
}

void BinaryStream::beginSequence(std::size_t count)
{
    writeUnsigned(count);
}

bool BinaryStream::readBool(bool& value)
{
    if (!ok())
        return false;
    if (left() == 0)
        return fail("the bytes end inside a value");
    const char byte = m_bytes[m_position++];
    if (byte != 0 && byte != 1)
        return fail("a byte is neither true nor false");
    value = byte == 1;
    return true;
}

bool BinaryStream::readUnsigned(std::uint64_t& value)
{
    if (!ok())
        return false;
    if (left() < numberSize)
        return fail("the bytes end inside a number");
    value = 0;
    for (std::size_t i = 0; i < numberSize; ++i)
        value |= std::uint64_t(static_cast<unsigned char>(m_bytes[m_position++])) << (8 * i);
    return true;
}

bool BinaryStream::readSigned(std::int64_t& value)
{
    std::uint64_t bits = 0;
    if (!readUnsigned(bits))
        return false;
    value = static_cast<std::int64_t>(bits);
    return true;
}

bool BinaryStream::readReal(double& value)
{
    std::uint64_t bits = 0;
    if (!readUnsigned(bits))
        return false;
    value = std::bit_cast<double>(bits);
    return true;
}

bool BinaryStream::readText(std::string& value)
{
    std::size_t length = 0;
    if (!readLength(length, "a text"))
        return false;
    value.assign(m_bytes, m_position, length);
    m_position += length;
    return true;
}

bool BinaryStream::beginReadingSequence(std::size_t& count)
{
    return readLength(count, "a sequence");
}

// Every byte of a text and every element of a sequence takes a byte at least.
bool BinaryStream::readLength(std::size_t& length, const char* what)
{
    std::uint64_t wanted = 0;
    if (!readUnsigned(wanted))
        return false;
    if (wanted > left())
        return fail(std::string(what) + " is longer than the bytes");
    length = static_cast<std::size_t>(wanted);
    return true;
}

} // namespace qelm
