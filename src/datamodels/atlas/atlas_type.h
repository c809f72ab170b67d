#pragma once

/// The classes of textures that an atlas keeps side by side, one file each, in the order of every loop over them.
enum class AtlasType
{
    AM = 0,
    GBMT = 1,
    MAO = 2 ///< half the size of the others
};
