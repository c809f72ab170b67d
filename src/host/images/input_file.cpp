#include <host/images/input_file.h>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tessen {

InputFile::InputFile(const std::string& path)
{
    // Without blocking, since the other end of a pipe may never open.
    const bool isWhole = path.find('\0') == std::string::npos;
    m_descriptor = isWhole ? open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1;
    if (m_descriptor < 0) {
        m_isMissing = !isWhole || errno == ENOENT || errno == ENOTDIR;
        m_fault = isWhole ? std::strerror(errno) : "no such file";
        return;
    }
    struct stat facts{};
    if (fstat(m_descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        m_fault = S_ISDIR(facts.st_mode) ? "it is a directory" : "it is no file";
        return;
    }
    m_stamp = {facts.st_dev, facts.st_ino, facts.st_size,
               facts.st_mtim.tv_sec * 1'000'000'000LL + facts.st_mtim.tv_nsec};
    m_startRead = read(0, m_start, sizeof m_start);
}

InputFile::~InputFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

std::size_t InputFile::read(std::int64_t offset, void* bytes, std::size_t length) const
{
    if (offset >= 0 && static_cast<std::size_t>(offset) + length <= m_startRead) {
        std::memcpy(bytes, m_start + offset, length);
        return length;
    }
    std::size_t done = 0;
    while (done < length) {
        const ssize_t count = pread(m_descriptor, static_cast<char*>(bytes) + done, length - done,
                                    offset + static_cast<std::int64_t>(done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::vector<unsigned char> InputFile::read(std::int64_t offset, std::size_t length) const
{
    if (offset < 0 || offset > size() || static_cast<std::int64_t>(length) > size() - offset)
        return {}; // before anything is allocated
    std::vector<unsigned char> bytes(length);
    if (read(offset, bytes.data(), length) != length)
        bytes.clear();
    return bytes;
}

} // namespace Tessen
