#include <host/images/dds_layout.h>

#include <host/images/dds_formats.h>
#include <host/images/input_file.h>

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace Tessen {
namespace {

constexpr std::size_t headerLength = 128;
constexpr std::size_t extendedLength = 148;
constexpr std::uint32_t cubeCapability = 0x200;
constexpr std::uint32_t allSides = 0xfc00;
constexpr std::uint32_t volumeCapability = 0x200000;
constexpr std::uint32_t extendedCube = 0x4;
constexpr std::uint32_t extendedVolume = 4;
constexpr std::uint32_t mostImages = 2048;

/// The numbers of the header by their place in the file.
class Header
{
public:
    Header(const unsigned char* bytes, std::size_t length) : m_bytes(bytes), m_length(length) {}

    std::uint32_t at(std::size_t offset) const { return qFromLittleEndian<std::uint32_t>(m_bytes + offset); }
    bool isDds() const { return m_length >= headerLength && startsLikeDds(m_bytes) && at(4) == 124; }
    DdsPixelFormat pixels() const
    {
        return {at(80), at(84), at(88), {at(92), at(96), at(100), at(104)}};
    }
    bool isExtended() const
    {
        return (at(80) & DdsPixelFormat::lettersFlag) && at(84) == fourLetters("DX10");
    }
    bool isCutOff() const { return isExtended() && m_length < extendedLength; }

private:
    const unsigned char* m_bytes;
    std::size_t m_length;
};

DdsParsed refused(std::string fault)
{
    return {std::nullopt, std::move(fault)};
}

int side(int full, int mip)
{
    return std::max(full >> mip, 1);
}

/// The images of the file; what it says is a fault unless it is empty.
std::string takeImages(const Header& header, DdsLayout& layout)
{
    std::uint32_t images = 1;
    if (header.isExtended()) {
        layout.isCubeMap = header.at(136) & extendedCube;
        layout.depth = header.at(132) == extendedVolume ? static_cast<int>(std::min(header.at(24), 65537u)) : 1;
        images = std::max(header.at(140), 1u);
    } else {
        layout.isCubeMap = header.at(112) & cubeCapability;
        layout.depth = header.at(112) & volumeCapability ? static_cast<int>(std::min(header.at(24), 65537u)) : 1;
        if (layout.isCubeMap && (header.at(112) & allSides) != allSides)
            return "it is a cube map that lacks sides";
    }
    if (images > mostImages || layout.depth > 65536)
        return tooLarge;
    // Of an array of cube maps the first is shown.
    layout.imageCount = layout.isCubeMap ? 6 : static_cast<int>(images);
    return {};
}

} // namespace

std::int64_t DdsLayout::sliceLength(int mip) const
{
    const std::int64_t columns = side(width, mip);
    const std::int64_t rows = side(height, mip);
    if (format.kind == DdsFormat::Blocks)
        return (columns + 3) / 4 * ((rows + 3) / 4) * format.unitBytes;
    return columns * rows * format.unitBytes;
}

std::int64_t DdsLayout::imageLength(int mips) const
{
    std::int64_t length = 0;
    for (int mip = 0; mip < mips; ++mip)
        length += sliceLength(mip) * side(depth, mip);
    return length;
}

DdsLayout::Surface DdsLayout::surface(int image, int mip) const
{
    return {side(width, mip), side(height, mip), pixelsOffset + image * imageLength(mipCount) + imageLength(mip),
            sliceLength(mip)};
}

bool startsLikeDds(const unsigned char* bytes)
{
    return std::memcmp(bytes, "DDS ", 4) == 0;
}

DdsParsed parseDds(const InputFile& file)
{
    unsigned char bytes[extendedLength];
    const Header header(bytes, file.read(0, bytes, sizeof bytes));
    if (!header.isDds() || header.isCutOff())
        return refused(damagedHeader);

    DdsLayout layout;
    std::string fault = takeImages(header, layout);
    if (!fault.empty())
        return refused(std::move(fault));
    const std::int64_t width = header.at(16);
    const std::int64_t height = header.at(12);
    if (!isBoundedImage(width, height, std::int64_t(layout.depth) * layout.imageCount))
        return refused(width && height && layout.depth ? tooLarge : damagedHeader);
    layout.width = static_cast<int>(width);
    layout.height = static_cast<int>(height);

    const unsigned largest = static_cast<unsigned>(std::max({layout.width, layout.height, layout.depth}));
    const std::uint32_t mips = std::max(header.at(28), 1u);
    if (mips > static_cast<unsigned>(std::bit_width(largest)))
        return refused(damagedHeader);
    layout.mipCount = static_cast<int>(mips);

    const auto format = header.isExtended() ? ddsFormatOf(header.at(128)) : ddsFormatOf(header.pixels());
    if (!format)
        return refused(unknownPixels);
    layout.format = *format;
    layout.pixelsOffset = header.isExtended() ? extendedLength : headerLength;
    if (file.size() - layout.pixelsOffset < layout.pixelsLength())
        return refused("it is cut off");
    return {layout, {}};
}

} // namespace Tessen
