#include <host/images/dds_layout.h>

#include <host/images/input_file.h>
#include <host/images/pixel_name.h>

#include <cstring>

namespace Tessen {

ImageFacts readDdsFacts(const InputFile& file)
{
    const DdsParsed parsed = parseDds(file);
    if (!parsed.layout)
        return ImageFacts::refused(parsed.fault);
    const DdsLayout& layout = *parsed.layout;
    const DdsFormat& format = layout.format;
    const bool isFloat = format.kind == DdsFormat::Floats || std::strcmp(format.compression, "BC6H") == 0;

    ImageInfo info;
    info.width = layout.width;
    info.height = layout.height;
    info.depth = layout.depth;
    info.channelCount = format.channelCount;
    info.bytesPerChannel = format.bytesPerChannel;
    info.bytesPerPixel = static_cast<int>(format.channelCount) * format.bytesPerChannel;
    info.mipCount = static_cast<unsigned>(layout.mipCount);
    info.imageCount = layout.imageCount;
    info.isCubeMap = layout.isCubeMap;
    info.compression = QString::fromLatin1(format.compression);
    info.format = pixelName(info.channelCount, info.bytesPerChannel, isFloat, format.hasAlpha);
    if (format.isSrgb)
        info.format += QStringLiteral(" sRGB");
    return {info, {}};
}

} // namespace Tessen
