#include <datamodels/image/flat_image_info_model.h>

#include <datamodels/image/image_query.h>

namespace datamodels {

struct FlatImageInfoModel::Private
{
    explicit Private(FlatImageInfoModel* model) : q(model) {}

    void update(const ImageAnswer& answer);
    void take(const TessenImageCache::ImageInfo& info);

    QString fileName;
    bool valid = false;
    int width = 0;
    int height = 0;
    int depth = 0;
    int mipCount = 0;
    int bytesPerPixel = 0;
    int bytesPerChannel = 0;
    QString compression = QStringLiteral("Unknown");
    QString format = QStringLiteral("Unknown");
    FlatImageInfoModel* const q;
    Ozy::AsyncManager::Job m_job;
};

void FlatImageInfoModel::Private::update(const ImageAnswer& answer)
{
    // Told to the end even if a slot has asked anew: all facts have changed by then.
    if (answer.info)
        take(*answer.info);
    Q_EMIT q->validChanged();
}

void FlatImageInfoModel::Private::take(const TessenImageCache::ImageInfo& info)
{
    valid = true;
    width = info.width;
    height = info.height;
    depth = info.depth;
    mipCount = static_cast<int>(info.mipCount);
    bytesPerPixel = info.bytesPerPixel;
    bytesPerChannel = info.bytesPerChannel;
    compression = info.compression;
    format = info.format;

    Q_EMIT q->widthChanged();
    Q_EMIT q->heightChanged();
    Q_EMIT q->depthChanged();
    Q_EMIT q->mipCountChanged();
    Q_EMIT q->bytesPerPixelChanged();
    Q_EMIT q->bytesPerChannelChanged();
    Q_EMIT q->compressionChanged();
    Q_EMIT q->formatChanged();
}

FlatImageInfoModel::FlatImageInfoModel(QObject* parent) : QObject(parent), d(std::make_unique<Private>(this)) {}

FlatImageInfoModel::~FlatImageInfoModel()
{
    d->m_job.cancel(true);
}

QString FlatImageInfoModel::fileName() const
{
    return d->fileName;
}

void FlatImageInfoModel::setFileName(const QString& fileName)
{
    // Intended: no comparison and no `fileNameChanged`. It is the one way to ask again about a file that has changed.
    d->fileName = fileName;
    d->valid = false;
    Q_EMIT validChanged();
    queryImage(d->m_job, d->fileName, d.get());
}

bool FlatImageInfoModel::valid() const
{
    return d->valid;
}

int FlatImageInfoModel::width() const
{
    return d->width;
}

int FlatImageInfoModel::height() const
{
    return d->height;
}

int FlatImageInfoModel::depth() const
{
    return d->depth;
}

int FlatImageInfoModel::mipCount() const
{
    return d->mipCount;
}

int FlatImageInfoModel::bytesPerPixel() const
{
    return d->bytesPerPixel;
}

int FlatImageInfoModel::bytesPerChannel() const
{
    return d->bytesPerChannel;
}

QString FlatImageInfoModel::compression() const
{
    return d->compression;
}

QString FlatImageInfoModel::format() const
{
    return d->format;
}

} // namespace datamodels
