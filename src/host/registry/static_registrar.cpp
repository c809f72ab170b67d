#include <host/registry/static_registrar.h>

#include <deque>
#include <mutex>
#include <utility>

namespace StaticRegistrar {
namespace {

struct Queue
{
    std::mutex mutex;
    std::deque<std::function<void()>> registrations;

    std::function<void()> takeFirst()
    {
        const std::lock_guard lock(mutex);
        if (registrations.empty())
            return {};
        std::function<void()> first = std::move(registrations.front());
        registrations.pop_front();
        return first;
    }
};

// Load-time objects of other libraries fill the queue, maybe before this library's own statics exist.
Queue& queue()
{
    static Queue instance;
    return instance;
}

} // namespace

void RegistrarInternals::addDeferredRegistration(std::function<void()> registration)
{
    if (!registration)
        return;
    const std::lock_guard lock(queue().mutex);
    queue().registrations.push_back(std::move(registration));
}

void RegistrarInternals::runDeferred()
{
    while (const std::function<void()> registration = queue().takeFirst())
        registration();
}

} // namespace StaticRegistrar
