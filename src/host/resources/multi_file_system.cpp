#include <host/resources/multi_file_system.h>

#include <host/base/debug.h>
#include <host/resources/directory_reader.h>
#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system_monitor.h>
#include <host/resources/resource_name.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

namespace Ozy::FS {
namespace {

void refuse(std::string_view path, const char* reason)
{
    DebugMessageHelper(Priority::refusal, "resources").message("Path '%s' %s.\n", readable(path).c_str(), reason);
}

/// The tidy form of any path that may be asked about; nothing, with a message, if it is refused.
std::optional<std::string> accepted(std::string_view path)
{
    if (!isResourceText(path)) {
        refuse(path, "holds bytes that no resource has in its name");
        return {};
    }
    std::optional<std::string> tidy = tidyPath(path);
    if (!tidy)
        refuse(path, "climbs out of the resources");
    return tidy;
}

bool isWithin(const std::vector<std::string>& roots, const std::string& path)
{
    return std::any_of(roots.begin(), roots.end(),
                       [&path](const std::string& root) { return pathBelow(root, path).has_value(); });
}

FileSystem::FileType typeOf(const std::string& path)
{
    switch (factsOf(path, true).kind) {
    case FileFacts::File: return FileSystem::File;
    case FileFacts::Directory: return FileSystem::Directory;
    default: return FileSystem::NotFound;
    }
}

/// Adds what one root has; whether it has the directory at all.
bool readInto(std::vector<std::string>& entries, const std::string& directory)
{
    DirectoryReader reader(directory);
    const bool isThere = reader.error() != ENOENT && reader.error() != ENOTDIR;
    while (const char* name = reader.next()) {
        if (isResourceText(name))
            entries.emplace_back(name);
        else
            refuse(joinPath(directory, name), "holds bytes that no resource has in its name");
    }
    if (isThere && reader.error())
        DebugMessageHelper(Priority::refusal, "resources")
            .message("Could not read directory '%s': %s.\n", directory.c_str(), std::strerror(reader.error()));
    return isThere && !reader.error();
}

} // namespace

MultiFileSystem::MultiFileSystem(IFileSystemMonitor* monitor)
    : m_roots(std::make_shared<const Roots>()), m_monitor(std::make_unique<MultiFileSystemMonitor>(*this, monitor))
{
}

MultiFileSystem::~MultiFileSystem() = default;

bool MultiFileSystem::setRoots(const std::vector<std::string>& roots)
{
    Roots tidyRoots;
    for (const std::string& root : roots) {
        const std::optional<std::string> tidy = accepted(root);
        if (!tidy || !root.starts_with('/') || typeOf(*tidy) != Directory) {
            refuse(root, "is not the absolute path of a directory, and no root");
            return false;
        }
        if (std::find(tidyRoots.begin(), tidyRoots.end(), *tidy) == tidyRoots.end())
            tidyRoots.push_back(*tidy);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_roots = std::make_shared<const Roots>(std::move(tidyRoots));
    }
    m_monitor->followRoots();
    return true;
}

std::vector<std::string> MultiFileSystem::roots() const
{
    return *currentRoots();
}

std::shared_ptr<const MultiFileSystem::Roots> MultiFileSystem::currentRoots() const
{
    const std::lock_guard lock(m_mutex);
    return m_roots;
}

bool MultiFileSystem::readDirectory(std::vector<std::string>& entries, const std::string& path) const
{
    entries.clear();
    const std::optional<std::string> tidy = accepted(path);
    const auto roots = currentRoots();
    if (!tidy)
        return false;

    bool isThere = false;
    if (tidy->starts_with('/')) {
        if (!isWithin(*roots, *tidy)) {
            refuse(path, "is outside of every root");
            return false;
        }
        isThere = readInto(entries, *tidy);
    } else {
        for (const std::string& root : *roots)
            isThere = readInto(entries, joinPath(root, *tidy)) || isThere;
    }
    std::sort(entries.begin(), entries.end());
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    return isThere;
}

MultiFileSystem::Place MultiFileSystem::locate(const Roots& roots, const std::string& name)
{
    for (const std::string& root : roots) {
        const std::string path = joinPath(root, name);
        const FileType type = typeOf(path);
        if (type != NotFound)
            return {path, type};
    }
    return {roots.empty() ? name : joinPath(roots.front(), name), NotFound};
}

FileSystem::FileType MultiFileSystem::resolveToAbsolutePath(std::string& path) const
{
    const std::optional<std::string> tidy = accepted(path);
    if (!tidy)
        return NotFound;

    const auto roots = currentRoots();
    if (!tidy->starts_with('/')) {
        const Place place = locate(*roots, *tidy);
        path = place.path;
        return place.type;
    }
    if (!isWithin(*roots, *tidy)) {
        refuse(path, "is outside of every root");
        return NotFound;
    }
    path = *tidy;
    return typeOf(path);
}

std::string MultiFileSystem::dissolveFilename(const std::string& path, bool* ok) const
{
    bool ignored = false;
    bool& isDissolved = ok ? *ok : ignored;
    const std::optional<std::string> tidy = accepted(path);
    isDissolved = tidy && !tidy->starts_with('/');
    if (!tidy || isDissolved)
        return tidy.value_or(std::string());

    const auto roots = currentRoots();
    std::string hiddenBy;
    for (const std::string& root : *roots) {
        const std::optional<std::string> name = pathBelow(root, *tidy);
        if (!name)
            continue;
        const Place place = locate(*roots, *name);
        isDissolved = place.path == *tidy;
        if (isDissolved)
            return *name;
        hiddenBy = place.path;
    }
    refuse(path, hiddenBy.empty() ? "is outside of every root" : ("is hidden by '" + hiddenBy + "'").c_str());
    return {};
}

MultiFileSystemMonitor& MultiFileSystem::getFilesystemMonitor()
{
    return *m_monitor;
}

MultiFileSystem* fileSystem()
{
    static MultiFileSystem instance;
    return &instance;
}

} // namespace Ozy::FS
