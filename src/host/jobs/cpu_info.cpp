#include <host/jobs/cpu_info.h>

#include <QThread>

#include <algorithm>

namespace Ozy {

const CpuInfo& CpuInfo::instance()
{
    static const CpuInfo info;
    return info;
}

CpuInfo::CpuInfo() : m_processorCount(std::max(1, QThread::idealThreadCount())) {}

} // namespace Ozy
