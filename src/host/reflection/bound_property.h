#pragma once

#include <host/reflection/meta_property.h>
#include <host/reflection/reflected_object.h>
#include <host/variant/variant.h>

#include <memory>
#include <string>

namespace zarn {

class PropertyData;

/// One property of one object: a value or a method. A value like the handle on its object, and as cheap.
///
/// It keeps its description even if the object's data of it comes to stand for another property, as when the element of
/// a collection changes its index. On an invalid property every question has an empty answer, and a connection is dead.
/// Thread: GUI only.
class DATAMODELS_HOST_API BoundProperty
{
public:
    BoundProperty() = default;
    BoundProperty(const ReflectedObject& object, std::shared_ptr<MetaProperty> metaProperty)
        : m_object(object), m_metaProperty(std::move(metaProperty))
    {
    }

    bool isValid() const { return m_metaProperty && m_object.isValid(); }
    bool operator==(const BoundProperty& other) const;

    bool isValue() const { return isValid() && m_metaProperty->kind() == MetaProperty::Kind::Value; }
    bool isMethod() const { return isValid() && m_metaProperty->kind() == MetaProperty::Kind::Method; }
    /// Never changes, and so sends no notifications.
    bool isConst() const { return isValid() && m_metaProperty->isConst(); }
    bool isReadOnly() const { return isValid() && m_metaProperty->isReadOnly(); }
    /// Whether edits are not to be undone: a `Meta::Stateless` of the property, or of the object's class.
    bool isStateless() const;

    const std::string& name() const;
    const qelm::Variant& key() const;
    const ReflectedObject& object() const& { return m_object; }
    Annotations annotations() const { return m_metaProperty ? m_metaProperty->annotations() : Annotations(); }
    ryk::Flags<meta_property::VisibilityFlag> visibility() const;

    /// The value; void for a method.
    qelm::Variant get() const { return isValid() ? m_metaProperty->get(*this) : qelm::Variant(); }

    /// Converts the value to the property's type and sets it. False, without a notification, if there is no conversion
    /// or no setter; false, between notifications, if the setter refuses.
    ///
    /// Slots hear about-to-be-changed before the setter runs and changed after it, also when it throws. In an open
    /// transaction the opposite is recorded, once, unless object or property are stateless or the value stays equal.
    bool set(const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const;

    /// Calls a method. A wrong number of arguments throws a `GenericFunctionError`, an argument that cannot be converted
    /// a `qelm::CastError`. Void for a value.
    qelm::Variant genericInvoke(ryk::Flags<SetterFlag> flags, std::size_t count, const qelm::Variant* arguments) const;

    const std::shared_ptr<MetaProperty>& metaProperty() const { return m_metaProperty; }
    /// What the object keeps of the property, made at the first need; null for an invalid property.
    PropertyData* propertyData() const;

    ryk::Connection connectPropertyAboutToBeChanged(PropertySlot slot) const;
    ryk::Connection connectPropertyChanged(PropertySlot slot) const;

private:
    bool setConverted(const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const;

    ReflectedObject m_object;
    std::shared_ptr<MetaProperty> m_metaProperty;
};

} // namespace zarn

Q_DECLARE_METATYPE(zarn::BoundProperty)
