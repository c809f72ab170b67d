#pragma once

#include <host/images/dds_layout.h>

namespace Tessen {

/// The pixel format in the header of a DDS file.
struct DdsPixelFormat
{
    std::uint32_t flags = 0;
    std::uint32_t letters = 0; ///< four of them, or the number of an old format
    std::uint32_t bits = 0;
    std::array<std::uint32_t, 4> masks{};

    static constexpr std::uint32_t alphaFlag = 0x1;
    static constexpr std::uint32_t alphaOnlyFlag = 0x2;
    static constexpr std::uint32_t lettersFlag = 0x4;
    static constexpr std::uint32_t coloursFlag = 0x40;
    static constexpr std::uint32_t luminanceFlag = 0x20000;
};

constexpr std::uint32_t fourLetters(const char* text)
{
    std::uint32_t letters = 0;
    for (int at = 3; at >= 0; --at)
        letters = letters << 8 | static_cast<unsigned char>(text[at]);
    return letters;
}

/// The format by its number in the extended header; nothing for one that is not supported.
std::optional<DdsFormat> ddsFormatOf(std::uint32_t number);
/// The format of a file without that header.
std::optional<DdsFormat> ddsFormatOf(const DdsPixelFormat& pixels);

} // namespace Tessen
