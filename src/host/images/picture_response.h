#pragma once

#include <host/images/tessen_image_request_desc.h>
#include <host/jobs/async_manager.h>

#include <QImage>
#include <QQuickImageResponse>
#include <QSize>

#include <memory>
#include <optional>

namespace Tessen {

class DecodedImages;

/// One picture on its way to a view. It may go at any time, whatever is being decoded for it.
class PictureResponse final : public QQuickImageResponse
{
public:
    /// Without a description it ends with an error.
    PictureResponse(DecodedImages& images, const std::optional<TessenImageRequestDesc>& desc, const QSize& wished);
    ~PictureResponse() override;

    QQuickTextureFactory* textureFactory() const override;
    QString errorString() const override;
    /// What has not begun is dropped, and decoding ends early unless others wait for the same.
    void cancel() override;

private:
    class Delivery;
    struct Promise;

    void start(DecodedImages& images, const TessenImageRequestDesc& desc, const QSize& wished);

    std::shared_ptr<Delivery> m_delivery;
    Ozy::AsyncManager::Job m_job;
};

} // namespace Tessen
