#include <datamodels/atlas/i_atlas_tile.h>

ryk::Connection IAtlasTile::connectTextureChanged(std::function<void(AtlasType, std::size_t)> slot) const
{
    return textureChanged.connect(slot);
}
