#include <host/reflection/set_property.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/meta_object.h>

namespace zarn {

SetProperty::SetProperty(const BoundProperty& property, qelm::Variant value)
    : Command("Set " + property.name()), m_object(property.object()), m_key(property.key()), m_value(std::move(value))
{
}

bool SetProperty::execute()
{
    const ReflectedObject object = m_object.object();
    if (!object.isValid())
        return false;
    const int index = object.metaObject()->indexOfProperty(object, m_key);
    return index >= 0 && object.propertyAt(static_cast<std::size_t>(index)).set(m_value, SetterFlag::Undo);
}

} // namespace zarn
