#include "sample_images.h"

#include <QBuffer>
#include <QColor>
#include <QDataStream>

#include <array>

namespace {

constexpr quint32 ddsMagic = 0x20534444; // "DDS "
constexpr quint32 capsHeightWidthPitchFormat = 0x1 | 0x2 | 0x4 | 0x8 | 0x1000;
constexpr quint32 rgbWithAlpha = 0x41;
constexpr quint32 complexTexture = 0x1008;
constexpr quint32 cubeWithAllSides = 0xfe00;

} // namespace

QByteArray SampleImages::png(int width, int height, QImage::Format format, const QColor& colour)
{
    QImage image(width, height, QImage::Format_RGBA8888);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.convertToFormat(format).save(&buffer, "PNG");
    return bytes;
}

QByteArray SampleImages::cubeMap(int size)
{
    const auto side = static_cast<quint32>(size);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << ddsMagic << quint32(124) << capsHeightWidthPitchFormat << side << side << side * 4 << quint32(0)
           << quint32(1);
    for (int reserved = 0; reserved < 11; ++reserved)
        stream << quint32(0);
    stream << quint32(32) << rgbWithAlpha << quint32(0) << quint32(32) << quint32(0x000000ff) << quint32(0x0000ff00)
           << quint32(0x00ff0000) << quint32(0xff000000) << complexTexture << cubeWithAllSides << quint32(0)
           << quint32(0) << quint32(0);

    constexpr std::array<quint32, 6> colours{0xff0000ff, 0xff00ff00, 0xffff0000, 0xffffff00, 0xffff00ff, 0xff00ffff};
    for (const quint32 colour : colours) {
        for (int pixel = 0; pixel < size * size; ++pixel)
            stream << colour;
    }
    return bytes;
}
