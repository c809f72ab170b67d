#include <host/reflection/multi_selection.h>

#include <host/reflection/cast.h>
#include <host/reflection/generic_meta_object.h>
#include <host/reflection/merged_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/notifiers.h>

#include <algorithm>

namespace zarn {
namespace {

GenericMetaObject selectionClass(typeid(MultiSelection), "zarn::MultiSelection",
                                 {{&GenericMetaObject::instance(), [](void* object) -> void* {
                                       return static_cast<GenericObject*>(static_cast<MultiSelection*>(object));
                                   }}});

MergedProperty& merged(const std::shared_ptr<MetaProperty>& property)
{
    return static_cast<MergedProperty&>(*property);
}

} // namespace

MultiSelection::MultiSelection(Mode, bool onlyEqualTypes) : m_onlyEqualTypes(onlyEqualTypes) {}

MultiSelection::~MultiSelection()
{
    MultiSelection::cleared(); // while whoever is told can still ask it
}

void MultiSelection::merge(const ReflectedObject& object, const BoundProperty& reference)
{
    const Identity identity(object.address(), object.metaObject());
    if (!object.isValid() || object.address() == this || isSelected(identity))
        return;
    SelectedObject& merged = m_objects.try_emplace(identity, *this, object, reference, typeOf(object)).first->second;
    m_order.push_back(merged);

    if (m_objects.size() == 1)
        rebuild();
    else if (!m_onlyEqualTypes || merged.type() == m_type)
        join(identity);
}

bool MultiSelection::unmerge(const ReflectedObject& object)
{
    const Identity identity(object.address(), object.metaObject());
    if (!object.isValid() || !isSelected(identity))
        return false;
    leave(identity);
    return true;
}

BoundProperty MultiSelection::parent() const
{
    const SelectedObject* const merged = first();
    return merged ? merged->reference() : BoundProperty();
}

bool MultiSelection::isMixed(const BoundProperty& property)
{
    return MergedProperty::isMixed(property);
}

std::string MultiSelection::typeName() const
{
    return m_type;
}

void MultiSelection::cleared()
{
    m_order.clear();
    m_mergedCount = 0;
    m_type.clear();
    m_ownType = nullptr;
    // The changes that are under way end with the objects, and who is told of that may select others.
    const auto gone = std::exchange(m_objects, {});
}

std::string MultiSelection::typeOf(const ReflectedObject& object)
{
    if (object.metaObject() != m_ownType) {
        const auto type = object.annotations().find<Meta::MultiSelection::ObjectType>();
        if (type.isValid())
            return type->value<Meta::MultiSelection::ObjectType>().name(object);
        m_ownType = object.metaObject();
    }
    return m_ownType->name();
}

void MultiSelection::setTakesPart(SelectedObject& object, bool takesPart)
{
    if (object.takesPart() != takesPart)
        m_mergedCount += takesPart ? 1 : std::size_t(-1);
    object.setTakesPart(takesPart);
}

/// The first of those that take part; null if there is none.
const SelectedObject* MultiSelection::first() const
{
    const auto first = std::find_if(m_order.begin(), m_order.end(), [](const auto& object) { return object.takesPart(); });
    return first == m_order.end() ? nullptr : &*first;
}

std::vector<BoundProperty> MultiSelection::targetsOf(const MergedProperty& property) const
{
    std::vector<BoundProperty> targets;
    targets.reserve(m_mergedCount);
    for (const SelectedObject& object : m_order) {
        BoundProperty target = object.takesPart() ? property.target(object.object()) : BoundProperty();
        if (target.isValid()) // not one that is dying
            targets.push_back(std::move(target));
    }
    return targets;
}

/// What shows the property of an object; invalid if nothing does, or nobody listens to that.
BoundProperty MultiSelection::heardProperty(const BoundProperty& property) const
{
    ObjectData& data = *MetaObject::objectDataOf(*this, {}, nullptr);
    const auto shown = std::find_if(properties().begin(), properties().end(), [&](const auto& common) {
        return common->name() == property.name() && data.toldData(common) && merged(common).fits(property);
    });
    return shown == properties().end() ? BoundProperty() : merged(*shown).bound();
}

/// Brackets a change of all properties that somebody listens to.
std::vector<NotifyScope> MultiSelection::changeAll() const
{
    ObjectData& data = *MetaObject::objectDataOf(*this, {}, nullptr);
    std::vector<BoundProperty> heard;
    for (const std::shared_ptr<MetaProperty>& property : properties()) {
        if (data.toldData(property))
            heard.push_back(merged(property).bound());
    }
    std::vector<NotifyScope> changes;
    changes.reserve(heard.size());
    for (const BoundProperty& property : heard)
        changes.push_back(NotifyScope::beginPropertyChange(property, {}, NotifyFlag::Value));
    return changes;
}

void MultiSelection::join(Identity identity)
{
    dropWhatLacks(m_objects.at(identity).object());
    // Whoever is told may take the object out again, or clear the selection.
    const std::vector<NotifyScope> changes = changeAll();
    const auto joining = m_objects.find(identity);
    if (joining == m_objects.end())
        return;
    setTakesPart(joining->second, true);
    m_isNarrowed = m_isNarrowed || joining->second.object().propertyCount() > properties().size();
}

void MultiSelection::dropWhatLacks(const ReflectedObject& object)
{
    const auto isLacking = [&object](const auto& property) { return !merged(property).isOf(object); };
    if (std::none_of(properties().begin(), properties().end(), isLacking))
        return;
    m_isNarrowed = true;
    const ReflectedObject kept = object;
    const Properties shown = properties();
    for (const std::shared_ptr<MetaProperty>& property : shown) {
        const auto position = std::find(properties().begin(), properties().end(), property);
        if (position != properties().end() && !merged(property).isOf(kept))
            removeProperty(static_cast<std::size_t>(position - properties().begin()));
    }
}

void MultiSelection::leave(Identity identity)
{
    const auto take = [&] {
        auto taken = m_objects.extract(identity);
        if (!taken.empty()) {
            m_order.erase(m_order.iterator_to(taken.mapped()));
            setTakesPart(taken.mapped(), false);
        }
        return taken;
    };
    const auto leaving = m_objects.find(identity);
    if (leaving == m_objects.end())
        return;
    const bool tookPart = leaving->second.takesPart();
    if (tookPart && !m_isNarrowed && m_mergedCount > 1) {
        const std::vector<NotifyScope> changes = changeAll();
        take();
        return;
    }
    take();
    if (tookPart)
        rebuild();
}

void MultiSelection::rebuild()
{
    const SelectedObject* leading = first();
    if (!leading && !m_order.empty())
        leading = &m_order.front();
    m_type = leading ? leading->type() : std::string();
    for (SelectedObject& object : m_order)
        setTakesPart(object, !m_onlyEqualTypes || object.type() == m_type);
    resetProperties(commonProperties());
}

GenericObject::Properties MultiSelection::commonProperties()
{
    Properties common;
    m_isNarrowed = false;
    const SelectedObject* const leading = first();
    if (!leading)
        return common;

    const ReflectedObject self = reflect(*this);
    for (std::size_t index = 0; index < leading->object().propertyCount(); ++index) {
        const auto property = std::make_shared<MergedProperty>(self, leading->object().propertyAt(index));
        const bool isCommon = std::all_of(m_order.begin(), m_order.end(), [&](const SelectedObject& object) {
            return !object.takesPart() || property->isOf(object.object());
        });
        if (isCommon)
            common.push_back(property);
    }
    m_isNarrowed = std::any_of(m_order.begin(), m_order.end(), [&](const SelectedObject& object) {
        return object.takesPart() && object.object().propertyCount() > common.size();
    });
    return common;
}

} // namespace zarn
