#pragma once

#include <host/base/debug.h>
#include <host/base/host_export.h>
#include <host/base/stack_tracker.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/persistent_object.h>
#include <host/undo/command.h>
#include <host/variant/variant.h>

#include <utility>

namespace zarn {

/// What the commands that undo the changes of a collection keep: the collection, and the index of the element as a `size_t`,
/// or the key of a generic object's property.
class DATAMODELS_HOST_API UndoContainerBase : public Ozy::utils::Command
{
public:
    UndoContainerBase(Ozy::BasicOwningStringView<char> name, const ReflectedObject& container, qelm::Variant key);
    ~UndoContainerBase() override;

protected:
    PersistentObject m_container;
    qelm::Variant m_key;
};

/// Undoes an insertion.
class DATAMODELS_HOST_API RemoveFromContainer : public UndoContainerBase
{
public:
    using UndoContainerBase::UndoContainerBase;

    bool execute() override;
};

/// Undoes a removal: puts the element back where it was.
template <class T>
class InsertIntoContainer : public UndoContainerBase
{
public:
    InsertIntoContainer(Ozy::BasicOwningStringView<char> name, const ReflectedObject& container, std::size_t index, T element)
        : UndoContainerBase(std::move(name), container, index), m_element(std::move(element))
    {
    }

    bool execute() override
    {
        const Ozy::StackTracker::Scope entry("zarn::InsertIntoContainer::execute");
        const qelm::Variant element(m_element);
        if (m_container.object().addProperty(m_key, element).isValid())
            return true;

        Ozy::DebugMessageHelper log(Ozy::Priority::refusal, "");
        if (!element.as<T>())
            log.message("InsertIntoContainer::execute : cast error! Command value is missed!");
        log.message("Failed to insert into a container");
        return false;
    }

private:
    T m_element;
};

} // namespace zarn
