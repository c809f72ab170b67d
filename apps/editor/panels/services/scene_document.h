#pragma once

#include "panels/history/live_history_model.h"
#include "scene_list_model.h"

#include <host/undo/changes_controller.h>

#include <QPersistentModelIndex>

#include <memory>

namespace qelm {
class QtScriptObject;
}

namespace editor {

/// The sample scene as a document: its objects, which of them is current, and the history of its edits.
///
/// Whatever `write`, `call`, `add` and `removeCurrent` change is one step, named for the one who reads the
/// history. An edit that is refused, or changes nothing, makes no step. When the current object goes, the one
/// above it becomes current. Thread: GUI.
class SceneDocument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(editor::SceneListModel* nodes READ nodes CONSTANT)
    Q_PROPERTY(Ozy::ChangesController* history READ history CONSTANT)
    Q_PROPERTY(editor::LiveHistoryModel* steps READ steps CONSTANT)
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    Q_PROPERTY(QObject* subject READ subject NOTIFY subjectChanged)
    Q_PROPERTY(bool canRemove READ canRemove NOTIFY currentRowChanged)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)

public:
    SceneDocument();
    ~SceneDocument() override;

    /// The scene that all panels of the process share; made for the first that asks, and gone with the last.
    static std::shared_ptr<SceneDocument> shared();

    SceneListModel* nodes() { return &m_nodes; }
    Ozy::ChangesController* history() { return &m_history; }
    LiveHistoryModel* steps() { return &m_steps; }

    int currentRow() const { return m_current.row(); }
    /// A row out of range changes nothing.
    void setCurrentRow(int row);
    /// The current object as a script object; its members are bound to by their names.
    QObject* subject() const;
    /// The scene itself cannot be removed.
    bool canRemove() const { return currentRow() > 0; }
    QString status() const;

    /// Sets a property of the subject, or of an object that is a value of it. False if it is refused.
    Q_INVOKABLE bool write(QObject* target, const QString& property, const QVariant& value);
    /// Calls a method of the subject.
    Q_INVOKABLE void call(const QString& method);
    /// Appends a new object ("barge", "lamp", "gate") to the children of the current one, and makes it
    /// current. False for anything else.
    Q_INVOKABLE bool add(const QString& icon);
    Q_INVOKABLE void removeCurrent();
    /// The scene has no file: the present state counts as saved.
    Q_INVOKABLE void save() { m_history.markClean(); }

Q_SIGNALS:
    void currentRowChanged();
    void subjectChanged();
    void statusChanged();

private:
    void followInsertion();
    void followRemoval(int first);
    void showSubject();
    std::string stepName(const zarn::BoundProperty& member) const;

    std::shared_ptr<SceneNode> m_scene;
    Ozy::ChangesController m_history;
    LiveHistoryModel m_steps;
    SceneListModel m_nodes;
    QPersistentModelIndex m_current;
    std::unique_ptr<qelm::QtScriptObject> m_subject;
};

} // namespace editor
