#pragma once

#include "modified_marks.h"
#include "panels/history/live_history_model.h"

#include <host/undo/changes_controller.h>

#include <QObject>
#include <QString>

namespace editor {

/// A level with its file and the history of its edits.
///
/// A file that cannot be read leaves the level as it was, one that cannot be written the file; `message` says why,
/// until the next success. The history's clean state is what is saved; objects are marked that differ from it.
/// `levelChanged` precedes the death of the level that was there before. Thread: GUI.
class LevelDocument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Ozy::ChangesController* history READ history CONSTANT)
    Q_PROPERTY(editor::LiveHistoryModel* steps READ steps CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY levelChanged)

public:
    /// With an empty path an empty level that cannot be saved.
    explicit LevelDocument(const QString& path);
    ~LevelDocument() override;

    /// The first level of a project that has a scene; empty if none has.
    static QString findScene(const QString& content);

    Level& level() const { return *m_level; }
    Ozy::ChangesController* history() const { return m_history.get(); }
    /// For those who must not keep it alive.
    std::weak_ptr<Ozy::ChangesController> sharedHistory() const { return m_history; }
    LiveHistoryModel* steps() { return &m_steps; }
    const QString& path() const { return m_path; }
    /// That of the level, which is its folder's.
    QString name() const;
    const QString& message() const { return m_message; }
    bool canSave() const { return m_isRead; }

    Q_INVOKABLE bool save();
    /// Reads the file again; edits that were not saved are lost, and so is the history.
    bool reload();
    /// The same, but where edits would be lost only when it is asked for again; the first time says so.
    Q_INVOKABLE void askToReload();
    Q_INVOKABLE void dismissMessage() { setMessage(QString()); }
    /// Says why something was not done, until the next message or until it is put away.
    void setMessage(const QString& message);

Q_SIGNALS:
    void levelChanged();
    void messageChanged();

private:
    QString m_path;
    std::shared_ptr<Level> m_level = std::make_shared<Level>();
    std::shared_ptr<Ozy::ChangesController> m_history = std::make_shared<Ozy::ChangesController>();
    LiveHistoryModel m_steps;
    ModifiedMarks m_marks;
    QString m_message;
    bool m_isRead = false;
    bool m_isAsking = false; // the message is the question
};

} // namespace editor
