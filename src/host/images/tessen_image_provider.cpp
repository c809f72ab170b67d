#include <host/images/tessen_image_provider.h>

#include <host/images/image_cache_private.h>
#include <host/images/picture_response.h>
#include <host/images/tessen_image_request_desc.h>

TessenImageCache& TessenImageProvider::imageCache()
{
    // Never destroyed: models and late handles may use it until the very end.
    static TessenImageCache* const cache = new TessenImageCache;
    return *cache;
}

QQuickImageResponse* TessenImageProvider::requestImageResponse(const QString& id, const QSize& requestedSize)
{
    return new Tessen::PictureResponse(imageCache().d->images, TessenImageRequestDesc::fromId(id), requestedSize);
}

TessenImageProvider::Counters TessenImageProvider::counters()
{
    const Tessen::DecodedImages::Counters counters = imageCache().d->images.counters();
    return {counters.hits, counters.misses, counters.evictions, counters.bytes};
}

void TessenImageProvider::setCapacity(qint64 bytes)
{
    imageCache().d->images.setCapacity(bytes);
}
