#include <host/images/image_facts.h>

#include <host/engine/atlas_file.h>
#include <host/formats/image_formats.h>
#include <host/images/dds_layout.h>
#include <host/images/input_file.h>
#include <host/images/pixel_name.h>
#include <host/images/png_header.h>

#include <algorithm>
#include <exception>

namespace Tessen {
namespace {

constexpr float megabyte = 1024 * 1024;

bool isAtlas(const std::string& path)
{
    return path.ends_with("_AM.atlas") || path.ends_with("_GBMT.atlas") || path.ends_with("_MAO.atlas");
}

ImageFacts atlasFacts(const std::string& path)
{
    const auto atlas = Ozy::Fennel::AtlasFile::read(path);
    if (!atlas.data)
        return ImageFacts::refused(atlas.fault);
    ImageInfo info;
    info.width = static_cast<int>(atlas.data->width);
    info.height = static_cast<int>(atlas.data->height);
    info.compression = QStringLiteral("None");
    info.format = QStringLiteral("Atlas");
    info.isAtlas = true;
    return {info, {}};
}

ImageFacts otherFacts(const std::string& path)
{
    std::string reason;
    const auto facts = Ozy::ImageFormats::instance().facts(path, reason);
    if (!facts)
        return ImageFacts::refused(std::move(reason));
    ImageInfo info;
    info.width = facts->size.width();
    info.height = facts->size.height();
    info.depth = facts->depth;
    info.channelCount = static_cast<unsigned>(facts->channels);
    info.bytesPerChannel = facts->bytesPerChannel;
    info.bytesPerPixel = facts->bytesPerPixel;
    info.mipCount = static_cast<unsigned>(facts->mips);
    info.imageCount = facts->images;
    info.compression = facts->compression.empty() ? QStringLiteral("None") : QString::fromStdString(facts->compression);
    info.format = pixelName(info.channelCount, info.bytesPerChannel, facts->isFloat, facts->hasAlpha);
    return {info, {}};
}

ImageFacts factsByContent(const InputFile& file, const std::string& path)
{
    if (isAtlas(path))
        return atlasFacts(path);
    unsigned char start[8] = {};
    const std::size_t length = file.read(0, start, sizeof start);
    if (length == 0)
        return ImageFacts::refused("it is empty");
    if (startsLikePng(start))
        return readPngFacts(file);
    if (startsLikeDds(start))
        return readDdsFacts(file);
    return otherFacts(path);
}

} // namespace

unsigned lodModeOf(const ImageInfo& info)
{
    unsigned levels = 1;
    for (int side = std::max({info.width, info.height, info.depth}); side > 1; side /= 2)
        ++levels;
    return info.mipCount == 1 ? 0 : info.mipCount == levels ? 1 : 2;
}

ImageFacts readImageFacts(const std::string& path)
{
    const InputFile file(path);
    return file.fault().empty() ? readImageFacts(file, path) : ImageFacts::refused(file.fault());
}

ImageFacts readImageFacts(const InputFile& file, const std::string& path)
try {
    ImageFacts facts = factsByContent(file, path);
    if (facts.info) {
        facts.info->fileSize = static_cast<float>(file.size()) / megabyte;
        facts.info->lodMode = lodModeOf(*facts.info);
    }
    return facts;
} catch (const std::exception& exception) {
    return ImageFacts::refused(exception.what());
}

} // namespace Tessen
