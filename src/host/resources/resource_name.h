#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Ozy::FS {

/// Whether a text can be part of the name of a resource: UTF-8 without control characters and backslashes.
bool isResourceText(std::string_view text);

/// A path with "." and ".." followed and without superfluous separators; a leading one stays. Nothing if it leads above
/// its start.
std::optional<std::string> tidyPath(std::string_view path);

/// `root`, a tidy path, and a name below it; an empty name stands for the root itself.
std::string joinPath(const std::string& root, std::string_view name);

/// The part of an absolute tidy path below a root; nothing if it lies outside.
std::optional<std::string> pathBelow(const std::string& root, std::string_view path);

/// `text` with bytes that a log cannot show as "\xNN".
std::string readable(std::string_view text);

} // namespace Ozy::FS
