#pragma once

#include <host/resources/directory_tree.h>
#include <host/resources/monitor_event.h>

#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>
#include <set>
#include <string>

class KDirWatch;

namespace Ozy::FS {

/// The watches of one handle, on the thread of the monitor. What KDirWatch says is only a hint where to look: it leaves
/// out what is in new directories, and the system drops events that come too fast.
class DiskWatch final : public QObject
{
    Q_OBJECT

public:
    DiskWatch();
    ~DiskWatch() override;

    void watch(const std::string& path);
    /// Any thread: ends what is going on, so that the object can be deleted soon.
    void stop() { m_isStopped = true; }

Q_SIGNALS:
    void changed(const Ozy::FS::MonitorEvents& events);

private:
    void start();
    void add(const std::string& path);
    void hint(const QString& path);
    void hintCome(const QString& path);
    void hintGone(const QString& path);
    void lookAtHints();
    void lookOnceMore();
    void tellUnknown(MonitorEvents& events);
    void send(MonitorEvents events);

    std::atomic<bool> m_isStopped = false;
    std::unique_ptr<KDirWatch> m_watch;
    DirectoryTree m_tree;
    std::set<std::string> m_hints;
    std::set<std::string> m_comeHints;
    std::set<std::string> m_goneHints;
    int m_hintsSinceLook = 0;
    QTimer m_lookTimer;
    QTimer m_onceMoreTimer;
    QTimer m_settlingTimer;
};

} // namespace Ozy::FS
