#pragma once

#include <host/images/tessen_image_cache.h>

#include <memory>
#include <string>

namespace Tessen {

using ImageInfoPointer = std::shared_ptr<const TessenImageCache::ImageInfo>;

/// The path of the file that a name given to the service means: itself when it is absolute, or that of the resource.
std::string imagePath(const QString& fileName);

/// The description of a file from its header. Null, and a message, for what is no image.
ImageInfoPointer readImageInfo(const std::string& path);

} // namespace Tessen
