#include <host/resources/overlay_file_system.h>

#include <host/base/debug.h>
#include <host/resources/basic_file_info.h>
#include <host/resources/directory_reader.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/resource_name.h>

#include <cerrno>
#include <cstring>
#include <unordered_set>
#include <utility>

namespace qelm {

using namespace Ozy::FS;

namespace {

bool isFailure(int error)
{
    return error && error != ENOENT && error != ENOTDIR; // not every root has every directory
}

} // namespace

OverlayFileSystem::OverlayFileSystem(const MultiFileSystem& resources) : m_resources(resources) {}

void OverlayFileSystem::enumerate(const char* directory, Visitor visit)
{
    bool isResource = false;
    const std::string top = m_resources.dissolveFilename(directory, &isResource);
    if (!isResource)
        return;
    const std::string before = top.empty() ? top : top + '/';
    const std::vector<std::string> roots = m_resources.roots();
    std::unordered_set<std::string> seen;
    for (const std::string& root : roots) {
        DirectoryReader reader(joinPath(root, top));
        while (const char* name = reader.next()) {
            const FileFacts facts = reader.facts();
            if (facts.kind == FileFacts::Missing || !isResourceText(name) || !seen.insert(name).second)
                continue;
            if (!visit(std::make_shared<BasicFileInfo>(before, name, facts)))
                return;
        }
        if (isFailure(reader.error()))
            Ozy::DebugMessageHelper(Ozy::Priority::refusal, "resources")
                .message("Could not read directory '%s': %s.\n", readable(joinPath(root, top)).c_str(),
                         std::strerror(reader.error()));
    }
}

std::shared_ptr<IFileInfo> OverlayFileSystem::getFileInfo(const char* path)
{
    std::string absolute = path;
    if (m_resources.resolveToAbsolutePath(absolute) == FileSystem::NotFound)
        return nullptr;
    bool isDissolved = false;
    std::string name = m_resources.dissolveFilename(path, &isDissolved);
    if (!isDissolved)
        return nullptr;
    return std::make_shared<BasicFileInfo>(std::move(name), factsOf(absolute, true));
}

std::string OverlayFileSystem::absolutePath(const char* fullName)
{
    bool isResource = false;
    std::string path = m_resources.dissolveFilename(fullName, &isResource);
    if (!isResource)
        return {};
    m_resources.resolveToAbsolutePath(path);
    return path;
}

std::string OverlayFileSystem::relativePath(const char* path)
{
    bool isDissolved = false;
    std::string name = m_resources.dissolveFilename(path, &isDissolved);
    return isDissolved ? name : path;
}

} // namespace qelm
