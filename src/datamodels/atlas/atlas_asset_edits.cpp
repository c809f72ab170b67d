#include <datamodels/atlas/atlas_asset.h>

#include <datamodels/atlas/atlas_crop_commands.h>
#include <datamodels/atlas/atlas_texture_commands.h>
#include <datamodels/atlas/atlas_tiles_commands.h>
#include <host/base/debug.h>
#include <host/resources/utils.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <QApplication>
#include <QFileDialog>

#include <algorithm>

using Point = AtlasViewData::Point;

namespace {

bool isPossible(Point count)
{
    return count.x >= 0 && count.y >= 0 && std::int64_t(count.x) * count.y <= AtlasAsset::mostTiles;
}

} // namespace

std::vector<std::size_t> AtlasAsset::getFreeSlotIndexes() const
{
    std::vector<std::size_t> free;
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(totalTilesCount()); ++slot) {
        const std::shared_ptr<const AtlasTile> tile = getTile(slot);
        if (OZY_ASSERT(tile) && tile->texturePath(AtlasType::AM).empty())
            free.push_back(slot);
    }
    return free;
}

bool AtlasAsset::hasTexture(const std::string& path) const
{
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(totalTilesCount()); ++slot) {
        const std::shared_ptr<const AtlasTile> tile = getTile(slot);
        if (OZY_ASSERT(tile) && tile->texturePath(AtlasType::AM) == path)
            return true;
    }
    return false;
}

void AtlasAsset::resetTilesIndices()
{
    for (std::size_t slot = 0; slot < m_data.tiles->size(); ++slot)
        (*m_data.tiles)[slot]->setIndex(slot);
}

void AtlasAsset::notifyTilesCountChange()
{
    m_data.atlasSize = {m_tileSize * m_data.tilesCount.x, m_data.tilesCount.y * m_tileSize};
    m_requestedTilesCount = m_data.tilesCount;
    followTiles();
    tilesCountChanged();
}

/// Not before somebody listens: it costs more than all the rest of a tile.
void AtlasAsset::followTiles() const
{
    if (!m_isFollowed)
        return;
    for (const std::shared_ptr<AtlasTile>& tile : *m_data.tiles)
        tile->followProperties();
}

void AtlasAsset::setTilesCount(Point point)
{
    if (!OZY_ASSERT(m_changesController))
        return;
    if (!isPossible(point)) {
        Ozy::DebugMessageHelper(Ozy::Priority::refusal, "datamodels")
            .message("An atlas of %d x %d tiles is not possible.\n", point.x, point.y);
        return;
    }
    const Ozy::CommitChangesScope scope("Set Tiles Count", m_changesController);
    const int added = point.x * point.y - totalTilesCount();
    // Intended: an equal number goes to the removal, which refuses it. No grid is reshaped in one step.
    if (added > 0)
        Ozy::CommitChangesScope::makeCommand<AddTilesCommand>(
            this, point, std::vector<std::vector<std::string>>(static_cast<std::size_t>(added)));
    else
        Ozy::CommitChangesScope::makeCommand<RemoveTilesCommand>(this, point);
}

/// Intended: what is refused stays requested, and is tried again with the next other half.
void AtlasAsset::requestTilesCount(int Point::*half, int count)
{
    m_requestedTilesCount.*half = count;
    if (m_requestedTilesCount.*half != m_data.tilesCount.*half)
        setTilesCount(m_requestedTilesCount);
}

bool AtlasAsset::crop()
{
    return Ozy::CommitChangesScope::makeCommand<CropCommand>(this);
}

void AtlasAsset::addTextures()
{
    std::string directory = "content/";
    Ozy::FS::Utils::resolveToAbsolutePath(directory);
    const QStringList files =
        QFileDialog::getOpenFileNames(QApplication::activeWindow(), QObject::tr("Choose files..."),
                                      QString::fromStdString(directory), "AM tiles (*_AM.png)");
    Ozy::CommitChangesScope::makeCommand<AddTexturesCommand>(this, files);
}
