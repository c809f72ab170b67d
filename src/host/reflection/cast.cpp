#include <host/reflection/cast.h>

#include <host/reflection/meta_object_manager.h>

namespace zarn::detail {

bool isReflected(const std::type_info& type)
{
    return MetaObjectManager::instance().findType(type);
}

void* castByClass(void* object, const std::type_info& from, const std::type_info& to)
{
    const MetaObject* known = MetaObjectManager::instance().findType(from);
    return known ? known->cast(object, from, to) : nullptr;
}

} // namespace zarn::detail
