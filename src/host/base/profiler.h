#pragma once

#include <host/base/host_export.h>

#include <QtGlobal>

namespace RYK::Profiler {

/// What a profiler installs to hear of scopes. Either member may be null. Both are called on the thread of the scope,
/// so they must be safe to call from any; `name` is a literal.
struct Hooks
{
    void (*begin)(const char* name) = nullptr;
    void (*end)() = nullptr;
};

/// Install before worker threads start, and take away after they have ended: scopes read it without a lock.
DATAMODELS_HOST_API extern Hooks g_hooks;

/// Reports a block to the hooks that are installed while it is entered.
class Scope
{
public:
    explicit Scope(const char* name) : m_end(g_hooks.end)
    {
        if (g_hooks.begin)
            g_hooks.begin(name);
    }
    ~Scope()
    {
        if (m_end)
            m_end();
    }
    Q_DISABLE_COPY_MOVE(Scope)

private:
    void (*m_end)(); // the one that matches the begin, should hooks be exchanged inside the block
};

} // namespace RYK::Profiler
