#include <datamodels/atlas/atlas_tiles_commands.h>

#include <host/base/debug.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/static_meta_object.h>
#include <host/undo/commit_changes_scope.h>

#include <algorithm>

using Point = AtlasViewData::Point;

namespace {

Ozy::DebugMessageHelper refusal()
{
    return {Ozy::Priority::refusal, "datamodels"};
}

} // namespace

AtlasAsset::AddTilesCommand::AddTilesCommand(AtlasAsset* asset, Point tilesCount,
                                             std::vector<std::vector<std::string>> textures, TileList tiles)
    : Command("AddTilesCommand")
    , m_asset(asset)
    , m_tilesCount(tilesCount)
    , m_textures(std::move(textures))
    , m_tiles(std::move(tiles))
{
}

AtlasAsset::AddTilesCommand::~AddTilesCommand() = default;

bool AtlasAsset::AddTilesCommand::isPossible() const
{
    const Point current = m_asset->m_data.tilesCount;
    if (m_tilesCount.x < current.x) {
        refusal().message("AddTilesCommand: new tiles X count (%d) lesser than current (%d).\n", m_tilesCount.x, current.x);
        return false;
    }
    if (m_tilesCount.y < current.y) {
        refusal().message("AddTilesCommand: new tiles Y count (%d) lesser than current (%d).\n", m_tilesCount.y, current.y);
        return false;
    }
    const int added = m_tilesCount.x * m_tilesCount.y - current.x * current.y;
    if (added < 0 || static_cast<std::size_t>(added) != m_textures.size()) {
        refusal().message("AddTilesCommand: new tiles count inconsistency. Tiles count: %d. Added tiles: %u.\n", added,
                          static_cast<unsigned>(m_textures.size()));
        return false;
    }
    return true;
}

bool AtlasAsset::AddTilesCommand::execute()
{
    if (!isPossible())
        return false;
    const Point before = m_asset->m_data.tilesCount;
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*m_asset), {"tilesCountX", "tilesCountY"}, {},
                                                zarn::NotifyFlag::Value);
    m_asset->m_data.tilesCount = m_tilesCount;
    Tiles& tiles = m_asset->m_data.tiles;
    tiles->reserve(static_cast<std::size_t>(m_asset->totalTilesCount()));
    const zarn::ReflectedObject collection = zarn::reflect(tiles);
    for (std::size_t i = 0; i < m_textures.size(); ++i) {
        const auto tile = i < m_tiles.size() ? m_tiles[i] : m_asset->createTile(tiles->size(), m_textures[i]);
        collection.addProperty({}, qelm::Variant(tile));
    }
    m_asset->notifyTilesCountChange();
    Ozy::CommitChangesScope::makeUndo<RemoveTilesCommand>(m_asset, before);
    return true;
}

AtlasAsset::RemoveTilesCommand::RemoveTilesCommand(AtlasAsset* asset, Point tilesCount)
    : Command("RemoveTilesCommand"), m_asset(asset), m_tilesCount(tilesCount)
{
}

AtlasAsset::RemoveTilesCommand::~RemoveTilesCommand() = default;

bool AtlasAsset::RemoveTilesCommand::execute()
{
    Tiles& tiles = m_asset->m_data.tiles;
    const int wanted = m_tilesCount.x * m_tilesCount.y;
    if (m_asset->totalTilesCount() <= wanted) {
        refusal().message("RemoveTilesCommand: current tiles count (%u) lesser than new count (%d).\n",
                          static_cast<unsigned>(tiles->size()), wanted);
        return false;
    }
    const auto rest = static_cast<std::size_t>(std::max(wanted, 0));
    const Point before = m_asset->m_data.tilesCount;
    AddTilesCommand::TileList removed(tiles->begin() + static_cast<std::ptrdiff_t>(std::min(rest, tiles->size())), tiles->end());
    std::vector<std::vector<std::string>> textures;
    for (const std::shared_ptr<AtlasTile>& tile : removed)
        textures.push_back(tile->textures());
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*m_asset), {"tilesCountX", "tilesCountY"}, {},
                                                zarn::NotifyFlag::Value);
    m_asset->m_data.tilesCount = m_tilesCount;
    const zarn::ReflectedObject collection = zarn::reflect(tiles);
    while (tiles->size() > rest) {
        if (!collection.removePropertyAt(tiles->size() - 1))
            break;
    }
    m_asset->notifyTilesCountChange();
    // Intended: it will not make the atlas narrower or lower, so that to become wider but lower cannot be undone.
    Ozy::CommitChangesScope::makeUndo<AddTilesCommand>(m_asset, before, std::move(textures), std::move(removed));
    return true;
}
