#pragma once

class QIODevice;

namespace Ozy {

/// Whether an open DDS file holds as many bytes as its header promises, mips and faces included. True for what is no DDS
/// file, and for a format of pixels that is not known here. The position stays.
bool isAsLongAsItsDdsHeaderSays(QIODevice& file);

} // namespace Ozy
