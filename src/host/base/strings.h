#pragma once

#include <string>
#include <string_view>

namespace Ozy {

/// A text that somebody else keeps; UTF-8 throughout.
template <class Character>
using BasicStringRef = std::basic_string_view<Character>;

/// A text that its holder keeps.
template <class Character>
using BasicOwningStringView = std::basic_string<Character>;

} // namespace Ozy
