#pragma once

#include <QtGlobal>

#include <cstdint>
#include <string>
#include <vector>

namespace Tessen {

/// Tells one content of a file from the next.
struct FileStamp
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modified = 0; ///< nanoseconds

    bool operator==(const FileStamp&) const = default;
};

/// A file that is open for reading; directories, pipes and devices never are.
class InputFile
{
public:
    explicit InputFile(const std::string& path);
    ~InputFile();
    Q_DISABLE_COPY_MOVE(InputFile)

    /// Why it is not open, as the rest of a sentence; empty when it is.
    const std::string& fault() const { return m_fault; }
    /// Whether there is nothing at all under the path, which needs no warning.
    bool isMissing() const { return m_isMissing; }
    const FileStamp& stamp() const { return m_stamp; }
    std::int64_t size() const { return m_stamp.size; }

    /// How many bytes were read, from the disk but for the start of the file; fewer at the end of the file.
    std::size_t read(std::int64_t offset, void* bytes, std::size_t length) const;
    /// Exactly that many, or none.
    std::vector<unsigned char> read(std::int64_t offset, std::size_t length) const;

private:
    static constexpr std::size_t startLength = 512;

    int m_descriptor = -1;
    unsigned char m_start[startLength]; ///< read at once, since headers are asked for in parts
    std::size_t m_startRead = 0;
    bool m_isMissing = false;
    FileStamp m_stamp;
    std::string m_fault;
};

} // namespace Tessen
