#include "shapes.h"

#include "surface.h"

#include <algorithm>
#include <cmath>

namespace generator {
namespace {

double lengthOf(double x, double y)
{
    return std::sqrt(x * x + y * y);
}

} // namespace

Shape disc(double radius, double cx, double cy)
{
    return [=](double x, double y) { return lengthOf(x - cx, y - cy) - radius; };
}

Shape ring(double radius, double width)
{
    return [=](double x, double y) { return std::fabs(lengthOf(x, y) - radius) - width / 2; };
}

Shape box(double halfWidth, double halfHeight, double cx, double cy)
{
    return [=](double x, double y) {
        return std::max(std::fabs(x - cx) - halfWidth, std::fabs(y - cy) - halfHeight);
    };
}

Shape diamond(double radius)
{
    return [=](double x, double y) { return (std::fabs(x) + std::fabs(y) - radius) * 0.7; };
}

Shape triangle(double radius)
{
    return [=](double x, double y) {
        return std::max(y - radius * 0.6, std::fabs(x) * 0.87 - y * 0.5 - radius * 0.5);
    };
}

Shape both(Shape a, Shape b)
{
    return [=](double x, double y) { return std::max(a(x, y), b(x, y)); };
}

Shape either(Shape a, Shape b)
{
    return [=](double x, double y) { return std::min(a(x, y), b(x, y)); };
}

Shape without(Shape a, Shape b)
{
    return [=](double x, double y) { return std::max(a(x, y), -b(x, y)); };
}

QImage iconImage(const Shape& shape, QRgb colour, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    for (int py = 0; py < size; ++py) {
        for (int px = 0; px < size; ++px) {
            const double x = (px + 0.5) * 2 / size - 1;
            const double y = (py + 0.5) * 2 / size - 1;
            const double cover = std::clamp(0.5 - shape(x, y) * size / 2, 0.0, 1.0);
            image.setPixel(px, py, qRgba(qRed(colour), qGreen(colour), qBlue(colour), static_cast<int>(cover * 255)));
        }
    }
    return image;
}

QImage glowImage(const char* name, QRgb inner, QRgb outer, double tear, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    for (int py = 0; py < size; ++py) {
        for (int px = 0; px < size; ++px) {
            const double u = (px + 0.5) / size;
            const double v = (py + 0.5) / size;
            const double fall = std::clamp(1 - 2 * lengthOf(u - 0.5, v - 0.5), 0.0, 1.0);
            const double torn = fall * (1 - tear * cloud(name, u, v, 4));
            const QRgb colour = mix(outer, inner, fall);
            const int alpha = static_cast<int>(torn * torn * 31 + 0.5) * 255 / 31;
            image.setPixel(px, py, qRgba(qRed(colour), qGreen(colour), qBlue(colour), alpha));
        }
    }
    return image;
}

} // namespace generator
