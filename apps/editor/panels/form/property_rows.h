#pragma once

#include "property_row.h"

#include <host/signals/connection.h>
#include <host/undo/commit_changes_scope.h>

#include <QAbstractListModel>
#include <QSet>

namespace Ozy {
class ChangesController;
}

namespace editor {

/// What objects consist of as the rows of a form: a row a value, with the editor for its type and annotations; a
/// heading, which opens and closes, ahead of the values of an object or the elements of a collection; one row for all
/// methods.
///
/// Several objects are shown as one: what they have in common, "isMixed" where they differ. An edit reaches all of them
/// or none and is one step of the history, named for who is edited; so is a gesture, from `begin` to `end`, however
/// many edits it takes. Elements come and go within the bounds of their collection.
/// Roles: "path", which names a row while it shows; "label", "editor", "level", "tip", "unit", "value", "isMixed",
/// "isReadOnly"; of numbers "digits", "least", "most"; "choices" of enumerations, classes or files' "pattern"; "fields"
/// of vectors and methods; "isOpen", "canAdd", "canRemove" of headings and elements.
/// Signals: a change of a value is data changed; rows that come and go with other objects, elements and open headings
/// leave the others in place, after control has returned to the event loop.
/// Owns neither objects nor history. Thread: GUI.
class PropertyRows : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(bool isReadOnly READ isReadOnly NOTIFY readOnlyChanged)

public:
    explicit PropertyRows(Ozy::ChangesController& history, QObject* parent = nullptr);
    ~PropertyRows() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// What to show: the objects, and the one that they are shown as. `subject` names them in the history.
    void setObjects(std::vector<zarn::ReflectedObject> objects, const zarn::ReflectedObject& merged,
                    const QString& subject);
    /// Keeps a heading closed until it is opened by hand.
    void close(const QString& path) { m_closed.insert(path); }
    /// Follows no changes until `setObjects` is called again, as while many objects come and go.
    void pause() { m_connections.clear(); }
    /// Whether only switches can be turned.
    bool isReadOnly() const { return m_isReadOnly; }
    void setReadOnly(bool readOnly);

    /// Sets a value; `field` is that of a vector. False if it is refused.
    Q_INVOKABLE bool write(int row, const QVariant& value, int field = -1);
    /// The edits up to `end` are one step.
    Q_INVOKABLE void begin(int row);
    Q_INVOKABLE void end();
    Q_INVOKABLE void call(int row, int method);
    Q_INVOKABLE void toggle(int row);
    /// Adds an element of a class of the row's choices, or of the usual one.
    Q_INVOKABLE void add(int row, const QString& className = QString());
    Q_INVOKABLE void remove(int row);
    int find(const QString& path) const;

Q_SIGNALS:
    void readOnlyChanged();
    /// Follows each edit made here, also within a gesture.
    void edited();

private:
    void refreshLater();
    void refresh();
    void replaceRows(std::vector<PropertyRow>& rows);
    void watch();
    bool isWritable(const PropertyRow& row) const;
    std::string stepName(const PropertyRow& row, const char* verb = "") const;
    const PropertyRow* at(int row) const;

    Ozy::ChangesController& m_history;
    std::vector<zarn::ReflectedObject> m_objects;
    zarn::ReflectedObject m_merged;
    QString m_subject;
    QSet<QString> m_closed;
    PropertyRowBuilder::Selections m_selections;
    std::vector<PropertyRow> m_rows;
    std::vector<ryk::ScopedConnection> m_connections;
    std::unique_ptr<Ozy::CommitChangesScope> m_gesture;
    bool m_isReadOnly = false;
    bool m_isStale = false;
};

} // namespace editor
