#include <host/reflection/notifiers.h>

#include <host/reflection/meta_object.h>
#include <host/reflection/object_data.h>

namespace zarn {

NotifyScope NotifyScope::beginPropertyChange(BoundProperty property, ryk::Flags<SetterFlag> setterFlags,
                                             ryk::Flags<NotifyFlag> notifyFlags)
{
    return {property, setterFlags, notifyFlags};
}

NotifyScope::NotifyScope(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                         ryk::Flags<NotifyFlag> notifyFlags)
{
    if (!property.isValid() || !property.object().data())
        return;
    std::shared_ptr<PropertyData> data = property.object().data()->findPropertyData(*property.metaProperty());
    if (!data)
        return;

    m_change = std::make_unique<Change>(Change{property, std::move(data), setterFlags, notifyFlags});
    if (m_change->data->m_openChanges++ == 0)
        m_change->data->aboutToBeChanged(m_change->property, setterFlags, notifyFlags);
}

NotifyScope::~NotifyScope()
{
    if (m_change && --m_change->data->m_openChanges == 0)
        m_change->data->changed(m_change->property, m_change->setterFlags, m_change->notifyFlags);
}

PropertyChangeNotifier::PropertyChangeNotifier(const ReflectedObject& object,
                                               std::initializer_list<Ozy::BasicStringRef<char>> names,
                                               ryk::Flags<SetterFlag> setterFlags, ryk::Flags<NotifyFlag> notifyFlags)
{
    m_scopes.reserve(names.size());
    for (const Ozy::BasicStringRef<char>& name : names)
        m_scopes.push_back(NotifyScope::beginPropertyChange(object.findPropertyByName(name), setterFlags, notifyFlags));
}

PropertyChangeNotifier::~PropertyChangeNotifier() = default;

PropertiesAddNotifier::PropertiesAddNotifier(ReflectedObject object, std::size_t first, std::size_t count)
    : m_object(std::move(object)), m_metaObject(m_object.metaObject()), m_first(first), m_count(count)
{
    if (m_metaObject)
        m_metaObject->propertyAboutToBeAdded(m_object, m_first, m_count);
}

PropertiesAddNotifier::~PropertiesAddNotifier()
{
    if (m_metaObject)
        m_metaObject->propertyAdded(m_object, m_first, m_count);
}

PropertiesRemoveNotifier::PropertiesRemoveNotifier(ReflectedObject object, std::size_t first, std::size_t count)
    : m_object(std::move(object)), m_metaObject(m_object.metaObject()), m_first(first), m_count(count)
{
    if (m_metaObject)
        m_metaObject->propertyAboutToBeRemoved(m_object, m_first, m_count);
}

PropertiesRemoveNotifier::~PropertiesRemoveNotifier()
{
    if (m_metaObject)
        m_metaObject->propertyRemoved(m_object, m_first, m_count);
}

PropertiesResetNotifier::PropertiesResetNotifier(ReflectedObject object)
    : m_object(std::move(object)), m_metaObject(m_object.metaObject())
{
    if (m_metaObject)
        m_metaObject->propertiesAboutToBeReset(m_object);
}

PropertiesResetNotifier::~PropertiesResetNotifier()
{
    if (m_metaObject)
        m_metaObject->propertiesReset(m_object);
}

} // namespace zarn
