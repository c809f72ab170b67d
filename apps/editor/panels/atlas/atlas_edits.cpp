#include "atlas_document.h"

#include "panels/texts.h"

#include <host/engine/utilities.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/static_meta_object.h>
#include <host/resources/multi_file_system.h>
#include <host/undo/commit_changes_scope.h>

#include <QFileInfo>
#include <QUrl>

namespace editor {
namespace {

void setTexture(AtlasTile& tile, const std::string& path)
{
    zarn::reflect(tile).findPropertyByName("AM").set(path, {});
}

} // namespace

void AtlasDocument::addTextures()
{
    if (freeSlots() == 0) {
        setMessage(QStringLiteral("There is no free slot. Add a row or a column first."));
        return;
    }
    const Ozy::CommitChangesScope step("Add textures", &m_history);
    m_asset->addTextures();
}

void AtlasDocument::addFiles(const QList<QUrl>& files)
{
    if (!m_asset)
        return;
    QStringList refused;
    {
        const Ozy::CommitChangesScope step("Add textures", &m_history);
        std::size_t slot = 0;
        const auto nextFree = [this, &slot] {
            while (m_asset->getTile(slot) && !m_asset->getTile(slot)->texturePath(AtlasType::AM).empty())
                ++slot;
            return m_asset->getTile(slot);
        };
        for (const QUrl& url : files) {
            const QString file = url.toLocalFile();
            const QString name = QFileInfo(file).fileName();
            bool isResource = false;
            const std::string texture = Ozy::FS::fileSystem()->dissolveFilename(file.toStdString(), &isResource);
            const std::shared_ptr<AtlasTile> tile = nextFree();
            if (!name.endsWith(QLatin1String("_AM.png")))
                refused << QStringLiteral("%1 is no AM texture: its name does not end in _AM.png.").arg(name);
            else if (!isResource || !Ozy::Utilities::isFromCurrentBranch(file.toStdString()))
                refused << QStringLiteral("%1 does not belong to the project.").arg(file);
            else if (!tile)
                refused << QStringLiteral("There is no free slot for %1.").arg(name);
            else
                setTexture(*tile, texture);
        }
    }
    for (const QString& reason : refused)
        hear(reason);
}

void AtlasDocument::clear(const std::vector<std::size_t>& slots)
{
    const std::string name = "Clear " + counted(static_cast<int>(slots.size()), "slot", "slots").toStdString();
    const Ozy::CommitChangesScope step(name, &m_history);
    for (const std::size_t slot : slots) {
        if (const std::shared_ptr<AtlasTile> tile = m_asset->getTile(slot))
            setTexture(*tile, {});
    }
}

} // namespace editor
