#pragma once

#include <cstdint>

namespace Ozy {

/// Whether an image can be shown: its sides go up to 65536, and all of it to 2^28 pixels.
constexpr bool isBoundedImage(std::int64_t width, std::int64_t height, std::int64_t depth)
{
    constexpr std::int64_t mostSide = 65536;
    constexpr std::int64_t mostPixels = 1ll << 28;
    const auto isSide = [](std::int64_t side) { return side >= 1 && side <= mostSide; };
    return isSide(width) && isSide(height) && isSide(depth) && width * height <= mostPixels / depth;
}

/// Images that are larger once decoded are refused.
inline constexpr std::int64_t mostDecodedBytes = std::int64_t(1) << 30;

// What is wrong with a file, as the rest of a sentence about it.
inline constexpr const char* damagedHeader = "its header is damaged";
inline constexpr const char* tooLarge = "it is too large";
inline constexpr const char* noSuchImage = "it has no such image";
inline constexpr const char* unknownPixels = "the format of its pixels is not supported";

} // namespace Ozy
