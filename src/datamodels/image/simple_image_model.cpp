#include <datamodels/image/simple_image_model.h>

#include <datamodels/atlas/atlas_asset.h>
#include <datamodels/atlas/i_atlas_view_settings.h>
#include <datamodels/image/image_query.h>
#include <datamodels/image/image_rows.h>
#include <datamodels/model_scopes.h>

#include <QUrl>

#include <array>
#include <memory>

namespace datamodels {
namespace {

using ChannelFlags = ryk::Flags<IAtlasViewSettings::Channel>;

class SIMAtlasViewSettings : public IAtlasViewSettings
{
public:
    SIMAtlasViewSettings(ChannelFlags channels, AtlasType tileType) : m_channels(channels), m_tileType(tileType) {}

    ChannelFlags activeChannels() const override { return m_channels; }
    AtlasType tileType() const override { return m_tileType; }

private:
    ChannelFlags m_channels;
    AtlasType m_tileType;
};

/// Intended: the text may stand anywhere in the name, and the first of this order wins.
AtlasType typeOf(const QString& fileName)
{
    if (fileName.contains(QLatin1String("AM.atlas")))
        return AtlasType::AM;
    if (fileName.contains(QLatin1String("MAO.atlas")))
        return AtlasType::MAO;
    if (fileName.contains(QLatin1String("GBMT.atlas")))
        return AtlasType::GBMT;
    return AtlasType::AM;
}

ChannelFlags channelsOf(const TessenImageRequestDesc& request)
{
    ChannelFlags flags;
    if (request.isChannelVisible(TessenImageRequestDesc::Red))
        flags |= IAtlasViewSettings::Channel::Red;
    if (request.isChannelVisible(TessenImageRequestDesc::Green))
        flags |= IAtlasViewSettings::Channel::Green;
    if (request.isChannelVisible(TessenImageRequestDesc::Blue))
        flags |= IAtlasViewSettings::Channel::Blue;
    if (request.isChannelVisible(TessenImageRequestDesc::Alpha))
        flags |= IAtlasViewSettings::Channel::Alpha;
    return flags;
}

} // namespace

struct SimpleImageModel::Image
{
    QUrl source;
    std::unique_ptr<SIMAtlasViewSettings> settings;
    std::shared_ptr<AtlasViewData> atlasData;
    ImageSide side = ImageSideFront;
};

SimpleImageModel::SimpleImageModel(QObject* parent) : QAbstractListModel(parent)
{
    TessenImageProvider::imageCache().registerListener(this);
}

SimpleImageModel::~SimpleImageModel()
{
    TessenImageProvider::imageCache().unregisterListener(this);
    m_job.cancel(true);
}

int SimpleImageModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_images.size());
}

QVariant SimpleImageModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Image& image = m_images[static_cast<std::size_t>(index.row())];
    switch (role) {
    case SourceRole:
        return image.source;
    case ImageSideRole:
        return static_cast<int>(image.side);
    case AtlasDataRole:
        return QVariant::fromValue(image.atlasData.get());
    case AtlasTypeRole:
        return image.settings ? static_cast<int>(image.settings->tileType()) : -1;
    default:
        return {};
    }
}

QHash<int, QByteArray> SimpleImageModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(SourceRole, "source");
    names.insert(ImageSideRole, "imageSide");
    names.insert(AtlasDataRole, "atlasData");
    names.insert(AtlasTypeRole, "atlasType");
    return names;
}

void SimpleImageModel::onImageChanged()
{
    if (m_status == Undefined)
        return;
    clear();
    load();
}

void SimpleImageModel::setFileName(const QString& fileName)
{
    if (m_fileName == fileName)
        return;
    m_fileName = fileName;
    Q_EMIT fileNameChanged();
    if (!m_fileName.isEmpty()) {
        load();
        return;
    }
    m_job.cancel(true);
    m_job = {};
    setStatus(Empty);
    clear();
}

void SimpleImageModel::setUseAlpha(bool useAlpha)
{
    if (m_useAlpha == useAlpha)
        return;
    m_useAlpha = useAlpha;
    Q_EMIT useAlphaChanged();
    load();
}

void SimpleImageModel::load()
{
    m_request.setFileName(m_fileName);
    m_request.setChannelVisible(TessenImageRequestDesc::Alpha, m_useAlpha);
    m_statusText.clear();
    setStatus(m_fileName.isEmpty() ? Empty : Loading);
    queryImage(m_job, m_request.fileName(), this);
}

void SimpleImageModel::clear()
{
    const ModelScopes::Reset scope(*this);
    m_images.clear();
}

void SimpleImageModel::update(const ImageAnswer& answer)
{
    const TessenImageCache::ImageInfo* info = answer.info;
    const unsigned channelCount = info && info->imageCount != 0 ? info->channelCount : 0;
    if (m_channelCount != channelCount) {
        m_channelCount = channelCount;
        Q_EMIT channelCountChanged();
    }
    if (answer.isSuperseded())
        return; // the text of the status is the new query's already
    if (!info) {
        m_statusText = QStringLiteral("Image info not found");
        clear();
    } else {
        updateRows(answer);
    }
    if (answer.isSuperseded())
        return;
    if (m_images.empty())
        setStatus(m_request.fileName().isEmpty() ? Empty : Error);
    else
        setStatus(Ready);
}

void SimpleImageModel::updateRows(const ImageAnswer& answer)
{
    const TessenImageCache::ImageInfo& info = *answer.info;
    if (info.imageCount != rowCount())
        clear();
    if (info.isAtlas) {
        if (!answer.isSuperseded())
            appendAtlas();
        return;
    }
    for (int row = 0; row < info.imageCount && !answer.isSuperseded(); ++row) {
        m_request.setImageIndex(row);
        updateRow(row, m_request.toUrl(), info.isCubeMap ? static_cast<ImageSide>(row) : ImageSideFront);
    }
    if (!answer.isSuperseded())
        ImageRows::dropFrom(*this, m_images, info.imageCount);
}

void SimpleImageModel::updateRow(int row, const QUrl& source, ImageSide side)
{
    if (row == rowCount()) {
        const ModelScopes::InsertRows scope(*this, {}, m_images.size(), 1);
        m_images.push_back({source, nullptr, nullptr, side});
        return;
    }
    Image& image = m_images[static_cast<std::size_t>(row)];
    RowChange change;
    change.set(image.source, source, {SourceRole});
    change.set(image.side, side, {ImageSideRole});
    const QModelIndex changed = index(row);
    if (!change.isEmpty())
        Q_EMIT dataChanged(changed, changed, change.roles());
}

void SimpleImageModel::appendAtlas()
{
    const AtlasAsset asset(m_request.fileName().toStdString(), nullptr);
    auto settings = std::make_unique<SIMAtlasViewSettings>(channelsOf(m_request), typeOf(m_request.fileName()));
    auto data = std::make_shared<AtlasViewData>();
    data->atlasSize = asset.data().atlasSize;
    data->tilesCount = asset.data().tilesCount;
    // The tiles outlive the asset; they hold it weakly, and views only read their textures.
    data->tiles.assign(asset.data().tiles->begin(), asset.data().tiles->end());
    data->settings = settings.get();

    // Intended: announced as the first row, and appended behind those that are there.
    beginInsertRows({}, 0, 0);
    m_images.push_back({QUrl(), std::move(settings), std::move(data), ImageSideFront});
    endInsertRows();
}

void SimpleImageModel::setStatus(Status status)
{
    if (m_status == status)
        return;
    m_status = status;
    Q_EMIT statusChanged();
}

} // namespace datamodels
