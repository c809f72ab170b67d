#include <host/reflection/collection_meta_object.h>

#include <host/base/profiler.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/container_commands.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/object_data.h>
#include <host/undo/commit_changes_scope.h>
#include <host/variant/variant_converter.h>

#include <algorithm>

namespace zarn {
namespace {

std::string collectionName(const std::string& baseName, const std::type_info& element)
{
    const MetaObject* reflected = MetaObjectManager::instance().findType(element);
    return baseName + "<" + (reflected ? reflected->name() : qelm::MetaType::prettyName(element)) + ">";
}

std::optional<std::size_t> indexOf(const qelm::Variant& key)
{
    if (!key.isVoid() && key.type()->pointee() && *key.type()->pointee() == typeid(std::size_t)) {
        const void* pointee = key.pointee();
        return pointee ? std::optional(*static_cast<const std::size_t*>(pointee)) : std::nullopt;
    }
    return qelm::VariantConverter::convertTo<std::size_t>(key);
}

} // namespace

/// The element at one index, in all collections of the class.
class CollectionMetaObject::Element final : public NotifyableMetaProperty<1>
{
public:
    Element(const CollectionMetaObject& owner, std::size_t index)
        : NotifyableMetaProperty<1>(Kind::Value, qelm::Variant(index), owner.m_elementAnnotations)
        , m_owner(owner)
        , m_index(index)
    {
    }

    bool isReadOnly() const override { return false; }
    qelm::Variant get(const BoundProperty& property) const override
    {
        return isInside(property) ? m_owner.element(property.object(), m_index) : qelm::Variant();
    }
    qelm::Variant converted(const qelm::Variant& value) const override
    {
        return value.isVoid() ? qelm::Variant() : m_owner.asElement(value);
    }
    bool set(const BoundProperty& property, const qelm::Variant& value, ryk::Flags<SetterFlag>) const override
    {
        if (!isInside(property))
            return false;
        m_owner.setElement(property.object(), m_index, value);
        return true;
    }

private:
    bool isInside(const BoundProperty& property) const
    {
        return m_index < m_owner.elementCount(property.object()).value_or(0);
    }

