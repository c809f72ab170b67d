#pragma once

#include <QSize>

class QIODevice;

namespace Ozy {

/// Whether an open file means to be a PNG file; the position stays.
bool startsLikePng(QIODevice& file);

/// The size of a whole and sound PNG file, by its chunks and their checksums; an empty size for anything else. What the
/// checksums cannot tell, such as a stream of pixels that was written wrong, passes. Memory: one block.
QSize checkedPngSize(QIODevice& file);

} // namespace Ozy
