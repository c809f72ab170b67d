#pragma once

#include <host/resources/directory_reader.h>
#include <host/resources/file_info.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace qelm {

/// The info of the file systems here: facts of the disk beside one text, in which name and extension are places.
class BasicFileInfo final : public IFileInfo
{
public:
    BasicFileInfo(std::string fullName, const Ozy::FS::FileFacts& facts);
    /// `directory` ends in a separator, or is empty.
    BasicFileInfo(const std::string& directory, std::string_view name, const Ozy::FS::FileFacts& facts);

    bool isDirectory() const override { return m_kind == Ozy::FS::FileFacts::Directory; }
    bool isHidden() const override { return *name() == '.'; }
    bool isSystem() const override { return m_kind == Ozy::FS::FileFacts::Special; }
    std::uint64_t size() const override { return m_size; }
    std::uint64_t createdTime() const override;
    std::uint64_t modifiedTime() const override;
    const char* extension() const override { return m_fullName.c_str() + m_extension; }
    const char* name() const override { return m_fullName.c_str() + m_name; }
    const char* fullName() const override { return m_fullName.c_str(); }

private:
    BasicFileInfo(std::string fullName, std::size_t name, const Ozy::FS::FileFacts& facts);

    std::string m_fullName;
    std::uint64_t m_size;
    std::int64_t m_created;
    std::int64_t m_modified;
    std::uint32_t m_name; // where it begins
    std::uint32_t m_extension;
    Ozy::FS::FileFacts::Kind m_kind;
};

} // namespace qelm
