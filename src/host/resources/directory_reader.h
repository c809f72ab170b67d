#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace Ozy::FS {

/// What the disk tells of one entry. Times in nanoseconds since 1970 UTC; 0 for what it does not tell.
struct FileFacts
{
    enum Kind : std::uint8_t
    {
        Missing, ///< nothing is there
        File,
        Directory,
        Link, ///< leads to a directory, or nowhere; a link to a file counts as that file
        Special
    };

    Kind kind = Missing;
    std::uint64_t size = 0;
    std::int64_t created = 0;
    std::int64_t modified = 0;
    std::uint64_t inode = 0; ///< with `created`, tells a file from another one under its name
};

/// The facts of a path; `followLink` lets a link to a directory count as that directory.
FileFacts factsOf(const std::string& path, bool followLink);

/// Reads a directory entry by entry, with facts by the open directory, so that a path is resolved only once.
///
///     DirectoryReader reader(path);
///     while (const char* name = reader.next()) { ... reader.facts() ... }
///
/// A directory that goes while it is read ends the entries. Links are never followed into a directory.
class DirectoryReader
{
public:
    explicit DirectoryReader(const std::string& path);
    ~DirectoryReader();
    DirectoryReader(const DirectoryReader&) = delete;
    DirectoryReader& operator=(const DirectoryReader&) = delete;

    /// The name of the next entry, "." and ".." left out; null at the end. Valid until the next call.
    const char* next();
    /// Those of the last entry given by `next`; `Missing` when it has gone meanwhile.
    FileFacts facts() const;
    /// The number of the system's error that opening or reading ended with; 0 while there is none.
    int error() const { return m_error; }

private:
    bool fill();

    int m_directory = -1;
    int m_error = 0;
    long m_filled = 0;
    long m_offset = 0;
    const char* m_entry = nullptr;
    std::unique_ptr<char[]> m_buffer;
};

} // namespace Ozy::FS
