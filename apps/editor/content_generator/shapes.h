#pragma once

#include <QColor>
#include <QImage>

#include <functional>

namespace generator {

/// Signed distance to the edge of a shape in a square from -1 to 1; negative inside.
using Shape = std::function<double(double x, double y)>;

Shape disc(double radius, double cx = 0, double cy = 0);
Shape ring(double radius, double width);
Shape box(double halfWidth, double halfHeight, double cx = 0, double cy = 0);
Shape diamond(double radius);
Shape triangle(double radius); ///< point upwards
Shape both(Shape a, Shape b);
Shape either(Shape a, Shape b);
Shape without(Shape a, Shape b);

/// A shape in one colour on nothing, with a soft edge of one pixel.
QImage iconImage(const Shape& shape, QRgb colour, int size);

/// A glow whose alpha falls from the middle outwards, torn by noise of that name; `tear` 0 to 1.
QImage glowImage(const char* name, QRgb inner, QRgb outer, double tear, int size);

} // namespace generator
