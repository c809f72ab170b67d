#include "atlas_view.h"

#include <algorithm>

namespace editor {

void AtlasView::turnChannel(int channel)
{
    setChannels(m_channels.value() ^ static_cast<std::uint32_t>(channel));
}

void AtlasView::showAlone(int channel)
{
    const ryk::Flags<Channel> alone(static_cast<std::uint32_t>(channel));
    m_channels = m_channels == alone ? IAtlasViewSettings::activeChannels() : alone;
    tell();
}

void AtlasView::setChannels(std::uint32_t channels)
{
    m_channels = ryk::Flags<Channel>(channels);
    tell();
}

void AtlasView::turnNumbers()
{
    m_showsNumbers = !m_showsNumbers;
    tell();
}

void AtlasView::setType(int type)
{
    if (type < 0 || type > static_cast<int>(AtlasType::MAO))
        return;
    m_type = static_cast<AtlasType>(type);
    tell();
}

void AtlasView::setZoom(double factor)
{
    m_zoomData.zoomFactor = static_cast<float>(std::clamp(factor, 0.25, 8.0));
    tell();
}

} // namespace editor
