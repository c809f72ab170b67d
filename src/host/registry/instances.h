#pragma once

#include <host/base/host_export.h>

#include <typeinfo>

/// The host's registry of singleton services, by the decorated name of their interface (`typeid(I).name()`).
///
/// The registry owns nothing: a service takes itself out before it dies. Threads: any.
namespace instances {

/// The one instance of an interface, or null.
DATAMODELS_HOST_API void* get(const char* typeKey);

/// Makes `instance` the one of its interface, in place of any before; null takes it out.
DATAMODELS_HOST_API void set(const char* typeKey, void* instance);

template <class Interface>
void set(Interface* instance)
{
    set(typeid(Interface).name(), instance);
}

} // namespace instances
