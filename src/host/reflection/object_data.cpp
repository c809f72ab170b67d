#include <host/reflection/object_data.h>

#include <host/reflection/meta_property.h>

namespace zarn {

PropertyData::PropertyData(ObjectData& object, std::weak_ptr<MetaProperty> metaProperty)
    : m_object(&object), m_metaProperty(std::move(metaProperty)), m_key(m_metaProperty.lock().get())
{
}

PropertyData::~PropertyData() = default;

void PropertyData::setMetaProperty(std::weak_ptr<MetaProperty> metaProperty)
{
    const std::shared_ptr<PropertyData> self = shared_from_this();
    const MetaProperty* key = metaProperty.lock().get();
    if (m_object) {
        auto& properties = m_object->m_properties;
        const auto before = properties.find(m_key);
        if (before != properties.end() && before->second == self)
            properties.erase(before);
        std::shared_ptr<PropertyData>& place = properties[key];
        if (place)
            place->unbind();
        place = self;
        m_isBound = true;
        m_object->m_lastFound = nullptr;
    }
    m_metaProperty = std::move(metaProperty);
    m_key = key;
}

void PropertyData::unbind()
{
    m_isBound = false;
    if (m_openChanges > 0)
        m_keptByChange = shared_from_this();
}

ObjectData::ObjectData(MetaObject* metaObject) : m_metaObject(metaObject) {}

ObjectData::~ObjectData()
{
    for (const auto& [key, data] : m_properties)
        data->m_object = nullptr;
}

void ObjectData::markDead()
{
    if (!m_isAlive)
        return;
    m_isAlive = false;
    const std::shared_ptr<ObjectData> keepAlive = weak_from_this().lock();
    observers.tell(&ObjectObserver::objectDeleted);
    deleted();
}

PropertyData* ObjectData::lookUp(const MetaProperty& property) const
{
    const auto found = m_properties.find(&property);
    return found == m_properties.end() ? nullptr : m_lastFound = found->second.get();
}

PropertyData& ObjectData::propertyData(const std::shared_ptr<MetaProperty>& property)
{
    std::shared_ptr<PropertyData>& data = m_properties[property.get()];
    if (!data)
        data = std::make_shared<PropertyData>(*this, property);
    return *data;
}

void ObjectData::dropPropertyData(const MetaProperty& property)
{
    const auto found = m_properties.find(&property);
    if (found == m_properties.end())
        return;
    // Its listeners die with it, after it is out of the table that they may look into.
    const std::shared_ptr<PropertyData> dropped = std::move(found->second);
    dropped->unbind();
    dropped->m_object = nullptr;
    m_properties.erase(found);
    m_lastFound = nullptr;
}

} // namespace zarn
