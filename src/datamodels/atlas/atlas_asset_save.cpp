#include <datamodels/atlas/atlas_asset.h>

#include <datamodels/host_service.h>
#include <host/engine/i_atlas_manager.h>

#include <algorithm>

using Rect = Ozy::RectT<unsigned int>;

/// Empty for an atlas without columns.
Rect AtlasAsset::getTileRect(std::size_t index, AtlasType type) const
{
    const int columns = m_tileSize > 0 ? m_data.atlasSize.x / m_tileSize : 0;
    if (columns <= 0)
        return {};
    const auto side = static_cast<unsigned>(AtlasTile::isHalfSize(type) ? m_tileSize / 2 : m_tileSize);
    const auto column = static_cast<unsigned>(index % static_cast<std::size_t>(columns));
    const auto row = static_cast<unsigned>(index / static_cast<std::size_t>(columns));
    return {.left = side * column, .right = side * column + side, .top = side * row, .bottom = side * row + side};
}

void AtlasAsset::fillTilesData(Entries& entries, AtlasType type) const
{
    entries.clear();
    const std::vector<std::shared_ptr<AtlasTile>>& tiles = *m_data.tiles;
    const bool isEmpty = std::all_of(tiles.begin(), tiles.end(), [](const auto& tile) { return tile->isEmpty(); });
    if (isEmpty) {
        entries.emplace_back(getTileRect(0, type), std::string()); // without it no load would know the size of tiles
        return;
    }
    // Intended: no entry where there is no texture, so that a tile without all three makes files that do not load.
    entries.reserve(tiles.size());
    for (std::size_t slot = 0; slot < tiles.size(); ++slot) {
        if (const std::string& path = tiles[slot]->texturePath(type); !path.empty())
            entries.emplace_back(getTileRect(slot, type), path);
    }
}

bool AtlasAsset::save() const
{
    AtlasData data;
    data.leadingFlag = 1;
    data.width = static_cast<std::uint32_t>(m_data.atlasSize.x);
    data.height = static_cast<std::uint32_t>(m_data.atlasSize.y);
    data.fullSizeFlag = 1;
    const auto write = [&](AtlasType type) {
        fillTilesData(data.tiles, type);
        return Ozy::Fennel::AtlasTexture::makeAtlasFile(m_basePath + atlasFilenameSuffix(type), data, nullptr);
    };

    bool isSaved = write(AtlasType::AM);
    isSaved = write(AtlasType::GBMT) && isSaved;
    data.fullSizeFlag = 0;
    data.width >>= 1U;
    data.height >>= 1U;
    isSaved = write(AtlasType::MAO) && isSaved;
    if (!isSaved)
        return false;
    if (IAtlasManager* const manager = datamodels::hostService<IAtlasManager>())
        manager->onAtlasFilesSaved();
    return true;
}
