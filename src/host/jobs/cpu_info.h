#pragma once

#include <host/base/host_export.h>

namespace Ozy {

/// What the machine has to compute with. Threads: any.
class DATAMODELS_HOST_API CpuInfo
{
public:
    static const CpuInfo& instance();

    /// Those that are online; at least 1.
    int processorCount() const { return m_processorCount; }

private:
    CpuInfo();

    int m_processorCount;
};

} // namespace Ozy
