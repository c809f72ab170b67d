#include <host/engine/atlas_content.h>

#include <limits>

namespace Ozy::Fennel {
namespace {

// An array of five with four numbers and a text takes at least so many bytes.
constexpr quint64 smallestTile = 6;

} // namespace

std::optional<AtlasTexture::AtlasData> AtlasContent::read()
{
    AtlasTexture::AtlasData data;
    enterArray(5);
    data.leadingFlag = number();
    data.fullSizeFlag = number();
    data.width = number();
    data.height = number();
    const quint64 count = enterTiles();
    data.tiles.reserve(count);
    for (quint64 i = 0; i < count && m_isSound; ++i) {
        auto& [rect, path] = data.tiles.emplace_back();
        enterArray(5);
        rect.left = number();
        rect.top = number();
        rect.right = number();
        rect.bottom = number();
        path = bytes();
        leaveArray();
    }
    leaveArray();
    leaveArray();
    if (!m_isSound || left() != 0)
        return {};
    return data;
}

void AtlasContent::enterArray(quint64 length)
{
    m_isSound = m_isSound && m_reader.isArray() && m_reader.isLengthKnown() && m_reader.length() == length
                && m_reader.enterContainer();
}

// The number stands in front of what it counts, and is believed only as far as there are bytes for it.
quint64 AtlasContent::enterTiles()
{
    m_isSound = m_isSound && m_reader.isArray() && m_reader.isLengthKnown() && m_reader.length() <= left() / smallestTile;
    const quint64 count = m_isSound ? m_reader.length() : 0;
    enterArray(count);
    return count;
}

void AtlasContent::leaveArray()
{
    m_isSound = m_isSound && m_reader.leaveContainer();
}

std::uint32_t AtlasContent::number()
{
    m_isSound = m_isSound && m_reader.isUnsignedInteger()
                && m_reader.toUnsignedInteger() <= std::numeric_limits<std::uint32_t>::max();
    if (!m_isSound)
        return 0;
    const auto value = static_cast<std::uint32_t>(m_reader.toUnsignedInteger());
    m_isSound = m_reader.next();
    return value;
}

std::string AtlasContent::bytes()
{
    m_isSound = m_isSound && m_reader.isByteArray() && m_reader.isLengthKnown()
                && static_cast<quint64>(m_reader.currentStringChunkSize()) <= left();
    if (!m_isSound)
        return {};
    std::string text(static_cast<std::size_t>(m_reader.currentStringChunkSize()), '\0');
    const auto read = m_reader.readStringChunk(text.data(), static_cast<qsizetype>(text.size()));
    const auto end = m_reader.readStringChunk(nullptr, 0);
    m_isSound = read.status == QCborStreamReader::Ok && end.status == QCborStreamReader::EndOfString;
    return text;
}

} // namespace Ozy::Fennel
