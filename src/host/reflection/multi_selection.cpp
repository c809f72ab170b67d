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

/// One object of the selection, and the changes of it that are under way.
class MultiSelection::Member final : public ObjectObserver
{
public:
    Member(MultiSelection& selection, std::size_t number, const ReflectedObject& object, const BoundProperty& reference)
        : object(object)
        , reference(reference)
        , identity(object.address(), object.metaObject())
        , type(typeOf(object))
        , m_selection(selection)
        , m_number(number)
    {
        observe(object);
    }

    void objectDeleted() override { m_selection.leave(m_number); }
    void propertyAboutToBeChanged(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                                  ryk::Flags<NotifyFlag> notifyFlags) override;
    void propertyChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) override;
    void propertyAdded(std::size_t, std::size_t) override { m_selection.rebuild(); }
    void propertyRemoved(std::size_t, std::size_t) override { m_selection.rebuild(); }
    void propertiesReset() override { m_selection.rebuild(); }

    const ReflectedObject object;
    const BoundProperty reference;
    const Identity identity;
    const std::string type;
    bool takesPart = false; // else it waits

private:
    struct Change
    {
        const MetaProperty* of;
        NotifyScope scope; // of the property of the selection
    };

    MultiSelection& m_selection;
    const std::size_t m_number;
    std::vector<std::unique_ptr<Change>> m_changes;
};

void MultiSelection::Member::propertyAboutToBeChanged(const BoundProperty& property, ryk::Flags<SetterFlag> setterFlags,
                                                      ryk::Flags<NotifyFlag> notifyFlags)
{
    const std::shared_ptr<MetaProperty> shown = takesPart ? m_selection.heardProperty(property) : nullptr;
    if (!shown)
        return;
    MultiSelection& selection = m_selection;
    const std::size_t number = m_number;
    auto change = std::make_unique<Change>(
        property.metaProperty().get(),
        NotifyScope::beginPropertyChange(merged(shown).bound(), setterFlags, notifyFlags));
    // Who was told may have taken the object out of the selection, or destroyed that.
    if (change->scope.property().object().isValid() && selection.m_members.count(number))
        m_changes.push_back(std::move(change));
}

void MultiSelection::Member::propertyChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>)
{
    const auto found = std::find_if(m_changes.begin(), m_changes.end(),
                                    [&](const auto& change) { return change->of == property.metaProperty().get(); });
    if (found == m_changes.end())
        return;
    // Taken out first, for the same reason.
    const std::unique_ptr<Change> ending = std::move(*found);
    m_changes.erase(found);
}

MultiSelection::MultiSelection(Mode, bool onlyEqualTypes) : m_onlyEqualTypes(onlyEqualTypes) {}

MultiSelection::~MultiSelection() = default;

void MultiSelection::merge(const ReflectedObject& object, const BoundProperty& reference)
{
    if (!object.isValid() || object.address() == this)
        return;
    const std::size_t number = m_nextNumber;
    if (!m_numbers.emplace(Identity(object.address(), object.metaObject()), number).second)
        return;
    ++m_nextNumber;
    const Member& member = m_members.try_emplace(m_members.end(), number, *this, number, object, reference)->second;

    if (m_members.size() == 1)
        rebuild();
    else if (!m_onlyEqualTypes || member.type == m_type)
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
    m_mergedCount = 0;
    m_type.clear();
}

void MultiSelection::setTakesPart(Member& member, bool takesPart)
{
    if (member.takesPart != takesPart)
        m_mergedCount += takesPart ? 1 : std::size_t(-1);
    member.takesPart = takesPart;
}

const MultiSelection::Member* MultiSelection::firstMember() const
{
    const auto first =
        std::find_if(m_members.begin(), m_members.end(), [](const auto& entry) { return entry.second.takesPart; });
    return first == m_members.end() ? nullptr : &first->second;
}

std::vector<BoundProperty> MultiSelection::targetsOf(const MergedProperty& property) const
{
    std::vector<BoundProperty> targets;
    targets.reserve(m_mergedCount);
    for (const auto& [number, member] : m_members) {
        if (!member.takesPart)
            continue;
        BoundProperty target = property.target(member.object);
        if (target.isValid()) // not one that is dying
            targets.push_back(std::move(target));
    }
    return targets;
}

/// What shows the property of a member; null if nothing does, or nobody listens to that.
std::shared_ptr<MetaProperty> MultiSelection::heardProperty(const BoundProperty& ofMember) const
{
    ObjectData& data = *MetaObject::objectDataOf(*this, {}, nullptr);
    const auto shown = std::find_if(properties().begin(), properties().end(), [&](const auto& property) {
        return property->name() == ofMember.name() && data.toldData(property) && merged(property).fits(ofMember);
    });
    return shown == properties().end() ? nullptr : *shown;
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

void MultiSelection::join(std::size_t number)
{
    dropWhatLacks(m_members.at(number).object);
    // Whoever is told may take the object out again, or clear the selection.
    const std::vector<NotifyScope> changes = changeAll();
    const auto joining = m_members.find(number);
    if (joining == m_members.end())
        return;
    setTakesPart(joining->second, true);
    m_isNarrowed = m_isNarrowed || joining->second.object.propertyCount() > properties().size();
}

void MultiSelection::dropWhatLacks(const ReflectedObject& object)
{
    const auto isLacking = [&object](const auto& property) { return !merged(property).target(object).isValid(); };
    if (std::none_of(properties().begin(), properties().end(), isLacking))
        return;
    m_isNarrowed = true;
    const ReflectedObject kept = object;
    const Properties shown = properties();
    for (const std::shared_ptr<MetaProperty>& property : shown) {
        const auto position = std::find(properties().begin(), properties().end(), property);
        if (position != properties().end() && !merged(property).target(kept).isValid())
            removeProperty(static_cast<std::size_t>(position - properties().begin()));
    }
}

void MultiSelection::leave(std::size_t number)
{
    const auto leaving = m_members.find(number);
    if (leaving == m_members.end())
        return;
    m_numbers.erase(leaving->second.identity);
    if (!leaving->second.takesPart) {
        m_members.erase(leaving);
        return;
    }
    if (m_isNarrowed || m_mergedCount == 1) {
        setTakesPart(leaving->second, false);
        m_members.erase(leaving);
        rebuild();
        return;
    }
    const std::vector<NotifyScope> changes = changeAll();
    const auto left = m_members.extract(number);
    if (!left.empty())
        setTakesPart(const_cast<Member&>(left.mapped()), false);
}

void MultiSelection::rebuild()
{
    const Member* first = firstMember();
    if (!first && !m_members.empty())
        first = &m_members.begin()->second;
    m_type = first ? first->type : std::string();
    for (auto& [number, member] : m_members)
        setTakesPart(member, !m_onlyEqualTypes || member.type == m_type);
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
            if (member.takesPart)
                isCommon = isCommon && property->target(member.object).isValid();
        }
        if (isCommon)
            common.push_back(property);
    }
    m_isNarrowed = std::any_of(m_members.begin(), m_members.end(), [&](const auto& entry) {
        return entry.second.takesPart && entry.second.object.propertyCount() > common.size();
    });
    return common;
}

} // namespace zarn
