#include <host/images/picture_response.h>

#include <host/images/decoded_images.h>
#include <host/images/image_facts.h>
#include <host/images/image_path.h>
#include <host/images/picture.h>

#include <QQuickTextureFactory>
#include <QThread>

#include <atomic>
#include <mutex>
#include <utility>

namespace Tessen {
namespace {

using Ozy::AsyncManager;

constexpr unsigned priority = 0; // below that of descriptions, which are quick

/// The smallest level that is no smaller than what is wished for.
int levelFor(const std::string& path, const QSize& wished)
{
    if (wished.width() <= 0 && wished.height() <= 0)
        return 0;
    const ImageFacts facts = readImageFacts(path);
    if (!facts.info)
        return 0;
    const QSize full(facts.info->width, facts.info->height);
    const QSize needed = fittedSize(full, wished);
    int level = 0;
    while (level + 1 < static_cast<int>(facts.info->mipCount) && full.width() >> (level + 1) >= needed.width()
           && full.height() >> (level + 1) >= needed.height())
        ++level;
    return level;
}

} // namespace

/// Where a worker leaves the picture, and what tells it that nobody waits any more. The response may go first.
class PictureResponse::Delivery
{
public:
    explicit Delivery(PictureResponse& response) : m_response(&response) {}

    bool isWanted() const { return m_isWanted; }
    void giveUp() { m_isWanted = false; }
    void forgetResponse()
    {
        giveUp();
        const std::lock_guard lock(m_mutex);
        m_response = nullptr;
    }

    /// Counts once.
    void deliver(QImage picture, const QString& error)
    {
        const std::lock_guard lock(m_mutex);
        PictureResponse* const response = std::exchange(m_response, nullptr);
        if (!response)
            return;
        m_picture = std::move(picture);
        m_error = error;
        // Told by the response's own event loop, so that it cannot go meanwhile.
        QMetaObject::invokeMethod(response, &QQuickImageResponse::finished, Qt::QueuedConnection);
    }

    QImage picture() const
    {
        const std::lock_guard lock(m_mutex);
        return m_picture;
    }
    QString error() const
    {
        const std::lock_guard lock(m_mutex);
        return m_error;
    }

private:
    std::atomic<bool> m_isWanted = true;
    mutable std::mutex m_mutex;
    PictureResponse* m_response;
    QImage m_picture;
    QString m_error;
};

/// What a task holds: should it be dropped, the view hears of it nevertheless.
struct PictureResponse::Promise
{
    explicit Promise(std::shared_ptr<Delivery> to) : delivery(std::move(to)) {}
    ~Promise() { delivery->deliver({}, QStringLiteral("cancelled")); }
    Q_DISABLE_COPY_MOVE(Promise)

    std::shared_ptr<Delivery> delivery;
};

PictureResponse::PictureResponse(DecodedImages& images, const std::optional<TessenImageRequestDesc>& desc,
                                 const QSize& wished)
    : m_delivery(std::make_shared<Delivery>(*this))
{
    // An engine that goes forgets the responses that its loading thread still has.
    connect(QThread::currentThread(), &QThread::finished, this, &QObject::deleteLater);
    if (desc)
        start(images, *desc, wished);
    else
        m_delivery->deliver({}, QStringLiteral("The URL describes no picture."));
}

PictureResponse::~PictureResponse()
{
    m_delivery->forgetResponse();
    m_job.cancel(false);
}

void PictureResponse::start(DecodedImages& images, const TessenImageRequestDesc& desc, const QSize& wished)
{
    const auto promise = std::make_shared<Promise>(m_delivery);
    const auto take = [promise, desc, wished](const Decoded& decoded) {
        if (!promise->delivery->isWanted())
            return;
        if (decoded.image)
            promise->delivery->deliver(fitted(pictureOf(*decoded.image, desc), wished), {});
        else
            promise->delivery->deliver({}, QStringLiteral("Image '%1' cannot be shown: %2.")
                                               .arg(desc.fileName(), QString::fromStdString(decoded.fault)));
    };
    m_job = AsyncManager::async(priority, [promise, take, desc, wished, &images](const AsyncManager::Job& job) {
        const auto isWanted = [promise, job] {
            return promise->delivery->isWanted() && job.state() != AsyncManager::Job::Cancelled;
        };
        const std::string path = imagePath(desc.fileName());
        const int level = desc.mip() == 0 ? levelFor(path, wished) : desc.mip();
        images.request(path, desc.imageIndex(), level, isWanted, take);
    });
}

QQuickTextureFactory* PictureResponse::textureFactory() const
{
    return QQuickTextureFactory::textureFactoryForImage(m_delivery->picture());
}

QString PictureResponse::errorString() const
{
    return m_delivery->error();
}

void PictureResponse::cancel()
{
    m_delivery->giveUp();
    m_job.cancel(false);
}

} // namespace Tessen
