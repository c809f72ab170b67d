#pragma once

#include <host/base/host_export.h>

#include <QQuickAsyncImageProvider>

class TessenImageCache;

/// Decodes the pictures behind the URLs of `TessenImageRequestDesc` for QML, on workers.
///
///     engine.addImageProvider(TessenImageRequestDesc::providerId(), new TessenImageProvider);
///
/// The engine owns it. Any number of engines may have one; they share what is decoded, which is kept as long as there is
/// room. A wished size is one to fit into, with the sides in proportion and never enlarged; a side of 0 is free. What
/// cannot be shown ends with an error that tells the file and the reason. Threads: any.
class DATAMODELS_HOST_API TessenImageProvider : public QQuickAsyncImageProvider
{
public:
    /// How well what is decoded serves.
    struct Counters
    {
        qint64 hits = 0;
        qint64 misses = 0;
        qint64 evictions = 0; ///< pictures given up for want of room
        qint64 bytes = 0;     ///< kept now
    };

    /// The one of the process.
    static TessenImageCache& imageCache();

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;

    /// For all providers together. The room is 256 megabytes unless set; what is too much goes at once.
    static Counters counters();
    static void setCapacity(qint64 bytes);
};
