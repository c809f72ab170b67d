#pragma once

#include <host/base/debug.h>
#include <host/registry/instances.h>

#include <typeinfo>

namespace datamodels {

/// The host's one instance of an interface. Null, with an assertion in the log, when the host has none: the caller goes
/// on without the service.
template <class Interface>
Interface* hostService()
{
    auto* ptr = static_cast<Interface*>(instances::get(typeid(Interface).name()));
    OZY_ASSERT(ptr);
    return ptr;
}

} // namespace datamodels
