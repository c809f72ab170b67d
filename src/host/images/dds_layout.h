#pragma once

#include <host/images/image_facts.h>

#include <array>
#include <cstdint>

namespace Tessen {

/// How the pixels of a DDS file are stored.
struct DdsFormat
{
    enum Kind
    {
        Blocks,   ///< 4 by 4 pixels in 8 or 16 bytes
        Integers, ///< bits of a little-endian number
        Floats    ///< whole channels in the order of RGBA
    };

    Kind kind = Integers;
    const char* compression = "None";
    const char* blocks = nullptr; ///< the four letters for these blocks; null where there is only a number
    unsigned number = 0;          ///< of the format in the extended header; 0 if that is not used
    int unitBytes = 0;            ///< of a block, else of a pixel
    unsigned channelCount = 0;
    int bytesPerChannel = 1;
    bool hasAlpha = false;
    bool isLuminance = false; ///< the first channel stands for red, green and blue
    bool isSrgb = false;
    std::array<std::uint64_t, 4> masks{}; ///< of red, green, blue and alpha, for integers
};

/// The header of a DDS file, checked against its length: every surface that it speaks of is there.
struct DdsLayout
{
    struct Surface
    {
        int width;
        int height;
        std::int64_t offset; ///< in the file; that of the first slice of a volume
        std::int64_t length; ///< of one slice
    };

    int width = 0;
    int height = 0;
    int depth = 1;
    int mipCount = 1;
    int imageCount = 1;
    bool isCubeMap = false;
    DdsFormat format;
    std::int64_t pixelsOffset = 0;

    Surface surface(int image, int mip) const;
    /// From the first surface to the end of the last.
    std::int64_t pixelsLength() const { return imageLength(mipCount) * imageCount; }

private:
    /// Of one image up to a mip level.
    std::int64_t imageLength(int mips) const;
    std::int64_t sliceLength(int mip) const;
};

struct DdsParsed
{
    std::optional<DdsLayout> layout;
    std::string fault;
};

/// By the first four bytes of a file.
bool startsLikeDds(const unsigned char* bytes);
DdsParsed parseDds(const InputFile& file);
ImageFacts readDdsFacts(const InputFile& file);

} // namespace Tessen
