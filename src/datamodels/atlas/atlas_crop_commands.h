#pragma once

#include <datamodels/atlas/atlas_asset.h>
#include <host/undo/command.h>

#include <set>

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
    std::set<std::size_t> emptySlots(std::size_t count) const;

    AtlasAsset* m_asset;
};

/// Puts empty tiles back where a crop took them out. Never refused. Undone by a new `CropCommand`.
class AtlasAsset::UndoCropCommand : public Ozy::utils::Command
{
public:
    UndoCropCommand(AtlasAsset* asset, AtlasViewData::Point tilesCount, std::set<std::size_t> removedSlots);
    ~UndoCropCommand() override;

    bool execute() override;

private:
    AtlasAsset* m_asset;
    AtlasViewData::Point m_tilesCount;
    std::set<std::size_t> m_removedSlots;
};
