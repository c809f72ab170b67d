#pragma once

#include <host/base/host_export.h>
#include <host/reflection/reflected_object.h>

#include <memory>

namespace zarn {

/// A handle that finds its object again after it was destroyed and made anew.
///
/// While the object lives it is that object. Afterwards it is what stands in the property through which the object was
/// reached, found from that property's own object in the same way.
class DATAMODELS_HOST_API PersistentObject
{
public:
    PersistentObject() = default;
    PersistentObject(ReflectedObject object);

    /// Invalid while there is no such object.
    ReflectedObject object() const;

private:
    struct Place;

    mutable ReflectedObject m_object;
    std::shared_ptr<const Place> m_place; // null for an object that was reached directly
};

} // namespace zarn
