#pragma once

#include <memory>
#include <string>

namespace Ozy {
class ResourceModificationListener;
}

/// Watches paths of the disk for those who ask. There is one instance in the process, found by its type in the registry
/// of the host. Thread: GUI only.
class IFileSystemMonitor
{
public:
    class Handle;

    /// A handle that tells `listener` of what it watches, nothing yet. The listener outlives it.
    virtual std::unique_ptr<Handle> createHandle(Ozy::ResourceModificationListener* listener) = 0;

protected:
    ~IFileSystemMonitor() = default;
};

/// The watches of one listener; they end with it, and nothing is told from then on.
class IFileSystemMonitor::Handle
{
public:
    virtual ~Handle() = default;

    /// Watches an absolute path and, for a directory, the whole tree below it. The path may come to exist later. Returns
    /// at once; a large tree is taken in on another thread.
    virtual void watch(const std::string& path) = 0;
};
