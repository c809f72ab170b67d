#pragma once

#include <host/base/host_export.h>
#include <host/reflection/annotations.h>
#include <host/reflection/fuzzy_slots.h>

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace zarn {

class MetaProperty;
class Object;
class ObjectData;
class ReflectedObject;

/// The description of a class: its name, bases, annotations and properties, and how its objects tell of changes.
///
/// The properties of the bases come first. A class is described by `StaticMetaObject`; collections and generic objects
/// have meta-objects that answer by the object that they are asked about.
class DATAMODELS_HOST_API MetaObject
{
public:
    /// A base, and the way from an object to its part of that base.
    struct BaseClass
    {
        MetaObject* metaObject;
        void* (*upcast)(void* object);
    };

    virtual ~MetaObject();
    MetaObject(const MetaObject&) = delete;
    MetaObject& operator=(const MetaObject&) = delete;

    /// A pointer or shared pointer to a new object; void for classes that cannot be created.
    virtual qelm::Variant createInstance() const;
    /// This or a derived class, by name (a text); null if there is none.
    virtual MetaObject* findDerived(const qelm::Variant& name) const;
    /// The object that a value is or points to, as an instance of this class; null if it is none.
    virtual void* objectPointer(const qelm::Variant& value) const;
    virtual Annotations annotations(const qelm::Variant& key) const;
    virtual std::shared_ptr<ObjectData> objectData(const ReflectedObject& object) const;
    /// -1 if there is none.
    virtual int indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const;
    /// Null where `index` lies behind the properties; `*remaining` is then what is left of it.
    virtual std::shared_ptr<MetaProperty> property(const ReflectedObject& object, std::size_t index,
                                                   std::size_t* remaining) const;
    /// The index of the new property; -1 if the class refuses.
    virtual int addProperty(const ReflectedObject& object, const qelm::Variant& key, const qelm::Variant& value);
    virtual bool removeProperty(const ReflectedObject& object, std::size_t index);

    virtual void propertyAboutToBeAdded(const ReflectedObject& object, std::size_t first, std::size_t count);
    virtual void propertyAdded(const ReflectedObject& object, std::size_t first, std::size_t count);
    virtual void propertyAboutToBeRemoved(const ReflectedObject& object, std::size_t first, std::size_t count);
    virtual void propertyRemoved(const ReflectedObject& object, std::size_t first, std::size_t count);

    virtual ryk::Connection connectObjectDeleted(const ReflectedObject& object, std::function<void()> slot) const;
    virtual ryk::Connection connectStructureAboutToBeChanged(const ReflectedObject& object, ObjectSlot slot) const;
    virtual ryk::Connection connectStructureChanged(const ReflectedObject& object, ObjectSlot slot) const;
    virtual ryk::Connection connectPropertiesAboutToBeReset(const ReflectedObject& object, ObjectSlot slot) const;
    virtual ryk::Connection connectPropertiesReset(const ReflectedObject& object, ObjectSlot slot) const;
    virtual ryk::Connection connectPropertyAboutToBeAdded(const ReflectedObject& object, RangeSlot slot) const;
    virtual ryk::Connection connectPropertyAdded(const ReflectedObject& object, RangeSlot slot) const;
    virtual ryk::Connection connectPropertyAboutToBeRemoved(const ReflectedObject& object, RangeSlot slot) const;
    virtual ryk::Connection connectPropertyRemoved(const ReflectedObject& object, RangeSlot slot) const;

    virtual void structureAboutToBeChanged(const ReflectedObject& object);
    virtual void structureChanged(const ReflectedObject& object);
    virtual void propertiesAboutToBeReset(const ReflectedObject& object);
    virtual void propertiesReset(const ReflectedObject& object);

    /// The property with which an object refers to itself under a key; null in general.
    virtual std::shared_ptr<MetaProperty> findSelfProperty(const ReflectedObject& object, const qelm::Variant& key) const;

    const std::type_info& type() const { return m_type; }
    const std::string& name() const { return m_name; }
    const std::vector<BaseClass>& bases() const { return m_bases; }
    bool isDerivedFrom(const MetaObject& base) const;

    /// How many properties an object has, those of the bases included.
    virtual std::size_t propertyCount(const ReflectedObject& object) const;
    /// A property that all objects of the class have in common, by name; null if there is none.
    virtual std::shared_ptr<MetaProperty> findCommonProperty(Ozy::BasicStringRef<char> name) const;
    /// Whether no object has properties but those.
    virtual bool hasOnlyCommonProperties() const { return false; }
    /// The meta-object of the class that an object of this class really is of; this one where that has none.
    virtual MetaObject* mostDerived(void* object) const;

    /// The address of an object of type `from` as one of type `to`; null if they are unrelated.
    void* cast(void* object, const std::type_info& from, const std::type_info& to) const;

    /// The data of an object, made at the first need. Without a meta-object it is that of the object's own class, or of
    /// the class that `value` points to.
    static const std::shared_ptr<ObjectData>& objectDataOf(const Object& object, const qelm::Variant& value,
                                                           MetaObject* metaObject);

protected:
    MetaObject(const std::type_info& type, std::string name, std::vector<BaseClass> bases);

private:
    /// The way from a base to a class derived from it, by the type that the object really has; null if it is not one.
    virtual void* downcast(void* object, const std::type_info& to) const;
    void* upcast(void* object, const std::type_info& to) const;

    const std::type_info& m_type;
    std::string m_name;
    std::vector<BaseClass> m_bases;
};

/// A meta-object whose objects tell of their changes (`Level` 1), or keep silent (0).
template <int Level>
class NotifyableMetaObject;

template <>
class DATAMODELS_HOST_API NotifyableMetaObject<0> : public MetaObject
{
protected:
    using MetaObject::MetaObject;
};

template <>
class DATAMODELS_HOST_API NotifyableMetaObject<1> : public MetaObject
{
public:
    void propertyAboutToBeAdded(const ReflectedObject& object, std::size_t first, std::size_t count) override;
    void propertyAdded(const ReflectedObject& object, std::size_t first, std::size_t count) override;
    void propertyAboutToBeRemoved(const ReflectedObject& object, std::size_t first, std::size_t count) override;
    void propertyRemoved(const ReflectedObject& object, std::size_t first, std::size_t count) override;

    ryk::Connection connectObjectDeleted(const ReflectedObject& object, std::function<void()> slot) const override;
    ryk::Connection connectStructureAboutToBeChanged(const ReflectedObject& object, ObjectSlot slot) const override;
    ryk::Connection connectStructureChanged(const ReflectedObject& object, ObjectSlot slot) const override;
    ryk::Connection connectPropertiesAboutToBeReset(const ReflectedObject& object, ObjectSlot slot) const override;
    ryk::Connection connectPropertiesReset(const ReflectedObject& object, ObjectSlot slot) const override;
    ryk::Connection connectPropertyAboutToBeAdded(const ReflectedObject& object, RangeSlot slot) const override;
    ryk::Connection connectPropertyAdded(const ReflectedObject& object, RangeSlot slot) const override;
    ryk::Connection connectPropertyAboutToBeRemoved(const ReflectedObject& object, RangeSlot slot) const override;
    ryk::Connection connectPropertyRemoved(const ReflectedObject& object, RangeSlot slot) const override;

    void structureAboutToBeChanged(const ReflectedObject& object) override;
    void structureChanged(const ReflectedObject& object) override;
    void propertiesAboutToBeReset(const ReflectedObject& object) override;
    void propertiesReset(const ReflectedObject& object) override;

protected:
    using MetaObject::MetaObject;
};

} // namespace zarn
