#pragma once

#include <QImage>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Ozy {

/// One image of a file at one mip level, once decoded. Never changed afterwards, so that threads share it.
struct DecodedImage
{
    QImage pixels;            ///< `Format_ARGB32`, or `Format_RGB32` where there is no alpha; null for real light
    std::vector<float> light; ///< red, green, blue, alpha of each pixel, linear
    int width = 0;
    int height = 0;

    std::size_t byteCount() const
    {
        return static_cast<std::size_t>(pixels.sizeInBytes()) + light.size() * sizeof(float);
    }
};

/// What decoding gives: the image, or else the reason as the rest of a sentence about the file.
struct Decoded
{
    std::shared_ptr<const DecodedImage> image;
    std::string fault;

    static Decoded refused(std::string fault) { return {nullptr, std::move(fault)}; }
};

/// Asked now and then while something is decoded; false ends it.
using IsWanted = std::function<bool()>;

} // namespace Ozy
