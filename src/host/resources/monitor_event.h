#pragma once

#include <QMetaType>

#include <string>
#include <vector>

namespace Ozy::FS {

struct MonitorEvent
{
    std::string path;
    unsigned action;

    bool operator==(const MonitorEvent&) const = default;
};

using MonitorEvents = std::vector<MonitorEvent>;

} // namespace Ozy::FS

Q_DECLARE_METATYPE(Ozy::FS::MonitorEvents)
