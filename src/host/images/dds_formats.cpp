#include <host/images/dds_formats.h>

#include <algorithm>
#include <bit>
#include <iterator>

namespace Tessen {
namespace {

struct Blocks
{
    unsigned number;
    unsigned numberSrgb; ///< 0 if there is none
    const char* compression;
    const char* letters;
    int bytes;
    unsigned channels;
    int bytesPerChannel = 1;
};
constexpr Blocks blockFormats[] = {
    {71, 72, "BC1", "DXT1", 8, 4},      {74, 75, "BC2", "DXT3", 16, 4}, {77, 78, "BC3", "DXT5", 16, 4},
    {80, 0, "BC4", "ATI1", 8, 1},       {83, 0, "BC5", "ATI2", 16, 2},  {95, 0, "BC6H", nullptr, 16, 3, 2},
    {96, 0, "BC6H", nullptr, 16, 3, 2}, {98, 99, "BC7", nullptr, 16, 4}};

/// Other letters for the same blocks.
struct Spelling
{
    const char* letters;
    unsigned number;
};
constexpr Spelling spellings[] = {{"DXT1", 71}, {"DXT2", 74}, {"DXT3", 74}, {"DXT4", 77}, {"DXT5", 77}, {"RXGB", 77},
                                  {"ATI1", 80}, {"BC4U", 80}, {"ATI2", 83}, {"BC5U", 83}};

struct Integers
{
    unsigned number;
    unsigned numberSrgb;
    int bytes;
    std::array<std::uint64_t, 4> masks;
};
constexpr Integers integerFormats[] = {
    {28, 29, 4, {0xff, 0xff00, 0xff0000, 0xff000000}},
    {87, 91, 4, {0xff0000, 0xff00, 0xff, 0xff000000}},
    {88, 93, 4, {0xff0000, 0xff00, 0xff, 0}},
    {24, 0, 4, {0x3ff, 0xffc00, 0x3ff00000, 0xc0000000}},
    {11, 0, 8, {0xffff, 0xffff0000, 0xffff00000000, 0xffff000000000000}},
    {35, 0, 4, {0xffff, 0xffff0000, 0, 0}},
    {49, 0, 2, {0xff, 0xff00, 0, 0}},
    {56, 0, 2, {0xffff, 0, 0, 0}},
    {61, 0, 1, {0xff, 0, 0, 0}},
    {65, 0, 1, {0xff, 0, 0, 0}}, // alpha alone is shown as what it is, one channel
    {85, 0, 2, {0xf800, 0x7e0, 0x1f, 0}},
    {86, 0, 2, {0x7c00, 0x3e0, 0x1f, 0x8000}},
    {115, 0, 2, {0xf00, 0xf0, 0xf, 0xf000}}};

struct Floats
{
    unsigned number;
    unsigned oldNumber; ///< in place of the four letters
    unsigned channels;
    int bytesPerChannel;
};
constexpr Floats floatFormats[] = {{54, 111, 1, 2}, {34, 112, 2, 2}, {10, 113, 4, 2}, {41, 114, 1, 4},
                                   {16, 115, 2, 4}, {6, 0, 3, 4},    {2, 116, 4, 4}};

DdsFormat formatOf(const Blocks& found, bool isSrgb)
{
    DdsFormat format;
    format.kind = DdsFormat::Blocks;
    format.compression = found.compression;
    format.blocks = found.letters;
    format.number = found.number;
    format.unitBytes = found.bytes;
    format.channelCount = found.channels;
    format.bytesPerChannel = found.bytesPerChannel;
    format.hasAlpha = found.channels == 4;
    format.isLuminance = found.channels == 1;
    format.isSrgb = isSrgb;
    return format;
}

DdsFormat formatOf(const Floats& found)
{
    DdsFormat format;
    format.kind = DdsFormat::Floats;
    format.number = found.number;
    format.unitBytes = static_cast<int>(found.channels) * found.bytesPerChannel;
    format.channelCount = found.channels;
    format.bytesPerChannel = found.bytesPerChannel;
    format.hasAlpha = found.channels == 4;
    format.isLuminance = found.channels == 1;
    return format;
}

DdsFormat formatOf(int bytes, const std::array<std::uint64_t, 4>& masks)
{
    DdsFormat format;
    format.unitBytes = bytes;
    format.masks = masks;
    for (const std::uint64_t mask : masks) {
        format.channelCount += mask ? 1 : 0;
        format.bytesPerChannel = std::popcount(mask) > 8 ? 2 : format.bytesPerChannel;
    }
    format.hasAlpha = masks[3] != 0;
    format.isLuminance = masks[0] && !masks[1] && !masks[2];
    return format;
}

/// The masks of old headers say anything; those of use are within the pixel, and in one piece.
bool isMask(std::uint64_t mask, std::uint32_t bits)
{
    const std::uint64_t shifted = mask ? mask >> std::countr_zero(mask) : 0;
    return (shifted & (shifted + 1)) == 0 && mask >> bits == 0 && std::popcount(mask) <= 16;
}

} // namespace

std::optional<DdsFormat> ddsFormatOf(std::uint32_t number)
{
    const auto isAsked = [number](const auto& each) {
        return each.number == number || (each.numberSrgb != 0 && each.numberSrgb == number);
    };
    if (const auto found = std::ranges::find_if(blockFormats, isAsked); found != std::end(blockFormats))
        return formatOf(*found, found->number != number);
    if (const auto found = std::ranges::find_if(integerFormats, isAsked); found != std::end(integerFormats)) {
        DdsFormat format = formatOf(found->bytes, found->masks);
        format.isSrgb = found->number != number;
        return format;
    }
    if (const auto found = std::ranges::find(floatFormats, number, &Floats::number); found != std::end(floatFormats))
        return formatOf(*found);
    return std::nullopt;
}

std::optional<DdsFormat> ddsFormatOf(const DdsPixelFormat& pixels)
{
    if (pixels.flags & DdsPixelFormat::lettersFlag) {
        for (const Spelling& spelling : spellings) {
            if (fourLetters(spelling.letters) != pixels.letters)
                continue;
            auto format = ddsFormatOf(spelling.number);
            format->blocks = spelling.letters;
            return format;
        }
        if (pixels.letters == 36) // the old number of 16 bits a channel
            return ddsFormatOf(11);
        const auto found = std::ranges::find(floatFormats, pixels.letters, &Floats::oldNumber);
        return found != std::end(floatFormats) && found->oldNumber ? std::optional(formatOf(*found)) : std::nullopt;
    }

    std::array<std::uint64_t, 4> masks{};
    const auto take = [&](int first, int last) { std::copy_n(&pixels.masks[first], last - first + 1, &masks[first]); };
    if (pixels.flags & DdsPixelFormat::coloursFlag)
        take(0, 2);
    else if (pixels.flags & DdsPixelFormat::luminanceFlag)
        take(0, 0);
    else if (pixels.flags & DdsPixelFormat::alphaOnlyFlag)
        masks[0] = pixels.masks[3];
    if (pixels.flags & DdsPixelFormat::alphaFlag)
        take(3, 3);
    const bool isPixel = pixels.bits == 8 || pixels.bits == 16 || pixels.bits == 24 || pixels.bits == 32;
    const auto fits = [&](std::uint64_t mask) { return isMask(mask, pixels.bits); };
    if (!isPixel || !std::ranges::all_of(masks, fits) || masks == std::array<std::uint64_t, 4>{})
        return std::nullopt;
    return formatOf(static_cast<int>(pixels.bits / 8), masks);
}

} // namespace Tessen
