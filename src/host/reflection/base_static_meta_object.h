#pragma once

#include <host/base/host_export.h>
#include <host/reflection/meta_object.h>
#include <host/reflection/meta_property.h>

#include <string_view>
#include <unordered_map>

namespace zarn {

namespace detail {

/// The properties that all objects of a class have in common: those of the bases first, each found by index or, through
/// one hash, by name. Of equal names the first counts.
class DATAMODELS_HOST_API CommonProperties
{
public:
    explicit CommonProperties(const std::vector<MetaObject::BaseClass>& bases);

    void add(std::shared_ptr<MetaProperty> property);
    std::size_t size() const { return m_all.size(); }
    const std::shared_ptr<MetaProperty>& at(std::size_t index) const { return m_all[index]; }
    int indexOf(std::string_view name) const;

private:
    std::vector<std::shared_ptr<MetaProperty>> m_all;
    std::unordered_map<std::string_view, int> m_byName;
};

DATAMODELS_HOST_API int indexOfKey(const CommonProperties& properties, const qelm::Variant& key);

/// The data of an object that cannot keep it itself, found by its address while a handle on it exists.
DATAMODELS_HOST_API std::shared_ptr<ObjectData> dataByAddress(const void* object, MetaObject* metaObject);

} // namespace detail

/// A meta-object with a fixed list of properties, the same for all objects.
template <int Level>
class BaseStaticMetaObject : public NotifyableMetaObject<Level>
{
public:
    using BaseClass = MetaObject::BaseClass;

    Annotations annotations(const qelm::Variant&) const override { return m_annotations; }
    int indexOfProperty(const ReflectedObject&, const qelm::Variant& key) const override
    {
        return detail::indexOfKey(m_properties, key);
    }
    std::shared_ptr<MetaProperty> property(const ReflectedObject&, std::size_t index, std::size_t* remaining) const override
    {
        if (index < m_properties.size())
            return m_properties.at(index);
        *remaining = index - m_properties.size();
        return nullptr;
    }
    std::size_t propertyCount(const ReflectedObject&) const override { return m_properties.size(); }
    std::shared_ptr<MetaProperty> findCommonProperty(Ozy::BasicStringRef<char> name) const override
    {
        const int index = m_properties.indexOf(name);
        return index < 0 ? nullptr : m_properties.at(static_cast<std::size_t>(index));
    }

    bool hasOnlyCommonProperties() const override { return true; }

    using MetaObject::addProperty;
    void addProperty(std::shared_ptr<MetaProperty> property) { m_properties.add(std::move(property)); }

protected:
    BaseStaticMetaObject(const std::type_info& type, std::string name, Annotations annotations, std::vector<BaseClass> bases)
        : NotifyableMetaObject<Level>(type, std::move(name), std::move(bases))
        , m_annotations(std::move(annotations))
        , m_properties(MetaObject::bases())
    {
    }

private:
    Annotations m_annotations;
    detail::CommonProperties m_properties;
};

} // namespace zarn
