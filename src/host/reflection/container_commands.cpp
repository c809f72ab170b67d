#include <host/reflection/container_commands.h>

namespace zarn {

UndoContainerBase::UndoContainerBase(Ozy::BasicOwningStringView<char> name, const ReflectedObject& container,
                                     qelm::Variant key)
    : Command(std::move(name)), m_container(container), m_key(std::move(key))
{
}

UndoContainerBase::~UndoContainerBase() = default;

bool RemoveFromContainer::execute()
{
    const Ozy::StackTracker::Scope entry("zarn::RemoveFromContainer::execute");
    if (m_container.object().removeProperty(m_key))
        return true;
    Ozy::DebugMessageHelper(Ozy::Priority::refusal, "").message("Failed to remove from a container");
    return false;
}

} // namespace zarn
