#include <host/resources/utils.h>

#include <host/resources/directory_reader.h>

namespace Ozy::FS {
namespace {

/// Where the dot of the extension stands in a last component, or its end.
std::size_t dotOf(std::string_view filename)
{
    const std::size_t dot = filename.rfind('.');
    const bool isExtension = dot != std::string_view::npos && dot > 0 && filename != "..";
    return isExtension ? dot : filename.size();
}

} // namespace

FileSystem::FileType Utils::resolveToAbsolutePath(std::string& path)
{
    return fileSystem()->resolveToAbsolutePath(path);
}

bool Utils::fileExists(const std::string& path)
{
    if (path.starts_with('/'))
        return factsOf(path, true).kind == FileFacts::File;
    std::string absolute = path;
    return resolveToAbsolutePath(absolute) == FileSystem::File;
}

std::string_view Utils::getFilename(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string_view Utils::getExtension(std::string_view path)
{
    const std::string_view filename = getFilename(path);
    const std::size_t dot = dotOf(filename);
    return dot == filename.size() ? filename.substr(dot) : filename.substr(dot + 1);
}

std::string_view Utils::removeExtension(std::string_view path)
{
    const std::string_view filename = getFilename(path);
    return path.substr(0, path.size() - filename.size() + dotOf(filename));
}

std::string_view Utils::getBasename(std::string_view path)
{
    return removeExtension(getFilename(path));
}

} // namespace Ozy::FS
