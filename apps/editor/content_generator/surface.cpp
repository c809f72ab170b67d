#include "surface.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace generator {
namespace {

// Only operations that every processor rounds alike: no sine, no power.

std::uint32_t hashOf(const std::string& text)
{
    std::uint32_t hash = 2166136261u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

double cellValue(std::uint32_t seed, int x, int y)
{
    std::uint32_t h = seed ^ (static_cast<std::uint32_t>(x) * 374761393u);
    h ^= static_cast<std::uint32_t>(y) * 668265263u;
    h = (h ^ (h >> 13)) * 1274126177u;
    h ^= h >> 16;
    return (h & 0xffffu) / 65535.0;
}

double smooth(double t)
{
    return t * t * (3 - 2 * t);
}

int wrapped(int value, int period)
{
    return ((value % period) + period) % period;
}

double valueNoise(std::uint32_t seed, double x, double y, int period)
{
    const int left = static_cast<int>(std::floor(x));
    const int top = static_cast<int>(std::floor(y));
    const double tx = smooth(x - left);
    const double ty = smooth(y - top);
    const auto at = [&](int dx, int dy) {
        return cellValue(seed, wrapped(left + dx, period), wrapped(top + dy, period));
    };
    const double upper = at(0, 0) + (at(1, 0) - at(0, 0)) * tx;
    const double lower = at(0, 1) + (at(1, 1) - at(0, 1)) * tx;
    return upper + (lower - upper) * ty;
}

struct Distances
{
    double nearest = 9;
    double second = 9;
};

// Distances to the two nearest of the points scattered one a cell.
Distances scatter(std::uint32_t seed, double x, double y, int period)
{
    Distances found;
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    for (int cy = row - 1; cy <= row + 1; ++cy) {
        for (int cx = column - 1; cx <= column + 1; ++cx) {
            const int wx = wrapped(cx, period);
            const int wy = wrapped(cy, period);
            const double dx = cx + cellValue(seed, wx, wy) - x;
            const double dy = cy + cellValue(seed + 17, wx, wy) - y;
            const double distance = std::sqrt(dx * dx + dy * dy);
            if (distance < found.nearest) {
                found.second = found.nearest;
                found.nearest = distance;
            } else {
                found.second = std::min(found.second, distance);
            }
        }
    }
    return found;
}

// 0 in the groove at the edges of the unit interval, 1 away from them.
double ridge(double t, double groove)
{
    return smooth(std::clamp(std::min(t, 1 - t) / groove, 0.0, 1.0));
}

double fraction(double value)
{
    return value - std::floor(value);
}

double bricks(std::uint32_t seed, double u, double v)
{
    const double y = v * 6;
    const int row = static_cast<int>(y);
    const double x = u * 3 + (row % 2) * 0.5;
    const double tone = cellValue(seed, wrapped(static_cast<int>(std::floor(x)), 3), row);
    return ridge(fraction(x), 0.08) * ridge(fraction(y), 0.14) * (0.65 + 0.35 * tone);
}

double planks(std::uint32_t seed, double u, double v)
{
    const double x = u * 5;
    const int board = static_cast<int>(x);
    const double grain = valueNoise(seed + static_cast<unsigned>(board), u * 48, v * 4, 48);
    return ridge(fraction(x), 0.07) * (0.55 + 0.3 * grain + 0.15 * cellValue(seed, board, 3));
}

double roofTiles(double u, double v)
{
    const double y = v * 5;
    const int row = static_cast<int>(y);
    const double x = fraction(u * 4 + (row % 2) * 0.5) - 0.5;
    const double drop = fraction(y) + 0.9 * x * x;
    return std::clamp(1.05 - std::fabs(drop - 0.35), 0.0, 1.0) * (1 - 0.5 * smooth(std::clamp(drop, 0.0, 1.0)));
}

double plates(std::uint32_t seed, double u, double v)
{
    const double x = fraction(u * 2);
    const double y = fraction(v * 2);
    const double dx = std::min(x, 1 - x) - 0.13;
    const double dy = std::min(y, 1 - y) - 0.13;
    const double rivet = dx * dx + dy * dy < 0.003 ? 0.3 : 0.0;
    const double plate = 0.55 + 0.15 * valueNoise(seed, u * 16, v * 16, 16);
    return std::min(1.0, ridge(x, 0.04) * ridge(y, 0.04) * plate + rivet);
}

double weave(double u, double v)
{
    const double x = u * 8;
    const double y = v * 8;
    const bool over = (static_cast<int>(x) + static_cast<int>(y)) % 2 == 0;
    const double across = ridge(fraction(over ? y : x), 0.4);
    const double along = ridge(fraction(over ? x : y), 0.5);
    return across * (0.45 + 0.55 * along);
}

} // namespace

double cloud(const std::string& seed, double u, double v, int period)
{
    const std::uint32_t hash = hashOf(seed);
    double sum = 0;
    double weight = 0.5;
    for (int octave = 0, cells = period; octave < 4; ++octave, cells *= 2, weight /= 2)
        sum += weight * valueNoise(hash + static_cast<unsigned>(octave), u * cells, v * cells, cells);
    return sum / 0.9375;
}

double heightAt(const Surface& surface, double u, double v)
{
    const std::uint32_t seed = hashOf(surface.name);
    switch (surface.pattern) {
    case Pattern::Clay:
        return cloud(surface.name, u, v, 4);
    case Pattern::Planks:
        return planks(seed, u, v);
    case Pattern::Bricks:
        return bricks(seed, u, v);
    case Pattern::RoofTiles:
        return roofTiles(u, v);
    case Pattern::Plates:
        return plates(seed, u, v);
    case Pattern::Weave:
        return weave(u, v);
    case Pattern::Gravel:
        return std::clamp(1 - scatter(seed, u * 8, v * 8, 8).nearest, 0.0, 1.0);
    case Pattern::Cracks: {
        const Distances cell = scatter(seed, u * 5, v * 5, 5);
        const double edge = smooth(std::clamp((cell.second - cell.nearest) * 5, 0.0, 1.0));
        return edge * (0.7 + 0.3 * cloud(surface.name, u, v, 6));
    }
    }
    return 0;
}

QRgb mix(QRgb from, QRgb to, double amount)
{
    const auto channel = [amount](int a, int b) { return static_cast<int>(a + (b - a) * amount + 0.5); };
    return qRgba(channel(qRed(from), qRed(to)), channel(qGreen(from), qGreen(to)), channel(qBlue(from), qBlue(to)),
                 channel(qAlpha(from), qAlpha(to)));
}

namespace {

// Few steps of height keep the files small and look painted.
int steppedHeight(const Surface& surface, double u, double v)
{
    return static_cast<int>(heightAt(surface, u, v) * 23 + 0.5) * 255 / 23;
}

template <class Colour>
QImage painted(int size, QImage::Format format, Colour colour)
{
    QImage image(size, size, format);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            image.setPixel(x, y, colour((x + 0.5) / size, (y + 0.5) / size));
    }
    return image;
}

} // namespace

QImage colourImage(const Surface& surface, int size)
{
    const bool open = surface.opening > 0;
    return painted(size, open ? QImage::Format_ARGB32 : QImage::Format_RGB32, [&](double u, double v) {
        const int height = steppedHeight(surface, u, v);
        const QRgb colour = mix(surface.low, surface.high, height / 255.0);
        return open && height < surface.opening ? qRgba(0, 0, 0, 0) : colour;
    });
}

QImage glossImage(const Surface& surface, int size)
{
    return painted(size, QImage::Format_ARGB32, [&](double u, double v) {
        const int height = steppedHeight(surface, u, v);
        const int gloss = static_cast<int>(surface.gloss * (128 + height / 2));
        const int metal = static_cast<int>(surface.metal * 255);
        return qRgba(gloss, height, metal, 255 - height / 4);
    });
}

QImage occlusionImage(const Surface& surface, int size)
{
    return painted(size, QImage::Format_RGB32, [&](double u, double v) {
        const int metal = static_cast<int>(surface.metal * 255);
        return qRgb(metal, 96 + steppedHeight(surface, u, v) * 5 / 8, 0);
    });
}

} // namespace generator
