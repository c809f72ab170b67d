#include <host/engine/atlas_manager.h>

#include <host/base/debug.h>
#include <host/engine/atlas_file.h>
#include <host/resources/multi_file_system.h>

#include <sys/stat.h>

#include <algorithm>
#include <utility>

namespace Ozy::Fennel {
namespace {

/// Tells one state of a file from the next: a file that is replaced as a whole gets another inode.
struct Stamp
{
    ino_t inode = 0;
    off_t size = -1;
    timespec modified = {};

    bool isThere() const { return size >= 0; }
    bool operator==(const Stamp& other) const
    {
        return inode == other.inode && size == other.size && modified.tv_sec == other.modified.tv_sec
               && modified.tv_nsec == other.modified.tv_nsec;
    }
};

Stamp stampOf(const std::string& path)
{
    struct stat facts;
    if (stat(path.c_str(), &facts) != 0)
        return {};
    return {facts.st_ino, facts.st_size, facts.st_mtim};
}

} // namespace

struct AtlasManager::Entry
{
    std::string path;
    Stamp stamp;
    AtlasTexture::AtlasData data;
};

AtlasManager::AtlasManager() = default;
AtlasManager::~AtlasManager() = default;

const AtlasTexture::AtlasData& AtlasManager::getAtlasData(const std::string& path)
{
    std::string absolute = path;
    if (!path.starts_with('/'))
        FS::fileSystem()->resolveToAbsolutePath(absolute);

    Entry& kept = entry(absolute);
    const Stamp stamp = stampOf(absolute);
    if (kept.stamp == stamp)
        return kept.data;
    kept.stamp = stamp;
    kept.data = {};
    if (!stamp.isThere())
        return kept.data;

    AtlasFile::Decoded decoded = AtlasFile::read(absolute);
    if (decoded.data)
        kept.data = std::move(*decoded.data);
    else
        DebugMessageHelper(Priority::refusal, "engine")
            .message("Atlas file '%s' %s.\n", absolute.c_str(), decoded.fault.c_str());
    return kept.data;
}

AtlasManager::Entry& AtlasManager::entry(const std::string& path)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& e) { return e.path == path; });
    if (found != m_entries.end()) {
        m_entries.splice(m_entries.begin(), m_entries, found);
        return m_entries.front();
    }
    if (m_entries.size() == capacity)
        m_entries.pop_back();
    return m_entries.emplace_front(Entry{path, {}, {}});
}

void AtlasManager::onAtlasFilesSaved()
{
    m_entries.clear();
}

} // namespace Ozy::Fennel
