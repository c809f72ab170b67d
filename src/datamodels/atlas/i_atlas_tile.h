#pragma once

#include <datamodels/atlas/atlas_type.h>
#include <datamodels/datamodels_export.h>
#include <host/signals/signal.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// One slot of an atlas as views see it: which textures it shows, and when they change.
///
/// Share a tile by a pointer that was made for its own class, `std::make_shared<AtlasTile>(...)`: nothing can be deleted
/// through this interface. Thread: GUI only.
class DATAMODELS_API IAtlasTile
{
public:
    using TextureSignal = ryk::Signal<void(AtlasType, std::size_t)>;

    IAtlasTile() = default;
    IAtlasTile(IAtlasTile&&) noexcept = default;
    IAtlasTile& operator=(IAtlasTile&&) = default;

    /// Three names of resources, in the order of `AtlasType`; empty ones are no textures.
    virtual const std::vector<std::string>& textures() const = 0;

    /// Tells the class that was set, and the slot. It may have been refused, and the texture be the same.
    ryk::Connection connectTextureChanged(std::function<void(AtlasType, std::size_t)> slot) const;

protected:
    ~IAtlasTile() = default;

    TextureSignal textureChanged;
};
