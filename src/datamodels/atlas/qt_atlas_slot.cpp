#include <datamodels/atlas/qt_atlas_slot.h>

#include <datamodels/atlas/i_atlas_view_settings.h>
#include <host/base/debug.h>
#include <host/images/tessen_image_request_desc.h>
#include <host/resources/multi_file_system.h>

#include <QUrl>

namespace {

TessenImageRequestDesc requestFor(const IAtlasViewSettings& settings)
{
    using Channel = IAtlasViewSettings::Channel;
    const ryk::Flags<Channel> channels = settings.activeChannels();
    TessenImageRequestDesc request;
    request.setImageIndex(0);
    request.setChannelVisible(TessenImageRequestDesc::Red, channels.test(Channel::Red));
    request.setChannelVisible(TessenImageRequestDesc::Green, channels.test(Channel::Green));
    request.setChannelVisible(TessenImageRequestDesc::Blue, channels.test(Channel::Blue));
    request.setChannelVisible(TessenImageRequestDesc::Alpha, channels.test(Channel::Alpha));
    return request;
}

} // namespace

QtAtlasSlot::QtAtlasSlot(std::shared_ptr<IAtlasTile> tile, const AtlasViewData& data, QObject* parent)
    : QObject(parent), m_tile(std::move(tile)), m_atlasViewData(data)
{
    if (m_tile)
        m_connections.emplace_back(
            m_tile->connectTextureChanged([this](AtlasType, std::size_t) { Q_EMIT dataChanged(); }));
}

QtAtlasSlot::~QtAtlasSlot() = default;

QVector<QString> QtAtlasSlot::textures() const
{
    QVector<QString> urls;
    if (!m_tile)
        return urls;
    urls.reserve(3);
    for (const std::string& texture : m_tile->textures()) {
        if (texture.starts_with("image://")) {
            urls << QString::fromStdString(texture);
            continue;
        }
        // Intended: what has no picture takes no place, so that a position does not tell the class.
        std::string file = texture;
        if (file.empty() || Ozy::FS::fileSystem()->resolveToAbsolutePath(file) == Ozy::FS::FileSystem::NotFound)
            continue;
        if (!OZY_ASSERT(m_atlasViewData.settings))
            continue;
        TessenImageRequestDesc request = requestFor(*m_atlasViewData.settings);
        request.setFileName(QString::fromStdString(file));
        urls << request.toUrl().toString();
    }
    return urls;
}
