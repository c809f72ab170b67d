#pragma once

#include <host/images/tessen_image_cache.h>
#include <host/images/tessen_image_provider.h>
#include <host/images/tessen_image_request_desc.h>

#include <OpenImageIO/imageio.h>
#include <QBuffer>
#include <QImage>
#include <QtEndian>
#include <QtTest>

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

/// A DDS file, number by number. The pixels are added behind the header.
struct DdsFile
{
    quint32 width = 4;
    quint32 height = 4;
    quint32 depth = 1;
    quint32 mips = 1;
    quint32 number = 0; ///< of the format in the extended header; 0 for a header without that
    QByteArray letters; ///< of the format in the plain header
    quint32 bits = 0;   ///< of a pixel without letters
    quint32 masks[4] = {0, 0, 0, 0};
    bool isCubeMap = false;
    quint32 images = 1;
    QByteArray pixels;

    QByteArray bytes() const
    {
        QByteArray file(number ? 148 : 128, '\0');
        const auto put = [&file](int offset, quint32 value) { qToLittleEndian(value, file.data() + offset); };
        file.replace(0, 4, "DDS ");
        put(4, 124);
        put(8, 0x1007);
        put(12, height);
        put(16, width);
        put(24, depth);
        put(28, mips);
        put(76, 32);
        put(80, bits ? (masks[3] ? 0x41 : 0x40) : 4);
        file.replace(84, 4, bits ? QByteArray(4, '\0') : number ? QByteArray("DX10") : letters);
        put(88, bits);
        for (int channel = 0; channel < 4; ++channel)
            put(92 + 4 * channel, masks[channel]);
        put(108, 0x1000);
        put(112, isCubeMap ? 0xfe00 : depth > 1 ? 0x200000 : 0);
        if (number) {
            put(128, number);
            put(132, depth > 1 ? 4 : 3);
            put(136, isCubeMap ? 4 : 0);
            put(140, images);
        }
        return file + pixels;
    }
};

/// A PNG file of a picture as Qt writes it.
inline QByteArray pngOf(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

inline QImage filled(int width, int height, const QColor& colour, QImage::Format format = QImage::Format_ARGB32)
{
    QImage picture(width, height, format);
    picture.fill(colour);
    return picture;
}

/// Writes a file in the format of its extension, each pixel with the same channels.
template <class Number>
void writeImage(const QString& path, int width, int height, OIIO::TypeDesc stored, const std::vector<Number>& pixel,
                const std::string& compression = {})
{
    OIIO::ImageSpec spec(width, height, static_cast<int>(pixel.size()), stored);
    if (!compression.empty())
        spec.attribute("compression", compression);
    std::vector<Number> pixels;
    for (int count = 0; count < width * height; ++count)
        pixels.insert(pixels.end(), pixel.begin(), pixel.end());
    const auto output = OIIO::ImageOutput::create(path.toStdString());
    if (!output || !output->open(path.toStdString(), spec)
        || !output->write_image(OIIO::BaseTypeFromC<Number>::value, pixels.data()) || !output->close())
        throw std::runtime_error("cannot write " + path.toStdString() + ": " + OIIO::geterror());
}

/// What the service says of a file; nothing for a null description.
inline std::optional<TessenImageCache::ImageInfo> infoOf(const QString& fileName)
{
    std::optional<TessenImageCache::ImageInfo> info;
    const auto job = TessenImageProvider::imageCache().getImageInfo(
        fileName, [&info](const Ozy::AsyncManager::Job&, const TessenImageCache::ImageInfo* found) {
            if (found)
                info = *found;
            return true;
        });
    job.wait();
    return info;
}

inline TessenImageRequestDesc descOf(const QString& fileName, int image = 0, int mip = 0)
{
    TessenImageRequestDesc desc;
    desc.setFileName(fileName);
    desc.setImageIndex(image);
    desc.setMip(mip);
    return desc;
}

/// What a view gets from the provider.
struct Shown
{
    QImage picture;
    QString error;

    QColor at(int x, int y) const { return picture.pixelColor(x, y); }
};

inline QString idOf(const TessenImageRequestDesc& desc)
{
    return desc.toUrl().toString().mid(QString("image://" + TessenImageRequestDesc::providerId() + "/").size());
}

inline Shown shownBy(QQuickImageResponse& response)
{
    const std::unique_ptr<QQuickTextureFactory> factory(response.textureFactory());
    return {factory ? factory->image() : QImage(), response.errorString()};
}

inline Shown shown(const TessenImageRequestDesc& desc, const QSize& wished = {})
{
    TessenImageProvider provider;
    const std::unique_ptr<QQuickImageResponse> response(provider.requestImageResponse(idOf(desc), wished));
    QSignalSpy finished(response.get(), &QQuickImageResponse::finished);
    if (!finished.wait(60000))
        throw std::runtime_error("no answer");
    return shownBy(*response);
}
