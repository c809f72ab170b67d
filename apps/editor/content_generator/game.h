#pragma once

#include <array>
#include <string>

namespace generator {

/// One arena of the game, a race of clay barges through the canals of a salt marsh.
struct Arena
{
    const char* name;
    const char* title;
    const char* sky;
    int width;  ///< metres
    int height; ///< metres
    int crews;
    int seconds; ///< 0: until one crew is home
};

extern const std::array<Arena, 12> arenas;

/// The arenas that have a level of their own so far: the first of the list.
inline constexpr int levelCount = 6;

} // namespace generator
