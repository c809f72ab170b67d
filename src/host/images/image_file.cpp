#include <host/images/image_file.h>

#include <host/base/debug.h>
#include <host/resources/multi_file_system.h>

#include <OpenImageIO/imageio.h>
#include <QFileInfo>

namespace Tessen {
namespace {

using Ozy::DebugMessageHelper;
namespace Priority = Ozy::Priority;

constexpr long long mostPixels = 1ll << 28;
constexpr float megabyte = 1024 * 1024;

ImageInfoPointer infoOf(OIIO::ImageInput& input, const QFileInfo& file)
{
    const OIIO::ImageSpec& spec = input.spec();
    if (1ll * spec.width * spec.height * spec.depth > mostPixels)
        return nullptr;
    auto info = std::make_shared<TessenImageCache::ImageInfo>();
    info->width = spec.width;
    info->height = spec.height;
    info->depth = spec.depth;
    info->channelCount = unsigned(spec.nchannels);
    info->bytesPerChannel = int(spec.channel_bytes());
    info->bytesPerPixel = int(spec.pixel_bytes());
    info->isCubeMap = spec.get_string_attribute("textureformat") == "CubeFace Environment";
    info->imageCount = info->isCubeMap ? 6 : 1;
    if (info->isCubeMap)
        info->height /= 6;
    info->compression = QString::fromStdString(std::string(spec.get_string_attribute("compression", "None")));
    info->format = QString(input.format_name());
    info->fileSize = float(file.size()) / megabyte;
    while (input.seek_subimage(0, int(info->mipCount)))
        ++info->mipCount;
    return info;
}

} // namespace

std::string imagePath(const QString& fileName)
{
    std::string path = fileName.toStdString();
    if (!path.empty() && !path.starts_with('/'))
        Ozy::FS::fileSystem()->resolveToAbsolutePath(path);
    return path;
}

ImageInfoPointer readImageInfo(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    if (path.empty() || !file.isFile())
        return nullptr;
    const std::unique_ptr<OIIO::ImageInput> input = OIIO::ImageInput::open(path);
    if (!input) {
        DebugMessageHelper(Priority::refusal, "images")
            .message("Image '%s' cannot be read: %s\n", path.c_str(), OIIO::geterror().c_str());
        return nullptr;
    }
    return infoOf(*input, file);
}

} // namespace Tessen
