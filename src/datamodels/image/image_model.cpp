#include <datamodels/image/image_model.h>

#include <datamodels/image/image_channels_model.h>
#include <datamodels/image/image_query.h>
#include <datamodels/image/image_rows.h>
#include <datamodels/model_scopes.h>
#include <host/base/debug.h>
#include <host/images/tessen_image_request_desc.h>

#include <QColor>
#include <QUrl>

#include <array>
#include <vector>

namespace datamodels {
namespace {

struct CubeSide
{
    QString title;
    QColor color;
};

const std::array<CubeSide, 6> cubeSides{{
    {QStringLiteral("+X Right"), QColor(58, 190, 68, 255)},
    {QStringLiteral("-X Left"), QColor(58, 190, 68, 255)},
    {QStringLiteral("+Y Top"), QColor(41, 132, 251, 255)},
    {QStringLiteral("-Y Bottom"), QColor(41, 132, 251, 255)},
    {QStringLiteral("+Z Front"), QColor(225, 28, 31, 255)},
    {QStringLiteral("-Z Back"), QColor(225, 28, 31, 255)},
}};

/// A file may claim to be a cube map and hold more images than a cube has sides.
CubeSide sideOf(const TessenImageCache::ImageInfo& info, int image)
{
    const auto side = static_cast<std::size_t>(image);
    return info.isCubeMap && side < cubeSides.size() ? cubeSides[side] : CubeSide();
}

} // namespace

struct ImageModel::Private
{
    struct Image
    {
        QString title;
        QColor color;
        QUrl uri;
        bool noChannels = false;
    };

    explicit Private(ImageModel* model) : q(model), m_channelsModel(new ImageChannelsModel(model)) {}

    void update() { queryImage(m_job, m_request.fileName(), this); }
    void update(const ImageAnswer& answer);
    void updateRow(int row, const Image& image);
    void clear();
    void followFileName();
    void followChannels(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

    ImageModel* const q;
    ImageChannelsModel* const m_channelsModel;
    TessenImageRequestDesc m_request;
    std::vector<Image> m_images;
    Ozy::AsyncManager::Job m_job;
};

void ImageModel::Private::update(const ImageAnswer& answer)
{
    const TessenImageCache::ImageInfo* info = answer.info;
    if (!info || info->imageCount != static_cast<int>(m_images.size()))
        clear();
    if (!info)
        return;

    for (int row = 0; row < info->imageCount && !answer.isSuperseded(); ++row) {
        m_request.setImageIndex(row);
        const CubeSide side = sideOf(*info, row);
        updateRow(row, {side.title, side.color, m_request.toUrl(), !m_request.hasVisibleChannels()});
    }
    if (!answer.isSuperseded())
        ImageRows::dropFrom(*q, m_images, info->imageCount);
}

void ImageModel::Private::updateRow(int row, const Image& image)
{
    if (row == static_cast<int>(m_images.size())) {
        const ModelScopes::InsertRows scope(*q, {}, m_images.size(), 1);
        m_images.push_back(image);
        return;
    }
    Image& stored = m_images[static_cast<std::size_t>(row)];
    RowChange change;
    change.set(stored.uri, image.uri, {UriRole});
    change.set(stored.title, image.title, {Qt::DisplayRole, TitleRole});
    change.set(stored.color, image.color, {Qt::DecorationRole});
    change.set(stored.noChannels, image.noChannels, {NoChannelsRole});
    const QModelIndex changed = q->index(row);
    if (!change.isEmpty())
        Q_EMIT q->dataChanged(changed, changed, change.roles());
}

void ImageModel::Private::clear()
{
    const ModelScopes::Reset scope(*q);
    m_images.clear();
}

void ImageModel::Private::followFileName()
{
    m_request.setFileName(m_channelsModel->fileName());
    Q_EMIT q->fileNameChanged();
    update();
}

void ImageModel::Private::followChannels(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                         const QVector<int>& roles)
{
    OZY_ASSERT(topLeft.column() == bottomRight.column());
    if (!roles.contains(ImageChannelsModel::EnabledRole))
        return;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex channel = m_channelsModel->index(row);
        m_request.setChannelVisible(
            static_cast<TessenImageRequestDesc::Channel>(channel.data(ImageChannelsModel::ChannelRole).toUInt()),
            channel.data(ImageChannelsModel::EnabledRole).toBool());
    }
    update();
}

ImageModel::ImageModel(QObject* parent) : QAbstractListModel(parent), d(std::make_unique<Private>(this))
{
    // Ahead of the query of the channels themselves, which follows the notification.
    connect(d->m_channelsModel, &ImageChannelsModel::fileNameChanged, this, [this] { d->followFileName(); });
    connect(d->m_channelsModel, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles) {
                d->followChannels(topLeft, bottomRight, roles);
            });
}

ImageModel::~ImageModel()
{
    d->m_job.cancel(true);
}

int ImageModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->m_images.size());
}

QVariant ImageModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Private::Image& image = d->m_images[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return image.title;
    case Qt::DecorationRole:
        return image.color;
    case UriRole:
        return image.uri;
    case NoChannelsRole:
        return image.noChannels;
    default:
        return {};
    }
}

QHash<int, QByteArray> ImageModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(UriRole, "uri");
    names.insert(TitleRole, "title");
    names.insert(NoChannelsRole, "noChannels");
    return names;
}

const QString& ImageModel::fileName() const
{
    return d->m_channelsModel->fileName();
}

void ImageModel::setFileName(const QString& fileName)
{
    d->m_channelsModel->setFileName(fileName);
}

ImageChannelsModel* ImageModel::channelsModel() const
{
    return d->m_channelsModel;
}

} // namespace datamodels
