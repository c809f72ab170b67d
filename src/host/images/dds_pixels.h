#pragma once

#include <host/images/decode_image.h>

namespace Tessen {

class InputFile;

/// Decodes one image of a DDS file at a mip level; of a volume the first slice.
Decoded decodeDds(const InputFile& file, int image, int mip, const IsWanted& isWanted);

} // namespace Tessen
