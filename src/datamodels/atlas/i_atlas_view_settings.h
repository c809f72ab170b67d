#pragma once

#include <datamodels/atlas/atlas_type.h>
#include <datamodels/datamodels_export.h>
#include <host/base/flags.h>
#include <host/signals/signal.h>

#include <cstdint>
#include <functional>

/// How a view shows an atlas; by itself with red, green and blue, numbers, `AM` textures and no zoom.
///
/// A plug-in derives its settings from it and calls `settingsChanged` after each change. Whoever shows them does not own
/// them. Thread: GUI only; the signal comes on the thread of the change.
class DATAMODELS_API IAtlasViewSettings
{
public:
    enum class Channel : std::uint32_t
    {
        Red = 1,
        Green = 2,
        Blue = 4,
        Alpha = 8
    };
    struct ZoomData
    {
        float zoomFactor = 1.0F;
    };

    IAtlasViewSettings() = default;
    IAtlasViewSettings(IAtlasViewSettings&&) noexcept = default;
    IAtlasViewSettings& operator=(IAtlasViewSettings&&) = default;

    virtual ryk::Flags<Channel> activeChannels() const;
    virtual bool showNumbers() const;
    virtual AtlasType tileType() const;
    virtual ~IAtlasViewSettings();

    bool redChannelEnabled() const;
    bool greenChannelEnabled() const;
    bool blueChannelEnabled() const;
    bool alphaChannelEnabled() const;
    const ZoomData& zoomData() const { return m_zoomData; }

    ryk::Connection connectSettingsChanged(std::function<void()> slot) const;

protected:
    ryk::Signal<void()> settingsChanged;
    ZoomData m_zoomData;
};
