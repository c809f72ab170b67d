#pragma once

class QString;

namespace Tessen {

/// The names of pixels: "Grey8", "RGBA16", "RGB32F".
QString pixelName(unsigned channels, int bytesPerChannel, bool isFloat, bool hasAlpha);

} // namespace Tessen
