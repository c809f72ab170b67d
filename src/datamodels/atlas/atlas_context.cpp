#include <datamodels/atlas/atlas_context.h>

#include <datamodels/atlas/i_atlas_view_settings.h>

AtlasContext::AtlasContext() : m_selectionModel(new QItemSelectionModel(nullptr, this)), m_settings(nullptr) {}

AtlasContext::~AtlasContext() = default;

QVariant AtlasContext::getObject()
{
    return QVariant::fromValue(&m_data);
}

void AtlasContext::setData(const AtlasViewData& data)
{
    m_data = data;
    m_settings.setSource(m_data.settings);
    connect(m_data.settings);
    Q_EMIT objectChanged();
    Q_EMIT settingsChanged();
}

void AtlasContext::connect(const IAtlasViewSettings* settings)
{
    m_connections.clear();
    if (settings)
        m_connections.emplace_back(settings->connectSettingsChanged([this] { Q_EMIT settingsChanged(); }));
}
