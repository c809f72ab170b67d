#pragma once

#include <datamodels/atlas/atlas_asset.h>
#include <host/undo/command.h>

#include <map>

/// Takes empty tiles out of an atlas, the first ones first: as many whole rows as the filled tiles leave, or, if they
/// fill less than a row, all but one row of them. Filled tiles keep their order and move up. Never refused. Undone by
/// `UndoCropCommand`.
class AtlasAsset::CropCommand : public Ozy::utils::Command
{
public:
    explicit CropCommand(AtlasAsset* asset);
    ~CropCommand() override;

    bool execute() override;

private:
    std::map<std::size_t, std::shared_ptr<AtlasTile>> emptyTiles(std::size_t count) const;

    AtlasAsset* m_asset;
};

/// Puts the empty tiles back where a crop took them out: the same ones, so that what the history has recorded of them stays
/// true. Never refused. Undone by a new `CropCommand`.
class AtlasAsset::UndoCropCommand : public Ozy::utils::Command
{
public:
    UndoCropCommand(AtlasAsset* asset, AtlasViewData::Point tilesCount,
                    std::map<std::size_t, std::shared_ptr<AtlasTile>> removedSlots);
    ~UndoCropCommand() override;

    bool execute() override;

private:
    AtlasAsset* m_asset;
    AtlasViewData::Point m_tilesCount;
    std::map<std::size_t, std::shared_ptr<AtlasTile>> m_removedSlots; // by their slots before the crop
};
