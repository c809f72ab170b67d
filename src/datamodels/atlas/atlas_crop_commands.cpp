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

std::set<std::size_t> AtlasAsset::CropCommand::emptySlots(std::size_t count) const
{
    std::set<std::size_t> slots;
    for (std::size_t slot = 0; slots.size() < count && slot < m_asset->m_data.tiles->size(); ++slot) {
        if ((*m_asset->m_data.tiles)[slot]->isEmpty())
            slots.insert(slot);
    }
    return slots;
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
    std::set<std::size_t> slots = emptySlots(static_cast<std::size_t>(crop.removed));
    const zarn::ReflectedObject collection = zarn::reflect(m_asset->m_data.tiles);
    for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot)
        collection.removePropertyAt(*slot);
    m_asset->resetTilesIndices();
    m_asset->notifyTilesCountChange();
    // Intended: a step also if there was nothing to take out.
    Ozy::CommitChangesScope::makeUndo<UndoCropCommand>(m_asset, before, std::move(slots));
    return true;
}

AtlasAsset::UndoCropCommand::UndoCropCommand(AtlasAsset* asset, Point tilesCount, std::set<std::size_t> removedSlots)
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
    for (std::size_t slot : m_removedSlots)
        collection.addProperty(qelm::Variant(slot), qelm::Variant(m_asset->createTile(slot, {})));
    m_asset->resetTilesIndices();
    m_asset->notifyTilesCountChange();
    Ozy::CommitChangesScope::makeUndo<CropCommand>(m_asset);
    return true;
}
