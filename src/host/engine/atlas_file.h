#pragma once

#include <host/base/host_export.h>
#include <host/engine/atlas_texture.h>

#include <QByteArray>

#include <optional>

namespace Ozy::Fennel {

/// The bytes of an atlas file, numbers of the frame in network order:
///
///   8 bytes   89 'A' 'T' 'L' 0D 0A 1A 0A, which no text conversion leaves as it is
///   4 bytes   the version, 1
///   4 bytes   the length of the content
///   content   CBOR: [leadingFlag, fullSizeFlag, width, height, [[left, top, right, bottom, path], ...]]
///   4 bytes   CRC-32 of everything before
///
/// Paths are byte strings, so that any name survives. Threads: any.
struct DATAMODELS_HOST_API AtlasFile
{
    AtlasFile() = delete;

    /// What decoding gives: the data, or else the reason as the rest of a sentence about the file.
    struct Decoded
    {
        std::optional<AtlasTexture::AtlasData> data;
        std::string fault;
    };

    /// Larger files are refused unread.
    static constexpr qint64 maximumLength = 64 * 1024 * 1024;

    /// Why `data` can be no atlas file, or null if it can. Rectangles are not looked at.
    static const char* fault(const AtlasTexture::AtlasData& data);
    static QByteArray encode(const AtlasTexture::AtlasData& data);
    /// Takes any bytes; allocates at most a small multiple of their number.
    static Decoded decode(const QByteArray& bytes);
    /// Decodes the content alone.
    static std::optional<AtlasTexture::AtlasData> decodeContent(const QByteArray& content);
    /// Reads and decodes a file.
    static Decoded read(const std::string& path);
};

} // namespace Ozy::Fennel
