#include <host/images/png_header.h>

#include <host/images/input_file.h>
#include <host/images/pixel_name.h>

#include <QtEndian>

#include <zlib.h>

#include <cstring>

namespace Tessen {
namespace {

constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr unsigned char endChunk[] = {0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xae, 0x42, 0x60, 0x82};
constexpr std::int64_t firstChunk = 33; // behind the signature and the header with its checksum
constexpr std::int64_t frameOfChunk = 12;
constexpr int mostChunks = 1 << 16;

enum ColourType
{
    Grey = 0,
    Colours = 2,
    Palette = 3,
    GreyAlpha = 4,
    ColoursAlpha = 6
};

struct Header
{
    quint32 width;
    quint32 height;
    int bits;
    int colourType;
};

bool isLegal(int bits, int colourType)
{
    switch (colourType) {
    case Grey:
        return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16;
    case Palette:
        return bits == 1 || bits == 2 || bits == 4 || bits == 8;
    case Colours:
    case GreyAlpha:
    case ColoursAlpha:
        return bits == 8 || bits == 16;
    default:
        return false;
    }
}

bool isHeaderSound(const unsigned char* bytes)
{
    const unsigned char* const chunk = bytes + 8;
    return startsLikePng(bytes) && qFromBigEndian<quint32>(chunk) == 13 && std::memcmp(chunk + 4, "IHDR", 4) == 0
           && crc32(0, chunk + 4, 17) == qFromBigEndian<quint32>(chunk + 21) && isLegal(chunk[16], chunk[17])
           && chunk[18] == 0 && chunk[19] == 0 && chunk[20] <= 1;
}

/// Walks over the chunks from the header on: without their contents, nor their checksums.
class ChunkWalk
{
public:
    /// `start` are the first bytes of the file.
    ChunkWalk(const InputFile& file, const unsigned char* start, std::size_t length)
        : m_file(file), m_start(start), m_length(static_cast<std::int64_t>(length))
    {
    }

    /// False behind the last chunk that is whole.
    bool next()
    {
        if (m_count++ == mostChunks || m_next + frameOfChunk > m_file.size())
            return false;
        unsigned char head[8];
        if (m_next + std::int64_t(sizeof head) <= m_length)
            std::memcpy(head, m_start + m_next, sizeof head);
        else if (m_file.read(m_next, head, sizeof head) != sizeof head)
            return false;
        std::memcpy(m_type, head + 4, sizeof m_type);
        m_next += frameOfChunk + qFromBigEndian<quint32>(head);
        return m_next <= m_file.size();
    }
    bool is(const char* type) const { return std::memcmp(m_type, type, sizeof m_type) == 0; }

private:
    const InputFile& m_file;
    const unsigned char* m_start;
    std::int64_t m_length;
    std::int64_t m_next = firstChunk;
    int m_count = 0;
    char m_type[4] = {};
};

bool endsLikePng(const InputFile& file)
{
    unsigned char end[sizeof endChunk];
    return file.read(file.size() - std::int64_t(sizeof end), end, sizeof end) == sizeof end
           && std::memcmp(end, endChunk, sizeof end) == 0;
}

bool reachesEnd(ChunkWalk& walk)
{
    while (walk.next()) {
        if (walk.is("IEND"))
            return true;
    }
    return false;
}

ImageInfo infoOf(const Header& header, bool isTransparent)
{
    static constexpr unsigned plainChannels[] = {1, 0, 3, 3, 2, 0, 4};
    ImageInfo info;
    info.width = static_cast<int>(header.width);
    info.height = static_cast<int>(header.height);
    info.channelCount = plainChannels[header.colourType] + (isTransparent ? 1 : 0);
    info.bytesPerChannel = header.bits == 16 ? 2 : 1;
    info.bytesPerPixel = info.bytesPerChannel * static_cast<int>(info.channelCount);
    info.compression = QStringLiteral("Deflate");
    info.format = pixelName(info.channelCount, info.bytesPerChannel, false, info.channelCount % 2 == 0);
    if (header.colourType == Palette)
        info.format += QStringLiteral(" of a palette");
    return info;
}

} // namespace

bool startsLikePng(const unsigned char* bytes)
{
    return std::memcmp(bytes, signature, sizeof signature) == 0;
}

ImageFacts readPngFacts(const InputFile& file)
{
    unsigned char start[512];
    const std::size_t length = file.read(0, start, sizeof start);
    if (length < firstChunk || !isHeaderSound(start))
        return ImageFacts::refused(damagedHeader);
    const Header header{qFromBigEndian<quint32>(start + 16), qFromBigEndian<quint32>(start + 20), start[24], start[25]};
    if (!isBoundedImage(header.width, header.height, 1))
        return ImageFacts::refused(header.width && header.height ? tooLarge : damagedHeader);

    ChunkWalk walk(file, start, length);
    bool isTransparent = false;
    bool hasPixels = false;
    while (!hasPixels && walk.next()) {
        isTransparent = isTransparent || (walk.is("tRNS") && header.colourType <= Palette);
        hasPixels = walk.is("IDAT");
    }
    if (!hasPixels || !(endsLikePng(file) || reachesEnd(walk)))
        return ImageFacts::refused("it is cut off");
    return {infoOf(header, isTransparent), {}};
}

} // namespace Tessen
