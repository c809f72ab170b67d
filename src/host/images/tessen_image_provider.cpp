#include <host/images/tessen_image_provider.h>

#include <host/images/image_file.h>
#include <host/images/tessen_image_cache.h>
#include <host/images/tessen_image_request_desc.h>

#include <QImage>
#include <QQuickTextureFactory>

namespace {

class Response : public QQuickImageResponse
{
public:
    Response(const QString& id, const QSize&)
    {
        const auto desc = TessenImageRequestDesc::fromId(id);
        if (desc)
            m_image.load(QString::fromStdString(Tessen::imagePath(desc->fileName())));
        QMetaObject::invokeMethod(this, &QQuickImageResponse::finished, Qt::QueuedConnection);
    }
    QQuickTextureFactory* textureFactory() const override { return QQuickTextureFactory::textureFactoryForImage(m_image); }
    QString errorString() const override { return m_image.isNull() ? QStringLiteral("no image") : QString(); }

private:
    QImage m_image;
};

} // namespace

TessenImageCache& TessenImageProvider::imageCache()
{
    // Never destroyed: models and late handles may use it until the very end.
    static TessenImageCache* const cache = new TessenImageCache;
    return *cache;
}

QQuickImageResponse* TessenImageProvider::requestImageResponse(const QString& id, const QSize& requestedSize)
{
    return new Response(id, requestedSize);
}
