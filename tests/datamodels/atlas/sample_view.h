#pragma once

#include <datamodels/atlas/atlas_view_data.h>
#include <datamodels/atlas/i_atlas_view_settings.h>

/// Settings that the test changes.
class ScriptedSettings : public IAtlasViewSettings
{
public:
    ryk::Flags<Channel> activeChannels() const override { return channels; }
    bool showNumbers() const override { return numbers; }
    AtlasType tileType() const override { return type; }

    void setZoom(float factor) { m_zoomData.zoomFactor = factor; }
    void tell() const { settingsChanged(); }

    ryk::Flags<Channel> channels{7U};
    bool numbers = true;
    AtlasType type = AtlasType::AM;
};

/// A tile that the test changes.
class ScriptedTile final : public IAtlasTile
{
public:
    explicit ScriptedTile(std::vector<std::string> textures) : paths(std::move(textures)) {}

    const std::vector<std::string>& textures() const override { return paths; }
    void tell(AtlasType type) const { textureChanged(type, 0); }

    std::vector<std::string> paths;
};
