#pragma once

#include <host/base/host_export.h>

#include <memory>

namespace zarn {

class MetaObject;
class ObjectData;

/// The base of classes whose objects are reflected themselves. It owns what the reflection keeps of the object, made at
/// the first need, and makes all handles invalid when it dies. A copy is another object, with no listeners.
class DATAMODELS_HOST_API Object
{
public:
    Object() = default;
    Object(const Object&) {}
    Object& operator=(const Object&) { return *this; }
    virtual ~Object();

private:
    friend class MetaObject;

    mutable std::shared_ptr<ObjectData> m_data;
};

} // namespace zarn
