#pragma once

#include <host/base/host_export.h>
#include <host/reflection/fuzzy_slots.h>
#include <host/reflection/object_observer.h>
#include <host/reflection/property_data.h>
#include <host/variant/variant.h>

#include <memory>
#include <unordered_map>
#include <vector>

namespace zarn {

class MetaObject;
class MetaProperty;

/// What the reflection keeps of one object: whether it lives, who listens to its structure and to its properties, and
/// the properties that a generic object was given. It outlives its object in the handles on it.
class DATAMODELS_HOST_API ObjectData : public std::enable_shared_from_this<ObjectData>
{
public:
    explicit ObjectData(MetaObject* metaObject);
    virtual ~ObjectData();
    ObjectData(const ObjectData&) = delete;
    ObjectData& operator=(const ObjectData&) = delete;

    MetaObject* metaObject() const { return m_metaObject; }

    bool isAlive() const { return m_isAlive; }
    /// From here on all handles on the object are invalid; tells who listens for it.
    void markDead();

    /// Null as long as nothing needed it.
    PropertyData* findPropertyData(const MetaProperty& property) const
    {
        return m_lastFound && m_lastFound->isDataOf(&property) ? m_lastFound : lookUp(property);
    }
    PropertyData& propertyData(const std::shared_ptr<MetaProperty>& property);
    /// The data through which a change of the property is told; null where nobody would hear of it.
    PropertyData* toldData(const std::shared_ptr<MetaProperty>& property)
    {
        PropertyData* const data = findPropertyData(*property);
        return data || observers.empty() ? data : &propertyData(property);
    }
    void dropPropertyData(const MetaProperty& property);

    ObjectObservers observers;
    ryk::Signal<void()> deleted;
    ObjectSignal structureAboutToBeChanged;
    ObjectSignal structureChanged;
    ObjectSignal propertiesAboutToBeReset;
    ObjectSignal propertiesReset;
    RangeSignal propertyAboutToBeAdded;
    RangeSignal propertyAdded;
    RangeSignal propertyAboutToBeRemoved;
    RangeSignal propertyRemoved;

private:
    friend class PropertyData;

    PropertyData* lookUp(const MetaProperty& property) const;

    MetaObject* m_metaObject;
    bool m_isAlive = true;
    std::unordered_map<const MetaProperty*, std::shared_ptr<PropertyData>> m_properties;
    mutable PropertyData* m_lastFound = nullptr; // one property is often set many times in a row
};

} // namespace zarn
