#include <host/base/profiler.h>

namespace RYK::Profiler {

constinit Hooks g_hooks;

} // namespace RYK::Profiler
