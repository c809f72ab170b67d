#include <datamodels/atlas/atlas_asset.h>

#include <datamodels/host_service.h>
#include <host/base/debug.h>
#include <host/engine/i_atlas_manager.h>
#include <host/engine/texture_manager.h>
#include <host/reflection/cast.h>
#include <host/reflection/notifiers.h>
#include <host/resources/editor_utils.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/multi_file_system_monitor.h>
#include <host/resources/utils.h>

#include <algorithm>
#include <limits>

using Ozy::FS::Utils;
using AtlasData = Ozy::Fennel::AtlasTexture::AtlasData;
using Rect = Ozy::RectT<unsigned int>;

namespace {

Ozy::DebugMessageHelper refusal()
{
    return {Ozy::Priority::refusal, "datamodels"};
}

bool validateRects(unsigned index, const Rect& am, const Rect& gbmt, const Rect& mao)
{
    if (am.right <= am.left || am.bottom <= am.top) {
        refusal().message("Invalid %u tile rect in AM atlas. Rect: %ux%u - %ux%u.\n", index, am.left, am.top, am.right,
                          am.bottom);
        return false;
    }
    if (gbmt != am) {
        refusal().message("GBMT %u tile rect inconsistency. AM rect: %ux%u - %ux%u. GBMT rect: %ux%u - %ux%u\n", index,
                          am.left, am.top, am.right, am.bottom, gbmt.left, gbmt.top, gbmt.right, gbmt.bottom);
        return false;
    }
    if (am.left != 2ULL * mao.left || am.right != 2ULL * mao.right || am.top != 2ULL * mao.top
        || am.bottom != 2ULL * mao.bottom) {
        refusal().message("MAO %u tile rect inconsistency. AM rect: %ux%u - %ux%u. MAO rect: %ux%u - %ux%u\n", index,
                          am.left, am.top, am.right, am.bottom, mao.left, mao.top, mao.right, mao.bottom);
        return false;
    }
    return true;
}

bool validateCounts(const AtlasData& am, const AtlasData& gbmt, const AtlasData& mao)
{
    const auto amTiles = static_cast<unsigned>(am.tiles.size());
    if (am.tiles.empty()) {
        refusal().message("Failed to load AM atlas data.\n");
        return false;
    }
    if (gbmt.tiles.empty()) {
        refusal().message("Failed to load GBMT atlas data.\n");
        return false;
    }
    if (mao.tiles.empty()) {
        refusal().message("Failed to load MAO atlas data.\n");
        return false;
    }
    if (gbmt.tiles.size() != am.tiles.size()) {
        // Intended: "GMBT" is spelt so in the messages on counts and sizes.
        refusal().message("GMBT tiles count mismatch. AM tiles: %u, GBMT tiles: %u.\n", amTiles,
                          static_cast<unsigned>(gbmt.tiles.size()));
        return false;
    }
    if (mao.tiles.size() != am.tiles.size()) {
        refusal().message("MAO tiles count mismatch. AM tiles: %u, MAO tiles: %u.\n", amTiles,
                          static_cast<unsigned>(mao.tiles.size()));
        return false;
    }
    return true;
}

bool validateSizes(const AtlasData& am, const AtlasData& gbmt, const AtlasData& mao)
{
    const auto width = static_cast<int>(am.width);
    const auto height = static_cast<int>(am.height);
    if (am.height == 0 || am.width == 0) {
        refusal().message("AM atlas has zero size.\n");
        return false;
    }
    if (gbmt.width != am.width || gbmt.height != am.height) {
        refusal().message("GMBT atlas size mismatch. AM size: %dx%d, GBMT size: %dx%d. "
                          "GBMT atlas must be same size as AM atlas.\n",
                          width, height, static_cast<int>(gbmt.width), static_cast<int>(gbmt.height));
        return false;
    }
    if (am.width != 2ULL * mao.width || am.height != 2ULL * mao.height) {
        refusal().message("MAO atlas size mismatch. AM size: %dx%d, MAO size: %dx%d. "
                          "MAO atlas must be twice smaller than AM atlas.\n",
                          width, height, static_cast<int>(mao.width), static_cast<int>(mao.height));
        return false;
    }
    return true;
}

/// Whether three files describe one atlas; if not, one message tells the first difference.
bool validateAtlas(const AtlasData& am, const AtlasData& gbmt, const AtlasData& mao)
{
    if (!validateCounts(am, gbmt, mao))
        return false;
    for (std::size_t i = 0; i < am.tiles.size(); ++i) {
        if (!validateRects(static_cast<unsigned>(i), am.tiles[i].first, gbmt.tiles[i].first, mao.tiles[i].first))
            return false;
    }
    return validateSizes(am, gbmt, mao);
}

/// Whether the grid of a valid atlas fits into memory: the files tell its size in few bytes.
bool isAffordable(const AtlasData& am)
{
    const unsigned tileSize = am.tiles.front().first.right - am.tiles.front().first.left;
    const auto most = static_cast<unsigned>(std::numeric_limits<int>::max());
    const std::uint64_t tiles = std::uint64_t(am.width / tileSize) * (am.height / tileSize);
    if (tileSize <= most && am.width <= most && am.height <= most && tiles <= std::uint64_t(AtlasAsset::mostTiles))
        return true;
    refusal().message("Atlas of %ux%u with tiles of %u is too large.\n", am.width, am.height, tileSize);
    return false;
}

} // namespace

