#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/notifiers.h>

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace zarn {

/// A property that the objects of a selection have in common: reading asks all, writing and calling reach all, and a change
/// of any is told once. It records no undo of its own, since each object does.
class MergedProperty final : public NotifyableMetaProperty<1>
{
public:
    /// As the first object has it, for the selection `owner`.
    MergedProperty(const ReflectedObject& owner, const BoundProperty& first);
    ~MergedProperty() override;

    /// The objects are numbered in the order in which they are to be read.
    void add(std::size_t number, const BoundProperty& target);
    void remove(std::size_t number);
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
    /// The property of one object.
    struct Target
    {
        BoundProperty property;
        std::unique_ptr<NotifyScope> change; // while the object is between its two notifications
        ryk::ScopedConnection aboutToBeChanged;
        ryk::ScopedConnection changed;
    };

    /// A copy, since who hears of a change may change the selection.
    std::vector<BoundProperty> targets() const;
    bool isMixed() const;

    ReflectedObject m_owner;
    std::map<std::size_t, Target> m_targets;
};

} // namespace zarn
