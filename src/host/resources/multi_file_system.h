#pragma once

#include <host/base/host_export.h>

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

class IFileSystemMonitor;

namespace Ozy::FS {

class MultiFileSystemMonitor;

class FileSystem
{
public:
    /// What a path leads to.
    enum FileType
    {
        File = 0,
        Directory = 1,
        NotFound = 2 ///< nothing, or the path was refused
    };
};

/// The resources: several directories of the disk, the roots, laid over each other. Of files that lie at the same place in
/// several roots the one in the first root is the resource and hides the others; directories show the entries of all.
///
/// A resource is named by its path below the root, "textures/oak.png". Names hold UTF-8 without control characters and
/// backslashes; "." and ".." are followed in the text, and a path that climbs out of its root is refused. A refusal
/// is a message that tells the path and the reason. Links on the disk are followed like what they lead to.
///
/// Threads: any, also while the roots change; the monitor belongs to the GUI thread. Cost: a look at the disk a root.
class DATAMODELS_HOST_API MultiFileSystem : public FileSystem
{
public:
    /// The monitor outlives the file system; without one, the disk's own is taken when it is first needed.
    explicit MultiFileSystem(IFileSystemMonitor* monitor = nullptr);
    ~MultiFileSystem();
    MultiFileSystem(const MultiFileSystem&) = delete;
    MultiFileSystem& operator=(const MultiFileSystem&) = delete;

    /// The roots in the order in which they are searched. False, with a message and the old roots kept, unless each is the
    /// absolute path of a directory.
    bool setRoots(const std::vector<std::string>& roots);
    /// Without trailing separators.
    std::vector<std::string> roots() const;

    /// Replaces `entries` by the names in a directory, each once, in the order of their bytes; "." and ".." are left out,
    /// hidden names are not. False, with no entries, if no root has the directory, or if the path is refused.
    bool readDirectory(std::vector<std::string>& entries, const std::string& path) const;

    /// Rewrites the path of a resource to that of its file. What no root has is placed in the first root, where it would
    /// be made. An absolute path inside of a root is tidied only. What is refused stays as it is.
    FileType resolveToAbsolutePath(std::string& path) const;

    /// The name of the resource that `resolveToAbsolutePath` leads to `path`; its exact inverse. The name of a
    /// resource is tidied only. Empty, with `*ok` false and a message, for a path outside of every root and for a file
    /// that another root hides.
    std::string dissolveFilename(const std::string& path, bool* ok = nullptr) const;

    /// Tells of changes below all roots.
    MultiFileSystemMonitor& getFilesystemMonitor();

private:
    using Roots = std::vector<std::string>;

    struct Place
    {
        std::string path;
        FileType type;
    };

    std::shared_ptr<const Roots> currentRoots() const;
    static Place locate(const Roots& roots, const std::string& name);

    mutable std::mutex m_mutex; // guards the pointer only
    std::shared_ptr<const Roots> m_roots;
    std::unique_ptr<MultiFileSystemMonitor> m_monitor;
};

/// The one of the process. It has no roots until the application sets them.
DATAMODELS_HOST_API MultiFileSystem* fileSystem();

} // namespace Ozy::FS