const std::string AtlasAsset::atlasExtension = ".atlas";

AtlasAsset::AtlasAsset(const std::string& path, Ozy::ChangesController* controller)
    : m_changesController(controller), m_self(this, [](AtlasAsset*) {})
{
    Ozy::FS::fileSystem()->getFilesystemMonitor().addModificationListener(this);
    setAtlasPath(path);
    init();
}

AtlasAsset::~AtlasAsset()
{
    Ozy::FS::fileSystem()->getFilesystemMonitor().removeModificationListener(this);
}

std::string AtlasAsset::atlasFilenameSuffix(AtlasType type)
{
    return atlasFilenameSuffix(AtlasTile::TypeNames.at(static_cast<std::size_t>(type)));
}

bool AtlasAsset::isAtlasFilename(std::string_view name)
{
    return std::any_of(AtlasTile::TypeNames.begin(), AtlasTile::TypeNames.end(),
                       [name](const std::string& type) { return name.ends_with(atlasFilenameSuffix(type)); });
}

std::string AtlasAsset::getAtlasBasePath(const std::string& path, bool resolve)
{
    std::string base = resolve ? Ozy::FS::EditorUtils().resolveFilename(path) : path;
    for (const std::string& type : AtlasTile::TypeNames) {
        const std::string suffix = atlasFilenameSuffix(type);
        if (base.ends_with(suffix)) {
            base.resize(base.size() - suffix.size());
            break;
        }
    }
    // Intended: also behind a suffix, so that of "a.b_AM.atlas" only "a" is left.
    return std::string(Utils::removeExtension(base));
}

std::string AtlasAsset::toAtlasResourcePath(const std::string& path)
{
    return isAtlasFilename(path) ? path
                                 : std::string(Utils::removeExtension(path)).append(atlasFilenameSuffix(AtlasType::AM));
}

void AtlasAsset::setAtlasPath(const std::string& path)
{
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {"_objectName"}, {}, zarn::NotifyFlag::Value);
    const std::string resource = toAtlasResourcePath(path);
    m_basePath = getAtlasBasePath(resource, true);
    m_resourceBasePath = getAtlasBasePath(resource, false);
    m_assetPath = Ozy::FS::fileSystem()->dissolveFilename(resource);
}

const AtlasData& AtlasAsset::loadAtlasData(const std::string& typeName) const
{
    static const AtlasData none;
    IAtlasManager* const manager = datamodels::hostService<IAtlasManager>();
    return manager ? manager->getAtlasData(m_resourceBasePath + atlasFilenameSuffix(typeName)) : none;
}

