#include <datamodels/atlas/qt_atlas_slot.h>

#include <datamodels/atlas/i_atlas_view_settings.h>
#include <host/base/debug.h>
#include <host/images/tessen_image_request_desc.h>
#include <host/resources/multi_file_system.h>

#include <QUrl>

namespace {

QString urlOf(const std::string& file, const IAtlasViewSettings& settings)
{
    TessenImageRequestDesc request;
    request.setFileName(QString::fromStdString(file));
    request.setImageIndex(0);
    request.setChannelVisible(TessenImageRequestDesc::Red, settings.redChannelEnabled());
    request.setChannelVisible(TessenImageRequestDesc::Green, settings.greenChannelEnabled());
    request.setChannelVisible(TessenImageRequestDesc::Blue, settings.blueChannelEnabled());
    request.setChannelVisible(TessenImageRequestDesc::Alpha, settings.alphaChannelEnabled());
    return request.toUrl().toString();
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
    for (const std::string& texture : m_tile->textures()) {
        if (texture.starts_with("image://")) {
            urls << QString::fromStdString(texture);
            continue;
        }
        // Intended: what has no picture takes no place, so that a position does not tell the class.
        std::string file = texture;
        if (file.empty() || Ozy::FS::fileSystem()->resolveToAbsolutePath(file) == Ozy::FS::FileSystem::NotFound)
            continue;
        if (OZY_ASSERT(m_atlasViewData.settings))
            urls << urlOf(file, *m_atlasViewData.settings);
    }
    return urls;
}
