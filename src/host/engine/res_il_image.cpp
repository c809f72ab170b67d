#include <host/engine/res_il_image.h>

#include <host/engine/atlas_texture.h>
#include <host/engine/dds_check.h>
#include <host/engine/png_check.h>
#include <host/formats/image_formats.h>

#include <QFile>

namespace Ozy {
namespace {

constexpr int largest = Fennel::AtlasTexture::MAX_SIZE;

QSize sizeOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    if (startsLikePng(file))
        return checkedPngSize(file);
    return isAsLongAsItsDdsHeaderSays(file) ? ImageFormats::instance().decodedSize(path.toStdString(), largest) : QSize();
}

} // namespace

bool ResILImage::loadImage(const std::wstring& path)
{
    const QSize size = sizeOf(QString::fromStdWString(path));
    const bool isImage = !size.isEmpty() && size.width() <= largest && size.height() <= largest;
    m_width = isImage ? static_cast<unsigned>(size.width()) : 0;
    m_height = isImage ? static_cast<unsigned>(size.height()) : 0;
    return isImage;
}

void ResILImage::getDimensions(unsigned& width, unsigned& height) const
{
    width = m_width;
    height = m_height;
}

} // namespace Ozy
