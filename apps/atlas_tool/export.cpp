#include "tool.h"

#include <datamodels/atlas/atlas_asset.h>
#include <host/engine/atlas_file.h>
#include <host/resources/multi_file_system.h>

#include <QDir>
#include <QImage>
#include <QSaveFile>

using Ozy::Fennel::AtlasFile;
using Ozy::Fennel::AtlasTexture;

namespace atlas_tool {
namespace {

/// Half as wide and high, each channel by itself: colours under a transparent alpha are data as well.
QImage halved(const QImage& image)
{
    QImage half(image.width() / 2, image.height() / 2, QImage::Format_RGBA8888);
    for (int y = 0; y < half.height(); ++y) {
        const uchar* upper = image.constScanLine(2 * y);
        const uchar* lower = image.constScanLine(2 * y + 1);
        uchar* line = half.scanLine(y);
        for (int i = 0; i < 4 * half.width(); ++i) {
            const int left = i / 4 * 8 + i % 4;
            line[i] = static_cast<uchar>((upper[left] + upper[left + 4] + lower[left] + lower[left + 4] + 2) / 4);
        }
    }
    return half;
}

/// False, with the reason told, if the texture is not there or does not fit.
bool paste(QImage& picture, const Ozy::RectT<unsigned>& rect, const std::string& resource)
{
    std::string path = resource;
    Ozy::FS::fileSystem()->resolveToAbsolutePath(path);
    const QImage texture = QImage(QString::fromStdString(path)).convertToFormat(QImage::Format_RGBA8888);
    const QSize size(static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top));
    if (texture.isNull() || texture.size() != size * 2) {
        refuse(QString("%1 is no image of %2 by %3 pixels").arg(QString::fromStdString(resource)).arg(size.width() * 2).arg(size.height() * 2));
        return false;
    }
    const QImage tile = halved(texture);
    for (int y = 0; y < size.height(); ++y) {
        uchar* line = picture.scanLine(static_cast<int>(rect.top) + y) + 4 * static_cast<std::ptrdiff_t>(rect.left);
        std::copy_n(tile.constScanLine(y), 4 * size.width(), line);
    }
    return true;
}

bool isWithin(const Ozy::RectT<unsigned>& rect, const AtlasTexture::AtlasData& data)
{
    return rect.left < rect.right && rect.top < rect.bottom && rect.right <= data.width && rect.bottom <= data.height;
}

bool writePicture(const QImage& picture, const QString& path)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit())
        return true;
    refuse(QString("%1 could not be written: %2").arg(path, file.errorString()));
    return false;
}

bool exportClass(const AtlasTexture::AtlasData& data, const QString& path)
{
    QImage picture(static_cast<int>(data.width), static_cast<int>(data.height), QImage::Format_RGBA8888);
    if (picture.isNull()) {
        refuse(path + " has no size that a picture can have");
        return false;
    }
    picture.fill(Qt::transparent);
    bool isWhole = true;
    for (const auto& [rect, resource] : data.tiles) {
        if (!resource.empty())
            isWhole = isWithin(rect, data) && paste(picture, rect, resource) && isWhole;
    }
    return isWhole && writePicture(picture, path);
}

} // namespace

int exportPictures(const Request& request)
{
    const QString base = basePath(request.paths.front());
    const QString name = base.section('/', -1);
    if (!QDir().mkpath(request.folder))
        return refuse(request.folder + " could not be made");
    int result = 0;
    for (std::size_t type = 0; type < AtlasTile::TypeNames.size(); ++type) {
        const QString source = filePath(base, type);
        const AtlasFile::Decoded file = AtlasFile::read(source.toStdString());
        if (!file.data) {
            result = refuse(QString("%1 %2").arg(source, QString::fromStdString(file.fault)));
            continue;
        }
        const QString picture =
            QString("%1/%2_%3.png").arg(request.folder, name, QString::fromStdString(AtlasTile::TypeNames[type]));
        if (exportClass(*file.data, picture))
            print(picture);
        else
            result = 1;
    }
    return result;
}

} // namespace atlas_tool
