#include <host/engine/res_il_image.h>

#include <host/engine/atlas_texture.h>
#include <host/engine/decoded_size.h>
#include <host/engine/png_check.h>

#include <QFile>

namespace Ozy {
namespace {

constexpr int largest = Fennel::AtlasTexture::MAX_SIZE;

QSize sizeOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return startsLikePng(file) ? checkedPngSize(file) : decodedSize(path.toStdString(), largest);
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
