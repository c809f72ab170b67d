#include <host/images/image_path.h>

#include <host/resources/multi_file_system.h>

#include <QString>

namespace Tessen {

std::string imagePath(const QString& fileName)
{
    std::string path = fileName.toStdString();
    if (!path.empty() && !path.starts_with('/'))
        Ozy::FS::fileSystem()->resolveToAbsolutePath(path);
    return path;
}

} // namespace Tessen
