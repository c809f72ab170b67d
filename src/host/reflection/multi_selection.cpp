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

std::string typeOf(const ReflectedObject& object)
{
    const auto type = object.annotations().find<Meta::MultiSelection::ObjectType>();
    return type.isValid() ? type->value<Meta::MultiSelection::ObjectType>().name(object) : object.metaObject()->name();
}

MergedProperty& merged(const std::shared_ptr<MetaProperty>& property)
{
    return static_cast<MergedProperty&>(*property);
}

} // namespace

struct MultiSelection::Member
{
    ReflectedObject object;
    BoundProperty reference;
    Identity identity;
    std::string type;
    std::vector<ryk::ScopedConnection> connections;
};

MultiSelection::MultiSelection(Mode, bool onlyEqualTypes) : m_onlyEqualTypes(onlyEqualTypes) {}

MultiSelection::~MultiSelection() = default;

std::size_t MultiSelection::mergedCount() const
{
    return static_cast<std::size_t>(
        std::count_if(m_members.begin(), m_members.end(), [this](const auto& entry) { return takesPart(entry.second); }));
}

void MultiSelection::merge(const ReflectedObject& object, const BoundProperty& reference)
{
    const Identity identity(object.address(), object.metaObject());
    if (!object.isValid() || m_numbers.count(identity) || object.address() == this)
        return;

    const std::size_t number = m_nextNumber++;
    m_numbers.emplace(identity, number);
    Member& member = m_members.emplace(number, Member{object, reference, identity, typeOf(object), {}}).first->second;
    const auto structureChanged = [this] { rebuild(); };
    member.connections.emplace_back(object.metaObject()->connectObjectDeleted(object, [this, number] { leave(number); }));
    member.connections.emplace_back(object.connectPropertyAdded(structureChanged));
    member.connections.emplace_back(object.connectPropertyRemoved(structureChanged));
    member.connections.emplace_back(object.connectPropertiesReset(structureChanged));

    if (m_members.size() == 1)
        rebuild();
    else if (takesPart(member))
        join(number);
}

bool MultiSelection::unmerge(const ReflectedObject& object)
{
    const auto found = object.isValid() ? m_numbers.find(Identity(object.address(), object.metaObject())) : m_numbers.end();
    if (found == m_numbers.end())
        return false;
    leave(found->second);
    return true;
}

BoundProperty MultiSelection::parent() const
{
    const Member* first = firstMember();
    return first ? first->reference : BoundProperty();
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
    m_members.clear();
    m_numbers.clear();
    m_type.clear();
}

bool MultiSelection::takesPart(const Member& member) const
{
    return !m_onlyEqualTypes || member.type == m_type;
}

const MultiSelection::Member* MultiSelection::firstMember() const
{
    const auto first =
        std::find_if(m_members.begin(), m_members.end(), [this](const auto& entry) { return takesPart(entry.second); });
    return first == m_members.end() ? nullptr : &first->second;
}

void MultiSelection::join(std::size_t number)
{
    const ReflectedObject object = m_members.at(number).object;
    const Properties shown = properties();
    // Whoever is told may take the object out again, or clear the selection.
    for (const std::shared_ptr<MetaProperty>& property : shown) {
        if (!m_members.count(number))
            return;
        const BoundProperty target = object.findPropertyByName(property->name());
        if (merged(property).fits(target)) {
            const NotifyScope scope = NotifyScope::beginPropertyChange(merged(property).bound(), {}, NotifyFlag::Value);
            merged(property).add(number, target);
            continue;
        }
        const auto position = std::find(properties().begin(), properties().end(), property);
        if (position != properties().end())
            removeProperty(static_cast<std::size_t>(position - properties().begin()));
        m_isNarrowed = true;
    }
    m_isNarrowed = m_isNarrowed || object.propertyCount() > properties().size();
}

void MultiSelection::leave(std::size_t number)
{
    const auto left = m_members.extract(number);
    if (left.empty())
        return;
    m_numbers.erase(left.mapped().identity);
    if (!takesPart(left.mapped()))
        return;
    if (m_isNarrowed || !firstMember()) {
        rebuild();
        return;
    }
    const Properties shown = properties();
    for (const std::shared_ptr<MetaProperty>& property : shown) {
        const NotifyScope scope = NotifyScope::beginPropertyChange(merged(property).bound(), {}, NotifyFlag::Value);
        merged(property).remove(number);
    }
}

void MultiSelection::rebuild()
{
    const Member* first = firstMember();
    if (!first && !m_members.empty())
        first = &m_members.begin()->second;
    m_type = first ? first->type : std::string();
    resetProperties(commonProperties());
}

GenericObject::Properties MultiSelection::commonProperties()
{
    Properties common;
    m_isNarrowed = false;
    const Member* first = firstMember();
    if (!first)
        return common;

    const ReflectedObject self = reflect(*this);
    for (std::size_t index = 0; index < first->object.propertyCount(); ++index) {
        const auto property = std::make_shared<MergedProperty>(self, first->object.propertyAt(index));
        bool isCommon = true;
        for (const auto& [number, member] : m_members) {
            if (!takesPart(member))
                continue;
            const BoundProperty target = member.object.findPropertyByName(property->name());
            isCommon = isCommon && property->fits(target);
            if (isCommon)
                property->add(number, target);
        }
        if (isCommon)
            common.push_back(property);
    }
    m_isNarrowed = std::any_of(m_members.begin(), m_members.end(), [&](const auto& entry) {
        return takesPart(entry.second) && entry.second.object.propertyCount() > common.size();
    });
    return common;
}

} // namespace zarn
