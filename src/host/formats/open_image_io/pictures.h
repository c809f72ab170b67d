#pragma once

#include <host/formats/image_formats.h>

namespace Ozy {

/// See the functions of `ImageFormats` with these names.
std::optional<ImageFacts> headerFacts(const std::string& path, std::string& reason);
Decoded decodeFile(const std::string& path, int image, int mip, const IsWanted& isWanted);
Decoded decodeDdsBlocks(std::vector<unsigned char> file, const IsWanted& isWanted);

} // namespace Ozy
