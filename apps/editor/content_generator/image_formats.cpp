#include "image_formats.h"

#include <QDataStream>

#include <algorithm>
#include <cmath>

namespace generator {
namespace {

/// Three bytes of mantissa with an exponent in common.
void appendShared(QByteArray& bytes, const Light& light)
{
    const float largest = std::max({light.red, light.green, light.blue});
    int exponent = 0;
    const float scale = largest > 0 ? std::frexp(largest, &exponent) * 256 / largest : 0;
    for (const float part : {light.red, light.green, light.blue})
        bytes.append(static_cast<char>(part * scale));
    bytes.append(static_cast<char>(largest > 0 ? exponent + 128 : 0));
}

void appendPixels(QByteArray& bytes, const QImage& image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            const QRgb colour = pixels.pixel(x, y);
            for (const int part : {qBlue(colour), qGreen(colour), qRed(colour), qAlpha(colour)})
                bytes.append(static_cast<char>(part));
        }
    }
}

/// Half the size, each pixel the mean of four.
QImage halved(const QImage& image)
{
    QImage half(image.width() / 2, image.height() / 2, QImage::Format_ARGB32);
    for (int y = 0; y < half.height(); ++y) {
        for (int x = 0; x < half.width(); ++x) {
            const QRgb of[] = {image.pixel(2 * x, 2 * y), image.pixel(2 * x + 1, 2 * y), image.pixel(2 * x, 2 * y + 1),
                               image.pixel(2 * x + 1, 2 * y + 1)};
            const auto mean = [&of](int (*part)(QRgb)) {
                return (part(of[0]) + part(of[1]) + part(of[2]) + part(of[3])) / 4;
            };
            half.setPixel(x, y, qRgba(mean(&qRed), mean(&qGreen), mean(&qBlue), mean(&qAlpha)));
        }
    }
    return half;
}

QByteArray ddsHeader(quint32 side, quint32 mips)
{
    constexpr quint32 heightWidthPitchFormatAndMips = 0x2100f;
    constexpr quint32 colourWithAlpha = 0x41;
    constexpr quint32 textureOfSeveralWithMips = 0x401008;
    constexpr quint32 cubeWithAllSides = 0xfe00;

    QByteArray bytes("DDS ");
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint32(124) << heightWidthPitchFormatAndMips << side << side << side * 4 << quint32(0) << mips;
    for (int reserved = 0; reserved < 11; ++reserved)
        stream << quint32(0);
    stream << quint32(32) << colourWithAlpha << quint32(0) << quint32(32) << quint32(0x00ff0000) << quint32(0x0000ff00)
           << quint32(0x000000ff) << quint32(0xff000000) << textureOfSeveralWithMips << cubeWithAllSides << quint32(0)
           << quint32(0) << quint32(0);
    return bytes;
}

} // namespace

QByteArray hdrFile(int width, int height, const std::vector<Light>& pixels)
{
    QByteArray bytes = "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n-Y " + QByteArray::number(height) + " +X "
                       + QByteArray::number(width) + '\n';
    for (const Light& light : pixels)
        appendShared(bytes, light);
    return bytes;
}

QByteArray tgaFile(const QImage& image)
{
    constexpr char trueColour = 2;
    constexpr char topDownWithEightBitsOfAlpha = 0x28;

    QByteArray bytes(12, '\0');
    bytes[2] = trueColour;
    for (const int size : {image.width(), image.height()})
        bytes.append(static_cast<char>(size & 0xff)).append(static_cast<char>(size >> 8));
    bytes.append(32).append(topDownWithEightBitsOfAlpha);
    appendPixels(bytes, image);
    bytes.append(8, '\0').append("TRUEVISION-XFILE.").append('\0'); // without it some readers take it for an older kind
    return bytes;
}

QByteArray cubeMapFile(const std::vector<QImage>& sides)
{
    const int size = sides.front().width();
    quint32 mips = 1;
    for (int level = size; level > 1; level /= 2)
        ++mips;
    QByteArray bytes = ddsHeader(static_cast<quint32>(size), mips);
    for (QImage level : sides) {
        appendPixels(bytes, level);
        while (level.width() > 1) {
            level = halved(level);
            appendPixels(bytes, level);
        }
    }
    return bytes;
}

} // namespace generator
