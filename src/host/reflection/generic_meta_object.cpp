#include <host/reflection/generic_meta_object.h>

#include <host/reflection/cast.h>
#include <host/reflection/generic_object.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/object_data.h>
#include <host/variant/variant_converter.h>

namespace zarn {
namespace {

/// A property with its value, of one object.
class GenericProperty final : public NotifyableMetaProperty<1>
{
public:
    GenericProperty(const qelm::Variant& key, qelm::Variant value)
        : NotifyableMetaProperty<1>(Kind::Value, key, {}), m_value(std::move(value))
    {
    }

    bool isReadOnly() const override { return false; }
    qelm::Variant get(const BoundProperty&) const override { return m_value; }
    qelm::Variant converted(const qelm::Variant& value) const override
    {
        if (m_value.type() == value.type())
            return value;
        qelm::Variant converted = m_value;
        return qelm::VariantConverter::convert(converted, value) ? converted : qelm::Variant();
    }
    bool set(const BoundProperty&, const qelm::Variant& value, ryk::Flags<SetterFlag>) const override
    {
        m_value = value;
        return true;
    }

private:
    mutable qelm::Variant m_value;
};

int isStateless(const ReflectedObject& object)
{
    const auto* generic = zarn::cast<GenericObject>(object);
    return generic && generic->volatility() == GenericObject::VolatilityType::Volatile;
}

std::string typeName(const ReflectedObject& object)
{
    const auto* generic = zarn::cast<GenericObject>(object);
    return generic ? generic->typeName() : std::string();
}

[[maybe_unused]] const GenericMetaObject& knownFromLoad = GenericMetaObject::instance();

} // namespace

GenericMetaObject::GenericMetaObject(const std::type_info& type, std::string name, std::vector<BaseClass> bases)
    : NotifyableMetaObject<1>(type, std::move(name), std::move(bases))
    , m_annotations{Meta::MultiSelection::ObjectType{&typeName}, Meta::Stateless(&isStateless)}
{
    MetaObjectManager::instance().registerType(this);
}

GenericMetaObject& GenericMetaObject::instance()
{
    static GenericMetaObject metaObject(typeid(GenericObject), "zarn::GenericObject", {});
    return metaObject;
}

GenericMetaObject::~GenericMetaObject()
{
    MetaObjectManager::instance().unregisterType(this);
}

qelm::Variant GenericMetaObject::createInstance() const
{
    return type() == typeid(GenericObject) ? qelm::Variant(std::make_shared<GenericObject>()) : qelm::Variant();
}

Annotations GenericMetaObject::annotations(const qelm::Variant&) const
{
    return m_annotations;
}

std::shared_ptr<ObjectData> GenericMetaObject::objectData(const ReflectedObject& object) const
{
    const auto* generic = zarn::cast<GenericObject>(object);
    return generic ? objectDataOf(*generic, object.value(), const_cast<GenericMetaObject*>(this)) : nullptr;
}

int GenericMetaObject::indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const
{
    const auto* generic = zarn::cast<GenericObject>(object);
    const auto index = generic ? generic->indexOf(key) : std::nullopt;
    return index ? static_cast<int>(*index) : -1;
}

std::size_t GenericMetaObject::propertyCount(const ReflectedObject& object) const
{
    const auto* generic = zarn::cast<GenericObject>(object);
    return generic ? generic->m_properties.size() : 0;
}

std::shared_ptr<MetaProperty> GenericMetaObject::property(const ReflectedObject& object, std::size_t index,
                                                          std::size_t* remaining) const
{
    const std::size_t count = propertyCount(object);
    if (index < count)
        return zarn::cast<GenericObject>(object)->m_properties[index];
    *remaining = index - count;
    return nullptr;
}

int GenericMetaObject::addProperty(const ReflectedObject& object, const qelm::Variant& key, const qelm::Variant& value)
{
    auto* generic = zarn::cast<GenericObject>(object);
    if (!generic || !generic->isOpen() || key.isVoid() || value.isVoid() || generic->indexOf(key))
        return -1;
    const auto added = std::make_shared<GenericProperty>(key, value);
    added->initialize();
    return generic->insertProperty(added, generic->m_properties.size());
}

bool GenericMetaObject::removeProperty(const ReflectedObject& object, std::size_t index)
{
    auto* generic = zarn::cast<GenericObject>(object);
    return generic && generic->isOpen() && generic->removeProperty(index);
}

MetaObject* GenericMetaObject::mostDerived(void* object) const
{
    auto* self = const_cast<GenericMetaObject*>(this);
    if (!object || type() != typeid(GenericObject))
        return self;
    MetaObject* real = MetaObjectManager::instance().findType(typeid(*static_cast<GenericObject*>(object)));
    return real ? real : self;
}

void* GenericMetaObject::downcast(void* object, const std::type_info& to) const
{
    const MetaObject* real = mostDerived(object);
    if (real == this)
        return nullptr;
    return real->cast(dynamic_cast<void*>(static_cast<GenericObject*>(object)), real->type(), to);
}

} // namespace zarn
