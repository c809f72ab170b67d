#include <host/reflection/meta_object.h>

#include <host/reflection/object_data.h>
#include <host/reflection/reflected_object.h>

namespace zarn {
namespace {

// A copy: a slot may destroy the object, and with it the handle that was passed.
template <auto Signal, auto Observation = nullptr, class... Arguments>
void tell(const ReflectedObject& object, Arguments... arguments)
{
    const ReflectedObject told = object;
    if (!told.data())
        return;
    if constexpr (Observation != nullptr)
        told.data()->observers.tell(Observation, arguments...);
    ((*told.data()).*Signal)(told, arguments...);
}

template <auto Signal, class Slot>
ryk::Connection listen(const ReflectedObject& object, Slot slot)
{
    return object.data() ? ((*object.data()).*Signal).connect(std::move(slot)) : ryk::Connection();
}

} // namespace

using Notifyable = NotifyableMetaObject<1>;

void Notifyable::propertyAboutToBeAdded(const ReflectedObject& object, std::size_t first, std::size_t count)
{
    tell<&ObjectData::propertyAboutToBeAdded>(object, first, count);
}

void Notifyable::propertyAdded(const ReflectedObject& object, std::size_t first, std::size_t count)
{
    tell<&ObjectData::propertyAdded, &ObjectObserver::propertyAdded>(object, first, count);
}

void Notifyable::propertyAboutToBeRemoved(const ReflectedObject& object, std::size_t first, std::size_t count)
{
    tell<&ObjectData::propertyAboutToBeRemoved, &ObjectObserver::propertyAboutToBeRemoved>(object, first, count);
}

void Notifyable::propertyRemoved(const ReflectedObject& object, std::size_t first, std::size_t count)
{
    tell<&ObjectData::propertyRemoved, &ObjectObserver::propertyRemoved>(object, first, count);
}

ryk::Connection Notifyable::connectObjectDeleted(const ReflectedObject& object, std::function<void()> slot) const
{
    return listen<&ObjectData::deleted>(object, std::move(slot));
}

ryk::Connection Notifyable::connectStructureAboutToBeChanged(const ReflectedObject& object, ObjectSlot slot) const
{
    return listen<&ObjectData::structureAboutToBeChanged>(object, std::move(slot));
}

ryk::Connection Notifyable::connectStructureChanged(const ReflectedObject& object, ObjectSlot slot) const
{
    return listen<&ObjectData::structureChanged>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertiesAboutToBeReset(const ReflectedObject& object, ObjectSlot slot) const
{
    return listen<&ObjectData::propertiesAboutToBeReset>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertiesReset(const ReflectedObject& object, ObjectSlot slot) const
{
    return listen<&ObjectData::propertiesReset>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertyAboutToBeAdded(const ReflectedObject& object, RangeSlot slot) const
{
    return listen<&ObjectData::propertyAboutToBeAdded>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertyAdded(const ReflectedObject& object, RangeSlot slot) const
{
    return listen<&ObjectData::propertyAdded>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertyAboutToBeRemoved(const ReflectedObject& object, RangeSlot slot) const
{
    return listen<&ObjectData::propertyAboutToBeRemoved>(object, std::move(slot));
}

ryk::Connection Notifyable::connectPropertyRemoved(const ReflectedObject& object, RangeSlot slot) const
{
    return listen<&ObjectData::propertyRemoved>(object, std::move(slot));
}

void Notifyable::structureAboutToBeChanged(const ReflectedObject& object)
{
    tell<&ObjectData::structureAboutToBeChanged>(object);
}

void Notifyable::structureChanged(const ReflectedObject& object)
{
    tell<&ObjectData::structureChanged>(object);
}

void Notifyable::propertiesAboutToBeReset(const ReflectedObject& object)
{
    tell<&ObjectData::propertiesAboutToBeReset, &ObjectObserver::propertiesAboutToBeReset>(object);
}

void Notifyable::propertiesReset(const ReflectedObject& object)
{
    tell<&ObjectData::propertiesReset, &ObjectObserver::propertiesReset>(object);
}

} // namespace zarn
