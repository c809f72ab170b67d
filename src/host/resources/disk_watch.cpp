#include <host/resources/disk_watch.h>

#include <host/resources/resource_modification_listener.h>

#include <KDirWatch>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <utility>

namespace Ozy::FS {
namespace {

using namespace std::chrono_literals;

// Long enough for the parts of one action to arrive together, short enough not to be seen.
constexpr auto burst = 40ms;
constexpr auto quiet = 500ms;
constexpr auto settling = 2s;
// The system keeps more events than this before it drops any.
constexpr int manyHints = 256;

std::string parentOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

} // namespace

DiskWatch::DiskWatch()
    : m_tree([this](const std::string& path) { add(path); },
             [this](const std::string& path) { m_watch->removeDir(QFile::decodeName(path.c_str())); }, m_isStopped),
      m_lookTimer(this), m_onceMoreTimer(this), m_settlingTimer(this)
{
    m_lookTimer.setSingleShot(true);
    m_onceMoreTimer.setSingleShot(true);
    m_settlingTimer.setSingleShot(true);
    connect(&m_lookTimer, &QTimer::timeout, this, &DiskWatch::lookAtHints);
    connect(&m_onceMoreTimer, &QTimer::timeout, this, &DiskWatch::lookOnceMore);
}

DiskWatch::~DiskWatch() = default;

void DiskWatch::start()
{
    m_watch = std::make_unique<KDirWatch>(); // belongs to the thread that makes it
    connect(m_watch.get(), &KDirWatch::dirty, this, &DiskWatch::hint);
    connect(m_watch.get(), &KDirWatch::created, this, &DiskWatch::hintCome);
    connect(m_watch.get(), &KDirWatch::deleted, this, &DiskWatch::hintGone);
}

void DiskWatch::watch(const std::string& path)
{
    if (!m_watch)
        start();
    m_settlingTimer.start(settling);
    m_tree.addTop(path);
}

void DiskWatch::add(const std::string& path)
{
    // A file is watched by its directory, which also tells when another one takes its place.
    const bool isFile = factsOf(path, true).kind == FileFacts::File;
    m_watch->addDir(QFile::decodeName((isFile ? parentOf(path) : path).c_str()), KDirWatch::WatchFiles);
}

void DiskWatch::hintCome(const QString& path)
{
    if (m_settlingTimer.isActive())
        m_comeHints.insert(QFile::encodeName(path).toStdString());
    hint(path);
}

void DiskWatch::hintGone(const QString& path)
{
    if (m_settlingTimer.isActive())
        m_goneHints.insert(QFile::encodeName(path).toStdString());
    hint(path);
}

void DiskWatch::hint(const QString& path)
{
    m_hints.insert(QFile::encodeName(path).toStdString());
    ++m_hintsSinceLook;
    if (!m_lookTimer.isActive())
        m_lookTimer.start(burst);
}

void DiskWatch::lookAtHints()
{
    const std::set<std::string> hints = std::exchange(m_hints, {});
    std::set<std::string> directories;
    for (const std::string& path : hints) {
        directories.insert(path);
        directories.insert(parentOf(path));
    }
    for (const std::string& path : directories) {
        if (m_isStopped)
            return;
        m_tree.lookAtTop(path, hints);
        m_tree.look(path, hints);
    }
    MonitorEvents events = m_tree.takeEvents();
    tellUnknown(events);
    send(std::move(events));
    if (!m_onceMoreTimer.isActive())
        m_onceMoreTimer.start(quiet);
}

// A file may go after its directory was watched and before it was read: whoever listed it before hears of it.
void DiskWatch::tellUnknown(MonitorEvents& events)
{
    const std::set<std::string> come = std::exchange(m_comeHints, {});
    for (const std::string& path : std::exchange(m_goneHints, {})) {
        const MonitorEvent event{path, ResourceModificationListener::Removed};
        const bool isTold = std::find(events.begin(), events.end(), event) != events.end();
        if (!isTold && !come.contains(path) && !m_tree.isKnown(path) && m_tree.isDirectory(parentOf(path)))
            events.insert(events.begin(), event);
    }
}

void DiskWatch::lookOnceMore()
{
    m_tree.lookAtAll(std::exchange(m_hintsSinceLook, 0) > manyHints);
    send(m_tree.takeEvents());
}

void DiskWatch::send(MonitorEvents events)
{
    if (!events.empty())
        Q_EMIT changed(events);
}

} // namespace Ozy::FS
