#pragma once

#include <host/base/host_export.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/property_data.h>

#include <initializer_list>
#include <vector>

namespace zarn {

/// Brackets a change of one property: about-to-be-changed when made, changed when destroyed, also by an exception.
///
/// Scopes on one property nest; only the outermost pair is sent, with its flags. Without listeners it costs a look-up.
class DATAMODELS_HOST_API NotifyScope
{
public:
    static NotifyScope beginPropertyChange(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                                           ryk::Flags<NotifyFlag> notifyFlags)
    {
        return {property, dataOf(property), setterFlags, notifyFlags};
    }
    /// The same by data that has been looked up before.
    static NotifyScope beginPropertyChange(const BoundProperty& property, PropertyData* data,
                                           ryk::Flags<SetterFlag> setterFlags, ryk::Flags<NotifyFlag> notifyFlags)
    {
        return {property, data, setterFlags, notifyFlags};
    }

    NotifyScope(NotifyScope&& other) noexcept;
    NotifyScope& operator=(NotifyScope&&) = delete;
    ~NotifyScope();

    const BoundProperty& property() const { return m_property; }
    /// Whether listeners brought it about that the property has another description, or none.
    bool isMoved() const { return m_data && !m_data->isDataOf(m_property.metaProperty().get()); }
    /// The property as it stands now: under another description if listeners were told of a move meanwhile, invalid if it
    /// was removed.
    BoundProperty current() const;

private:
    NotifyScope(const BoundProperty& property, PropertyData* data, ryk::Flags<SetterFlag> setterFlags,
                ryk::Flags<NotifyFlag> notifyFlags)
        : m_property(property), m_data(data), m_setterFlags(setterFlags), m_notifyFlags(notifyFlags)
    {
        if (m_data && m_data->m_openChanges++ == 0)
            tellAboutToBeChanged();
    }
    static PropertyData* dataOf(const BoundProperty& property)
    {
        ObjectData* object = property.isValid() ? property.object().data().get() : nullptr;
        return object ? object->toldData(property.metaProperty()) : nullptr;
    }

    ObjectObservers& observers() const { return m_property.object().data()->observers; }
    void tellAboutToBeChanged() const;

    BoundProperty m_property;
    PropertyData* m_data; // null where nobody listens
    ryk::Flags<SetterFlag> m_setterFlags;
    ryk::Flags<NotifyFlag> m_notifyFlags;
};

/// Brackets a change of the named properties that no `set` announces.
class DATAMODELS_HOST_API PropertyChangeNotifier
{
public:
    PropertyChangeNotifier(const ReflectedObject& object, std::initializer_list<Ozy::BasicStringRef<char>> names,
                           ryk::Flags<SetterFlag> setterFlags, ryk::Flags<NotifyFlag> notifyFlags = NotifyFlag::Value);
    ~PropertyChangeNotifier();
    PropertyChangeNotifier(const PropertyChangeNotifier&) = delete;
    PropertyChangeNotifier& operator=(const PropertyChangeNotifier&) = delete;

private:
    std::vector<NotifyScope> m_scopes;
};

/// Brackets the insertion of properties `first` to `first + count - 1`.
class DATAMODELS_HOST_API PropertiesAddNotifier
{
public:
    PropertiesAddNotifier(ReflectedObject object, std::size_t first, std::size_t count);
    ~PropertiesAddNotifier();
    PropertiesAddNotifier(const PropertiesAddNotifier&) = delete;
    PropertiesAddNotifier& operator=(const PropertiesAddNotifier&) = delete;

private:
    ReflectedObject m_object;
    MetaObject* m_metaObject;
    std::size_t m_first;
    std::size_t m_count;
};

/// Brackets the removal of properties `first` to `first + count - 1`.
class DATAMODELS_HOST_API PropertiesRemoveNotifier
{
public:
    PropertiesRemoveNotifier(ReflectedObject object, std::size_t first, std::size_t count);
    ~PropertiesRemoveNotifier();
    PropertiesRemoveNotifier(const PropertiesRemoveNotifier&) = delete;
    PropertiesRemoveNotifier& operator=(const PropertiesRemoveNotifier&) = delete;

private:
    ReflectedObject m_object;
    MetaObject* m_metaObject;
    std::size_t m_first;
    std::size_t m_count;
};

/// Brackets a change of all properties at once.
class DATAMODELS_HOST_API PropertiesResetNotifier
{
public:
    explicit PropertiesResetNotifier(ReflectedObject object);
    ~PropertiesResetNotifier();
    PropertiesResetNotifier(const PropertiesResetNotifier&) = delete;
    PropertiesResetNotifier& operator=(const PropertiesResetNotifier&) = delete;

private:
    ReflectedObject m_object;
    MetaObject* m_metaObject;
};

} // namespace zarn
