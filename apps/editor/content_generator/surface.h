#pragma once

#include <QColor>
#include <QImage>

#include <string>

namespace generator {

enum class Pattern { Clay, Planks, Bricks, RoofTiles, Plates, Weave, Gravel, Cracks };

/// A tiling material described by what it is made of; its images follow from one height field.
struct Surface
{
    std::string name;
    Pattern pattern = Pattern::Clay;
    QRgb low = 0;         ///< colour of grooves
    QRgb high = 0;        ///< colour of ridges
    double gloss = 0.3;   ///< 0 to 1
    double metal = 0;     ///< 0 to 1
    int opening = 0;      ///< heights below this part of 255 are see-through
};

/// Height of a surface at a place of its unit square, 0 to 1; the square tiles.
double heightAt(const Surface& surface, double u, double v);

/// Colour, with the opening in the alpha channel.
QImage colourImage(const Surface& surface, int size);

/// Gloss, bump, metal and translucency in the four channels.
QImage glossImage(const Surface& surface, int size);

/// Metal and ambient occlusion in red and green.
QImage occlusionImage(const Surface& surface, int size);

/// Fractal noise that tiles after `period` cells, 0 to 1.
double cloud(const std::string& seed, double u, double v, int period);

QRgb mix(QRgb from, QRgb to, double amount);

} // namespace generator
