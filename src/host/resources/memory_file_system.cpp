#include <host/resources/memory_file_system.h>

#include <host/base/debug.h>
#include <host/resources/basic_file_info.h>

#include <utility>

namespace qelm {

using Ozy::FS::FileFacts;

namespace {

std::string tidy(std::string path)
{
    while (path.ends_with('/'))
        path.pop_back();
    return path.starts_with('/') ? path.substr(1) : path;
}

std::string parentOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

FileFacts factsOf(FileFacts::Kind kind, std::uint64_t size = 0, std::int64_t modified = 0)
{
    FileFacts facts;
    facts.kind = kind;
    facts.size = size;
    facts.created = modified;
    facts.modified = modified;
    return facts;
}

} // namespace

MemoryFileSystem::MemoryFileSystem()
{
    m_entries.emplace("", std::make_shared<BasicFileInfo>("", factsOf(FileFacts::Directory)));
}

MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::enumerate(const char* directory, Visitor visit)
{
    const std::string path = tidy(directory);
    int remaining = -1;
    Hook hook;
    {
        const std::lock_guard lock(m_mutex);
        ++m_enumerations[path];
        const auto failure = m_failures.find(path);
        remaining = failure == m_failures.end() ? -1 : failure->second;
        hook = m_hook;
    }

    std::string last = path.empty() ? path : path + "/";
    for (;;) {
        if (remaining-- == 0) {
            Ozy::DebugMessageHelper(Ozy::Priority::refusal, "resources")
                .message("Could not read directory '%s': Input/output error.\n", path.c_str());
            return;
        }
        auto info = nextBelow(path, last);
        if (!info)
            return;
        if (hook)
            hook(info->fullName());
        if (!visit(std::move(info)))
            return;
    }
}

// One entry at a time without a lock in between, as a disk does it: what goes meanwhile is not told.
std::shared_ptr<IFileInfo> MemoryFileSystem::nextBelow(const std::string& directory, std::string& after) const
{
    const std::lock_guard lock(m_mutex);
    for (auto entry = m_entries.upper_bound(after); entry != m_entries.end(); ++entry) {
        if (!directory.empty() && !entry->first.starts_with(directory))
            return nullptr;
        if (!entry->first.empty() && parentOf(entry->first) == directory) {
            after = entry->first;
            return entry->second;
        }
    }
    return nullptr;
}

std::shared_ptr<IFileInfo> MemoryFileSystem::getFileInfo(const char* path)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(tidy(path));
    return found == m_entries.end() ? nullptr : found->second;
}

std::string MemoryFileSystem::absolutePath(const char* fullName)
{
    return tidy(fullName).insert(0, 1, '/');
}

std::string MemoryFileSystem::relativePath(const char* path)
{
    return tidy(path);
}

void MemoryFileSystem::addDirectory(const std::string& path)
{
    add(tidy(path), std::make_shared<BasicFileInfo>(tidy(path), factsOf(FileFacts::Directory)));
}

void MemoryFileSystem::addFile(const std::string& path, std::uint64_t size, std::int64_t modified)
{
    add(tidy(path), std::make_shared<BasicFileInfo>(tidy(path), factsOf(FileFacts::File, size, modified)));
}

void MemoryFileSystem::addSpecial(const std::string& path)
{
    add(tidy(path), std::make_shared<BasicFileInfo>(tidy(path), factsOf(FileFacts::Special)));
}

void MemoryFileSystem::add(const std::string& path, std::shared_ptr<IFileInfo> info)
{
    const std::lock_guard lock(m_mutex);
    for (std::string parent = parentOf(path); !parent.empty(); parent = parentOf(parent))
        m_entries.try_emplace(parent, std::make_shared<BasicFileInfo>(parent, factsOf(FileFacts::Directory)));
    m_entries.insert_or_assign(path, std::move(info));
}

void MemoryFileSystem::remove(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    const std::string top = tidy(path);
    std::erase_if(m_entries, [&top](const auto& entry) {
        return entry.first == top || entry.first.starts_with(top + "/");
    });
}

void MemoryFileSystem::failAfter(const std::string& directory, int entries)
{
    const std::lock_guard lock(m_mutex);
    m_failures[tidy(directory)] = entries;
}

void MemoryFileSystem::setHook(Hook hook)
{
    const std::lock_guard lock(m_mutex);
    m_hook = std::move(hook);
}

int MemoryFileSystem::enumerations(const std::string& directory) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_enumerations.find(tidy(directory));
    return found == m_enumerations.end() ? 0 : found->second;
}

} // namespace qelm
