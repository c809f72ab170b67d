#include <host/reflection/meta_object.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/object.h>
#include <host/reflection/object_data.h>
#include <host/variant/variant_converter.h>

#include <algorithm>

namespace zarn {

MetaObject::MetaObject(const std::type_info& type, std::string name, std::vector<BaseClass> bases)
    : m_type(type), m_name(std::move(name)), m_bases(std::move(bases))
{
}

MetaObject::~MetaObject() = default;

qelm::Variant MetaObject::createInstance() const
{
    return {};
}

MetaObject* MetaObject::findDerived(const qelm::Variant& name) const
{
    const auto text = qelm::VariantConverter::convertTo<std::string>(name);
    MetaObject* found = text ? MetaObjectManager::instance().findType(std::string_view(*text)) : nullptr;
    return found && found->isDerivedFrom(*this) ? found : nullptr;
}

void* MetaObject::objectPointer(const qelm::Variant& value) const
{
    const std::type_info* pointee = value.isVoid() ? nullptr : value.type()->pointee();
    return pointee ? cast(const_cast<void*>(value.pointee()), *pointee, m_type) : nullptr;
}

Annotations MetaObject::annotations(const qelm::Variant&) const
{
    return {};
}

std::shared_ptr<ObjectData> MetaObject::objectData(const ReflectedObject& object) const
{
    return object.data();
}

int MetaObject::indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const
{
    const std::size_t count = propertyCount(object);
    std::size_t remaining = 0;
    for (std::size_t index = 0; index < count; ++index) {
        if (property(object, index, &remaining)->key() == key)
            return static_cast<int>(index);
    }
    return -1;
}

std::shared_ptr<MetaProperty> MetaObject::property(const ReflectedObject&, std::size_t index, std::size_t* remaining) const
{
    *remaining = index;
    return nullptr;
}

int MetaObject::addProperty(const ReflectedObject&, const qelm::Variant&, const qelm::Variant&)
{
    return -1;
}

bool MetaObject::removeProperty(const ReflectedObject&, std::size_t)
{
    return false;
}

void MetaObject::propertyAboutToBeAdded(const ReflectedObject&, std::size_t, std::size_t) {}
void MetaObject::propertyAdded(const ReflectedObject&, std::size_t, std::size_t) {}
void MetaObject::propertyAboutToBeRemoved(const ReflectedObject&, std::size_t, std::size_t) {}
void MetaObject::propertyRemoved(const ReflectedObject&, std::size_t, std::size_t) {}

ryk::Connection MetaObject::connectObjectDeleted(const ReflectedObject&, std::function<void()>) const
{
    return {};
}

ryk::Connection MetaObject::connectStructureAboutToBeChanged(const ReflectedObject&, ObjectSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectStructureChanged(const ReflectedObject&, ObjectSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertiesAboutToBeReset(const ReflectedObject&, ObjectSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertiesReset(const ReflectedObject&, ObjectSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertyAboutToBeAdded(const ReflectedObject&, RangeSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertyAdded(const ReflectedObject&, RangeSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertyAboutToBeRemoved(const ReflectedObject&, RangeSlot) const
{
    return {};
}

ryk::Connection MetaObject::connectPropertyRemoved(const ReflectedObject&, RangeSlot) const
{
    return {};
}

void MetaObject::structureAboutToBeChanged(const ReflectedObject&) {}
void MetaObject::structureChanged(const ReflectedObject&) {}
void MetaObject::propertiesAboutToBeReset(const ReflectedObject&) {}
void MetaObject::propertiesReset(const ReflectedObject&) {}

std::shared_ptr<MetaProperty> MetaObject::findSelfProperty(const ReflectedObject&, const qelm::Variant&) const
{
    return nullptr;
}

bool MetaObject::isDerivedFrom(const MetaObject& base) const
{
    return this == &base || std::any_of(m_bases.begin(), m_bases.end(), [&base](const BaseClass& direct) {
               return direct.metaObject->isDerivedFrom(base);
           });
}

std::size_t MetaObject::propertyCount(const ReflectedObject& object) const
{
    // Whoever counts past the last property is told how far past.
    constexpr std::size_t past = std::size_t(-1) / 2;
    std::size_t remaining = 0;
    property(object, past, &remaining);
    return past - remaining;
}

std::shared_ptr<MetaProperty> MetaObject::findCommonProperty(Ozy::BasicStringRef<char>) const
{
    return nullptr;
}

MetaObject* MetaObject::mostDerived(void*) const
{
    return const_cast<MetaObject*>(this);
}

void* MetaObject::cast(void* object, const std::type_info& from, const std::type_info& to) const
{
    if (!object)
        return nullptr;
    const MetaObject* start = from == m_type ? this : MetaObjectManager::instance().findType(from);
    if (!start)
        return nullptr;
    if (void* base = start->upcast(object, to))
        return base;
    return start->downcast(object, to);
}

void* MetaObject::downcast(void*, const std::type_info&) const
{
    return nullptr;
}

void* MetaObject::upcast(void* object, const std::type_info& to) const
{
    if (to == m_type)
        return object;
    for (const BaseClass& base : m_bases) {
        if (void* found = base.metaObject->upcast(base.upcast(object), to))
            return found;
    }
    return nullptr;
}

const std::shared_ptr<ObjectData>& MetaObject::objectDataOf(const Object& object, const qelm::Variant& value,
                                                            MetaObject* metaObject)
{
    if (!object.m_data) {
        const MetaObjectManager& manager = MetaObjectManager::instance();
        if (!metaObject)
            metaObject = manager.findType(typeid(object));
        if (!metaObject && !value.isVoid() && value.type()->pointee())
            metaObject = manager.findType(*value.type()->pointee());
        if (metaObject)
            object.m_data = std::make_shared<ObjectData>(metaObject);
    }
    return object.m_data;
}

} // namespace zarn
