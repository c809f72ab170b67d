#pragma once

#include <host/base/host_export.h>
#include <host/resources/file_system.h>

#include <string>

namespace qelm {

/// The disk below one directory. Full names are absolute paths; relative ones are taken from that directory.
///
/// An enumeration reads each entry with its size and times by the open directory. A link to a directory is a leaf, so
/// that no walk turns in circles; a path that is asked for by name is followed.
class DATAMODELS_HOST_API LocalFileSystem final : public IFileSystem
{
public:
    explicit LocalFileSystem(std::string root);

    void enumerate(const char* directory, Visitor visit) override;
    std::shared_ptr<IFileInfo> getFileInfo(const char* path) override;
    std::string absolutePath(const char* fullName) override;
    std::string relativePath(const char* path) override;

private:
    std::string m_root;
};

} // namespace qelm
