#include <host/images/image_watch.h>

#include <host/registry/instances.h>
#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/resource_name.h>

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <utility>

namespace Tessen {
namespace {

using Ozy::AsyncManager;

// A day of looking at pictures; beyond, those that nobody looks at any more are let go.
constexpr std::size_t mostWatched = 1024;

bool isGuiThread()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    return application && application->thread() == QThread::currentThread();
}

IFileSystemMonitor& monitor()
{
    auto* const own = static_cast<IFileSystemMonitor*>(instances::get(typeid(IFileSystemMonitor).name()));
    return own ? *own : Ozy::FS::DiskMonitor::instance();
}

} // namespace

ImageWatch::~ImageWatch() = default;

std::set<std::string> ImageWatch::pathsOf(const QString& fileName)
{
    const auto tidy = Ozy::FS::tidyPath(fileName.toStdString());
    if (!tidy || tidy->empty())
        return {};
    if (tidy->starts_with('/'))
        return {*tidy};
    std::set<std::string> paths;
    for (const std::string& root : Ozy::FS::fileSystem()->roots())
        paths.insert(Ozy::FS::joinPath(root, *tidy));
    return paths;
}

void ImageWatch::add(Listener* listener)
{
    if (!listener || has(listener))
        return;
    m_listeners.push_back(listener);
    m_hasListeners = true;
    // Later, since it may be under construction.
    AsyncManager::sync(false, [this, listener] {
        if (has(listener))
            watch(listener->fileName());
    });
}

void ImageWatch::remove(Listener* listener)
{
    std::erase(m_listeners, listener);
    m_hasListeners = !m_listeners.empty();
    if (m_listeners.empty())
        close();
}

bool ImageWatch::has(const Listener* listener) const
{
    return std::ranges::find(m_listeners, listener) != m_listeners.end();
}

void ImageWatch::noteInterest(const QString& fileName)
{
    if (!m_hasListeners)
        return;
    if (isGuiThread())
        watchIfListened(fileName);
    else
        AsyncManager::sync(false, [this, fileName] { watchIfListened(fileName); });
}

void ImageWatch::watchIfListened(const QString& fileName)
{
    if (std::ranges::any_of(m_listeners, [&](const Listener* each) { return each->fileName() == fileName; }))
        watch(fileName);
}

void ImageWatch::watch(const QString& fileName)
{
    const std::set<std::string> paths = pathsOf(fileName);
    const bool isFull = m_watched.size() + paths.size() > mostWatched;
    if (isFull && !std::ranges::includes(m_watched, paths)) {
        close();
        for (const Listener* listener : std::vector(m_listeners)) {
            for (const std::string& path : pathsOf(listener->fileName()))
                m_watched.insert(path);
        }
        open();
        for (const std::string& path : m_watched)
            m_handle->watch(path);
    }
    for (const std::string& path : paths) {
        if (!m_watched.insert(path).second)
            continue;
        open();
        m_handle->watch(path);
    }
}

void ImageWatch::open()
{
    if (m_handle)
        return;
    m_handle = monitor().createHandle(this);
    // The monitor's threads end before the application does.
    static ImageWatch* opened = nullptr;
    if (!std::exchange(opened, this)) {
        qAddPostRoutine([] {
            if (ImageWatch* const watch = std::exchange(opened, nullptr))
                watch->close();
        });
    }
}

void ImageWatch::close()
{
    m_handle.reset();
    m_watched.clear();
    m_untold.clear();
    m_isRun = false;
}

void ImageWatch::onResourceModified(std::string_view directory, std::string_view name, unsigned)
{
    const std::string path = std::string(directory).append(name);
    if (!m_watched.contains(path))
        return;
    m_changed(path);
    m_untold.insert(path);
    if (!m_isRun)
        tell();
}

void ImageWatch::onTriggerTaskQueue()
{
    m_isRun = true;
}

void ImageWatch::onTaskQueueEmpty()
{
    m_isRun = false;
    tell();
}

void ImageWatch::tell()
{
    const std::set<std::string> changed = std::exchange(m_untold, {});
    // A copy: listeners come and go inside of the call.
    for (Listener* listener : std::vector(m_listeners)) {
        if (!has(listener))
            continue;
        const std::set<std::string> paths = pathsOf(listener->fileName());
        if (std::ranges::any_of(paths, [&](const std::string& path) { return changed.contains(path); }))
            listener->onImageChanged();
    }
}

} // namespace Tessen
