#include <host/undo/changes_controller.h>

#include <host/base/debug.h>
#include <host/undo/commit_changes_scope.h>

#include <QScopedValueRollback>

namespace Ozy {

/// A step of the history: what has to run to undo it or, once undone, to redo it. The stack only keeps the order; the
/// controller replays before it lets the stack move on, since a command of Qt's cannot refuse.
class ChangesController::Step : public QUndoCommand
{
public:
    explicit Step(std::unique_ptr<utils::CompositeCommand> inverses) : m_inverses(std::move(inverses))
    {
        setText(QString::fromStdString(m_inverses->name()));
    }

    utils::CompositeCommand& inverses() { return *m_inverses; }
    void setInverses(std::unique_ptr<utils::CompositeCommand> inverses) { m_inverses = std::move(inverses); }

private:
    std::unique_ptr<utils::CompositeCommand> m_inverses;
};

ChangesController::ChangesController(QObject* parent) : QObject(parent)
{
    connect(&m_history, &QUndoStack::indexChanged, this, &ChangesController::tellCount);
    connect(&m_history, &QUndoStack::indexChanged, this, &ChangesController::indexChanged);
    connect(&m_history, &QUndoStack::canUndoChanged, this, &ChangesController::canUndoChanged);
    connect(&m_history, &QUndoStack::canRedoChanged, this, &ChangesController::canRedoChanged);
    connect(&m_history, &QUndoStack::cleanChanged, this, &ChangesController::cleanChanged);
}

ChangesController::~ChangesController()
{
    m_history.disconnect(this);
}

std::size_t ChangesController::historySize() const
{
    return static_cast<std::size_t>(m_history.count());
}

BasicStringRef<char> ChangesController::barrierName(std::size_t step) const
{
    Step* found = step < historySize() ? stepAt(static_cast<int>(step)) : nullptr;
    return found ? BasicStringRef<char>(found->inverses().name()) : BasicStringRef<char>();
}

bool ChangesController::undo()
{
    if (!isFree("undo") || !canUndo() || !replay(*stepAt(index() - 1)))
        return false;
    m_history.undo();
    return true;
}

bool ChangesController::redo()
{
    if (!isFree("redo") || !canRedo() || !replay(*stepAt(index())))
        return false;
    m_history.redo();
    return true;
}

bool ChangesController::jumpTo(int index)
{
    if (index < 0 || index > count())
        return false;
    while (m_history.index() > index) {
        if (!undo())
            return false;
    }
    while (m_history.index() < index) {
        if (!redo())
            return false;
    }
    return true;
}

void ChangesController::markClean()
{
    m_history.setClean();
}

bool ChangesController::clear()
{
    if (!isFree("clear"))
        return false;
    m_history.clear();
    m_history.setClean();
    tellCount();
    return true;
}

bool ChangesController::setLimit(int steps)
{
    if (m_history.count() > 0 || steps < 0)
        return false;
    m_history.setUndoLimit(steps);
    return true;
}

void ChangesController::commit(std::unique_ptr<utils::CompositeCommand> inverses)
{
    m_history.push(new Step(std::move(inverses)));
}

ChangesController::Step* ChangesController::stepAt(int index) const
{
    return const_cast<Step*>(static_cast<const Step*>(m_history.command(index)));
}

bool ChangesController::isFree(const char* wanted) const
{
    if (!m_isReplaying && !CommitChangesScope::transaction())
        return true;
    DebugMessageHelper(Priority::refusal, "undo").message("Cannot %s inside of an edit\n", wanted);
    return false;
}

bool ChangesController::replay(Step& step)
{
    const QScopedValueRollback replaying(m_isReplaying, true);
    auto opposite = std::make_unique<utils::CompositeCommand>(step.inverses().name());
    // Each command goes as soon as it has run: its opposite takes its place in memory as well.
    if (Detail::runAll(step.inverses(), *opposite)) {
        step.setInverses(std::move(opposite));
        return true;
    }
    DebugMessageHelper(Priority::refusal, "undo").message("A step was refused: %s\n", step.inverses().name().c_str());
    // What was run is recorded again in front of what is left, so that the step is whole.
    Detail::rollBack(*opposite, 0, &step.inverses());
    return false;
}

void ChangesController::tellCount()
{
    if (std::exchange(m_toldCount, count()) != count())
        Q_EMIT countChanged();
}

} // namespace Ozy
