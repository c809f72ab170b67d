#pragma once

#include <datamodels/datamodels_export.h>

#include <string>
#include <vector>

class AtlasAsset;

/// Something about an atlas with which its saved files could not be loaded again, or would lack a texture.
struct AtlasProblem
{
    int slot = -1; ///< -1 for the atlas as a whole
    std::string text;

    bool operator==(const AtlasProblem&) const = default;
};

/// The problems in the order of the slots: a tile size that is odd, tiles that have only some of their textures, textures
/// without a file. Cost: a look at the disk a texture. Thread: GUI only.
DATAMODELS_API std::vector<AtlasProblem> findAtlasProblems(const AtlasAsset& asset);
