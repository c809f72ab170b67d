#include <host/images/image_file.h>

#include <host/base/debug.h>
#include <host/formats/image_formats.h>
#include <host/resources/multi_file_system.h>

#include <QFileInfo>

namespace Tessen {
namespace {

using Ozy::DebugMessageHelper;
namespace Priority = Ozy::Priority;

constexpr float megabyte = 1024 * 1024;

ImageInfoPointer infoOf(const Ozy::ImageFacts& facts, const QFileInfo& file)
{
    auto info = std::make_shared<TessenImageCache::ImageInfo>();
    info->width = facts.size.width();
    info->height = facts.size.height();
    info->depth = facts.depth;
    info->channelCount = unsigned(facts.channels);
    info->bytesPerChannel = facts.bytesPerChannel;
    info->bytesPerPixel = facts.bytesPerPixel;
    info->mipCount = unsigned(facts.mips);
    info->isCubeMap = facts.isCubeMap;
    info->imageCount = info->isCubeMap ? 6 : 1;
    info->compression = facts.compression.empty() ? "None" : QString::fromStdString(facts.compression);
    info->format = QString::fromStdString(facts.format);
    info->fileSize = float(file.size()) / megabyte;
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
    std::string reason;
    const std::optional<Ozy::ImageFacts> facts = Ozy::ImageFormats::instance().facts(path, reason);
    if (!facts) {
        DebugMessageHelper(Priority::refusal, "images")
            .message("Image '%s' cannot be read: %s\n", path.c_str(), reason.c_str());
        return nullptr;
    }
    return infoOf(*facts, file);
}

} // namespace Tessen
