#pragma once

#include <host/resources/monitor_event.h>

#include <QObject>
#include <QTimer>

#include <deque>

namespace Ozy {
class ResourceModificationListener;
}

namespace Ozy::FS {

/// Hands events to a listener on the GUI thread, in their order and in slices of a few milliseconds.
class MonitorQueue final : public QObject
{
    Q_OBJECT

public:
    explicit MonitorQueue(ResourceModificationListener& listener);

    void append(const MonitorEvents& events);

private:
    void deliver();

    ResourceModificationListener& m_listener;
    std::deque<MonitorEvent> m_events;
    QTimer m_timer;
};

} // namespace Ozy::FS
