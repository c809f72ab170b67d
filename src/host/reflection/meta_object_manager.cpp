#include <host/reflection/meta_object_manager.h>

#include <host/reflection/meta_object.h>

#include <algorithm>

namespace zarn {

MetaObjectManager& MetaObjectManager::instance()
{
    static MetaObjectManager manager;
    return manager;
}

void MetaObjectManager::registerType(MetaObject* metaObject)
{
    m_types[metaObject->type()] = metaObject;
}

void MetaObjectManager::unregisterType(MetaObject* metaObject)
{
    const auto found = m_types.find(metaObject->type());
    if (found != m_types.end() && found->second == metaObject)
        m_types.erase(found);
}

MetaObject* MetaObjectManager::findType(const std::type_info& type) const
{
    const auto found = m_types.find(type);
    return found == m_types.end() ? nullptr : found->second;
}

MetaObject* MetaObjectManager::findType(std::string_view name) const
{
    const auto found = std::find_if(m_types.begin(), m_types.end(),
                                    [name](const auto& entry) { return entry.second->name() == name; });
    return found == m_types.end() ? nullptr : found->second;
}

} // namespace zarn
