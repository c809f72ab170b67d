#include <host/images/pixel_name.h>

#include <QString>

namespace Tessen {

QString pixelName(unsigned channels, int bytesPerChannel, bool isFloat, bool hasAlpha)
{
    static const char* const names[] = {"", "Grey", "RG", "RGB", "RGBA"};
    const QString name = channels == 2 && hasAlpha ? QStringLiteral("GreyA")
                         : channels <= 4           ? QString(names[channels])
                                                   : QStringLiteral("%1 x ").arg(channels);
    return name + QString::number(8 * bytesPerChannel) + (isFloat ? "F" : "");
}

} // namespace Tessen
