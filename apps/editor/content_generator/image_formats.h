#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

// The picture formats that Qt does not write, as bytes. Each is the plainest form of its format.

namespace generator {

/// A pixel in linear light, without an upper bound.
struct Light
{
    float red = 0;
    float green = 0;
    float blue = 0;
};

/// Radiance pictures of real light, without compression; rows from the top.
QByteArray hdrFile(int width, int height, const std::vector<Light>& pixels);

/// 32 bits a pixel, without compression.
QByteArray tgaFile(const QImage& image);

/// A cube map of six square sides of one size, with its mip levels, 32 bits a pixel. Order: +X, -X, +Y, -Y, +Z, -Z.
QByteArray cubeMapFile(const std::vector<QImage>& sides);

} // namespace generator
