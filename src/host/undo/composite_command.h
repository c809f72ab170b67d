#pragma once

#include <host/undo/command.h>

#include <vector>

namespace Ozy::utils {

/// Commands that run as one, the one pushed last first: recorded inverses undo an edit in the reverse of its order.
class DATAMODELS_HOST_API CompositeCommand : public Command
{
public:
    using Command::Command;
    ~CompositeCommand() override;

    /// Takes a command over, to run before those that there are. Null is ignored. Constant time.
    void push_front(std::unique_ptr<Command> command);
    /// Takes the command out that would run first; null when empty.
    std::unique_ptr<Command> pop_front();

    bool empty() const { return m_commands.empty(); }
    std::size_t size() const { return m_commands.size(); }

    /// Runs all, front to back, up to the first that refuses, which refuses the whole. What ran before stays done: who
    /// wants all or nothing runs it inside a transaction.
    bool execute() override;

private:
    std::vector<std::unique_ptr<Command>> m_commands; // the front is at the end
};

} // namespace Ozy::utils
