#include <host/registry/instances.h>

#include <map>
#include <mutex>
#include <string>

namespace instances {
namespace {

struct Registry
{
    std::mutex mutex;
    std::map<std::string, void*, std::less<>> services;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

} // namespace

void* get(const char* typeKey)
{
    const std::lock_guard lock(registry().mutex);
    const auto found = registry().services.find(typeKey);
    return found == registry().services.end() ? nullptr : found->second;
}

void set(const char* typeKey, void* instance)
{
    const std::lock_guard lock(registry().mutex);
    if (instance)
        registry().services.insert_or_assign(typeKey, instance);
    else
        registry().services.erase(typeKey);
}

} // namespace instances
