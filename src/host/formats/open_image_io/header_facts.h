#pragma once

#include <host/formats/image_formats.h>

namespace Ozy {

/// See `ImageFormats::facts`.
std::optional<ImageFacts> headerFacts(const std::string& path, std::string& reason);

} // namespace Ozy
