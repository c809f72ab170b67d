#include <datamodels/atlas/atlas_crop_commands.h>

#include <host/reflection/notifiers.h>
#include <host/reflection/static_meta_object.h>
#include <host/undo/commit_changes_scope.h>

#include <algorithm>

using Point = AtlasViewData::Point;

namespace {

struct Crop
{
    Point tilesCount;
    int removed;
};

Crop cropOf(Point grid, int tiles, int empty)
{
    if (grid.x <= 0)
        return {grid, 0}; // an atlas that was not loaded
    const int filled = tiles - empty;
    if (filled >= grid.x) {
        const int rows = empty / grid.x;
        return {{grid.x, grid.y - rows}, grid.x * rows};
    }
    const int removed = std::min(tiles - 1, empty);
    return {{tiles - removed, 1}, removed};
}

} // namespace

AtlasAsset::CropCommand::CropCommand(AtlasAsset* asset) : Command("CropCommand"), m_asset(asset) {}

AtlasAsset::CropCommand::~CropCommand() = default;

std::map<std::size_t, std::shared_ptr<AtlasTile>> AtlasAsset::CropCommand::emptyTiles(std::size_t count) const
{
    std::map<std::size_t, std::shared_ptr<AtlasTile>> empty;
    for (std::size_t slot = 0; empty.size() < count && slot < m_asset->m_data.tiles->size(); ++slot) {
        const std::shared_ptr<AtlasTile> tile = m_asset->getTile(slot);
        if (tile->isEmpty())
            empty.emplace(slot, tile);
    }
    return empty;
}

bool AtlasAsset::CropCommand::execute()
{
    const std::vector<std::shared_ptr<AtlasTile>>& tiles = *m_asset->m_data.tiles;
    const auto empty = std::count_if(tiles.begin(), tiles.end(), [](const auto& tile) { return tile->isEmpty(); });
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*m_asset), {"tilesCountX", "tilesCountY"}, {},
                                                zarn::NotifyFlag::Value);
    const Point before = m_asset->m_data.tilesCount;
    const Crop crop = cropOf(before, static_cast<int>(tiles.size()), static_cast<int>(empty));
    m_asset->m_data.tilesCount = crop.tilesCount;
    std::map<std::size_t, std::shared_ptr<AtlasTile>> removed = emptyTiles(static_cast<std::size_t>(crop.removed));
    const zarn::ReflectedObject collection = zarn::reflect(m_asset->m_data.tiles);
    for (auto tile = removed.rbegin(); tile != removed.rend(); ++tile) // each finds its slot still
        collection.removePropertyAt(tile->first);
    m_asset->resetTilesIndices();
    m_asset->notifyTilesCountChange();
    // Intended: a step also if there was nothing to take out.
    Ozy::CommitChangesScope::makeUndo<UndoCropCommand>(m_asset, before, std::move(removed));
    return true;
}

AtlasAsset::UndoCropCommand::UndoCropCommand(AtlasAsset* asset, Point tilesCount,
                                             std::map<std::size_t, std::shared_ptr<AtlasTile>> removedSlots)
    : Command("UndoCropCommand"), m_asset(asset), m_tilesCount(tilesCount), m_removedSlots(std::move(removedSlots))
{
}

AtlasAsset::UndoCropCommand::~UndoCropCommand() = default;

bool AtlasAsset::UndoCropCommand::execute()
{
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*m_asset), {"tilesCountX", "tilesCountY"}, {},
                                                zarn::NotifyFlag::Value);
    m_asset->m_data.tilesCount = m_tilesCount;
    const zarn::ReflectedObject collection = zarn::reflect(m_asset->m_data.tiles);
    for (const auto& [slot, tile] : m_removedSlots)
        collection.addProperty(qelm::Variant(slot), qelm::Variant(tile));
    m_asset->resetTilesIndices();
    m_asset->notifyTilesCountChange();
    Ozy::CommitChangesScope::makeUndo<CropCommand>(m_asset);
    return true;
}
