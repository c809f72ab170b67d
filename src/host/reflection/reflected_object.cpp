#include <host/reflection/reflected_object.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/object_data.h>

namespace zarn {

ReflectedObject::ReflectedObject(const BoundProperty& property)
{
    read(property);
    m_reference = std::make_shared<BoundProperty>(property);
}

void ReflectedObject::init(qelm::Variant value, const std::shared_ptr<ObjectData>& data, const BoundProperty* reference)
{
    m_value = std::move(value);
    m_data = data;
    m_metaObject = data ? data->metaObject() : nullptr;
    m_address = m_metaObject ? m_metaObject->objectPointer(m_value) : nullptr;
    m_reference = reference ? std::make_shared<BoundProperty>(*reference) : nullptr;
}

void ReflectedObject::init(qelm::Variant value, const TypeInfo& type, const BoundProperty* reference)
{
    m_value = std::move(value);
    m_metaObject = MetaObjectManager::instance().findType(type.object);
    m_address = m_metaObject ? m_metaObject->objectPointer(m_value) : nullptr;
    m_data = m_address ? m_metaObject->objectData(*this) : nullptr;
    m_reference = reference ? std::make_shared<BoundProperty>(*reference) : nullptr;
}

void ReflectedObject::read(const BoundProperty& property)
{
    if (property.isValid() && !property.isMethod())
        initFromValue(property.get());
}

void ReflectedObject::initFromValue(const qelm::Variant& value)
{
    if (const auto* wrapped = value.as<ReflectedObject>()) {
        *this = *wrapped;
        return;
    }
    const std::type_info* pointee = value.isVoid() ? nullptr : value.type()->pointee();
    MetaObject* metaObject = pointee ? MetaObjectManager::instance().findType(*pointee) : nullptr;
    if (!metaObject)
        return;
    m_value = value;
    m_metaObject = metaObject->mostDerived(const_cast<void*>(value.pointee()));
    m_address = m_metaObject->objectPointer(m_value);
    m_data = m_address ? m_metaObject->objectData(*this) : nullptr;
}

ReflectedObject ReflectedObject::reread() const
{
    ReflectedObject now;
    if (m_reference) {
        now.read(*m_reference);
        now.m_reference = m_reference;
    }
    return now;
}

std::size_t ReflectedObject::hash() const
{
    return isValid() ? std::hash<const void*>()(m_address) : 0;
}

bool ReflectedObject::operator==(const ReflectedObject& other) const
{
    if (!isValid() || !other.isValid())
        return isValid() == other.isValid();
    return m_address == other.m_address && m_metaObject == other.m_metaObject;
}

bool ReflectedObject::isStateless() const
{
    const Annotations ofClass = annotations();
    for (const qelm::Variant& annotation : ofClass.equal_range<Meta::Stateless>()) {
        if (annotation.value<Meta::Stateless>()(*this) != 0)
            return true;
    }
    return false;
}

Annotations ReflectedObject::annotations() const
{
    return isValid() ? m_metaObject->annotations({}) : Annotations();
}

std::size_t ReflectedObject::propertyCount() const
{
    return isValid() ? m_metaObject->propertyCount(*this) : 0;
}

BoundProperty ReflectedObject::propertyAt(std::size_t index) const
{
    if (!isValid())
        return {};
    std::size_t remaining = 0;
    return {*this, m_metaObject->property(*this, index, &remaining)};
}

BoundProperty ReflectedObject::findPropertyByName(Ozy::BasicStringRef<char> name) const
{
    if (!isValid())
        return {};
    if (std::shared_ptr<MetaProperty> own = m_metaObject->findCommonProperty(name))
        return {*this, std::move(own)};
    if (!m_metaObject->hasOnlyCommonProperties()) {
        const int index = m_metaObject->indexOfProperty(*this, qelm::Variant(std::string(name)));
        if (index >= 0)
            return propertyAt(static_cast<std::size_t>(index));
    }
    const std::size_t dot = name.find('.');
    if (dot == name.npos)
        return {};
    return ReflectedObject(findPropertyByName(name.substr(0, dot))).findPropertyByName(name.substr(dot + 1));
}

BoundProperty ReflectedObject::addProperty(const qelm::Variant& key, const qelm::Variant& value) const
{
    const int index = isValid() ? m_metaObject->addProperty(*this, key, value) : -1;
    return index < 0 ? BoundProperty() : propertyAt(static_cast<std::size_t>(index));
}

bool ReflectedObject::removeProperty(const qelm::Variant& key) const
{
    const int index = isValid() ? m_metaObject->indexOfProperty(*this, key) : -1;
    return index >= 0 && m_metaObject->removeProperty(*this, static_cast<std::size_t>(index));
}

bool ReflectedObject::removePropertyAt(std::size_t index) const
{
    return isValid() && m_metaObject->removeProperty(*this, index);
}

const BoundProperty& ReflectedObject::reference() const&
{
    static const BoundProperty none;
    return m_reference ? *m_reference : none;
}

BoundProperty ReflectedObject::reference() const&&
{
    return m_reference ? *m_reference : BoundProperty();
}

ryk::Connection ReflectedObject::connectPropertiesAboutToBeReset(ObjectSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertiesAboutToBeReset(*this, std::move(slot)) : ryk::Connection();
}

ryk::Connection ReflectedObject::connectPropertiesReset(ObjectSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertiesReset(*this, std::move(slot)) : ryk::Connection();
}

ryk::Connection ReflectedObject::connectPropertyAboutToBeAdded(RangeSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertyAboutToBeAdded(*this, std::move(slot)) : ryk::Connection();
}

ryk::Connection ReflectedObject::connectPropertyAdded(RangeSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertyAdded(*this, std::move(slot)) : ryk::Connection();
}

ryk::Connection ReflectedObject::connectPropertyAboutToBeRemoved(RangeSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertyAboutToBeRemoved(*this, std::move(slot)) : ryk::Connection();
}

ryk::Connection ReflectedObject::connectPropertyRemoved(RangeSlot slot) const
{
    return isValid() ? m_metaObject->connectPropertyRemoved(*this, std::move(slot)) : ryk::Connection();
}

} // namespace zarn
