#include <datamodels/atlas/atlas_problems.h>

#include <datamodels/atlas/atlas_asset.h>
#include <host/resources/utils.h>

namespace {

void addProblemsOf(const AtlasTile& tile, int slot, std::vector<AtlasProblem>& problems)
{
    for (std::size_t type = 0; type < AtlasTile::TypeNames.size(); ++type) {
        const std::string& path = tile.textures()[type];
        if (path.empty())
            problems.push_back({slot, "No " + AtlasTile::TypeNames[type] + " texture"});
        else if (!Ozy::FS::Utils::fileExists(path))
            problems.push_back({slot, AtlasTile::TypeNames[type] + " texture '" + path + "' does not exist"});
    }
}

} // namespace

std::vector<AtlasProblem> findAtlasProblems(const AtlasAsset& asset)
{
    std::vector<AtlasProblem> problems;
    if (asset.tileSize() % 2 != 0)
        problems.push_back({-1, "The tile size of " + std::to_string(asset.tileSize())
                                    + " pixels is odd, and MAO tiles are half as large"});
    for (int slot = 0; slot < asset.totalTilesCount(); ++slot) {
        const auto tile = asset.getTile(static_cast<std::size_t>(slot));
        if (tile && !tile->isEmpty())
            addProblemsOf(*tile, slot, problems);
    }
    return problems;
}
