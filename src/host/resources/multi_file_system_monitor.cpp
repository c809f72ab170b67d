#include <host/resources/multi_file_system_monitor.h>

#include <host/resources/directory_reader.h>
#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/resource_name.h>

#include <algorithm>
#include <optional>
#include <string>

namespace Ozy::FS {

MonitorThreadBase::~MonitorThreadBase() = default;

MultiFileSystemMonitor::MultiFileSystemMonitor(const MultiFileSystem& resources, IFileSystemMonitor* monitor)
    : m_resources(resources), m_monitor(monitor)
{
}

MultiFileSystemMonitor::~MultiFileSystemMonitor() = default;

void MultiFileSystemMonitor::addModificationListener(ResourceModificationListener* listener)
{
    if (!listener || std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
        return;
    m_listeners.push_back(listener);
    if (!m_handle)
        followRoots();
}

void MultiFileSystemMonitor::removeModificationListener(ResourceModificationListener* listener)
{
    std::erase(m_listeners, listener);
    if (m_listeners.empty())
        m_handle.reset();
}

void MultiFileSystemMonitor::followRoots()
{
    if (m_listeners.empty())
        return;
    if (!m_monitor)
        m_monitor = &DiskMonitor::instance();
    m_handle = m_monitor->createHandle(this);
    for (const std::string& root : m_resources.roots())
        m_handle->watch(root);
}

void MultiFileSystemMonitor::onResourceModified(std::string_view directory, std::string_view name, unsigned action)
{
    const std::string path = std::string(directory).append(name);
    const std::vector<std::string> roots = m_resources.roots();
    for (auto root = roots.begin(); root != roots.end(); ++root) {
        const std::optional<std::string> resource = pathBelow(*root, path);
        if (!resource || resource->empty())
            continue;
        const bool isHidden = std::any_of(roots.begin(), root, [&resource](const std::string& earlier) {
            return factsOf(joinPath(earlier, *resource), true).kind == FileFacts::File;
        });
        if (isHidden)
            return;
        const std::string top = path.substr(0, path.size() - resource->size());
        tell([&](ResourceModificationListener& listener) { listener.onResourceModified(top, *resource, action); });
        return;
    }
}

void MultiFileSystemMonitor::onTriggerTaskQueue()
{
    tell([](ResourceModificationListener& listener) { listener.onTriggerTaskQueue(); });
}

void MultiFileSystemMonitor::onTaskQueueEmpty()
{
    tell([](ResourceModificationListener& listener) { listener.onTaskQueueEmpty(); });
}

template <class Call>
void MultiFileSystemMonitor::tell(const Call& call)
{
    // A copy: listeners come and go inside of the call.
    const std::vector<ResourceModificationListener*> listeners = m_listeners;
    for (ResourceModificationListener* listener : listeners) {
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end())
            call(*listener);
    }
}

} // namespace Ozy::FS
