#pragma once

#include <host/base/host_export.h>
#include <host/resources/multi_file_system.h>

#include <string>
#include <string_view>

namespace Ozy::FS {

/// Operations on paths. The views are parts of the path that is given, and live as long. Separators are "/".
///
/// A leading dot starts no extension: ".svn" has none, "a.b.xml" has "xml", and "archive." an empty one that
/// `removeExtension` cuts all the same. Threads: any.
struct DATAMODELS_HOST_API Utils
{
    Utils() = delete;

    /// `MultiFileSystem::resolveToAbsolutePath` of the process-wide file system.
    static FileSystem::FileType resolveToAbsolutePath(std::string& path);
    /// Whether an absolute path, or the name of a resource, leads to a file; false for a directory.
    static bool fileExists(const std::string& path);

    /// The last component; empty for a path that ends in "/".
    static std::string_view getFilename(std::string_view path);
    /// Without its dot; empty if there is none.
    static std::string_view getExtension(std::string_view path);
    /// The path without its extension and the dot before it.
    static std::string_view removeExtension(std::string_view path);
    /// The last component without its extension.
    static std::string_view getBasename(std::string_view path);
};

} // namespace Ozy::FS
