#include <host/resources/directory_tree.h>

#include <host/resources/resource_modification_listener.h>
#include <host/resources/resource_name.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace Ozy::FS {
namespace {

using Listener = ResourceModificationListener;

// Several ticks of the clock by which the system stamps files.
constexpr std::int64_t raceWindow = 20'000'000;

bool isRecent(std::int64_t modified)
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count() - modified < raceWindow;
}

std::string parentOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

} // namespace

DirectoryTree::DirectoryTree(OnDirectory come, OnDirectory gone, const std::atomic<bool>& isStopped)
    : m_come(std::move(come)), m_gone(std::move(gone)), m_isStopped(isStopped)
{
}

void DirectoryTree::addTop(const std::string& path)
{
    if (isTop(path) || isDirectory(path) || (path != "/" && isDirectory(parentOf(path))))
        return;
    std::erase_if(m_tops, [&path](const auto& top) { return pathBelow(path, top.first).has_value(); });
    m_come(path);
    const Entry top = entryOf("", factsOf(path, true));
    m_tops.emplace(path, top);
    if (top.facts.kind == FileFacts::Directory)
        takeIn(path, false);
}

bool DirectoryTree::isKnown(const std::string& path) const
{
    if (isTop(path) || isDirectory(path))
        return true;
    const auto directory = m_directories.find(parentOf(path));
    if (directory == m_directories.end())
        return false;
    const std::string name = path.substr(path.rfind('/') + 1);
    const auto entry = std::ranges::lower_bound(directory->second.entries, name, {}, &Entry::name);
    return entry != directory->second.entries.end() && entry->name == name;
}

void DirectoryTree::lookAtTop(const std::string& top, const std::set<std::string>& hints)
{
    const auto found = m_tops.find(top);
    if (found == m_tops.end())
        return;
    const Entry before = found->second;
    found->second = entryOf("", factsOf(top, true));
    compare(top, before, found->second, hints);
}

void DirectoryTree::look(const std::string& path, const std::set<std::string>& hints)
{
    const auto found = m_directories.find(path);
    Directory now;
    // One that cannot be read any more keeps what it had: if it has gone, its parent tells.
    if (found == m_directories.end() || !read(path, now))
        return;
    const Directory before = std::exchange(found->second, now);

    auto old = before.entries.begin();
    for (const Entry& entry : now.entries) {
        for (; old != before.entries.end() && old->name < entry.name; ++old)
            gone(joinPath(path, old->name), old->facts);
        const bool wasThere = old != before.entries.end() && old->name == entry.name;
        compare(joinPath(path, entry.name), wasThere ? *old : Entry(), entry, hints);
        if (wasThere)
            ++old;
    }
    for (; old != before.entries.end(); ++old)
        gone(joinPath(path, old->name), old->facts);
}

void DirectoryTree::lookAtAll(bool evenUnchanged)
{
    std::vector<std::string> paths;
    std::set<std::string> tops;
    for (const auto& [path, entry] : m_tops)
        tops.insert(path);
    for (const std::string& top : tops)
        lookAtTop(top, {});
    for (const auto& [path, directory] : m_directories)
        paths.push_back(path);
    for (const std::string& path : paths) {
        if (m_isStopped)
            return;
        const auto found = m_directories.find(path);
        if (found == m_directories.end())
            continue;
        const Directory& known = found->second;
        if (evenUnchanged || known.isRacy || factsOf(path, true).modified != known.modified)
            look(path, {});
    }
}

MonitorEvents DirectoryTree::takeEvents()
{
    MonitorEvents events = std::exchange(m_removed, {});
    std::move(m_others.begin(), m_others.end(), std::back_inserter(events));
    m_others.clear();
    return events;
}

DirectoryTree::Entry DirectoryTree::entryOf(const char* name, const FileFacts& facts)
{
    return {name, facts, isRecent(facts.modified)};
}

bool DirectoryTree::isSame(const FileFacts& left, const FileFacts& right)
{
    return left.kind == right.kind && left.inode == right.inode && left.created == right.created;
}

bool DirectoryTree::read(const std::string& path, Directory& directory) const
{
    // Its time first: what comes while it is read gives it another one.
    const FileFacts facts = factsOf(path, true);
    directory.modified = facts.modified;
    directory.isRacy = isRecent(facts.modified);
    DirectoryReader reader(path);
    while (const char* name = reader.next()) {
        const FileFacts entry = reader.facts();
        if (entry.kind != FileFacts::Missing)
            directory.entries.push_back(entryOf(name, entry));
    }
    std::ranges::sort(directory.entries, {}, &Entry::name);
    return reader.error() == 0;
}

void DirectoryTree::takeIn(const std::string& path, bool isTold)
{
    if (m_isStopped)
        return;
    Directory& directory = m_directories[path];
    directory = {};
    read(path, directory);
    for (const Entry& entry : directory.entries)
        come(joinPath(path, entry.name), entry.facts, isTold);
}

void DirectoryTree::come(const std::string& path, const FileFacts& facts, bool isTold)
{
    if (isTold)
        m_others.push_back({path, Listener::Added});
    if (facts.kind != FileFacts::Directory)
        return;
    m_come(path); // watched first, so that nothing slips in after it was read
    takeIn(path, isTold);
}

void DirectoryTree::gone(const std::string& path, const FileFacts& facts)
{
    if (facts.kind == FileFacts::Directory)
        forget(path);
    m_removed.push_back({path, Listener::Removed});
}

void DirectoryTree::forget(const std::string& path)
{
    const auto found = m_directories.find(path);
    if (found == m_directories.end())
        return;
    const Directory directory = std::move(found->second);
    m_directories.erase(found);
    for (auto entry = directory.entries.rbegin(); entry != directory.entries.rend(); ++entry)
        gone(joinPath(path, entry->name), entry->facts);
    if (!isTop(path))
        m_gone(path);
}

void DirectoryTree::compare(const std::string& path, const Entry& before, const Entry& now,
                            const std::set<std::string>& hints)
{
    const bool wasThere = before.facts.kind != FileFacts::Missing;
    const bool isThere = now.facts.kind != FileFacts::Missing;
    if (!isSame(before.facts, now.facts)) {
        if (wasThere)
            gone(path, before.facts);
        if (isThere)
            come(path, now.facts, true);
        return;
    }
    const bool isWritten = before.facts.modified != now.facts.modified || before.facts.size != now.facts.size
                           || (before.isRacy && hints.contains(path));
    if (isThere && isWritten && now.facts.kind != FileFacts::Directory)
        m_others.push_back({path, Listener::Modified});
}

} // namespace Ozy::FS
