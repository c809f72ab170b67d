#pragma once

#include <host/base/host_export.h>

#include <QQuickAsyncImageProvider>

class TessenImageCache;

/// Decodes the pictures behind the URLs of `TessenImageRequestDesc` for QML, on workers.
///
///     engine.addImageProvider(TessenImageRequestDesc::providerId(), new TessenImageProvider);
///
/// The engine owns it. Any number of engines may have one; they share what is decoded.
class DATAMODELS_HOST_API TessenImageProvider : public QQuickAsyncImageProvider
{
public:
    /// The one of the process.
    static TessenImageCache& imageCache();

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize& requestedSize) override;
};
