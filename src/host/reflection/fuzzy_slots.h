#pragma once

#include <host/base/host_export.h>
#include <host/reflection/reflection_flags.h>
#include <host/signals/fuzzy_signal.h>

#include <cstddef>

namespace zarn {

class BoundProperty;
class ReflectedObject;

/// Gives a slot that wants an object, where the signal has a property, the property's object.
struct BoundPropertyArgumentConvertor
{
    template <class To>
    requires std::is_same_v<To, ReflectedObject>
    static const To& convert(const BoundProperty& property)
    {
        return objectOf(property);
    }

private:
    DATAMODELS_HOST_API static const ReflectedObject& objectOf(const BoundProperty& property);
};

using ObjectSignal = ryk::FuzzySignal<void(const ReflectedObject&), BoundPropertyArgumentConvertor>;
using RangeSignal =
    ryk::FuzzySignal<void(const ReflectedObject&, std::size_t first, std::size_t count), BoundPropertyArgumentConvertor>;
using PropertySignal = ryk::FuzzySignal<void(const BoundProperty&, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>),
                                        BoundPropertyArgumentConvertor>;

using ObjectSlot = ObjectSignal::slot_type;
using RangeSlot = RangeSignal::slot_type;
using PropertySlot = PropertySignal::slot_type;

} // namespace zarn
