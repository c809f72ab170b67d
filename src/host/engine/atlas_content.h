#pragma once

#include <host/engine/atlas_texture.h>

#include <QByteArray>
#include <QCborStreamReader>

#include <optional>

namespace Ozy::Fennel {

/// Reads the content of an atlas file once, from its start to its end; the first thing amiss makes it fail for good.
class AtlasContent
{
public:
    /// The bytes outlive the reader.
    explicit AtlasContent(const QByteArray& bytes) : m_size(bytes.size()), m_reader(bytes) {}

    std::optional<AtlasTexture::AtlasData> read();

private:
    void enterArray(quint64 length);
    quint64 enterTiles();
    void leaveArray();
    std::uint32_t number();
    std::string bytes();

    quint64 left() const { return static_cast<quint64>(m_size - m_reader.currentOffset()); }

    qint64 m_size;
    QCborStreamReader m_reader;
    bool m_isSound = true;
};

} // namespace Ozy::Fennel
