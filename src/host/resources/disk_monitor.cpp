#include <host/resources/disk_monitor.h>

#include <host/base/debug.h>
#include <host/resources/disk_watch.h>
#include <host/resources/monitor_queue.h>
#include <host/resources/resource_name.h>

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>

#include <optional>

namespace Ozy::FS {
namespace {

constexpr int patienceMilliseconds = 20;

/// A thread with an event loop, for as long as somebody holds it.
class WatchThread
{
public:
    static std::shared_ptr<WatchThread> shared()
    {
        std::shared_ptr<WatchThread> thread = current().lock();
        if (!thread)
            current() = thread = std::make_shared<WatchThread>();
        return thread;
    }
    static std::weak_ptr<WatchThread>& current()
    {
        static std::weak_ptr<WatchThread> thread;
        return thread;
    }

    WatchThread()
    {
        qRegisterMetaType<MonitorEvents>("Ozy::FS::MonitorEvents");
        m_thread.setObjectName("disk monitor");
        m_context.moveToThread(&m_thread);
        m_thread.start();
    }
    ~WatchThread()
    {
        m_thread.quit();
        m_thread.wait();
    }
    Q_DISABLE_COPY_MOVE(WatchThread)

    QThread* thread() { return &m_thread; }

    /// Waits until the thread has done all that it was given up to now.
    void finish()
    {
        QMetaObject::invokeMethod(&m_context, [] {}, Qt::BlockingQueuedConnection);
    }

private:
    QObject m_context;
    QThread m_thread;
};

class DiskHandle final : public IFileSystemMonitor::Handle
{
public:
    explicit DiskHandle(ResourceModificationListener& listener)
        : m_thread(WatchThread::shared()), m_watch(new DiskWatch), m_queue(listener)
    {
        if (QCoreApplication* application = QCoreApplication::instance())
            m_queue.moveToThread(application->thread());
        QObject::connect(m_watch, &DiskWatch::changed, &m_queue, &MonitorQueue::append);
        m_watch->moveToThread(m_thread->thread());
    }
    ~DiskHandle() override
    {
        m_watch->stop();
        m_watch->deleteLater();
    }
    Q_DISABLE_COPY_MOVE(DiskHandle)

    void watch(const std::string& path) override
    {
        const std::optional<std::string> tidy = tidyPath(path);
        if (!tidy || !path.starts_with('/') || path.find('\0') != std::string::npos) {
            DebugMessageHelper(Priority::refusal, "resources")
                .message("Path '%s' is not absolute and cannot be watched.\n", readable(path).c_str());
            return;
        }
        const auto done = std::make_shared<QSemaphore>();
        QMetaObject::invokeMethod(m_watch, [watch = m_watch, path = *tidy, done] {
            watch->watch(path);
            done->release();
        });
        done->tryAcquire(1, patienceMilliseconds);
    }

private:
    std::shared_ptr<WatchThread> m_thread;
    DiskWatch* m_watch; // of the thread, which deletes it
    MonitorQueue m_queue;
};

} // namespace

DiskMonitor& DiskMonitor::instance()
{
    static DiskMonitor monitor;
    return monitor;
}

std::unique_ptr<IFileSystemMonitor::Handle> DiskMonitor::createHandle(ResourceModificationListener* listener)
{
    return listener ? std::make_unique<DiskHandle>(*listener) : nullptr;
}

void DiskMonitor::finishWatching()
{
    if (const auto thread = WatchThread::current().lock())
        thread->finish();
}

} // namespace Ozy::FS
