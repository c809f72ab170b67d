#include <host/resources/local_file_system.h>

#include <host/base/debug.h>
#include <host/resources/basic_file_info.h>
#include <host/resources/directory_reader.h>
#include <host/resources/resource_name.h>

#include <cstring>
#include <utility>

namespace qelm {

using namespace Ozy::FS;

LocalFileSystem::LocalFileSystem(std::string root) : m_root(std::move(root))
{
    while (m_root.size() > 1 && m_root.ends_with('/'))
        m_root.pop_back();
}

void LocalFileSystem::enumerate(const char* directory, Visitor visit)
{
    const std::string path = absolutePath(directory);
    const std::string before = path.ends_with('/') ? path : path + '/';
    DirectoryReader reader(path);
    while (const char* name = reader.next()) {
        const FileFacts facts = reader.facts();
        if (facts.kind != FileFacts::Missing && !visit(std::make_shared<BasicFileInfo>(before, name, facts)))
            return;
    }
    if (reader.error())
        Ozy::DebugMessageHelper(Ozy::Priority::refusal, "resources")
            .message("Could not read directory '%s': %s.\n", readable(path).c_str(),
                     std::strerror(reader.error()));
}

std::shared_ptr<IFileInfo> LocalFileSystem::getFileInfo(const char* path)
{
    std::string absolute = absolutePath(path);
    const FileFacts facts = factsOf(absolute, true);
    if (facts.kind == FileFacts::Missing)
        return nullptr;
    return std::make_shared<BasicFileInfo>(std::move(absolute), facts);
}

std::string LocalFileSystem::absolutePath(const char* fullName)
{
    std::string path = *fullName == '/' ? fullName : joinPath(m_root, fullName);
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

std::string LocalFileSystem::relativePath(const char* path)
{
    return pathBelow(m_root, path).value_or(path);
}

} // namespace qelm
