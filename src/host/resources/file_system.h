#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_info.h>

#include <functional>
#include <memory>
#include <string>

namespace qelm {

/// A tree of directories and files, told apart by full names.
///
/// Bad input: what does not exist or cannot be read has no entries and a null info. Threads: any, also several at once;
/// no operation waits for the GUI thread.
class DATAMODELS_HOST_API IFileSystem
{
public:
    /// Takes one entry over; false ends the enumeration.
    using Visitor = std::function<bool(std::shared_ptr<IFileInfo>&& entry)>;

    virtual ~IFileSystem();

    /// Calls `visit` once for each entry of a directory, hidden ones included, in no particular order. When reading
    /// fails, the entries found up to then have been told, and the failure is logged.
    virtual void enumerate(const char* directory, Visitor visit) = 0;
    /// Null when there is no such entry.
    virtual std::shared_ptr<IFileInfo> getFileInfo(const char* path) = 0;
    /// The path on the disk; empty when the entry has none.
    virtual std::string absolutePath(const char* fullName) = 0;
    /// The path below the root of the file system; a path outside comes back as it is.
    virtual std::string relativePath(const char* path) = 0;
};

} // namespace qelm
