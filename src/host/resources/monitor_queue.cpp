#include <host/resources/monitor_queue.h>

#include <host/resources/resource_modification_listener.h>

#include <QElapsedTimer>
#include <QPointer>

#include <string_view>
#include <utility>

namespace Ozy::FS {
namespace {

constexpr qint64 sliceMilliseconds = 5;

} // namespace

MonitorQueue::MonitorQueue(ResourceModificationListener& listener) : m_listener(listener), m_timer(this)
{
    connect(&m_timer, &QTimer::timeout, this, &MonitorQueue::deliver);
}

void MonitorQueue::append(const MonitorEvents& events)
{
    m_events.insert(m_events.end(), events.begin(), events.end());
    if (!m_timer.isActive()) {
        m_timer.start(0);
        m_listener.onTriggerTaskQueue();
    }
}

void MonitorQueue::deliver()
{
    // The listener may end its handle, and this queue with it, inside of every call.
    const QPointer<MonitorQueue> self(this);
    QElapsedTimer clock;
    clock.start();
    while (!m_events.empty() && clock.elapsed() < sliceMilliseconds) {
        const MonitorEvent event = std::move(m_events.front());
        m_events.pop_front();
        const std::string_view path = event.path;
        const std::size_t name = path.rfind('/') + 1;
        m_listener.onResourceModified(path.substr(0, name), path.substr(name), event.action);
        if (!self)
            return;
    }
    if (m_events.empty() && m_timer.isActive()) {
        m_timer.stop();
        m_listener.onTaskQueueEmpty();
    }
}

} // namespace Ozy::FS