    const CollectionMetaObject& m_owner;
    std::size_t m_index;
};

CollectionMetaObject::CollectionMetaObject(const std::type_info& type, const std::type_info& element,
                                           const std::string& baseName, const Annotations& annotations)
    : NotifyableMetaObject<1>(type, collectionName(baseName, element), {}), m_annotations(annotations)
{
    m_annotations += qelm::Variant(Meta::Collection());
    for (const qelm::Variant& children : m_annotations.equal_range<Meta::Children>())
        m_elementAnnotations += children.value<Meta::Children>().annotations;
    MetaObjectManager::instance().registerType(this);
}

CollectionMetaObject::~CollectionMetaObject()
{
    MetaObjectManager::instance().unregisterType(this);
}

Annotations CollectionMetaObject::annotations(const qelm::Variant&) const
{
    return m_annotations;
}

std::size_t CollectionMetaObject::propertyCount(const ReflectedObject& object) const
{
    return elementCount(object).value_or(0);
}

int CollectionMetaObject::indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const
{
    const std::optional<std::size_t> index = indexOf(key);
    return index && *index < propertyCount(object) ? static_cast<int>(*index) : -1;
}

std::shared_ptr<MetaProperty> CollectionMetaObject::property(const ReflectedObject& object, std::size_t index,
                                                             std::size_t* remaining) const
{
    if (auto ofBase = NotifyableMetaObject<1>::property(object, index, remaining))
        return ofBase;
    const std::size_t count = propertyCount(object);
    if (index < count)
        return elementProperty(index);
    *remaining = index - count;
    return nullptr;
}

int CollectionMetaObject::addProperty(const ReflectedObject& told, const qelm::Variant& key, const qelm::Variant& value)
{
    const ReflectedObject object = told; // listeners may destroy the handle that was passed
    const std::optional<std::size_t> count = elementCount(object);
    const std::optional<std::size_t> wanted = key.isVoid() ? count : indexOf(key);
    const qelm::Variant added = asElement(value);
    if (!count || !wanted || added.isVoid())
        return -1;
    const std::size_t index = std::min(*count, *wanted);

    // Intended: recorded before the notification here, and inside of it on removal, where who is told still has to find
    // the element in its place.
    if (!object.isStateless())
        Ozy::CommitChangesScope::makeUndo<RemoveFromContainer>("Add element to collection", object, index);
    const PropertiesAddNotifier notifier(object, index, 1);
    const std::optional<std::size_t> countNow = elementCount(object);
    if (!countNow)
        return -1;
    const std::size_t place = std::min(index, *countNow);
    insertElement(object, place, added);
    return static_cast<int>(place);
}

bool CollectionMetaObject::removeProperty(const ReflectedObject& told, std::size_t index)
{
    const ReflectedObject object = told;
    if (index >= propertyCount(object))
        return false;
    const PropertiesRemoveNotifier notifier(object, index, 1);
    if (index >= propertyCount(object)) // a listener removed elements, or the collection
        return false;
    if (!object.isStateless())
        recordRemoval(object, index);
    eraseElement(object, index);
    return true;
}

void CollectionMetaObject::propertyAboutToBeAdded(const ReflectedObject& object, std::size_t first, std::size_t count)
{
    NotifyableMetaObject<1>::propertyAboutToBeAdded(object, first, count);
    renumber(object, first, propertyCount(object), static_cast<std::ptrdiff_t>(count));
}

void CollectionMetaObject::propertyAboutToBeRemoved(const ReflectedObject& object, std::size_t index, std::size_t count)
{
    const std::size_t size = propertyCount(object);
    if (OZY_ASSERT(index + count <= size))
        renumber(object, index + count, size, -static_cast<std::ptrdiff_t>(count));
    NotifyableMetaObject<1>::propertyAboutToBeRemoved(object, index, count);

    // What stands behind the new end was not renumbered away: its listeners do not pass on to a later element.
    for (std::size_t last = std::max(size, count) - count; object.data() && last < size; ++last)
        object.data()->dropPropertyData(*elementProperty(last));
}

const std::shared_ptr<MetaProperty>& CollectionMetaObject::elementProperty(std::size_t index) const
{
    if (index >= m_elementProperties.size())
        m_elementProperties.resize(index + 1);
    std::shared_ptr<MetaProperty>& property = m_elementProperties[index];
    if (!property) {
        const RYK::Profiler::Scope scope("Reflection|MetaProperties|CollectionMetaObject");
        property = std::make_shared<Element>(*this, index);
        property->initialize();
    }
    return property;
}

void CollectionMetaObject::renumber(const ReflectedObject& object, std::size_t first, std::size_t end,
                                    std::ptrdiff_t distance) const
{
    struct Moved
    {
        BoundProperty property;
        std::shared_ptr<PropertyData> data;
        std::size_t index;
    };
    // All are taken out first: as soon as the first is bound to its new index, the data of the next cannot be found there.
    std::vector<Moved> moved;
    moved.reserve(end - std::min(first, end));
    for (std::size_t index = first; index < end; ++index) {
        const BoundProperty property = object.propertyAt(index);
        PropertyData* data = property.propertyData();
        if (OZY_ASSERT_DETAIL("Object must contain propertyData", data))
            moved.push_back({property, data->shared_from_this(), index});
    }
    // Intended: told by the index that it had, since the vector has not changed yet and is read by that.
    for (const Moved& element : moved) {
        const NotifyScope scope = NotifyScope::beginPropertyChange(element.property, element.data.get(), {},
                                                                   ryk::Flags<NotifyFlag>(3U));
        element.data->setMetaProperty(elementProperty(element.index + static_cast<std::size_t>(distance)));
    }
}

} // namespace zarn
