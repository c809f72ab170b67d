#include "level_document.h"

#include "level_file.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace editor {

LevelDocument::LevelDocument(const QString& path) : m_path(path), m_steps(*m_history)
{
    connect(m_history.get(), &Ozy::ChangesController::indexChanged, this, [this] { m_marks.update(*m_level); });
    if (!m_path.isEmpty())
        reload();
}

LevelDocument::~LevelDocument() = default;

QString LevelDocument::findScene(const QString& content)
{
    const QDir levels(content + QStringLiteral("/levels"));
    for (const QString& level : levels.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString scene = levels.filePath(level + QStringLiteral("/scene.json"));
        if (QFileInfo::exists(scene))
            return scene;
    }
    return {};
}

QString LevelDocument::name() const
{
    return m_path.isEmpty() ? QString() : QFileInfo(m_path).dir().dirName();
}

bool LevelDocument::save()
{
    if (!m_isRead)
        return false;
    const QString error = LevelFile::write(m_path, *m_level);
    setMessage(error.isEmpty() ? QString() : QStringLiteral("%1 was not saved. %2").arg(m_path, error));
    if (!error.isEmpty())
        return false;
    m_marks.remember(*m_level);
    m_history->markClean();
    return true;
}

bool LevelDocument::reload()
{
    const LevelFile file = LevelFile::read(m_path);
    if (!file.level) {
        setMessage(QStringLiteral("%1 was not read. %2").arg(m_path, file.error));
        return false;
    }
    m_history->clear();
    const std::shared_ptr<Level> before = std::exchange(m_level, file.level);
    m_marks.remember(*m_level);
    m_isRead = true;
    Q_EMIT levelChanged();
    setMessage(QString());
    return true;
}

void LevelDocument::askToReload()
{
    if (m_history->isClean() || m_isAsking) {
        reload();
        return;
    }
    setMessage(QStringLiteral("%1 has edits that were not saved. Reload once more to lose them.").arg(name()));
    m_isAsking = true;
}

void LevelDocument::setMessage(const QString& message)
{
    m_isAsking = false;
    if (m_message == message)
        return;
    m_message = message;
    Q_EMIT messageChanged();
}

} // namespace editor
