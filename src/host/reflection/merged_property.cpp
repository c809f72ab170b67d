#include <host/reflection/merged_property.h>

#include <host/reflection/cast.h>
#include <host/reflection/meta.h>
#include <host/reflection/multi_selection.h>
#include <host/undo/commit_changes_scope.h>

#include <algorithm>

namespace zarn {
namespace {

struct Written
{
    BoundProperty property;
    qelm::Variant before;
};

std::size_t recordedCount()
{
    const Ozy::CommandsTransaction* open = Ozy::CommitChangesScope::transaction();
    return open && open->composite ? open->composite->size() : 0;
}

/// Leaves no trace in the open transaction, and gives back as well what is not recorded.
void takeBack(const std::vector<Written>& written, ryk::Flags<SetterFlag> flags, std::size_t recordedBefore)
{
    if (recordedCount() > recordedBefore)
        Ozy::Detail::rollBack(*Ozy::CommitChangesScope::transaction()->composite, recordedBefore);
    Ozy::CommandsTransaction silent;
    const Ozy::Detail::TransactionExchange exchange(&silent);
    for (auto one = written.rbegin(); one != written.rend(); ++one) {
        if (!(one->property.get() == one->before))
            one->property.set(one->before, flags);
    }
}

Annotations mergedAnnotations(const BoundProperty& first)
{
    Annotations annotations = first.annotations();
    annotations += qelm::Variant(Meta::MultiSelection::Mixed{
        [](const BoundProperty& property) { return MergedProperty::isMixed(property); }});
    return annotations;
}

} // namespace

MergedProperty::MergedProperty(const ReflectedObject& owner, const BoundProperty& first)
    : NotifyableMetaProperty<1>(first.isMethod() ? Kind::Method : Kind::Value, first.key(), mergedAnnotations(first))
    , m_owner(owner)
{
}

MergedProperty::~MergedProperty() = default;

BoundProperty MergedProperty::target(const ReflectedObject& object) const
{
    const MetaObject* const metaObject = object.metaObject();
    if (isOfClass(metaObject))
        return {object, m_ofClass};
    std::shared_ptr<MetaProperty> common = metaObject ? metaObject->findCommonProperty(name()) : nullptr;
    if (!common || common->kind() != kind()) {
        const BoundProperty found = object.findPropertyByName(name());
        return fits(found) ? found : BoundProperty();
    }
    m_class = metaObject;
    m_ofClass = std::move(common);
    return {object, m_ofClass};
}

bool MergedProperty::fits(const BoundProperty& target) const
{
    return target.isValid() && target.isMethod() == (kind() == Kind::Method);
}

BoundProperty MergedProperty::bound() const
{
    return {m_owner, std::const_pointer_cast<MetaProperty>(shared_from_this())};
}

bool MergedProperty::isMixed(const BoundProperty& property)
{
    const auto* merged = dynamic_cast<const MergedProperty*>(property.metaProperty().get());
    return merged && merged->isMixed();
}

bool MergedProperty::isMixed() const
{
    const std::vector<BoundProperty> all = targets();
    if (all.empty())
        return false;
    const qelm::Variant first = all.front().get();
    return std::any_of(all.begin() + 1, all.end(), [&first](const BoundProperty& one) { return !(one.get() == first); });
}

std::size_t MergedProperty::argumentCount() const
{
    const std::vector<BoundProperty> all = targets();
    return all.empty() ? 0 : all.front().metaProperty()->argumentCount();
}

bool MergedProperty::isConst() const
{
    const std::vector<BoundProperty> all = targets();
    return std::all_of(all.begin(), all.end(), [](const BoundProperty& one) { return one.isConst(); });
}

bool MergedProperty::isReadOnly() const
{
    const std::vector<BoundProperty> all = targets();
    return std::any_of(all.begin(), all.end(), [](const BoundProperty& one) { return one.isReadOnly(); });
}

ryk::Flags<meta_property::VisibilityFlag> MergedProperty::visibility(const BoundProperty&) const
{
    auto visibility = meta_property::fullyVisible;
    for (const BoundProperty& target : targets())
        visibility &= target.visibility();
    return visibility;
}

qelm::Variant MergedProperty::get(const BoundProperty&) const
{
    const std::vector<BoundProperty> all = targets();
    if (all.empty())
        return {};
    const auto reduce = all.size() > 1 ? annotations().find<Meta::MultiSelection::ReduceMap>() : Annotations::untyped_iterator();
    if (!reduce.isValid())
        return isMixed() ? qelm::Variant() : all.front().get();

    std::vector<qelm::Variant> values;
    values.reserve(all.size());
    for (const BoundProperty& target : all)
        values.push_back(target.get());
    return reduce->value<Meta::MultiSelection::ReduceMap>().reduce(values);
}

qelm::Variant MergedProperty::converted(const qelm::Variant& value) const
{
    qelm::Variant first;
    for (const BoundProperty& target : targets()) {
        const qelm::Variant converted = target.metaProperty()->converted(value);
        if (converted.isVoid())
            return {};
        if (first.isVoid())
            first = converted;
    }
    return first;
}

bool MergedProperty::set(const BoundProperty&, const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const
{
    const std::size_t recordedBefore = recordedCount();
    std::vector<Written> written;
    try {
        for (const BoundProperty& target : targets()) {
            written.push_back({target, target.get()});
            if (!target.set(value, flags)) {
                takeBack(written, flags, recordedBefore);
                return false;
            }
        }
    } catch (...) {
        takeBack(written, flags, recordedBefore);
        throw;
    }
    return true;
}

qelm::Variant MergedProperty::invoke(const BoundProperty&, std::size_t count, const qelm::Variant* arguments) const
{
    std::vector<qelm::Variant> results;
    for (const BoundProperty& target : targets())
        results.push_back(target.genericInvoke({}, count, arguments));
    const bool agree = std::all_of(results.begin(), results.end(),
                                   [&results](const qelm::Variant& one) { return one == results.front(); });
    return agree && !results.empty() ? results.front() : qelm::Variant();
}

std::vector<BoundProperty> MergedProperty::targets() const
{
    const auto* const selection = zarn::cast<MultiSelection>(m_owner);
    return selection ? selection->targetsOf(*this) : std::vector<BoundProperty>();
}

} // namespace zarn
