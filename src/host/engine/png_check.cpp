#include <host/engine/png_check.h>

#include <QIODevice>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace Ozy {
namespace {

constexpr char signature[] = "\x89PNG\r\n\x1a\n";
constexpr qint64 signatureLength = 8;
constexpr int namedLength = 4; // the rest tells whether the file was taken for text on its way
constexpr quint32 headLength = 13;

struct Chunk
{
    quint32 length = 0;
    char type[4] = {};
    char start[headLength] = {}; ///< the first bytes of the content

    bool is(const char* name) const { return std::memcmp(type, name, sizeof type) == 0; }
};

bool readExactly(QIODevice& file, char* bytes, qint64 length)
{
    return file.read(bytes, length) == length;
}

uLong joined(uLong checksum, const char* bytes, qint64 length)
{
    return crc32_z(checksum, reinterpret_cast<const Bytef*>(bytes), static_cast<z_size_t>(length));
}

/// Reads one chunk with its content; false if it is cut off or its checksum does not fit.
bool readChunk(QIODevice& file, Chunk& chunk)
{
    char head[8];
    if (!readExactly(file, head, sizeof head))
        return false;
    chunk.length = qFromBigEndian<quint32>(head);
    std::memcpy(chunk.type, head + 4, sizeof chunk.type);

    uLong checksum = joined(0, chunk.type, sizeof chunk.type);
    char block[65536];
    for (qint64 left = chunk.length; left > 0;) {
        const qint64 length = std::min<qint64>(left, sizeof block);
        if (!readExactly(file, block, length))
            return false;
        if (left == chunk.length)
            std::memcpy(chunk.start, block, static_cast<std::size_t>(std::min<qint64>(length, headLength)));
        checksum = joined(checksum, block, length);
        left -= length;
    }
    char stored[4];
    return readExactly(file, stored, sizeof stored) && checksum == qFromBigEndian<quint32>(stored);
}

QSize sizeFromHead(const Chunk& head)
{
    const auto width = qFromBigEndian<quint32>(head.start);
    const auto height = qFromBigEndian<quint32>(head.start + 4);
    constexpr quint32 largest = std::numeric_limits<int>::max();
    return width > largest || height > largest ? QSize() : QSize(static_cast<int>(width), static_cast<int>(height));
}

} // namespace

bool startsLikePng(QIODevice& file)
{
    return file.peek(namedLength) == QByteArray::fromRawData(signature, namedLength);
}

QSize checkedPngSize(QIODevice& file)
{
    Chunk chunk;
    if (file.read(signatureLength) != QByteArray::fromRawData(signature, signatureLength) || !readChunk(file, chunk)
        || !chunk.is("IHDR") || chunk.length != headLength)
        return {};

    const QSize size = sizeFromHead(chunk);
    bool hasPixels = false;
    while (readChunk(file, chunk)) {
        if (chunk.is("IEND"))
            return hasPixels ? size : QSize();
        hasPixels = hasPixels || (chunk.is("IDAT") && chunk.length > 0);
    }
    return {};
}

} // namespace Ozy
