#include <host/undo/command.h>

namespace Ozy::utils {

Command::Command(BasicOwningStringView<char> name, ryk::Flags<Flag> flags) : m_name(std::move(name)), m_flags(flags) {}

Command::~Command() = default;

std::unique_ptr<Command> Command::clone()
{
    return nullptr;
}

bool Command::merge(Command&)
{
    return false;
}

} // namespace Ozy::utils
