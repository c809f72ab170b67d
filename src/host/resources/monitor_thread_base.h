#pragma once

#include <host/base/host_export.h>

namespace Ozy {

class ResourceModificationListener;

namespace FS {

/// Tells any number of listeners of changes. Thread: GUI only, for the calls of the listeners as well.
class DATAMODELS_HOST_API MonitorThreadBase
{
public:
    virtual ~MonitorThreadBase();

    /// The listener stays until it is taken away; adding it twice does nothing, as does null.
    virtual void addModificationListener(ResourceModificationListener* listener) = 0;
    virtual void removeModificationListener(ResourceModificationListener* listener) = 0;
};

} // namespace FS
} // namespace Ozy
