#include <host/variant/text_stream.h>

#include <array>
#include <charconv>
#include <utility>

namespace qelm {
namespace {

constexpr std::string_view blanks = " \t\r\n";
// A type's name may hold blanks, so a mark of its own ends it.
constexpr char endOfName = ':';

template <class Number>
std::string printed(Number number)
{
    std::array<char, 64> room;
    return {room.data(), std::to_chars(room.data(), room.data() + room.size(), number).ptr};
}

std::string quoted(std::string_view word)
{
    return std::string(1, '\'').append(word).append(1, '\'');
}

char escaped(char character)
{
    switch (character) {
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\0':
        return '0';
    case '"':
    case '\\':
        return character;
    default:
        return 0;
    }
}

char unescaped(char character)
{
    switch (character) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case '0':
        return '\0';
    default:
        return character;
    }
}

} // namespace

TextStream::TextStream(std::string text) : m_text(std::move(text)) {}

bool TextStream::atEnd() const
{
    return m_text.find_first_not_of(blanks, m_position) == std::string::npos;
}

void TextStream::writePiece(std::string_view piece)
{
    if (!m_text.empty() && m_text.back() != '[' && m_text.back() != '\n')
        m_text.push_back(' ');
    m_text.append(piece);
}

void TextStream::writeBool(bool value)
{
    writePiece(value ? "true" : "false");
}

void TextStream::writeSigned(std::int64_t value)
{
    writePiece(printed(value));
}

void TextStream::writeUnsigned(std::uint64_t value)
{
    writePiece(printed(value));
}

void TextStream::writeReal(double value)
{
    writePiece(printed(value));
}

void TextStream::writeText(std::string_view value)
{
    writePiece("\"");
    for (const char character : value) {
        if (const char mark = escaped(character)) {
            m_text.push_back('\\');
            m_text.push_back(mark);
        } else {
            m_text.push_back(character);
        }
    }
    m_text.push_back('"');
}

void TextStream::beginSequence(std::size_t count)
{
    writePiece("[");
    writeUnsigned(count);
}

void TextStream::endSequence()
{
    m_text.push_back(']');
}

void TextStream::beginValue(std::string_view typeName)
{
    writePiece(typeName);
    m_text.push_back(endOfName);
}

void TextStream::endValue()
{
    m_text.push_back('\n');
}

void TextStream::skipBlanks()
{
    m_position = std::min(m_text.find_first_not_of(blanks, m_position), m_text.size());
}

std::string_view TextStream::readWord()
{
    skipBlanks();
    const std::size_t end = std::min(m_text.find_first_of(" \t\r\n]", m_position), m_text.size());
    const std::string_view word = std::string_view(m_text).substr(m_position, end - m_position);
    m_position = end;
    return word;
}

bool TextStream::readMark(char mark)
{
    if (!ok())
        return false;
    skipBlanks();
    if (m_position == m_text.size() || m_text[m_position] != mark)
        return fail(std::string("a ").append(quoted({&mark, 1})).append(" is missing"));
    ++m_position;
    return true;
}

bool TextStream::readBool(bool& value)
{
    if (!ok())
        return false;
    const std::string_view word = readWord();
    if (word != "true" && word != "false")
        return fail(quoted(word).append(" is neither true nor false"));
    value = word == "true";
    return true;
}

template <class Number>
bool TextStream::readNumber(Number& value)
{
    if (!ok())
        return false;
    const std::string_view word = readWord();
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size())
        return fail(quoted(word).append(" is no number, or out of range"));
    return true;
}

bool TextStream::readSigned(std::int64_t& value)
{
    return readNumber(value);
}

bool TextStream::readUnsigned(std::uint64_t& value)
{
    return readNumber(value);
}

bool TextStream::readReal(double& value)
{
    return readNumber(value);
}

bool TextStream::readText(std::string& value)
{
    if (!readMark('"'))
        return false;
    value.clear();
    while (m_position < m_text.size() && m_text[m_position] != '"') {
        if (m_text[m_position] == '\\' && m_position + 1 < m_text.size())
            value.push_back(unescaped(m_text[++m_position]));
        else
            value.push_back(m_text[m_position]);
        ++m_position;
    }
    return readMark('"');
}

bool TextStream::beginReadingSequence(std::size_t& count)
{
    std::uint64_t wanted = 0;
    if (!readMark('[') || !readUnsigned(wanted))
        return false;
    if (wanted > m_text.size() - m_position)
        return fail("a sequence is longer than the text");
    count = static_cast<std::size_t>(wanted);
    return true;
}

bool TextStream::endReadingSequence()
{
    return readMark(']');
}

bool TextStream::beginReadingValue(std::string& typeName)
{
    skipBlanks();
    std::size_t end = m_position;
    while (end < m_text.size() && m_text[end] != '\n' &&
           !(m_text[end] == endOfName && m_text[end + 1] == ' ') &&
           !(m_text[end] == endOfName && m_text[end + 1] == '\n'))
        ++end;
    if (end >= m_text.size() || m_text[end] != endOfName)
        return fail("the name of a type is missing");
    typeName = m_text.substr(m_position, end - m_position);
    m_position = end + 1;
    return true;
}

bool TextStream::endReadingValue()
{
    return ok();
}

} // namespace qelm
