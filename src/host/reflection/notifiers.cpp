#include <host/reflection/notifiers.h>

#include <host/reflection/meta_object.h>
#include <host/reflection/object_data.h>

#include <utility>

namespace zarn {

NotifyScope::NotifyScope(NotifyScope&& other) noexcept
    : m_property(std::move(other.m_property))
    , m_data(std::exchange(other.m_data, nullptr))
    , m_setterFlags(other.m_setterFlags)
    , m_notifyFlags(other.m_notifyFlags)
{
}

NotifyScope::~NotifyScope()
{
    if (!m_data || --m_data->m_openChanges > 0)
        return;
    std::shared_ptr<PropertyData> kept = std::move(m_data->m_keptByChange);
    if (!observers().empty()) {
        kept = m_data->shared_from_this(); // an observer may remove the property
        observers().tell(&ObjectObserver::propertyChanged, m_property, m_setterFlags, m_notifyFlags);
    }
    m_data->changed(m_property, m_setterFlags, m_notifyFlags);
}

void NotifyScope::tellAboutToBeChanged() const
{
    observers().tell(&ObjectObserver::propertyAboutToBeChanged, m_property, m_setterFlags, m_notifyFlags);
    m_data->aboutToBeChanged(m_property, m_setterFlags, m_notifyFlags);
}

BoundProperty NotifyScope::current() const
{
    if (!isMoved())
        return m_property;
    return m_data->isBound() ? BoundProperty(m_property.object(), m_data->metaProperty()) : BoundProperty();
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
