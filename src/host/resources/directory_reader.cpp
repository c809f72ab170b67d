#include <host/resources/directory_reader.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Ozy::FS {
namespace {

// Many entries a call, and small enough for the stack of free blocks that the allocator keeps at hand.
constexpr long bufferSize = 32 * 1024;
constexpr unsigned wanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_BTIME | STATX_INO;

std::int64_t nanoseconds(const statx_timestamp& time)
{
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

FileFacts::Kind kindOf(unsigned mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG: return FileFacts::File;
    case S_IFDIR: return FileFacts::Directory;
    case S_IFLNK: return FileFacts::Link;
    default: return FileFacts::Special;
    }
}

FileFacts factsOf(int directory, const char* name, bool followLink)
{
    struct statx status = {};
    const int flags = AT_STATX_DONT_SYNC | (followLink ? 0 : AT_SYMLINK_NOFOLLOW);
    if (statx(directory, name, flags, wanted, &status) != 0)
        return {};

    FileFacts facts;
    facts.kind = kindOf(status.stx_mode);
    facts.size = facts.kind == FileFacts::File ? status.stx_size : 0;
    facts.created = status.stx_mask & STATX_BTIME ? nanoseconds(status.stx_btime) : 0;
    facts.modified = nanoseconds(status.stx_mtime);
    facts.inode = status.stx_ino;
    if (facts.kind == FileFacts::Link) {
        const FileFacts target = factsOf(directory, name, true);
        if (target.kind == FileFacts::File || target.kind == FileFacts::Special)
            return target;
    }
    return facts;
}

} // namespace

FileFacts factsOf(const std::string& path, bool followLink)
{
    return factsOf(AT_FDCWD, path.c_str(), followLink);
}

DirectoryReader::DirectoryReader(const std::string& path)
    : m_directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_directory < 0)
        m_error = errno;
    else
        m_buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
}

DirectoryReader::~DirectoryReader()
{
    if (m_directory >= 0)
        close(m_directory);
}

const char* DirectoryReader::next()
{
    while (m_offset < m_filled || fill()) {
        m_entry = m_buffer.get() + m_offset;
        unsigned short length = 0;
        std::memcpy(&length, m_entry + offsetof(dirent64, d_reclen), sizeof length);
        m_offset += length;
        const char* name = m_entry + offsetof(dirent64, d_name);
        if (std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0)
            return name;
    }
    m_entry = nullptr;
    return nullptr;
}

FileFacts DirectoryReader::facts() const
{
    if (!m_entry)
        return {};
    FileFacts facts = factsOf(m_directory, m_entry + offsetof(dirent64, d_name), false);
    if (facts.kind == FileFacts::Missing && errno != ENOENT) {
        // Names can be read here and nothing more: the kind is all there is.
        const auto type = static_cast<unsigned char>(m_entry[offsetof(dirent64, d_type)]);
        facts.kind = type == DT_UNKNOWN ? FileFacts::File : kindOf(DTTOIF(type));
    }
    return facts;
}

bool DirectoryReader::fill()
{
    if (m_directory < 0 || m_error)
        return false;
    m_offset = 0;
    m_filled = syscall(SYS_getdents64, m_directory, m_buffer.get(), bufferSize);
    if (m_filled < 0 && errno != ENOENT) // a directory that was removed has no more entries
        m_error = errno;
    return m_filled > 0;
}

} // namespace Ozy::FS
