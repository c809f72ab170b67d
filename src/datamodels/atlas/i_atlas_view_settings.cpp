#include <datamodels/atlas/i_atlas_view_settings.h>

IAtlasViewSettings::~IAtlasViewSettings() = default;

ryk::Flags<IAtlasViewSettings::Channel> IAtlasViewSettings::activeChannels() const
{
    return ryk::Flags(Channel::Red) | Channel::Green | Channel::Blue;
}

bool IAtlasViewSettings::showNumbers() const
{
    return true;
}

AtlasType IAtlasViewSettings::tileType() const
{
    return AtlasType::AM;
}

bool IAtlasViewSettings::redChannelEnabled() const
{
    return activeChannels().test(Channel::Red);
}

bool IAtlasViewSettings::greenChannelEnabled() const
{
    return activeChannels().test(Channel::Green);
}

bool IAtlasViewSettings::blueChannelEnabled() const
{
    return activeChannels().test(Channel::Blue);
}

bool IAtlasViewSettings::alphaChannelEnabled() const
{
    return activeChannels().test(Channel::Alpha);
}

ryk::Connection IAtlasViewSettings::connectSettingsChanged(std::function<void()> slot) const
{
    return settingsChanged.connect(slot);
}
