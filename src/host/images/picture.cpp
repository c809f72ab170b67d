#include <host/images/picture.h>

#include <host/images/tessen_image_request_desc.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace Tessen {
namespace {

using Desc = TessenImageRequestDesc;

constexpr QRgb opaque = 0xff000000;
constexpr QRgb allColours = 0x00ffffff;

struct Mask
{
    explicit Mask(const Desc& desc)
        : colours((desc.isChannelVisible(Desc::Red) ? 0xff0000u : 0) | (desc.isChannelVisible(Desc::Green) ? 0xff00u : 0)
                  | (desc.isChannelVisible(Desc::Blue) ? 0xffu : 0)),
          alpha(desc.isChannelVisible(Desc::Alpha))
    {
    }
    bool isAlphaAlone() const { return alpha && colours == 0; }

    QRgb colours;
    bool alpha;
};

/// Writes a picture of the same size, pixel by pixel.
template <class Function>
QImage mapped(const QImage& from, QImage::Format format, Function function)
{
    QImage to(from.size(), format);
    for (int y = 0; y < to.height(); ++y) {
        const auto* const source = reinterpret_cast<const QRgb*>(from.constScanLine(y));
        auto* const target = reinterpret_cast<QRgb*>(to.scanLine(y));
        for (int x = 0, width = to.width(); x < width; ++x)
            target[x] = function(source[x]);
    }
    return to;
}

QImage masked(const QImage& pixels, const Mask& mask)
{
    if (mask.isAlphaAlone())
        return mapped(pixels, QImage::Format_RGB32, [](QRgb pixel) { return opaque | (pixel >> 24) * 0x010101u; });
    const bool hasAlpha = mask.alpha && pixels.format() == QImage::Format_ARGB32;
    const bool needsAlpha = hasAlpha || pixels.format() == QImage::Format_RGB32;
    if (mask.colours == allColours && needsAlpha)
        return pixels;
    if (hasAlpha)
        return mapped(pixels, QImage::Format_ARGB32, [kept = mask.colours | opaque](QRgb pixel) { return pixel & kept; });
    return mapped(pixels, QImage::Format_RGB32,
                  [kept = mask.colours](QRgb pixel) { return (pixel & kept) | opaque; });
}

/// Light from 0 to 1 as bytes of a screen. Looked up by the square root, which spends the entries where the eye does.
class Screen
{
public:
    Screen()
    {
        for (std::size_t at = 0; at < m_bytes.size(); ++at) {
            const double root = static_cast<double>(at) / last;
            const double light = root * root;
            const double shown = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
            m_bytes[at] = static_cast<unsigned char>(std::lround(255 * shown));
        }
    }
    unsigned of(float light) const
    {
        // The order of comparisons takes what is no number for darkness.
        const float bounded = light > 0 ? std::min(light, 1.0f) : 0;
        return m_bytes[static_cast<std::size_t>(std::lrint(std::sqrt(bounded) * last))];
    }

private:
    static constexpr float last = 8191;
    std::array<unsigned char, 8192> m_bytes;
};

QImage exposed(const DecodedImage& image, const Desc& desc)
{
    static const Screen screen;
    const float factor = std::exp2(desc.exposure());
    QImage picture(image.width, image.height, QImage::Format_ARGB32);
    const float* light = image.light.data();
    for (int y = 0; y < picture.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x, light += 4) {
            const float alpha = light[3] > 0 ? std::min(light[3], 1.0f) : 0;
            line[x] = static_cast<QRgb>(std::lround(255 * alpha)) << 24 | screen.of(light[0] * factor) << 16
                      | screen.of(light[1] * factor) << 8 | screen.of(light[2] * factor);
        }
    }
    return picture;
}

} // namespace

QImage pictureOf(const DecodedImage& image, const Desc& desc)
{
    return masked(image.light.empty() ? image.pixels : exposed(image, desc), Mask(desc));
}

QSize fittedSize(const QSize& size, const QSize& wished)
{
    if (wished.width() <= 0 && wished.height() <= 0)
        return size;
    const QSize bounds(wished.width() > 0 ? wished.width() : size.width(),
                       wished.height() > 0 ? wished.height() : size.height());
    if (bounds.width() >= size.width() && bounds.height() >= size.height())
        return size;
    return size.scaled(bounds, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QImage fitted(const QImage& picture, const QSize& wished)
{
    const QSize size = fittedSize(picture.size(), wished);
    return size == picture.size() ? picture
                                  : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace Tessen
