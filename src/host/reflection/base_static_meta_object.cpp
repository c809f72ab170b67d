#include <host/reflection/base_static_meta_object.h>

#include <host/reflection/object_data.h>
#include <host/reflection/reflected_object.h>
#include <host/variant/variant_converter.h>

namespace zarn::detail {

CommonProperties::CommonProperties(const std::vector<MetaObject::BaseClass>& bases)
{
    const ReflectedObject any;
    std::size_t remaining = 0;
    for (const MetaObject::BaseClass& base : bases) {
        for (std::size_t index = 0; index < base.metaObject->propertyCount(any); ++index)
            add(base.metaObject->property(any, index, &remaining));
    }
}

void CommonProperties::add(std::shared_ptr<MetaProperty> property)
{
    m_byName.try_emplace(property->name(), static_cast<int>(m_all.size()));
    m_all.push_back(std::move(property));
}

int CommonProperties::indexOf(std::string_view name) const
{
    const auto found = m_byName.find(name);
    return found == m_byName.end() ? -1 : found->second;
}

int indexOfKey(const CommonProperties& properties, const qelm::Variant& key)
{
    if (const std::string* exact = key.as<std::string>())
        return properties.indexOf(*exact);
    const auto name = qelm::VariantConverter::convertTo<std::string>(key);
    return name ? properties.indexOf(*name) : -1;
}

std::shared_ptr<ObjectData> dataByAddress(const void* object, MetaObject* metaObject)
{
    static std::unordered_map<const void*, std::weak_ptr<ObjectData>> known;
    std::weak_ptr<ObjectData>& entry = known[object];
    std::shared_ptr<ObjectData> data = entry.lock();
    if (data && data->metaObject() == metaObject)
        return data;

    data = std::shared_ptr<ObjectData>(new ObjectData(metaObject), [object](ObjectData* dying) {
        const auto found = known.find(object);
        if (found != known.end() && found->second.expired())
            known.erase(found);
        delete dying;
    });
    known[object] = data;
    return data;
}

} // namespace zarn::detail
