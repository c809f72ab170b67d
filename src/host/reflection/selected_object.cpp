#include <host/reflection/selected_object.h>

#include <host/reflection/multi_selection.h>

#include <algorithm>

namespace zarn {

SelectedObject::SelectedObject(MultiSelection& selection, const ReflectedObject& object, const BoundProperty& reference,
                               std::string type)
    : m_selection(selection)
    , m_object(object)
    , m_reference(reference)
    , m_identity(object.address(), object.metaObject())
    , m_type(std::move(type))
{
    observe(object);
}

void SelectedObject::objectDeleted()
{
    m_selection.leave(m_identity);
}

void SelectedObject::propertyAboutToBeChanged(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                                              ryk::Flags<NotifyFlag> notifyFlags)
{
    const BoundProperty shown = m_takesPart ? m_selection.heardProperty(property) : BoundProperty();
    if (!shown.isValid())
        return;
    MultiSelection& selection = m_selection;
    const Identity identity = m_identity;
    auto change = std::make_unique<Change>(property.metaProperty().get(),
                                           NotifyScope::beginPropertyChange(shown, setterFlags, notifyFlags));
    // Who was told may have taken the object out of the selection, or destroyed that.
    if (shown.isValid() && selection.isSelected(identity))
        m_changes.push_back(std::move(change));
}

void SelectedObject::propertyChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>)
{
    const auto found = std::find_if(m_changes.begin(), m_changes.end(),
                                    [&](const auto& change) { return change->of == property.metaProperty().get(); });
    if (found == m_changes.end())
        return;
    // Taken out first, for the same reason.
    const std::unique_ptr<Change> ending = std::move(*found);
    m_changes.erase(found);
}

void SelectedObject::propertyAdded(std::size_t, std::size_t)
{
    m_selection.rebuild();
}

void SelectedObject::propertyRemoved(std::size_t, std::size_t)
{
    m_selection.rebuild();
}

void SelectedObject::propertiesReset()
{
    m_selection.rebuild();
}

} // namespace zarn
