#include <host/reflection/persistent_object.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/meta_object.h>

namespace zarn {

struct PersistentObject::Place
{
    PersistentObject parent;
    qelm::Variant key;
};

PersistentObject::PersistentObject(ReflectedObject object) : m_object(std::move(object))
{
    const BoundProperty reference = m_object.reference();
    if (reference.isValid())
        m_place = std::make_shared<Place>(Place{PersistentObject(reference.object()), reference.key()});
}

ReflectedObject PersistentObject::object() const
{
    // Intended: an object that lives is meant even if another stands in its place by now.
    if (m_object.isValid() || !m_place)
        return m_object;
    const ReflectedObject parent = m_place->parent.object();
    if (!parent.isValid())
        return {};
    const int index = parent.metaObject()->indexOfProperty(parent, m_place->key);
    if (index >= 0)
        m_object = ReflectedObject(parent.propertyAt(static_cast<std::size_t>(index)));
    return m_object;
}

} // namespace zarn
