#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/object_observer.h>

#include <boost/intrusive/list.hpp>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zarn {

class MultiSelection;

/// One object of a selection, which it follows, and the changes of it that are under way. Owned by the selection.
class SelectedObject final : public ObjectObserver,
                             public boost::intrusive::list_base_hook<boost::intrusive::tag<MultiSelection>>
{
public:
    /// By which it is found also when the object is dead.
    using Identity = std::pair<const void*, const MetaObject*>;
    struct IdentityHash
    {
        std::size_t operator()(const Identity& identity) const { return std::hash<const void*>()(identity.first); }
    };

    SelectedObject(MultiSelection& selection, const ReflectedObject& object, const BoundProperty& reference,
                   std::string type);

    const ReflectedObject& object() const { return m_object; }
    const BoundProperty& reference() const { return m_reference; }
    const Identity& identity() const { return m_identity; }
    const std::string& type() const { return m_type; }
    /// Whether it is merged; else it waits.
    bool takesPart() const { return m_takesPart; }
    void setTakesPart(bool takesPart) { m_takesPart = takesPart; }

    void objectDeleted() override;
    void propertyAboutToBeChanged(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                                  ryk::Flags<NotifyFlag> notifyFlags) override;
    void propertyChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) override;
    void propertyAdded(std::size_t, std::size_t) override;
    void propertyRemoved(std::size_t, std::size_t) override;
    void propertiesReset() override;

private:
    struct Change
    {
        Change(const MetaProperty* property, NotifyScope begun) : of(property), scope(std::move(begun)) {}

        const MetaProperty* of;
        NotifyScope scope; // of the property of the selection
    };

    MultiSelection& m_selection;
    const ReflectedObject m_object;
    const BoundProperty m_reference;
    const Identity m_identity;
    const std::string m_type;
    bool m_takesPart = false;
    std::vector<std::unique_ptr<Change>> m_changes;
};

} // namespace zarn
