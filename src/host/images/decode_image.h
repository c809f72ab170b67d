#pragma once

#include <host/base/host_export.h>
#include <host/formats/decoded_image.h>

namespace Tessen {

using Ozy::Decoded;
using Ozy::DecodedImage;
using Ozy::IsWanted;

/// Decodes an image of a file at a mip level, whatever format it has. Threads: any. Does not throw.
DATAMODELS_HOST_API Decoded decodeImage(const std::string& path, int image, int mip, const IsWanted& isWanted);

} // namespace Tessen
