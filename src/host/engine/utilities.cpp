#include <host/engine/utilities.h>

#include <host/resources/multi_file_system.h>
#include <host/resources/resource_name.h>

#include <algorithm>

namespace Ozy::Utilities {

bool isFromCurrentBranch(const std::string& path)
{
    const auto tidy = FS::tidyPath(path);
    if (!tidy || tidy->empty() || !tidy->starts_with('/'))
        return tidy && !tidy->empty();
    const auto roots = FS::fileSystem()->roots();
    return std::any_of(roots.begin(), roots.end(), [&](const std::string& root) { return FS::pathBelow(root, *tidy); });
}

} // namespace Ozy::Utilities
