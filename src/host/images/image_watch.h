#pragma once

#include <host/images/tessen_image_cache.h>
#include <host/resources/file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Tessen {

/// Follows the files of listeners on the disk, by the monitor in the registry of instances or else the disk's own, and
/// nothing while there is no listener. Each file is watched by itself, where it is and, for the name of a resource, in
/// every root where it may come. Thread: GUI, unless told otherwise.
class ImageWatch final : private Ozy::ResourceModificationListener
{
public:
    using Listener = TessenImageCache::CacheListener;

    /// `changed` hears of the path of each file that has changed.
    explicit ImageWatch(std::function<void(const std::string& path)> changed) : m_changed(std::move(changed)) {}
    ~ImageWatch() override;

    void add(Listener* listener);
    void remove(Listener* listener);
    /// Any thread: somebody wants to know of a file. It is watched if that is a listener's; on the GUI thread from the
    /// return on.
    void noteInterest(const QString& fileName);

    /// The paths that a name may mean.
    static std::set<std::string> pathsOf(const QString& fileName);

private:
    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override;
    void onTriggerTaskQueue() override;
    void onTaskQueueEmpty() override;

    bool has(const Listener* listener) const;
    void watchIfListened(const QString& fileName);
    void watch(const QString& fileName);
    void open();
    void close();
    void tell();

    std::function<void(const std::string&)> m_changed;
    std::vector<Listener*> m_listeners;
    std::atomic<bool> m_hasListeners = false;
    std::unique_ptr<IFileSystemMonitor::Handle> m_handle;
    std::set<std::string> m_watched;
    std::set<std::string> m_untold; ///< changed, and the listeners do not know yet
    bool m_isRun = false;           ///< the monitor is going to tell more
};

} // namespace Tessen
