#pragma once

#include <host/base/host_export.h>

#include <string_view>

namespace Ozy {

/// Hears of changes on the disk from a monitor, on the GUI thread.
///
/// Changes come in runs: `onTriggerTaskQueue` opens a run, `onTaskQueueEmpty` says that nothing more is known for now. A
/// listener may take itself or others away inside of a call.
class DATAMODELS_HOST_API ResourceModificationListener
{
public:
    /// What happened. A path that was renamed is told as gone under the old name and come under the new one; a monitor
    /// that cannot see both ends of a rename, as the one of this host, uses the plain actions.
    enum Action : unsigned
    {
        Added = 0,
        Removed = 1,
        Modified = 2,
        RenamedFrom = 3, ///< gone, as `Removed`
        RenamedTo = 4    ///< come, as `Added`
    };

    ResourceModificationListener();
    virtual ~ResourceModificationListener();
    ResourceModificationListener(const ResourceModificationListener&) = delete;
    ResourceModificationListener& operator=(const ResourceModificationListener&) = delete;

    /// `directory` and `name` together, without a separator between them, are the absolute path. Both views end with the
    /// call.
    virtual void onResourceModified(std::string_view directory, std::string_view name, unsigned action);
    virtual void onTriggerTaskQueue();
    virtual void onTaskQueueEmpty();
};

} // namespace Ozy
