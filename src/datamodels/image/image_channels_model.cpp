#include <datamodels/image/image_channels_model.h>

#include <datamodels/image/image_query.h>
#include <datamodels/image/image_rows.h>

#include <algorithm>
#include <array>
#include <vector>

namespace datamodels {
namespace {

struct ChannelEntry
{
    quint64 channel;
    const char* name;
};

constexpr std::array<ChannelEntry, 4> channelTable{{{1, "red"}, {2, "green"}, {3, "blue"}, {0, "alpha"}}};
constexpr quint64 alphaChannel = 0;

} // namespace

struct ImageChannelsModel::Private
{
    struct Channel
    {
        quint64 channel = 0;
        bool available = false;
        bool enabled = false;
    };

    explicit Private(ImageChannelsModel* model) : q(model) {}

    bool isRow(const QModelIndex& index) const
    {
        return index.isValid() && index.row() < static_cast<int>(m_channels.size());
    }
    void update(const ImageAnswer& answer);
    void updateRow(int row, const TessenImageCache::ImageInfo* info, bool notify);

    ImageChannelsModel* const q;
    QString fileName;
    std::vector<Channel> m_channels;
    Ozy::AsyncManager::Job m_job;
};

void ImageChannelsModel::Private::update(const ImageAnswer& answer)
{
    for (int row = 0; row < static_cast<int>(channelTable.size()) && !answer.isSuperseded(); ++row)
        updateRow(row, answer.info, true);
    ImageRows::dropFrom(*q, m_channels, static_cast<int>(channelTable.size()));
}

void ImageChannelsModel::Private::updateRow(int row, const TessenImageCache::ImageInfo* info, bool notify)
{
    const int count = static_cast<int>(m_channels.size());
    const bool isNew = row >= count;
    if (isNew && notify)
        q->beginInsertRows({}, count, row);
    if (isNew)
        m_channels.resize(static_cast<std::size_t>(row) + 1);

    const quint64 channel = channelTable[static_cast<std::size_t>(row)].channel;
    Channel& stored = m_channels[static_cast<std::size_t>(row)];
    const bool available = info && static_cast<unsigned>(row) < info->channelCount;
    const bool isAlphaChanged = channel == alphaChannel && stored.available != available;
    RowChange change;
    change.set(stored.channel, channel, {Qt::DisplayRole, NameRole});
    change.set(stored.available, available, {AvailableRole});
    change.set(stored.enabled, channel != alphaChannel, {EnabledRole});
    if (!notify)
        return;

    const QModelIndex changed = q->index(row, 0, QModelIndex());
    if (isNew)
        q->endInsertRows();
    else if (!change.isEmpty())
        Q_EMIT q->dataChanged(changed, changed, change.roles());
    if (isAlphaChanged)
        Q_EMIT q->hasAlphaChanged();
}

ImageChannelsModel::ImageChannelsModel(QObject* parent)
    : QAbstractListModel(parent), d(std::make_unique<Private>(this))
{
    for (int row = 0; row < static_cast<int>(channelTable.size()); ++row)
        d->updateRow(row, nullptr, false);
}

ImageChannelsModel::~ImageChannelsModel()
{
    d->m_job.cancel(true);
}

int ImageChannelsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->m_channels.size());
}

QVariant ImageChannelsModel::data(const QModelIndex& index, int role) const
{
    if (!d->isRow(index))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return QString::fromLatin1(channelTable[row].name);
    case ChannelRole:
        return d->m_channels[row].channel;
    case AvailableRole:
        return d->m_channels[row].available;
    case EnabledRole:
        return d->m_channels[row].enabled;
    default:
        return {};
    }
}

bool ImageChannelsModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!d->isRow(index))
        return false;
    Private::Channel& channel = d->m_channels[static_cast<std::size_t>(index.row())];
    // Intended: for the edit role it does not matter whether the file has the channel.
    if (role != Qt::EditRole && !(role == EnabledRole && channel.available))
        return false;
    channel.enabled = value.toBool();
    // Intended: no comparison. The URLs of an `ImageModel` are made anew by it.
    Q_EMIT dataChanged(index, index, {EnabledRole});
    return true;
}

Qt::ItemFlags ImageChannelsModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractListModel::flags(index);
    if (d->isRow(index) && d->m_channels[static_cast<std::size_t>(index.row())].available)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QHash<int, QByteArray> ImageChannelsModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(NameRole, "channelName");
    names.insert(AvailableRole, "channelAvailable");
    names.insert(EnabledRole, "channelEnabled");
    return names;
}

const QString& ImageChannelsModel::fileName() const
{
    return d->fileName;
}

void ImageChannelsModel::setFileName(const QString& fileName)
{
    if (d->fileName == fileName)
        return;
    d->fileName = fileName;
    Q_EMIT fileNameChanged();
    queryImage(d->m_job, d->fileName, d.get());
}

bool ImageChannelsModel::hasAlpha() const
{
    const auto& channels = d->m_channels;
    const auto alpha = std::find_if(channels.begin(), channels.end(),
                                    [](const Private::Channel& one) { return one.channel == alphaChannel; });
    return alpha != channels.end() && alpha->available;
}

} // namespace datamodels
