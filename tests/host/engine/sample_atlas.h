#pragma once

#include <host/engine/atlas_texture.h>

/// Two slots side by side, of which the second is filled by a resource of a name beyond ASCII.
inline Ozy::Fennel::AtlasTexture::AtlasData sampleAtlas()
{
    Ozy::Fennel::AtlasTexture::AtlasData data;
    data.leadingFlag = 1;
    data.fullSizeFlag = 1;
    data.width = 512;
    data.height = 256;
    data.tiles = {{{0, 256, 0, 256}, "textures/oak_AM.png"}, {{256, 512, 0, 256}, "textures/\xC3\xA9rable_AM.png"}};
    return data;
}
