#pragma once

#include <host/base/host_export.h>
#include <host/reflection/fuzzy_slots.h>

#include <memory>

namespace zarn {

class MetaProperty;
class ObjectData;

/// What one object keeps of one of its properties: who listens to it, and how many changes of it are under way.
class DATAMODELS_HOST_API PropertyData : public std::enable_shared_from_this<PropertyData>
{
public:
    PropertyData(ObjectData& object, std::weak_ptr<MetaProperty> metaProperty);
    ~PropertyData();
    PropertyData(const PropertyData&) = delete;
    PropertyData& operator=(const PropertyData&) = delete;

    std::shared_ptr<MetaProperty> metaProperty() const { return m_metaProperty.lock(); }
    /// Makes this the data of another property of the object, in the place of any that it had: listeners follow an
    /// element to its new index. The data that was there lives on only in the hands of who has taken it.
    void setMetaProperty(std::weak_ptr<MetaProperty> metaProperty);
    /// Whether it is still what the object keeps of the property: not once the property was removed.
    bool isBound() const { return m_isBound; }
    bool isDataOf(const MetaProperty* property) const { return m_isBound && m_key == property; }

    PropertySignal aboutToBeChanged;
    PropertySignal changed;

private:
    friend class NotifyScope;
    friend class ObjectData;

    /// The object lets go of it; a change that is under way keeps it until its end.
    void unbind();

    ObjectData* m_object;
    std::weak_ptr<MetaProperty> m_metaProperty;
    const MetaProperty* m_key;
    int m_openChanges = 0;
    bool m_isBound = true;
    std::shared_ptr<PropertyData> m_keptByChange;
};

} // namespace zarn
