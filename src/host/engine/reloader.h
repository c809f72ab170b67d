#pragma once

#include <host/base/host_export.h>
#include <host/signals/signal.h>

#include <functional>

namespace Ozy {

/// Tells those who listen that what it stands for should be loaded anew. Does not load anything itself. Threads: as a
/// signal.
class DATAMODELS_HOST_API Reloader
{
public:
    Reloader() = default;
    virtual ~Reloader();
    Reloader(const Reloader&) = delete;
    Reloader& operator=(const Reloader&) = delete;

    void onReloaded(Reloader* reloader) const { m_reloaded(reloader); }
    ryk::Connection connectReloaded(std::function<void(Reloader*)> slot) const { return m_reloaded.connect(slot); }

private:
    ryk::Signal<void(Reloader*)> m_reloaded;
};

} // namespace Ozy
