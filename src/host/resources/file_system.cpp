#include <host/resources/file_system.h>

namespace qelm {

IFileInfo::~IFileInfo() = default;

IFileSystem::~IFileSystem() = default;

} // namespace qelm
