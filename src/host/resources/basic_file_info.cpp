#include <host/resources/basic_file_info.h>

#include <host/resources/utils.h>

#include <utility>

namespace qelm {
namespace {

constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;

std::uint64_t ticks(std::int64_t nanoseconds)
{
    return nanoseconds == 0 ? 0
                            : static_cast<std::uint64_t>(nanoseconds / 100 + secondsFrom1601To1970 * 10'000'000);
}

std::string joined(const std::string& directory, std::string_view name)
{
    std::string text;
    text.reserve(directory.size() + name.size());
    return text.append(directory).append(name);
}

} // namespace

BasicFileInfo::BasicFileInfo(std::string fullName, const Ozy::FS::FileFacts& facts)
    : BasicFileInfo(std::move(fullName), std::string::npos, facts)
{
}

BasicFileInfo::BasicFileInfo(const std::string& directory, std::string_view name, const Ozy::FS::FileFacts& facts)
    : BasicFileInfo(joined(directory, name), directory.size(), facts)
{
}

BasicFileInfo::BasicFileInfo(std::string fullName, std::size_t name, const Ozy::FS::FileFacts& facts)
    : m_fullName(std::move(fullName)), m_size(facts.size), m_created(facts.created), m_modified(facts.modified),
      m_name(static_cast<std::uint32_t>(name == std::string::npos ? m_fullName.rfind('/') + 1 : name)),
      m_extension(static_cast<std::uint32_t>(m_fullName.size() - Ozy::FS::Utils::getExtension(m_fullName).size())),
      m_kind(facts.kind)
{
}

std::uint64_t BasicFileInfo::createdTime() const
{
    return ticks(m_created);
}

std::uint64_t BasicFileInfo::modifiedTime() const
{
    return ticks(m_modified);
}

} // namespace qelm
