#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_system.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

namespace qelm {

/// A file system without a disk, for tests and previews, that can be told to fail.
///
/// Paths are texts like "art/oak.png"; entries below a path that was never added make its directories come by
/// themselves. The empty path is the top. Entries are told in the order of their names' bytes. Faults: an error after
/// some entries, and a function that runs ahead of each entry, in which a test may wait, or change the tree that is being
/// read. Threads: any.
class DATAMODELS_HOST_API MemoryFileSystem final : public IFileSystem
{
public:
    /// Runs ahead of each entry that an enumeration tells, with its full name, on the thread of the enumeration.
    using Hook = std::function<void(const std::string& fullName)>;

    MemoryFileSystem();
    ~MemoryFileSystem() override;

    void enumerate(const char* directory, Visitor visit) override;
    std::shared_ptr<IFileInfo> getFileInfo(const char* path) override;
    /// "/" and the full name.
    std::string absolutePath(const char* fullName) override;
    std::string relativePath(const char* path) override;

    void addDirectory(const std::string& path);
    /// `modified` in nanoseconds since 1970 UTC, which is the time of creation as well.
    void addFile(const std::string& path, std::uint64_t size = 0, std::int64_t modified = 0);
    /// An entry that is neither file nor directory.
    void addSpecial(const std::string& path);
    /// Takes an entry away with all below it.
    void remove(const std::string& path);

    /// Lets the enumerations of a directory end with an error after that many entries.
    void failAfter(const std::string& directory, int entries);
    void setHook(Hook hook);
    /// How often a directory was enumerated.
    int enumerations(const std::string& directory) const;

private:
    using Entries = std::map<std::string, std::shared_ptr<IFileInfo>, std::less<>>;

    void add(const std::string& path, std::shared_ptr<IFileInfo> info);
    std::shared_ptr<IFileInfo> nextBelow(const std::string& directory, std::string& after) const;

    mutable std::mutex m_mutex;
    Entries m_entries;
    std::map<std::string, int> m_failures;
    std::map<std::string, int> m_enumerations;
    Hook m_hook;
};

} // namespace qelm
