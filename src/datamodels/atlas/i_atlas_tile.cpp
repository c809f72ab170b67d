#include <datamodels/atlas/i_atlas_tile.h>

#include <datamodels/atlas/atlas_tile.h>

ryk::Connection IAtlasTile::connectTextureChanged(std::function<void(AtlasType, std::size_t)> slot) const
{
    // Not before somebody listens: an atlas has thousands of tiles.
    if (const auto* tile = dynamic_cast<const AtlasTile*>(this))
        tile->followProperties();
    return textureChanged.connect(slot);
}
