#include "image_formats.h"
#include "shapes.h"
#include "surface.h"
#include "writers.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <cmath>

namespace generator {
namespace {

struct Direction
{
    double x, y, z;
};

/// The direction that a place on a side of a cube looks into; `u` to the right and `v` down, -1 to 1.
Direction directionOf(int side, double u, double v)
{
    const std::array<Direction, 6> directions{
        {{1, -v, -u}, {-1, -v, u}, {u, 1, v}, {u, -1, -v}, {u, -v, 1}, {-u, -v, -1}}};
    return directions[static_cast<std::size_t>(side)];
}

struct Probe
{
    const char* name;
    QRgb zenith;
    QRgb horizon;
    QRgb ground;
};

/// Sky above, ground below, walls of the quay around the horizon.
QRgb seenAlong(const Probe& probe, const Direction& direction)
{
    const double length = std::sqrt(direction.x * direction.x + direction.y * direction.y + direction.z * direction.z);
    const double height = direction.y / length;
    if (height < -0.05)
        return mix(probe.horizon, probe.ground, std::min(1.0, -height * 2.5));
    const double wall = cloud("quay_walls", 0.5 + direction.x / length / 2, 0.5 + direction.z / length / 2, 5);
    const bool isWall = height < static_cast<int>(wall * 8) * 0.05;
    const QRgb sky = mix(probe.horizon, probe.zenith, std::min(1.0, height * 1.6));
    return isWall ? mix(sky, probe.ground, 0.75) : sky;
}

std::vector<QImage> sidesOf(const Probe& probe, int size)
{
    std::vector<QImage> sides;
    for (int side = 0; side < 6; ++side) {
        QImage image(size, size, QImage::Format_ARGB32);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const auto place = [size](int pixel) { return (2 * pixel + 1.0) / size - 1; };
                image.setPixel(x, y, seenAlong(probe, directionOf(side, place(x), place(y))));
            }
        }
        sides.push_back(image);
    }
    return sides;
}

/// The inside of a kiln: embers up to thirty times as bright as white.
std::vector<Light> kilnLight(int width, int height)
{
    std::vector<Light> pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double u = (x + 0.5) / width;
            const double v = (y + 0.5) / height;
            const double across = (u - 0.5) * 2.4;
            const double down = (v - 0.75) * 2;
            const double distance = std::sqrt(across * across + down * down);
            const double heat = std::max(0.0, 1 - distance) * cloud("kiln_light", u, v, 6);
            // In steps, so that no platform rounds a bit otherwise.
            const auto strength = static_cast<float>(static_cast<int>(heat * heat * 1024) / 16.0);
            pixels.push_back({strength + 0.0625f, strength * 0.4375f + 0.03125f, strength * 0.09375f + 0.03125f});
        }
    }
    return pixels;
}

QImage heights(int size)
{
    QImage image(size, size, QImage::Format_Grayscale16);
    for (int y = 0; y < size; ++y) {
        auto* line = reinterpret_cast<quint16*>(image.scanLine(y));
        for (int x = 0; x < size; ++x)
            line[x] = static_cast<quint16>(cloud("marsh_heights", x / double(size), y / double(size), 4) * 4095) << 4;
    }
    return image;
}

QByteArray jpegFile(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 85);
    return bytes;
}

} // namespace

void writeLights(ContentFolder& content)
{
    for (const Probe& probe : {Probe{"probe_quay", 0xff3f78ad, 0xffcfe2ea, 0xff4b4336},
                               Probe{"probe_kiln", 0xff17110f, 0xff6a3a1f, 0xff2d1c16}})
        content.write(QStringLiteral("textures/probes/%1.dds").arg(QLatin1String(probe.name)),
                      cubeMapFile(sidesOf(probe, 32)));
    content.write(QStringLiteral("textures/probes/kiln_light.hdr"), hdrFile(64, 32, kilnLight(64, 32)));
    content.write(QStringLiteral("textures/terrain/marsh_heights.png"), heights(64));
    content.write(QStringLiteral("textures/decals/tar_splash.tga"),
                  tgaFile(glowImage("tar_splash", 0xff1b1714, 0xff3a3029, 0.9, 48)));
    const Surface parchment{"chart_parchment", Pattern::Clay, 0xffb79a6b, 0xffe6d3a8};
    content.write(QStringLiteral("textures/ui/chart_parchment.jpg"), jpegFile(colourImage(parchment, 128)));
}

} // namespace generator
