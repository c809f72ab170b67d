#pragma once

#include <host/base/host_export.h>

#include <string>

namespace Ozy::Utilities {

/// Whether a path lies in what the application works on: the name of a resource, or an absolute path below one of the
/// roots, going by its text alone. A file that another root hides belongs to it as well. Logs nothing. Threads: any.
DATAMODELS_HOST_API bool isFromCurrentBranch(const std::string& path);

} // namespace Ozy::Utilities
