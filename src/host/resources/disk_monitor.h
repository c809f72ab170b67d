#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_system_monitor.h>

namespace Ozy::FS {

/// The monitor of the disk, over KDirWatch.
///
/// A thread of its own keeps what each watched directory holds, and compares whenever KDirWatch says that something is
/// going on there. What came and went in a burst is told once, in this order: what has gone, the deepest first; what has
/// come, directories before what is in them; what has changed. A name that leads to another file than before is told as
/// gone and come, also when that was an atomic save. Directories are not told as changed. After each burst all
/// directories are looked at once more, since the system drops events that come too fast.
///
/// Links are not followed, except for a watched path that is one. Listeners are called from the event loop of the GUI
/// thread, in slices of a few milliseconds.
/// Cost: about 100 bytes a file. `watch` waits up to 20 ms, in which a small tree is taken in: from its return on nothing
/// is missed. What goes from a larger tree while it is taken in is told if its directory was reached by then.
class DATAMODELS_HOST_API DiskMonitor final : public IFileSystemMonitor
{
public:
    /// The one of the process. Its thread runs while there are handles.
    static DiskMonitor& instance();

    /// Null for a null listener.
    std::unique_ptr<Handle> createHandle(ResourceModificationListener* listener) override;

    /// Waits until everything that was asked to be watched is; for tools, and never on a thread that draws.
    void finishWatching();

private:
    DiskMonitor() = default;
};

} // namespace Ozy::FS
