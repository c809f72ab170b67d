#pragma once

#include <host/resources/directory_reader.h>
#include <host/resources/monitor_event.h>

#include <atomic>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Ozy::FS {

/// What watched paths held when they were last looked at, and what has happened since.
///
/// Every look at a directory adds to two lists of events: what has gone, and what has come or changed.
/// Thread: one. Cost: a look reads the whole directory; about 100 bytes an entry.
class DirectoryTree
{
public:
    /// Called with each directory, before it is first read, and when it has gone.
    using OnDirectory = std::function<void(const std::string& path)>;

    /// `isStopped`, which any thread may set, ends long walks early.
    DirectoryTree(OnDirectory come, OnDirectory gone, const std::atomic<bool>& isStopped);

    /// Takes a path in, with all below it, as the state to compare with.
    void addTop(const std::string& path);
    bool isTop(const std::string& path) const { return m_tops.contains(path); }
    bool isDirectory(const std::string& path) const { return m_directories.contains(path); }
    bool isKnown(const std::string& path) const;

    /// Compares one directory, or one top, with the disk. `isHinted` names an entry that is known to have been
    /// written to, for the writes that the times on the disk are too coarse to show.
    void look(const std::string& directory, const std::set<std::string>& hints);
    void lookAtTop(const std::string& top, const std::set<std::string>& hints);
    /// Compares all directories: those with another time than before, or each one.
    void lookAtAll(bool evenUnchanged);

    /// What has happened since the last call.
    MonitorEvents takeEvents();

private:
    struct Entry
    {
        std::string name;
        FileFacts facts;
        bool isRacy = false; ///< looked at so soon after it was written that the next write may leave its time as it is
    };
    using Entries = std::vector<Entry>;
    struct Directory
    {
        Entries entries; // by name
        std::int64_t modified = 0;
        bool isRacy = false;
    };

    static Entry entryOf(const char* name, const FileFacts& facts);
    static bool isSame(const FileFacts& left, const FileFacts& right);
    bool read(const std::string& path, Directory& directory) const;
    void takeIn(const std::string& path, bool isTold);
    void come(const std::string& path, const FileFacts& facts, bool isTold);
    void gone(const std::string& path, const FileFacts& facts);
    void forget(const std::string& directory);
    void compare(const std::string& path, const Entry& before, const Entry& now, const std::set<std::string>& hints);

    OnDirectory m_come;
    OnDirectory m_gone;
    const std::atomic<bool>& m_isStopped;
    std::map<std::string, Entry> m_tops;
    std::map<std::string, Directory> m_directories;
    MonitorEvents m_removed;
    MonitorEvents m_others;
};

} // namespace Ozy::FS
