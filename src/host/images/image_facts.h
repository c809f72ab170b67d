#pragma once

#include <host/formats/image_bounds.h>
#include <host/images/tessen_image_cache.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Tessen {

class InputFile;

using Ozy::damagedHeader;
using Ozy::isBoundedImage;
using Ozy::mostDecodedBytes;
using Ozy::noSuchImage;
using Ozy::tooLarge;
using Ozy::unknownPixels;

using ImageInfo = TessenImageCache::ImageInfo;

/// What reading facts gives: these, or else the reason as the rest of a sentence about the file.
struct ImageFacts
{
    std::optional<ImageInfo> info;
    std::string fault;

    static ImageFacts refused(std::string fault) { return {std::nullopt, std::move(fault)}; }
};

/// See `ImageInfo::lodMode`.
unsigned lodModeOf(const ImageInfo& info);

/// The facts of a file from its header, whatever format it has. Sound headers of damaged files pass when the format
/// gives no hint. Does not throw.
DATAMODELS_HOST_API ImageFacts readImageFacts(const std::string& path);
/// The same for a file that is open.
ImageFacts readImageFacts(const InputFile& file, const std::string& path);

} // namespace Tessen
