#pragma once

#include <host/base/host_export.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/generic_object.h>
#include <host/reflection/selected_object.h>

#include <unordered_map>
#include <vector>

namespace zarn {

class MergedProperty;

/// Several objects as one, for a panel that edits all that is selected.
///
/// Objects whose types have the same name (`Meta::MultiSelection::ObjectType`) merge; the type is that of the object that
/// was merged first, and those of other types wait until all of it have left. Shown are the properties that all objects
/// have, by name, as the first one describes them. An object that dies leaves by itself.
///
/// A property reads as the value that all agree on. Where they differ it is mixed (`isMixed`, or the annotation
/// `Meta::MultiSelection::Mixed`) and reads as void, or, with a `ReduceMap`, as what that makes of the values of several.
/// Writing reaches all objects or none: if one refuses or throws, the others get their values back. In an open transaction
/// each object records its own undo. A method is called for each; its result is what all agree on.
/// Signals: a change of a property of any object, a write to all included, is one pair of notifications; an object that
/// comes or goes is a change of all properties at once. A change of type, or of what the objects have in common, is a reset,
/// or removals.
/// The objects are not kept alive but by the handles that were passed. Cost: an object that comes or goes where nobody
/// listens to the properties costs a few look-ups, however many properties there are in common. Thread: GUI only.
class DATAMODELS_HOST_API MultiSelection : public GenericObject
{
public:
    /// Which properties are shown.
    enum class Mode
    {
        Common, ///< those that all objects have
    };

    /// With `onlyEqualTypes` false, objects of all types merge.
    explicit MultiSelection(Mode mode = Mode::Common, bool onlyEqualTypes = true);
    ~MultiSelection() override;

    /// Whether there is no object, not even one that waits.
    bool empty() const { return m_objects.empty(); }
    /// How many objects there are, waiting ones not counted.
    std::size_t mergedCount() const { return m_mergedCount; }

    /// Takes an object in; `reference` is the property through which it was reached, or an invalid one. Nothing happens for
    /// an invalid handle, an object that is there already, and the selection itself.
    void merge(const ReflectedObject& object, const BoundProperty& reference);
    /// Lets an object go; false if it is not there.
    bool unmerge(const ReflectedObject& object);

    /// The property through which the first object was reached.
    BoundProperty parent() const;

    /// Whether the objects differ in a property of a selection; false for any other property.
    static bool isMixed(const BoundProperty& property);

    std::string typeName() const override;

private:
    friend class MergedProperty;
    friend class SelectedObject;

    using Identity = SelectedObject::Identity;
    using Order = boost::intrusive::list<
        SelectedObject, boost::intrusive::base_hook<boost::intrusive::list_base_hook<boost::intrusive::tag<MultiSelection>>>,
        boost::intrusive::constant_time_size<false>>;

    void cleared() override;
    bool isOpen() const override { return false; }

    bool isSelected(const Identity& identity) const { return m_objects.count(identity); }
    std::string typeOf(const ReflectedObject& object);
    void setTakesPart(SelectedObject& object, bool takesPart);
    const SelectedObject* first() const;
    std::vector<BoundProperty> targetsOf(const MergedProperty& property) const;
    BoundProperty heardProperty(const BoundProperty& property) const;
    std::vector<NotifyScope> changeAll() const;
    void join(Identity identity);
    void dropWhatLacks(const ReflectedObject& object);
    void leave(Identity identity);
    void rebuild();
    Properties commonProperties();

    bool m_onlyEqualTypes;
    bool m_isNarrowed = false; // some object has a property that others lack
    std::string m_type;
    const MetaObject* m_ownType = nullptr; // a class that was found to be a type of its own
    std::unordered_map<Identity, SelectedObject, SelectedObject::IdentityHash> m_objects;
    Order m_order; // in which they were selected
    std::size_t m_mergedCount = 0;
};

} // namespace zarn