void AtlasAsset::init()
{
    const AtlasData& am = loadAtlasData(AtlasTile::TypeNames[0]);
    const AtlasData& gbmt = loadAtlasData(AtlasTile::TypeNames[1]);
    const AtlasData& mao = loadAtlasData(AtlasTile::TypeNames[2]);
    if (!validateAtlas(am, gbmt, mao) || !isAffordable(am))
        return;

    const zarn::PropertiesResetNotifier notifier(zarn::reflect(*this));
    const Rect& first = am.tiles.front().first;
    m_tileSize = static_cast<int>(first.right - first.left);
    m_maxTiles = Ozy::Fennel::AtlasTexture::MAX_SIZE / m_tileSize;
    m_data.atlasSize = {static_cast<int>(am.width), static_cast<int>(am.height)};
    m_data.tilesCount = {m_data.atlasSize.x / m_tileSize, m_data.atlasSize.y / m_tileSize};
    m_requestedTilesCount = m_data.tilesCount;
    const zarn::PropertiesResetNotifier tilesNotifier(zarn::reflect(m_data.tiles));
    createTiles(am, gbmt, mao);
}

void AtlasAsset::createTiles(const AtlasData& am, const AtlasData& gbmt, const AtlasData& mao)
{
    constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
    const auto size = static_cast<unsigned>(m_tileSize);
    const auto columns = static_cast<unsigned>(m_data.tilesCount.x);
    const auto slots = static_cast<std::size_t>(totalTilesCount());

    std::vector<std::size_t> entries(slots, none);
    for (std::size_t entry = 0; entry < am.tiles.size() && columns > 0; ++entry) {
        const Rect& rect = am.tiles[entry].first;
        const std::size_t slot = std::size_t(rect.top / size) * columns + rect.left / size;
        // The first entry of a slot is its own; what fits no slot is left out.
        if (slot < slots && entries[slot] == none && rect == getTileRect(slot, AtlasType::AM))
            entries[slot] = entry;
    }

    std::vector<std::shared_ptr<AtlasTile>>& tiles = *m_data.tiles;
    tiles.clear();
    tiles.reserve(slots);
    for (std::size_t slot = 0; slot < slots; ++slot) {
        std::vector<std::string> textures;
        if (const std::size_t entry = entries[slot]; entry != none) {
            textures.reserve(3);
            for (const AtlasData* data : {&am, &gbmt, &mao})
                textures.push_back(data->tiles[entry].second);
        }
        tiles.push_back(createTile(slot, std::move(textures)));
    }
}

std::shared_ptr<AtlasTile> AtlasAsset::createTile(std::size_t index, std::vector<std::string> textures)
{
    return std::make_shared<AtlasTile>(*this, index, std::move(textures));
}

std::shared_ptr<AtlasTile> AtlasAsset::getTile(std::size_t index)
{
    return index < m_data.tiles->size() ? (*m_data.tiles)[index] : nullptr;
}

std::shared_ptr<const AtlasTile> AtlasAsset::getTile(std::size_t index) const
{
    return const_cast<AtlasAsset*>(this)->getTile(index);
}

ryk::Connection AtlasAsset::connectTileChanged(std::function<void(AtlasType, std::size_t)> slot) const
{
    m_isFollowed = true;
    followTiles();
    return tileChanged.connect(slot);
}

ryk::Connection AtlasAsset::connectTilesCountChanged(std::function<void()> slot) const
{
    return tilesCountChanged.connect(slot);
}

void AtlasAsset::onResourceModified(std::string_view, std::string_view name, unsigned action)
{
    if (action != Modified)
        return;
    const std::string_view extension = Utils::getExtension(name);
    if ((extension == "atlas" || extension == "atlas_processed") && getAtlasBasePath(std::string(name), true) == m_basePath) {
        onReloaded(this);
        return;
    }
    const char* const* known = Ozy::Fennel::TextureManager::validTextureExtensions();
    while (*known && extension != *known)
        ++known;
    if (!*known)
        return;
    for (const std::shared_ptr<AtlasTile>& tile : *m_data.tiles) {
        const std::vector<std::string>& textures = tile->textures();
        if (std::find(textures.begin(), textures.end(), name) != textures.end()) {
            onReloaded(this);
            return;
        }
    }
}
