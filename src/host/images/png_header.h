#pragma once

#include <host/images/image_facts.h>

namespace Tessen {

/// By the first eight bytes of a file.
bool startsLikePng(const unsigned char* bytes);

/// The facts of a PNG file from what stands before its pixels, if that is sound and the file is whole. Reads two blocks
/// of a few hundred bytes, more when there is much before the pixels or something behind the end.
ImageFacts readPngFacts(const InputFile& file);

} // namespace Tessen
