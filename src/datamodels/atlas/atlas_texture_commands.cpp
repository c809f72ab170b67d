#include <datamodels/atlas/atlas_texture_commands.h>

#include <host/base/debug.h>
#include <host/engine/utilities.h>
#include <host/resources/multi_file_system.h>
#include <host/undo/commit_changes_scope.h>

namespace {

Ozy::DebugMessageHelper refusal()
{
    return {Ozy::Priority::refusal, "datamodels"};
}

} // namespace

AtlasAsset::AddTexturesCommand::AddTexturesCommand(AtlasAsset* asset, QStringList files)
    : Command("AddTexturesCommand"), m_asset(asset), m_files(std::move(files))
{
}

AtlasAsset::AddTexturesCommand::~AddTexturesCommand() = default;

std::string AtlasAsset::AddTexturesCommand::textureFrom(const QString& file) const
{
    const std::string path = file.toStdString();
    if (!Ozy::Utilities::isFromCurrentBranch(path)) {
        refusal().message("Texture file '%s' is not in current branch. Skipping.\n", path.c_str());
        return {};
    }
    bool ok = false;
    std::string texture = Ozy::FS::fileSystem()->dissolveFilename(path, &ok);
    if (!ok) {
        refusal().message("Could not dissolve texture path '%s'. Skipping.\n", path.c_str());
        return {};
    }
    if (m_asset->hasTexture(texture)) {
        // Intended: "atlass".
        refusal().message("Texture file '%s' is already in atlass. Skipping.\n", texture.c_str());
        return {};
    }
    return texture;
}

bool AtlasAsset::AddTexturesCommand::execute()
{
    if (m_files.isEmpty())
        return false;
    const std::vector<std::size_t> free = m_asset->getFreeSlotIndexes();
    if (free.empty())
        return false;

    std::vector<std::size_t> filled;
    for (const QString& file : m_files) {
        if (filled.size() == free.size())
            break;
        const std::string texture = textureFrom(file);
        if (texture.empty())
            continue;
        const std::shared_ptr<AtlasTile> tile = m_asset->getTile(free[filled.size()]);
        if (OZY_ASSERT(tile) && tile->setTexture(AtlasType::AM, texture))
            filled.push_back(free[filled.size()]);
    }
    // Intended: recorded also if nothing was filled. Such a step refuses to be undone.
    Ozy::CommitChangesScope::makeUndo<RemoveTexturesCommand>(m_asset, std::move(filled));
    return true;
}

AtlasAsset::RemoveTexturesCommand::RemoveTexturesCommand(AtlasAsset* asset, std::vector<std::size_t> slots)
    : Command("RemoveTexturesCommand"), m_asset(asset), m_slots(std::move(slots))
{
}

AtlasAsset::RemoveTexturesCommand::~RemoveTexturesCommand() = default;

bool AtlasAsset::RemoveTexturesCommand::execute()
{
    if (m_slots.empty())
        return false;
    QStringList files;
    for (std::size_t slot : m_slots) {
        const std::shared_ptr<AtlasTile> tile = m_asset->getTile(slot);
        if (!OZY_ASSERT(tile))
            continue;
        std::string path = tile->texturePath(AtlasType::AM);
        Ozy::FS::fileSystem()->resolveToAbsolutePath(path);
        files << QString::fromStdString(path);
        tile->setTexture(AtlasType::AM, {});
    }
    Ozy::CommitChangesScope::makeUndo<AddTexturesCommand>(m_asset, std::move(files));
    return true;
}
