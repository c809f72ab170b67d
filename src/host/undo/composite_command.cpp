#include <host/undo/composite_command.h>

#include <algorithm>

namespace Ozy::utils {

CompositeCommand::~CompositeCommand() = default;

void CompositeCommand::push_front(std::unique_ptr<Command> command)
{
    if (command)
        m_commands.push_back(std::move(command));
}

std::unique_ptr<Command> CompositeCommand::pop_front()
{
    if (m_commands.empty())
        return nullptr;
    std::unique_ptr<Command> front = std::move(m_commands.back());
    m_commands.pop_back();
    return front;
}

bool CompositeCommand::execute()
{
    return std::all_of(m_commands.rbegin(), m_commands.rend(), [](const auto& command) { return command->execute(); });
}

} // namespace Ozy::utils
