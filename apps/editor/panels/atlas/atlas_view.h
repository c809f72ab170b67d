#pragma once

#include <datamodels/atlas/i_atlas_view_settings.h>

#include <QObject>

namespace editor {

/// How the panel shows its atlas. What is set here reaches QML by way of the `AtlasContext`.
class AtlasView : public QObject, public IAtlasViewSettings
{
    Q_OBJECT

public:
    ryk::Flags<Channel> activeChannels() const override { return m_channels; }
    bool showNumbers() const override { return m_showsNumbers; }
    AtlasType tileType() const override { return m_type; }

    /// Shows a channel or hides it: 1 red, 2 green, 4 blue, 8 alpha.
    Q_INVOKABLE void turnChannel(int channel);
    /// One channel alone, or the colours if it is alone already.
    Q_INVOKABLE void showAlone(int channel);
    Q_INVOKABLE void turnNumbers();
    /// An `AtlasType`; others are ignored.
    Q_INVOKABLE void setType(int type);
    /// Times the size of a tile in the atlas, within bounds.
    Q_INVOKABLE void setZoom(double factor);
    /// Says that pictures should be asked for again.
    void tell() { settingsChanged(); }

private:
    void setChannels(std::uint32_t channels);

    ryk::Flags<Channel> m_channels = IAtlasViewSettings::activeChannels();
    bool m_showsNumbers = true;
    AtlasType m_type = AtlasType::AM;
};

} // namespace editor
