#pragma once

#include <host/base/host_export.h>

#include <functional>

namespace StaticRegistrar {

/// Keeps what libraries want to do as soon as there is an application object, for libraries that are loaded before.
///
/// A host that takes this one's place runs what it was given once, in the order given, on the thread of the
/// application, right after it has made the application object.
/// Threads: `addDeferredRegistration` may be called from any, also during static initialisation.
class DATAMODELS_HOST_API RegistrarInternals
{
public:
    /// Keeps a function until `runDeferred`. An empty function is dropped.
    static void addDeferredRegistration(std::function<void()> registration);

    /// Runs and forgets what was kept, in order, including what the functions themselves add. Call it once there is an
    /// application object; calling it again runs only what has come since. An exception leaves the later ones queued.
    static void runDeferred();
};

} // namespace StaticRegistrar
