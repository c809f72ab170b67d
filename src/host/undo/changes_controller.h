#pragma once

#include <host/base/host_export.h>
#include <host/undo/undo_redo.h>

#include <QObject>
#include <QUndoStack>

#include <memory>

namespace Ozy {

namespace utils {
class CompositeCommand;
}

/// Owns the undo history of one document; several may live side by side.
///
/// A step is committed by a `CommitChangesScope`. Undo runs its inverses inside a transaction; what these record in turn
/// is the redo, so there is no second description of an edit. A step that refuses, or throws, is rolled back, logged and
/// reported as false; the history stays where it was, and the step can be tried again.
///
/// Properties tell a panel where the history stands; each change sends its signal after the edits are done. `index` is
/// the number of steps that are in force.
/// Refused, with a message: undo and redo while a scope is open or another replay runs.
/// Thread: GUI only.
class DATAMODELS_HOST_API ChangesController : public QObject, public UndoRedo
{
    Q_OBJECT
    Q_PROPERTY(int index READ index NOTIFY indexChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged)
    Q_PROPERTY(bool clean READ isClean NOTIFY cleanChanged)

public:
    explicit ChangesController(QObject* parent = nullptr);
    ~ChangesController() override;

    std::size_t historySize() const override;
    BasicStringRef<char> barrierName(std::size_t step) const override;

    int index() const { return m_history.index(); }
    int count() const { return m_history.count(); }
    bool canUndo() const { return m_history.canUndo(); }
    bool canRedo() const { return m_history.canRedo(); }
    /// Whether the document is as it was when `markClean` was called last, or at the start.
    bool isClean() const { return m_history.isClean(); }

    Q_INVOKABLE bool undo();
    Q_INVOKABLE bool redo();
    /// Undoes or redoes until `index` steps are in force; stops at the first that refuses, with false. An index outside
    /// 0 to `count` is refused.
    Q_INVOKABLE bool jumpTo(int index);
    /// The present state is what is saved.
    Q_INVOKABLE void markClean();
    /// Forgets all steps; the document is clean then. Refused while a scope is open or a replay runs.
    Q_INVOKABLE bool clear();
    /// How many steps are kept, 0 for all; the oldest go first. Refused unless the history is empty.
    bool setLimit(int steps);

Q_SIGNALS:
    void indexChanged();
    void countChanged();
    void canUndoChanged();
    void canRedoChanged();
    void cleanChanged();

private:
    friend class CommitChangesScope;
    class Step;

    void commit(std::unique_ptr<utils::CompositeCommand> inverses);
    Step* stepAt(int index) const;
    bool isFree(const char* wanted) const;
    bool replay(Step& step);
    void tellCount();

    QUndoStack m_history;
    int m_toldCount = 0;
    bool m_isReplaying = false;
};

} // namespace Ozy
