#include <host/images/dds_pixels.h>

#include <host/formats/image_formats.h>
#include <host/images/dds_formats.h>
#include <host/images/input_file.h>

#include <QtEndian>
#include <qfloat16.h>

#include <bit>
#include <cstring>

namespace Tessen {
namespace {

using Bytes = std::vector<unsigned char>;

/// The file of a plain picture in four letters or a number that the decoder of blocks knows.
Bytes plainFileOf(const DdsFormat& format, const DdsLayout::Surface& surface, const Bytes& blocks)
{
    Bytes file(format.blocks ? 128 : 148);
    const auto put = [&file](std::size_t offset, std::uint32_t number) { qToLittleEndian(number, &file[offset]); };
    put(0, fourLetters("DDS "));
    put(4, 124);
    put(8, 0x81007); // capabilities, sides, format, length
    put(12, static_cast<std::uint32_t>(surface.height));
    put(16, static_cast<std::uint32_t>(surface.width));
    put(20, static_cast<std::uint32_t>(blocks.size()));
    put(76, 32);
    put(80, DdsPixelFormat::lettersFlag);
    put(84, fourLetters(format.blocks ? format.blocks : "DX10"));
    put(108, 0x1000); // a texture
    if (!format.blocks) {
        put(128, format.number);
        put(132, 3); // of two dimensions
        put(140, 1);
    }
    file.insert(file.end(), blocks.begin(), blocks.end());
    return file;
}

/// A channel of up to 16 bits of a pixel, as eight.
class Channel
{
public:
    explicit Channel(std::uint64_t mask)
        : m_mask(mask), m_shift(mask ? std::countr_zero(mask) : 0), m_most(static_cast<std::uint32_t>(mask >> m_shift))
    {
    }

    int of(std::uint64_t pixel, int without) const
    {
        if (!m_mask)
            return without;
        const auto value = static_cast<std::uint32_t>((pixel & m_mask) >> m_shift);
        return static_cast<int>((value * 255 + m_most / 2) / m_most);
    }

private:
    std::uint64_t m_mask;
    int m_shift;
    std::uint32_t m_most;
};

Decoded decodeIntegers(const DdsFormat& format, const DdsLayout::Surface& surface, const Bytes& bytes)
{
    auto decoded = std::make_shared<DecodedImage>();
    decoded->width = surface.width;
    decoded->height = surface.height;
    decoded->pixels = QImage(surface.width, surface.height, format.hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (decoded->pixels.isNull())
        return Decoded::refused(tooLarge);

    const Channel red(format.masks[0]);
    const Channel green(format.masks[format.isLuminance ? 0 : 1]);
    const Channel blue(format.masks[format.isLuminance ? 0 : 2]);
    const Channel alpha(format.masks[3]);
    const unsigned char* from = bytes.data();
    for (int y = 0; y < surface.height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(decoded->pixels.scanLine(y));
        for (int x = 0; x < surface.width; ++x, from += format.unitBytes) {
            std::uint64_t pixel = 0;
            for (int byte = format.unitBytes - 1; byte >= 0; --byte)
                pixel = pixel << 8 | from[byte];
            line[x] = qRgba(red.of(pixel, 0), green.of(pixel, 0), blue.of(pixel, 0), alpha.of(pixel, 255));
        }
    }
    return {std::move(decoded), {}};
}

float floatAt(const unsigned char* bytes, int length)
{
    if (length == 2) {
        const auto bits = qFromLittleEndian<quint16>(bytes);
        qfloat16 half;
        std::memcpy(static_cast<void*>(&half), &bits, sizeof half);
        return half;
    }
    return std::bit_cast<float>(qFromLittleEndian<quint32>(bytes));
}

Decoded decodeFloats(const DdsFormat& format, const DdsLayout::Surface& surface, const Bytes& bytes)
{
    auto decoded = std::make_shared<DecodedImage>();
    decoded->width = surface.width;
    decoded->height = surface.height;
    const auto count = static_cast<std::size_t>(surface.width) * static_cast<std::size_t>(surface.height);
    decoded->light.resize(4 * count);
    const unsigned char* from = bytes.data();
    for (std::size_t pixel = 0; pixel < count; ++pixel, from += format.unitBytes) {
        float* const to = &decoded->light[4 * pixel];
        to[3] = 1;
        for (unsigned channel = 0; channel < format.channelCount; ++channel)
            to[channel] = floatAt(from + std::ptrdiff_t(channel) * format.bytesPerChannel, format.bytesPerChannel);
        if (format.isLuminance)
            to[1] = to[2] = to[0];
    }
    return {std::move(decoded), {}};
}

} // namespace

Decoded decodeDds(const InputFile& file, int image, int mip, const IsWanted& isWanted)
{
    const DdsParsed parsed = parseDds(file);
    if (!parsed.layout)
        return Decoded::refused(parsed.fault);
    const DdsLayout& layout = *parsed.layout;
    if (image < 0 || image >= layout.imageCount || mip < 0 || mip >= layout.mipCount)
        return Decoded::refused(noSuchImage);

    const DdsLayout::Surface surface = layout.surface(image, mip);
    if (std::int64_t(surface.width) * surface.height * 16 > mostDecodedBytes && layout.format.kind == DdsFormat::Floats)
        return Decoded::refused(tooLarge);
    Bytes bytes = file.read(surface.offset, static_cast<std::size_t>(surface.length));
    if (bytes.empty())
        return Decoded::refused("it is cut off");
    switch (layout.format.kind) {
    case DdsFormat::Integers:
        return decodeIntegers(layout.format, surface, bytes);
    case DdsFormat::Floats:
        return decodeFloats(layout.format, surface, bytes);
    default:
        bytes = plainFileOf(layout.format, surface, bytes);
        return Ozy::ImageFormats::instance().decodeDdsBlocks(std::move(bytes), isWanted);
    }
}

} // namespace Tessen
