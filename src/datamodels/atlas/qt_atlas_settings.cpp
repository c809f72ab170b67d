#include <datamodels/atlas/qt_atlas_settings.h>

#include <datamodels/atlas/i_atlas_view_settings.h>

QtAtlasSettings::QtAtlasSettings(QObject* parent) : QObject(parent) {}

// Intended: without settings no channel is on, although settings by themselves have three.

bool QtAtlasSettings::red() const
{
    return m_settings && m_settings->redChannelEnabled();
}

bool QtAtlasSettings::green() const
{
    return m_settings && m_settings->greenChannelEnabled();
}

bool QtAtlasSettings::blue() const
{
    return m_settings && m_settings->blueChannelEnabled();
}

bool QtAtlasSettings::alpha() const
{
    return m_settings && m_settings->alphaChannelEnabled();
}

bool QtAtlasSettings::showNumbers() const
{
    return !m_settings || m_settings->showNumbers();
}

float QtAtlasSettings::zoomFactor() const
{
    return m_settings ? m_settings->zoomData().zoomFactor : 1.0F;
}

int QtAtlasSettings::tileType() const
{
    return m_settings ? static_cast<int>(m_settings->tileType()) : 0;
}

void QtAtlasSettings::setSource(const IAtlasViewSettings* settings)
{
    m_settings = settings;
    Q_EMIT sourceChanged();
}
