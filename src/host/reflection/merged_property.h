#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/notifiers.h>

#include <memory>
#include <vector>

namespace zarn {

/// A property that the objects of a selection have in common: reading asks all, writing and calling reach all. It records no
/// undo of its own, since each object does. Once the selection is gone it has no objects.
class MergedProperty final : public NotifyableMetaProperty<1>
{
public:
    /// As the first object has it, for the selection `owner`.
    MergedProperty(const ReflectedObject& owner, const BoundProperty& first);
    ~MergedProperty() override;

    /// Whether it stands for a property of the object as well.
    bool isOf(const ReflectedObject& object) const { return isOfClass(object.metaObject()) || target(object).isValid(); }
    /// That property; invalid if there is none.
    BoundProperty target(const ReflectedObject& object) const;
    bool fits(const BoundProperty& target) const;

    BoundProperty bound() const;
    static bool isMixed(const BoundProperty& property);

    std::size_t argumentCount() const override;
    bool isConst() const override;
    bool isReadOnly() const override;
    bool isStateless(const BoundProperty&) const override { return true; }
    ryk::Flags<meta_property::VisibilityFlag> visibility(const BoundProperty& property) const override;
    qelm::Variant get(const BoundProperty& property) const override;
    qelm::Variant converted(const qelm::Variant& value) const override;
    bool set(const BoundProperty& property, const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const override;
    qelm::Variant invoke(const BoundProperty& property, std::size_t count, const qelm::Variant* arguments) const override;

private:
    /// A copy, since who hears of a change may change the selection.
    std::vector<BoundProperty> targets() const;
    bool isMixed() const;
    bool isOfClass(const MetaObject* metaObject) const { return metaObject && metaObject == m_class; }

    ReflectedObject m_owner;
    // Selected objects are mostly of one class: what its objects have in common is looked up once.
    mutable const MetaObject* m_class = nullptr;
    mutable std::shared_ptr<MetaProperty> m_ofClass;
};

} // namespace zarn
