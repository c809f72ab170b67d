#include <host/formats/open_image_io/decoded_size.h>

#include <OpenImageIO/imageio.h>

#include <algorithm>
#include <vector>

namespace Ozy {
namespace {

constexpr std::size_t blockLength = 4 * 1024 * 1024;

/// How many rows are decoded at once: whole tiles, or as many as fit into a block.
int rowsAtOnce(const OIIO::ImageSpec& spec)
{
    if (spec.tile_width)
        return std::max(spec.tile_height, 1);
    return static_cast<int>(std::clamp<std::size_t>(blockLength / std::max<std::size_t>(spec.scanline_bytes(true), 1), 1,
                                                    static_cast<std::size_t>(spec.height)));
}

bool decodeRows(OIIO::ImageInput& input, const OIIO::ImageSpec& spec, int level, int begin, int end, char* rows)
{
    const OIIO::TypeDesc native = OIIO::TypeDesc::UNKNOWN;
    if (spec.tile_width)
        return input.read_tiles(0, level, spec.x, spec.x + spec.width, begin, end, spec.z, spec.z + std::max(spec.depth, 1), 0,
                                spec.nchannels, native, rows);
    return input.read_scanlines(0, level, begin, end, spec.z, 0, spec.nchannels, native, rows);
}

bool decodeLevel(OIIO::ImageInput& input, int level)
{
    const OIIO::ImageSpec spec = input.spec(0, level);
    const int step = rowsAtOnce(spec);
    std::vector<char> rows(spec.scanline_bytes(true) * static_cast<std::size_t>(step) * static_cast<std::size_t>(std::max(spec.depth, 1)));
    for (int y = spec.y; y < spec.y + spec.height; y += step) {
        if (!decodeRows(input, spec, level, y, std::min(y + step, spec.y + spec.height), rows.data()))
            return false;
    }
    return true;
}

bool isBounded(const OIIO::ImageSpec& spec, int largest)
{
    return spec.width > 0 && spec.height > 0 && spec.width <= largest && spec.height <= largest && spec.depth <= largest
           && spec.nchannels > 0 && spec.nchannels <= 64;
}

} // namespace

QSize decodedSize(const std::string& path, int largest)
try {
    const auto input = OIIO::ImageInput::open(path);
    if (!input) {
        OIIO::geterror(); // else the library keeps it and prints it at the end
        return {};
    }
    const QSize size(input->spec().width, input->spec().height);
    bool isSound = isBounded(input->spec(), largest);
    for (int level = 0; isSound && input->seek_subimage(0, level); ++level)
        isSound = isBounded(input->spec(), largest) && decodeLevel(*input, level);
    input->geterror();
    return isSound ? size : QSize();
} catch (const std::exception&) {
    return {}; // the decoders of some formats throw on what they cannot read
}

} // namespace Ozy
