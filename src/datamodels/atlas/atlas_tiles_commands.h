#pragma once

#include <datamodels/atlas/atlas_asset.h>
#include <host/undo/command.h>

/// Makes an atlas larger, with new tiles behind the others. Refused, with a message, if there would be fewer columns or
/// rows, or another number of new tiles than of lists of textures. Undone by `RemoveTilesCommand`.
class AtlasAsset::AddTilesCommand : public Ozy::utils::Command
{
public:
    using TileList = std::vector<std::shared_ptr<AtlasTile>>;

    /// With `tiles`, these come back instead of new ones: what the history has recorded of them stays true.
    AddTilesCommand(AtlasAsset* asset, AtlasViewData::Point tilesCount, std::vector<std::vector<std::string>> textures,
                    TileList tiles = {});
    ~AddTilesCommand() override;

    bool execute() override;

private:
    bool isPossible() const;

    AtlasAsset* m_asset;
    AtlasViewData::Point m_tilesCount;
    std::vector<std::vector<std::string>> m_textures;
    TileList m_tiles;
};

/// Takes the last tiles of an atlas away. Refused, with a message, unless there will be fewer tiles. Undone by
/// `AddTilesCommand`, which refuses to make the atlas narrower or lower.
class AtlasAsset::RemoveTilesCommand : public Ozy::utils::Command
{
public:
    RemoveTilesCommand(AtlasAsset* asset, AtlasViewData::Point tilesCount);
    ~RemoveTilesCommand() override;

    bool execute() override;

private:
    AtlasAsset* m_asset;
    AtlasViewData::Point m_tilesCount;
};
