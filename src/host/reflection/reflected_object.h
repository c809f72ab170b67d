#pragma once

#include <host/base/host_export.h>
#include <host/base/strings.h>
#include <host/reflection/annotations.h>
#include <host/reflection/fuzzy_slots.h>
#include <host/reflection/object_data.h>
#include <host/signals/connection.h>

#include <QMetaType>

#include <functional>
#include <memory>
#include <typeinfo>

namespace zarn {

class BoundProperty;
class MetaObject;

/// The type of a value that is reflected without being a `zarn::Object`: the type of the value, that of its class, and
/// that of the pointer behind it. The flag tells that the value may be shared.
struct TypeInfo
{
    TypeInfo(bool isShared, const std::type_info& value, const std::type_info& object, const std::type_info& pointee)
        : isShared(isShared), value(value), object(object), pointee(pointee)
    {
    }

    bool isShared;
    const std::type_info& value;
    const std::type_info& object;
    const std::type_info& pointee;
};

/// A handle on an object of any class with reflection.
///
/// Handles are values: they are cheap to copy, equal when they are on the same object, and keys of hash tables. A handle
/// on a `zarn::Object` does not keep it alive, and is invalid from its death on; one made around a shared pointer does.
/// All invalid handles are equal; on one every question has an empty answer, and a connection is dead.
/// Thread: GUI only.
class DATAMODELS_HOST_API ReflectedObject
{
public:
    ReflectedObject() = default;
    /// The object that the property's value is or points to; invalid if it is none. Either way it remembers the property.
    explicit ReflectedObject(const BoundProperty& property);
    ReflectedObject(const ReflectedObject&) = default;
    ReflectedObject(ReflectedObject&&) noexcept = default;
    ReflectedObject& operator=(const ReflectedObject&) = default;
    ReflectedObject& operator=(ReflectedObject&&) noexcept = default;
    ~ReflectedObject() = default;

    void init(qelm::Variant value, const std::shared_ptr<ObjectData>& data, const BoundProperty* reference);
    void init(qelm::Variant value, const TypeInfo& type, const BoundProperty* reference);

    bool isValid() const { return m_address && (!m_data || m_data->isAlive()); }
    std::size_t hash() const;
    bool operator==(const ReflectedObject& other) const;

    /// Whether edits of the object are not to be undone: a `Meta::Stateless` of its class, asked about this object.
    bool isStateless() const;
    /// Null for an invalid handle.
    MetaObject* metaObject() const { return isValid() ? m_metaObject : nullptr; }
    Annotations annotations() const;

    std::size_t propertyCount() const;
    /// Invalid for an index past the end.
    BoundProperty propertyAt(std::size_t index) const;
    /// Invalid if there is none of that name. One look-up in a hash table. A name that is none of the object's own may be a
    /// path, "position.x" or "children.3.name", which is followed through the objects on the way.
    BoundProperty findPropertyByName(Ozy::BasicStringRef<char> name) const;
    /// For collections and generic objects; invalid if the class refuses.
    BoundProperty addProperty(const qelm::Variant& key, const qelm::Variant& value) const;
    bool removeProperty(const qelm::Variant& key) const;
    bool removePropertyAt(std::size_t index) const;

    /// The property through which the object was reached; invalid for one reached directly.
    const BoundProperty& reference() const&;
    BoundProperty reference() const&&;
    /// What the property through which the object was reached holds now; invalid for an object reached directly. Shares
    /// `reference` with this one.
    ReflectedObject reread() const;

    ryk::Connection connectPropertiesAboutToBeReset(ObjectSlot slot) const;
    ryk::Connection connectPropertiesReset(ObjectSlot slot) const;
    ryk::Connection connectPropertyAboutToBeAdded(RangeSlot slot) const;
    ryk::Connection connectPropertyAdded(RangeSlot slot) const;
    ryk::Connection connectPropertyAboutToBeRemoved(RangeSlot slot) const;
    ryk::Connection connectPropertyRemoved(RangeSlot slot) const;

    /// The value that the handle was made around: a pointer or shared pointer to the object.
    const qelm::Variant& value() const { return m_value; }
    /// The object as an instance of its own class; null for an invalid handle.
    void* address() const { return isValid() ? m_address : nullptr; }
    const std::shared_ptr<ObjectData>& data() const { return m_data; }

private:
    void read(const BoundProperty& property);
    void initFromValue(const qelm::Variant& value);

    qelm::Variant m_value;
    std::shared_ptr<ObjectData> m_data;
    MetaObject* m_metaObject = nullptr;
    void* m_address = nullptr;
    std::shared_ptr<const BoundProperty> m_reference;
};

} // namespace zarn

template <>
struct std::hash<zarn::ReflectedObject>
{
    std::size_t operator()(const zarn::ReflectedObject& object) const { return object.hash(); }
};

Q_DECLARE_METATYPE(zarn::ReflectedObject)
