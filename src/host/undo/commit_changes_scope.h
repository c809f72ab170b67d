#pragma once

#include <host/base/stack_tracker.h>
#include <host/undo/composite_command.h>

#include <QPointer>

#include <optional>

namespace Ozy {

class ChangesController;

/// What a scope has open.
struct CommandsTransaction
{
    /// Collects the inverses of the edits; null where nothing is recorded.
    utils::CompositeCommand* composite = nullptr;
};

/// Makes the edits of a block one step of a document's history.
///
/// Whoever edits inside the block pushes the opposite command to the front of the open transaction (`makeUndo`). The
/// destructor stores them as a step of the controller's history; a scope without edits stores nothing. Scopes nest: an
/// inner one joins the outermost, whatever its controller. Without a controller the outermost records nothing.
/// A scope that an exception leaves undoes what was edited inside it, an inner scope its own part.
/// Thread: GUI only, one chain of scopes in the process.
class DATAMODELS_HOST_API CommitChangesScope
{
public:
    /// What else the host is to take care of; this one knows only 0.
    enum class CareFlag
    {
        None,
    };

    CommitChangesScope(BasicOwningStringView<char> name, ChangesController* controller,
                       CareFlag care = CareFlag::None);
    ~CommitChangesScope();
    Q_DISABLE_COPY_MOVE(CommitChangesScope)

    /// The open transaction, or null.
    static CommandsTransaction* transaction();

    /// Runs a new `CommandType(arguments...)` once. It opens no scope. The result is that of `execute`.
    template <class CommandType, class... Arguments>
    static bool makeCommand(Arguments&&... arguments)
    {
        return CommandType(std::forward<Arguments>(arguments)...).execute();
    }

    /// Records a new `CommandType(arguments...)` as an inverse in the open transaction. False, with nothing made, where
    /// nothing is recorded.
    template <class CommandType, class... Arguments>
    static bool makeUndo(Arguments&&... arguments)
    {
        const StackTracker::Scope entry("Ozy::CommitChangesScope::makeUndo");
        CommandsTransaction* open = transaction();
        if (!open || !open->composite)
            return false;
        open->composite->push_front(std::make_unique<CommandType>(std::forward<Arguments>(arguments)...));
        return true;
    }

private:
    bool isOutermost() const { return m_opened.has_value(); }
    bool isLeftByException() const;
    void rollBack();

    BasicOwningStringView<char> m_name;
    QPointer<ChangesController> m_controller;
    std::unique_ptr<utils::CompositeCommand> m_composite;
    std::optional<CommandsTransaction> m_opened; // by the outermost scope only
    std::size_t m_sizeBefore = 0;
    int m_exceptionsBefore;
};

namespace Detail {

/// Puts another transaction in the place of the open one for the length of a block.
class DATAMODELS_HOST_API TransactionExchange
{
public:
    explicit TransactionExchange(CommandsTransaction* transaction);
    ~TransactionExchange();
    Q_DISABLE_COPY_MOVE(TransactionExchange)

private:
    CommandsTransaction* m_before;
};

/// Takes commands off the front of a composite and runs them until it is empty. One that refuses or throws ends it: it is
/// left, and what it did is undone.
DATAMODELS_HOST_API bool runAll(utils::CompositeCommand& composite, utils::CompositeCommand& opposites);

/// The same until only `rest` are left; those that refuse are logged. `opposites` may be null, to record nothing.
DATAMODELS_HOST_API void rollBack(utils::CompositeCommand& composite, std::size_t rest,
                                  utils::CompositeCommand* opposites = nullptr);

} // namespace Detail
} // namespace Ozy
