#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_system_monitor.h>
#include <host/resources/monitor_thread_base.h>
#include <host/resources/resource_modification_listener.h>

#include <memory>
#include <vector>

namespace Ozy::FS {

class MultiFileSystem;

/// Tells of changes of resources: `directory` is the root with its separator, `name` that of the resource. Files that
/// another root hides are not told of. Watches while it has listeners.
class DATAMODELS_HOST_API MultiFileSystemMonitor final : public MonitorThreadBase, private ResourceModificationListener
{
public:
    /// Without a monitor it takes the disk's when it first watches.
    MultiFileSystemMonitor(const MultiFileSystem& resources, IFileSystemMonitor* monitor);
    ~MultiFileSystemMonitor() override;

    void addModificationListener(ResourceModificationListener* listener) override;
    void removeModificationListener(ResourceModificationListener* listener) override;

    /// Watches the roots that there are now.
    void followRoots();

private:
    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override;
    void onTriggerTaskQueue() override;
    void onTaskQueueEmpty() override;

    template <class Call>
    void tell(const Call& call);

    const MultiFileSystem& m_resources;
    IFileSystemMonitor* m_monitor;
    std::unique_ptr<IFileSystemMonitor::Handle> m_handle;
    std::vector<ResourceModificationListener*> m_listeners;
};

} // namespace Ozy::FS
