#pragma once

#include <host/base/host_export.h>

#include <string>
#include <string_view>

/// Small operations on UTF-8 texts. Threads: any.
namespace Ozy::StringUtils {

/// Whether `left` stands before `right` in natural order: runs of digits compare by value, ASCII letters without case,
/// all else by bytes. Texts that are equal in this way stand in the order of their bytes, so that the order is total:
/// "a01" before "a1" before "A2" before "a10". No allocation; digits may be any number.
DATAMODELS_HOST_API bool NumericStringCompare(std::string_view left, std::string_view right);

/// Replaces each occurrence of `from`, found from the left; replaced text is not searched again. An empty `from` does
/// nothing.
DATAMODELS_HOST_API void replace(std::string& text, std::string_view from, std::string_view to);

} // namespace Ozy::StringUtils
