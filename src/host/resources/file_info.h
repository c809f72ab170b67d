#pragma once

#include <host/base/host_export.h>

#include <cstdint>

namespace qelm {

/// What a file system knows of one entry, as it was when the info was made.
///
/// Texts are UTF-8 and live as long as the info; the bytes of a name that is not UTF-8 are given as they are, so that the
/// full name still opens the file. Threads: any, all operations only read.
class DATAMODELS_HOST_API IFileInfo
{
public:
    virtual ~IFileInfo();

    virtual bool isDirectory() const = 0;
    /// Entries for which either of the two is true do not belong in a listing: those with a name that starts with a dot,
    virtual bool isHidden() const = 0;
    /// and those that are neither file nor directory nor link to one of them.
    virtual bool isSystem() const = 0;
    /// In bytes; 0 for a directory.
    virtual std::uint64_t size() const = 0;
    /// In units of 100 nanoseconds since 1601-01-01 UTC; 0 where the file system does not keep the time.
    virtual std::uint64_t createdTime() const = 0;
    virtual std::uint64_t modifiedTime() const = 0;
    /// What follows the last dot of the name, unless that is its first character.
    virtual const char* extension() const = 0;
    virtual const char* name() const = 0;
    /// What the file system that gave the info finds the entry by.
    virtual const char* fullName() const = 0;
};

} // namespace qelm
