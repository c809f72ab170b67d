#pragma once

#include <datamodels/atlas/i_atlas_tile.h>

#include <QMetaType>

#include <memory>
#include <vector>

class IAtlasViewSettings;

/// What a view needs of an atlas: a snapshot of its sizes, its tiles, which are shared, and how to show them.
struct AtlasViewData
{
    struct Point
    {
        int x = 0;
        int y = 0;
    };

    Point atlasSize;                                ///< pixels
    Point tilesCount;                               ///< columns and rows
    std::vector<std::shared_ptr<IAtlasTile>> tiles; ///< row by row
    const IAtlasViewSettings* settings = nullptr;   ///< not owned
};

Q_DECLARE_METATYPE(AtlasViewData*)
