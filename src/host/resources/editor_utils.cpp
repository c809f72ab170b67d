#include <host/resources/editor_utils.h>

#include <host/resources/multi_file_system.h>

#include <QString>

namespace Ozy::FS {

std::string EditorUtils::resolveFilename(std::string_view name) const
{
    std::string path(name);
    fileSystem()->resolveToAbsolutePath(path);
    return path;
}

std::wstring EditorUtils::resolveFilenameW(const std::string& name) const
{
    return QString::fromStdString(resolveFilename(name)).toStdWString();
}

} // namespace Ozy::FS
