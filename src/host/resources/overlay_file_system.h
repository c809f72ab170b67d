#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_system.h>

namespace Ozy::FS {
class MultiFileSystem;
}

namespace qelm {

/// The resources as one tree. Full names are names of resources; the empty one is the top. A directory shows what all
/// roots have in it, each name once, as the first root that has it.
class DATAMODELS_HOST_API OverlayFileSystem final : public IFileSystem
{
public:
    /// Does not take ownership.
    explicit OverlayFileSystem(const Ozy::FS::MultiFileSystem& resources);

    void enumerate(const char* directory, Visitor visit) override;
    std::shared_ptr<IFileInfo> getFileInfo(const char* path) override;
    /// Empty for a name that is refused.
    std::string absolutePath(const char* fullName) override;
    std::string relativePath(const char* path) override;

private:
    const Ozy::FS::MultiFileSystem& m_resources;
};

} // namespace qelm
