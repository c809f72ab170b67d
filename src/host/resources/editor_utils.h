#pragma once

#include <host/base/host_export.h>

#include <string>
#include <string_view>

namespace Ozy::FS {

/// Absolute paths of resources of the process-wide file system, for callers that need a path in any case: a name that
/// is refused comes back as it is, with a message.
class DATAMODELS_HOST_API EditorUtils
{
public:
    std::string resolveFilename(std::string_view name) const;
    /// The same in wide characters.
    std::wstring resolveFilenameW(const std::string& name) const;
};

} // namespace Ozy::FS
