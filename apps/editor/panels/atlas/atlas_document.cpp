#include "atlas_document.h"

#include <datamodels/atlas/atlas_problems.h>
#include <datamodels/host_service.h>
#include <host/resources/utils.h>

#include <QDir>
#include <QDirIterator>

#include <algorithm>

namespace editor {
namespace {

constexpr int mostReasons = 3;

} // namespace

AtlasDocument::AtlasDocument(const QString& content)
    : m_content(content), m_steps(m_history), m_watch([this](const QString& refusal) { hear(refusal); })
{
    connect(&m_history, &Ozy::ChangesController::indexChanged, this, &AtlasDocument::followSteps);
    if (auto* monitor = datamodels::hostService<IFileSystemMonitor>()) {
        m_disk = monitor->createHandle(this);
        m_disk->watch(m_content.toStdString());
    }
    m_path = atlases().value(0);
    if (!m_path.isEmpty())
        load();
}

AtlasDocument::~AtlasDocument()
{
    m_context.setData({}); // the view goes before the context
}

QStringList AtlasDocument::atlases() const
{
    QStringList files;
    const QDir content(m_content);
    for (QDirIterator it(m_content, {"*_AM.atlas"}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << content.relativeFilePath(it.next());
    files.sort();
    return files;
}

int AtlasDocument::freeSlots() const
{
    if (!m_asset)
        return 0;
    const auto& tiles = *m_asset->data().tiles;
    return static_cast<int>(std::count_if(tiles.begin(), tiles.end(), [](const std::shared_ptr<AtlasTile>& tile) {
        return tile->texturePath(AtlasType::AM).empty();
    }));
}

void AtlasDocument::open(const QString& path)
{
    if (!m_history.isClean() && m_asked != path) {
        setMessage(QStringLiteral("%1 has edits that were not saved. Once more to lose them.").arg(m_path));
        m_asked = path;
        return;
    }
    if (path.isEmpty())
        return;
    m_path = path;
    load();
}

bool AtlasDocument::save()
{
    if (!m_asset || m_asset->totalTilesCount() == 0 || !m_asset->save())
        return false; // the log has told why
    m_saved = contentOf(*m_asset);
    m_history.markClean();
    setMessage(QString());
    return true;
}

int AtlasDocument::pictureOf(int slot, int type) const
{
    const std::shared_ptr<AtlasTile> tile = m_asset ? m_asset->getTile(static_cast<std::size_t>(slot)) : nullptr;
    if (!tile || type < 0 || type >= static_cast<int>(tile->textures().size()))
        return -1;
    const auto isShown = [](const std::string& texture) { return !texture.empty() && Ozy::FS::Utils::fileExists(texture); };
    const auto begin = tile->textures().begin();
    return isShown(begin[type]) ? static_cast<int>(std::count_if(begin, begin + type, isShown)) : -1;
}

AtlasDocument::Content AtlasDocument::contentOf(const AtlasAsset& asset)
{
    Content content{asset.data().tilesCount.x, asset.data().tilesCount.y, {}};
    for (const std::shared_ptr<AtlasTile>& tile : *asset.data().tiles)
        content.textures.push_back(tile->textures());
    return content;
}

std::string AtlasDocument::file() const
{
    return QDir(m_content).filePath(m_path).toStdString();
}

void AtlasDocument::load()
{
    m_gridConnection.disconnect();
    m_history.clear();
    setMessage(QString());
    const std::unique_ptr<AtlasAsset> before = std::exchange(m_asset, std::make_unique<AtlasAsset>(file(), &m_history));
    m_saved = contentOf(*m_asset);
    m_gridConnection = m_asset->connectTilesCountChanged([this] { later(m_isGridQueued, &AtlasDocument::followGrid); });
    publish();
    findProblems();
    Q_EMIT atlasChanged();
    Q_EMIT gridChanged();
}

/// The asset itself hears only of files that are written in place; most are replaced.
void AtlasDocument::onResourceModified(std::string_view, std::string_view name, unsigned)
{
    if (name.ends_with(AtlasAsset::atlasExtension) || name.ends_with(".png"))
        later(m_isDiskQueued, &AtlasDocument::followDisk);
}

void AtlasDocument::publish()
{
    const AtlasAsset::Descriptor& data = m_asset->data();
    m_context.setData({data.atlasSize, data.tilesCount, {data.tiles->begin(), data.tiles->end()}, &m_view});
}

/// Changes come as many notifications, in the middle of an edit or of a save; they are followed once, afterwards.
void AtlasDocument::later(bool& isQueued, void (AtlasDocument::*call)())
{
    if (std::exchange(isQueued, true))
        return;
    const auto run = [this, &isQueued, call] {
        isQueued = false;
        (this->*call)();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

void AtlasDocument::followGrid()
{
    publish();
    findProblems();
    Q_EMIT gridChanged();
}

void AtlasDocument::followDisk()
{
    if (!m_asset)
        return;
    m_view.tell();
    findProblems();
    const AtlasAsset onDisk(file(), nullptr);
    if (contentOf(onDisk) == m_saved)
        return; // a texture was painted, or it was our own save
    if (onDisk.totalTilesCount() == 0)
        return; // being written, or damaged, of which the log tells
    if (m_history.isClean())
        load();
    else
        setMessage(QStringLiteral("%1 has changed on the disk. F5, twice, reads it again and loses your edits.").arg(m_path));
}

void AtlasDocument::followSteps()
{
    m_asked.clear();
    findProblems();
}

void AtlasDocument::findProblems()
{
    if (!m_asset)
        return;
    QStringList problems;
    for (const AtlasProblem& problem : findAtlasProblems(*m_asset)) {
        const QString text = QString::fromStdString(problem.text);
        problems << (problem.slot < 0 ? text : QStringLiteral("Slot %1: %2").arg(problem.slot).arg(text));
    }
    if (m_problems == problems)
        return;
    m_problems = problems;
    Q_EMIT problemsChanged();
}

void AtlasDocument::hear(const QString& refusal)
{
    if (m_path.isEmpty())
        return;
    m_refusals << refusal;
    later(m_areRefusalsQueued, &AtlasDocument::tellRefusals);
}

void AtlasDocument::tellRefusals()
{
    QStringList reasons = std::exchange(m_refusals, {});
    reasons.removeDuplicates();
    const int others = reasons.size() - mostReasons;
    if (others > 0)
        reasons = reasons.mid(0, mostReasons) << QStringLiteral("and %1 more").arg(others);
    setMessage(reasons.join(QLatin1Char('\n')));
}

void AtlasDocument::setMessage(const QString& message)
{
    m_asked.clear();
    if (m_message == message)
        return;
    m_message = message;
    Q_EMIT messageChanged();
}

} // namespace editor
