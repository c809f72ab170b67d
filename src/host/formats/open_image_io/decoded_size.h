#pragma once

#include <QSize>

#include <string>

namespace Ozy {

/// The size of the image in a file of any format, found by decoding all of its pixels, with its mips; an empty size if
/// that fails or a side is above `largest`. Memory: some rows, as far as the format allows.
QSize decodedSize(const std::string& path, int largest);

} // namespace Ozy
