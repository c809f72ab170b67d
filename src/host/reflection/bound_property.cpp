#include <host/reflection/bound_property.h>

#include <host/reflection/notifiers.h>
#include <host/reflection/object_data.h>
#include <host/reflection/set_property.h>
#include <host/undo/commit_changes_scope.h>

namespace zarn {
namespace {

bool isRecording()
{
    const Ozy::CommandsTransaction* transaction = Ozy::CommitChangesScope::transaction();
    return transaction && transaction->composite;
}

/// A setter that refuses or throws may have gone halfway, which is recorded as well. A void `before` records nothing.
/// Intended: setting an equal value is told, but makes no step.
void recordChange(const BoundProperty& property, const qelm::Variant& before)
{
    if (!before.isVoid() && property.isValid() && !(before == property.get()))
        Ozy::CommitChangesScope::makeUndo<SetProperty>(property, before);
}

bool write(const BoundProperty& property, const qelm::Variant& value, ryk::Flags<SetterFlag> flags, const qelm::Variant& before)
{
    if (!property.isValid())
        return false;
    bool isDone = false;
    try {
        isDone = property.metaProperty()->set(property, value, flags);
    } catch (...) {
        recordChange(property, before);
        throw;
    }
    // Ahead of the notification: what listeners do in answer is undone before this.
    recordChange(property, before);
    return isDone;
}

} // namespace

const ReflectedObject& BoundPropertyArgumentConvertor::objectOf(const BoundProperty& property)
{
    return property.object();
}

bool BoundProperty::operator==(const BoundProperty& other) const
{
    if (!isValid() || !other.isValid())
        return isValid() == other.isValid();
    return m_metaProperty == other.m_metaProperty && m_object == other.m_object;
}

bool BoundProperty::isStateless() const
{
    return isValid() && m_metaProperty->isStateless(*this);
}

const std::string& BoundProperty::name() const
{
    static const std::string none;
    return m_metaProperty ? m_metaProperty->name() : none;
}

const qelm::Variant& BoundProperty::key() const
{
    static const qelm::Variant none;
    return m_metaProperty ? m_metaProperty->key() : none;
}

ryk::Flags<meta_property::VisibilityFlag> BoundProperty::visibility() const
{
    return isValid() ? m_metaProperty->visibility(*this) : meta_property::hidden;
}

bool BoundProperty::set(const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const
{
    if (!isValue() || isReadOnly())
        return false;
    if (value.type() && value.type() == m_metaProperty->valueType())
        return setConverted(value, flags);
    const qelm::Variant converted = m_metaProperty->converted(value);
    return !converted.isVoid() && setConverted(converted, flags);
}

bool BoundProperty::setConverted(const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const
{
    const bool records = isRecording() && !isStateless();
    const qelm::Variant before = records ? get() : qelm::Variant();
    const NotifyScope scope = NotifyScope::beginPropertyChange(*this, flags, NotifyFlag::Value);
    // Who heard of the change to come may have removed or moved the property, or destroyed the object, or this handle.
    return scope.isMoved() ? write(scope.current(), value, flags, before) : write(scope.property(), value, flags, before);
}

qelm::Variant BoundProperty::genericInvoke(ryk::Flags<SetterFlag>, std::size_t count, const qelm::Variant* arguments) const
{
    return isMethod() ? m_metaProperty->invoke(*this, count, arguments) : qelm::Variant();
}

PropertyData* BoundProperty::propertyData() const
{
    return isValid() && m_object.data() ? &m_object.data()->propertyData(m_metaProperty) : nullptr;
}

ryk::Connection BoundProperty::connectPropertyAboutToBeChanged(PropertySlot slot) const
{
    PropertyData* data = propertyData();
    return data ? data->aboutToBeChanged.connect(std::move(slot)) : ryk::Connection();
}

ryk::Connection BoundProperty::connectPropertyChanged(PropertySlot slot) const
{
    PropertyData* data = propertyData();
    return data ? data->changed.connect(std::move(slot)) : ryk::Connection();
}

} // namespace zarn
