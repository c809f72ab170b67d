#include <datamodels/atlas/atlas_tile.h>

#include <datamodels/atlas/atlas_asset.h>
#include <host/base/debug.h>
#include <host/base/string_utils.h>
#include <host/engine/render_system.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/static_meta_object.h>
#include <host/resources/editor_utils.h>
#include <host/resources/utils.h>

#include <QString>

#include <algorithm>

namespace {

constexpr AtlasType allTypes[] = {AtlasType::AM, AtlasType::GBMT, AtlasType::MAO};

std::size_t positionOf(AtlasType type)
{
    const auto position = static_cast<std::size_t>(type);
    if (position < std::size(allTypes))
        return position;
    OZY_ASSERT_DETAIL("Unknown texture type", false);
    return 0;
}

Ozy::DebugMessageHelper refusal()
{
    return {Ozy::Priority::refusal, "datamodels"};
}

} // namespace

const std::array<std::string, 3> AtlasTile::TypeNames = {"AM", "GBMT", "MAO"};

AtlasTile::AtlasTile(AtlasAsset& asset, std::size_t index, std::vector<std::string> textures)
    : m_asset(asset.m_self), m_index(index), m_textures(std::move(textures))
{
    m_textures.resize(std::size(allTypes));
}

AtlasTile::~AtlasTile() = default;

/// By the reflection, so that listeners hear of a change once and after it, by whatever way it came.
void AtlasTile::followProperties() const
{
    if (!m_connections.empty())
        return;
    const zarn::ReflectedObject self = zarn::reflect(const_cast<AtlasTile&>(*this));
    for (AtlasType type : allTypes) {
        m_connections.emplace_back(self.findPropertyByName(TypeNames[positionOf(type)])
                                       .connectPropertyChanged([this, type](const zarn::BoundProperty&,
                                                                            ryk::Flags<zarn::SetterFlag> how,
                                                                            ryk::Flags<zarn::NotifyFlag> what) {
                                           onPropertyChanged(type, how, what);
                                       }));
    }
}

void AtlasTile::onPropertyChanged(AtlasType type, ryk::Flags<zarn::SetterFlag> how, ryk::Flags<zarn::NotifyFlag> what) const
{
    if (how.test(zarn::SetterFlag::Unseen) || !what.test(zarn::NotifyFlag::Value))
        return;
    const std::size_t slot = m_index;
    if (const std::shared_ptr<const AtlasAsset> asset = m_asset.lock())
        asset->tileChanged(type, slot);
    textureChanged(type, slot);
}

const std::string& AtlasTile::texturePath(AtlasType type) const
{
    return m_textures[positionOf(type)];
}

std::string AtlasTile::objectName() const
{
    const std::string_view name = Ozy::FS::Utils::getFilename(m_textures[0]);
    return std::to_string(m_index).append(". ").append(name.empty() ? "No image" : name);
}

std::string AtlasTile::objectIcon() const
{
    // Intended: AM is not asked, and an empty tile warns.
    const bool isComplete = Ozy::FS::Utils::fileExists(texturePath(AtlasType::GBMT))
        && Ozy::FS::Utils::fileExists(texturePath(AtlasType::MAO));
    return isComplete ? "resources/images/texture_asset/texture.svg" : "resources/images/texture_asset/texture-warning.svg";
}

/// Intended: the class is replaced wherever it stands, in the names of directories as well.
std::string AtlasTile::companionOf(const std::string& path, AtlasType type)
{
    std::string companion = path;
    Ozy::StringUtils::replace(companion, TypeNames[0], TypeNames[positionOf(type)]);
    return companion;
}

bool AtlasTile::isEmpty() const
{
    return std::all_of(m_textures.begin(), m_textures.end(), [](const std::string& path) { return path.empty(); });
}

bool AtlasTile::isComplete() const
{
    return std::none_of(m_textures.begin(), m_textures.end(), [](const std::string& path) { return path.empty(); });
}

int AtlasTile::tileSize() const
{
    const std::shared_ptr<const AtlasAsset> asset = m_asset.lock();
    return asset ? asset->tileSize() : 0;
}

bool AtlasTile::checkTexture(AtlasType type, int tileSize, const std::string& path)
{
    if (path.empty())
        return true;
    if (!Ozy::FS::Utils::fileExists(path)) {
        refusal().message("File '%s' doesn't exist.\n", path.c_str());
        return false;
    }
    const std::wstring file = Ozy::FS::EditorUtils().resolveFilenameW(path);
    const std::unique_ptr<Ozy::ResILImage> image = Ozy::Fennel::rs().resIL()->createImage();
    if (!image->loadImage(file)) {
        refusal().message("Failed to load image '%s'.\n", QString::fromStdWString(file).toUtf8().constData());
        return false;
    }
    unsigned width = 0;
    unsigned height = 0;
    image->getDimensions(width, height);
    const int required = isHalfSize(type) ? tileSize : 2 * tileSize;
    if (width == static_cast<unsigned>(required) && height == static_cast<unsigned>(required))
        return true;
    refusal().message("Selected image size mismatch '%s'. Image size: %ux%u, required size: %d.\n", path.c_str(), width, height,
                      required);
    return false;
}

bool AtlasTile::setTexture(AtlasType type, const std::string& path)
{
    const std::size_t position = positionOf(type);
    // Intended: listeners hear of a refusal too, so that an editor shows again what the tile has.
    const zarn::PropertyChangeNotifier notifier(zarn::reflect(*this), {TypeNames[position]}, {}, zarn::NotifyFlag::Value);
    if (!checkTexture(type, tileSize(), path))
        return false;
    if (position == 0) {
        std::string gbmt = companionOf(path, AtlasType::GBMT);
        std::string mao = companionOf(path, AtlasType::MAO);
        if (!checkTexture(AtlasType::GBMT, tileSize(), gbmt) || !checkTexture(AtlasType::MAO, tileSize(), mao))
            return false;
        m_textures[0] = path; // first: it may be one of the two others
        m_textures[1] = std::move(gbmt);
        m_textures[2] = std::move(mao);
        return true;
    }
    m_textures[position] = path;
    return true;
}

void AtlasTile::clear()
{
    zarn::reflect(*this).findPropertyByName(TypeNames[0]).set(qelm::Variant(std::string()), {});
}
