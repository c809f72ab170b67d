#pragma once

#include <QByteArray>
#include <QImage>

/// Files in the formats that image tests need, as bytes.
namespace SampleImages {

/// A PNG of one colour. The format decides on its channels: `Format_Grayscale8` 1, `Format_RGB888` 3, `Format_RGBA8888` 4.
QByteArray png(int width, int height, QImage::Format format, const QColor& colour = Qt::red);

/// A DDS cube map of 8 bits a channel, RGBA, with sides of `size` pixels and without mips. The sides are of one colour
/// each: red, green, blue, cyan, magenta, yellow, in the order of the file.
QByteArray cubeMap(int size);

} // namespace SampleImages
