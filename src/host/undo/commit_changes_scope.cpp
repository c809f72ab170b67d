#include <host/undo/commit_changes_scope.h>

#include <host/base/debug.h>
#include <host/undo/changes_controller.h>

#include <exception>

namespace Ozy {
namespace {

CommandsTransaction* openTransaction = nullptr;

bool isDone(utils::Command& command)
{
    try {
        return command.execute();
    } catch (const std::exception& error) {
        DebugMessageHelper(Priority::refusal, "undo").message("%s\n", error.what());
    } catch (...) {
        DebugMessageHelper(Priority::refusal, "undo").message("Something that is no exception was thrown\n");
    }
    return false;
}

} // namespace

CommitChangesScope::CommitChangesScope(BasicOwningStringView<char> name, ChangesController* controller, CareFlag)
    : m_name(std::move(name)), m_controller(controller), m_exceptionsBefore(std::uncaught_exceptions())
{
    // Intended: an inner scope is part of the outer step, also if it names another history.
    if (openTransaction) {
        m_sizeBefore = openTransaction->composite ? openTransaction->composite->size() : 0;
        return;
    }
    if (controller)
        m_composite = std::make_unique<utils::CompositeCommand>(m_name);
    m_opened = CommandsTransaction{m_composite.get()};
    openTransaction = &*m_opened;
}

CommitChangesScope::~CommitChangesScope()
{
    if (isLeftByException())
        rollBack();
    if (!isOutermost())
        return;

    openTransaction = nullptr;
    if (m_composite && !m_composite->empty() && m_controller)
        m_controller->commit(std::move(m_composite));
}

CommandsTransaction* CommitChangesScope::transaction()
{
    return openTransaction;
}

bool CommitChangesScope::isLeftByException() const
{
    return std::uncaught_exceptions() > m_exceptionsBefore;
}

void CommitChangesScope::rollBack()
{
    if (openTransaction && openTransaction->composite)
        Detail::rollBack(*openTransaction->composite, m_sizeBefore);
}

Detail::TransactionExchange::TransactionExchange(CommandsTransaction* transaction)
    : m_before(std::exchange(openTransaction, transaction))
{
}

Detail::TransactionExchange::~TransactionExchange()
{
    openTransaction = m_before;
}

bool Detail::runAll(utils::CompositeCommand& composite, utils::CompositeCommand& opposites)
{
    CommandsTransaction transaction{&opposites};
    const TransactionExchange exchange(&transaction);
    while (std::unique_ptr<utils::Command> command = composite.pop_front()) {
        const std::size_t recordedBefore = opposites.size();
        if (!isDone(*command)) {
            rollBack(opposites, recordedBefore); // what it did before it gave up
            composite.push_front(std::move(command));
            return false;
        }
    }
    return true;
}

void Detail::rollBack(utils::CompositeCommand& composite, std::size_t rest, utils::CompositeCommand* opposites)
{
    CommandsTransaction transaction{opposites};
    const TransactionExchange exchange(&transaction);
    while (composite.size() > rest) {
        const std::unique_ptr<utils::Command> command = composite.pop_front();
        if (!isDone(*command))
            DebugMessageHelper(Priority::refusal, "undo")
                .message("An edit could not be rolled back: %s\n", command->name().c_str());
    }
}

} // namespace Ozy
