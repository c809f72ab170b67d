#include <host/formats/open_image_io/pictures.h>

#include <host/formats/image_bounds.h>

#include <OpenImageIO/filesystem.h>
#include <OpenImageIO/imageio.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <exception>
#include <fstream>
#include <string_view>

namespace Ozy {
namespace {

using namespace std::string_view_literals;

constexpr int mostImages = 256;
constexpr int mostMips = 32;
constexpr int mostChannels = 64;
// No format of these packs tighter, the emptiest picture included.
constexpr std::int64_t mostPacked = 4096;
constexpr std::int64_t freeBytes = 1 << 20;

struct Mark
{
    std::string_view bytes;
    const char* format;
};
constexpr Mark marks[] = {{"\x89PNG\r\n\x1a\n"sv, "png"}, {"\xff\xd8\xff"sv, "jpeg"},      {"BM"sv, "bmp"},
                          {"II*\0"sv, "tiff"},            {"MM\0*"sv, "tiff"},             {"II+\0"sv, "tiff"},
                          {"MM\0+"sv, "tiff"},            {"\x76\x2f\x31\x01"sv, "openexr"}, {"#?RADIANCE"sv, "hdr"},
                          {"#?RGBE"sv, "hdr"}};

using Input = std::unique_ptr<OIIO::ImageInput>;

std::string faultOf(const OIIO::ImageInput& input)
{
    std::string text = input.geterror();
    text = text.substr(0, text.find('\n'));
    return text.empty() ? "its data is damaged" : text;
}

/// Null when the file is refused; `fault` tells why.
Input openInput(const char* format, const std::string& path, OIIO::Filesystem::IOProxy* memory, std::string& fault)
{
    Input input = OIIO::ImageInput::create(format);
    if (!input) {
        fault = OIIO::geterror(); // else the library keeps it and prints it at the end
        return nullptr;
    }
    OIIO::ImageSpec spec;
    OIIO::ImageSpec wishes;
    wishes.attribute("oiio:UnassociatedAlpha", 1); // colours under transparent pixels are content
    if (memory)
        wishes.attribute("oiio:ioproxy", OIIO::TypeDesc::PTR, &memory);
    if (!input->open(path, spec, wishes)) {
        fault = faultOf(*input);
        return nullptr;
    }
    return input;
}

bool isFloat(const OIIO::ImageSpec& spec)
{
    return spec.format == OIIO::TypeDesc::FLOAT || spec.format == OIIO::TypeDesc::HALF
           || spec.format == OIIO::TypeDesc::DOUBLE;
}

/// Why the picture cannot be taken, or null.
const char* faultOfSpec(const OIIO::ImageSpec& spec, std::int64_t fileSize)
{
    if (spec.deep || spec.nchannels < 1 || spec.nchannels > mostChannels)
        return unknownPixels;
    if (!isBoundedImage(spec.width, spec.height, std::max(spec.depth, 1)))
        return spec.width > 0 && spec.height > 0 ? tooLarge : damagedHeader;
    const auto packed = static_cast<std::int64_t>(spec.image_bytes(true)) / mostPacked;
    return packed > fileSize + freeBytes ? "its header asks for more than the file can hold" : nullptr;
}

std::string compressionOf(const OIIO::ImageSpec& spec, std::string_view format)
{
    if (format == "jpeg")
        return "JPEG";
    if (format == "hdr")
        return "RLE";
    std::string name = spec.get_string_attribute("compression").str();
    std::ranges::transform(name, name.begin(), [](unsigned char letter) { return std::toupper(letter); });
    return name == "NONE" ? std::string() : name;
}

/// Reads up to four channels from `first` on into pixels of four.
bool readPixels(OIIO::ImageInput& input, int image, int mip, const OIIO::ImageSpec& spec, OIIO::TypeDesc type, void* data,
                const IsWanted& isWanted)
{
    const auto isOver = [](void* asked, float) { return !(*static_cast<const IsWanted*>(asked))(); };
    const auto channel = static_cast<OIIO::stride_t>(type.size());
    const OIIO::stride_t row = 4 * channel * spec.width;
    return input.read_image(image, mip, 0, std::min(spec.nchannels, 4), type, data, 4 * channel, row, row * spec.height,
                            isOver, const_cast<IsWanted*>(&isWanted));
}

/// What the channels of a pixel stand for.
struct Meaning
{
    explicit Meaning(const OIIO::ImageSpec& spec)
        : channels(std::min(spec.nchannels, 4)), alpha(spec.alpha_channel < channels ? spec.alpha_channel : -1)
    {
        // One colour is a grey, two are red and green.
        const int colours = channels - (alpha >= 0 ? 1 : 0);
        green = colours == 1 ? 0 : 1;
        blue = colours == 1 ? 0 : colours == 2 ? -1 : 2;
    }

    /// Puts the channels of a pixel in their places.
    template <class Number>
    std::array<Number, 4> arranged(const Number* pixel, Number opaque) const
    {
        return {pixel[0], pixel[green], blue < 0 ? Number(0) : pixel[blue], alpha < 0 ? opaque : pixel[alpha]};
    }

    int channels;
    int alpha;
    int green;
    int blue;
};

Decoded decodeLight(OIIO::ImageInput& input, int image, int mip, const OIIO::ImageSpec& spec, const IsWanted& isWanted)
{
    auto decoded = std::make_shared<DecodedImage>();
    decoded->width = spec.width;
    decoded->height = spec.height;
    decoded->light.resize(4 * static_cast<std::size_t>(spec.width) * static_cast<std::size_t>(spec.height));
    if (!readPixels(input, image, mip, spec, OIIO::TypeDesc::FLOAT, decoded->light.data(), isWanted))
        return Decoded::refused(faultOf(input));
    const Meaning meaning(spec);
    for (auto pixel = decoded->light.begin(); pixel != decoded->light.end(); pixel += 4)
        std::ranges::copy(meaning.arranged(&*pixel, 1.0f), pixel);
    return {std::move(decoded), {}};
}

Decoded decodeBytes(OIIO::ImageInput& input, int image, int mip, const OIIO::ImageSpec& spec, const IsWanted& isWanted)
{
    const Meaning meaning(spec);
    QImage pixels(spec.width, spec.height, meaning.alpha < 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    if (pixels.isNull())
        return Decoded::refused(tooLarge);
    if (!readPixels(input, image, mip, spec, OIIO::TypeDesc::UINT8, pixels.bits(), isWanted))
        return Decoded::refused(faultOf(input));
    for (int y = 0; y < spec.height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(pixels.scanLine(y));
        for (int x = 0; x < spec.width; ++x) {
            const auto [red, green, blue, alpha] =
                meaning.arranged(reinterpret_cast<const unsigned char*>(line + x), static_cast<unsigned char>(255));
            line[x] = qRgba(red, green, blue, alpha);
        }
    }
    auto decoded = std::make_shared<DecodedImage>();
    decoded->width = spec.width;
    decoded->height = spec.height;
    decoded->pixels = std::move(pixels);
    return {std::move(decoded), {}};
}

Decoded decode(OIIO::ImageInput& input, int image, int mip, std::int64_t fileSize, const IsWanted& isWanted)
{
    const OIIO::ImageSpec spec = input.spec(image, mip);
    if (spec.format == OIIO::TypeDesc::UNKNOWN)
        return Decoded::refused(noSuchImage);
    if (const char* fault = faultOfSpec(spec, fileSize))
        return Decoded::refused(fault);
    if (spec.depth > 1)
        return Decoded::refused("volumes are not shown in this format");
    const std::int64_t bytes = std::int64_t(spec.width) * spec.height * (isFloat(spec) ? 16 : 4);
    if (bytes > mostDecodedBytes)
        return Decoded::refused(tooLarge);
    return isFloat(spec) ? decodeLight(input, image, mip, spec, isWanted)
                         : decodeBytes(input, image, mip, spec, isWanted);
}

/// What a file is by its first bytes, or by its extension where the format has no mark.
struct Recognized
{
    explicit Recognized(const std::string& path)
    {
        std::ifstream file(path, std::ios::binary | std::ios::ate);
        size = std::max<std::int64_t>(file.tellg(), 0);
        file.seekg(0);
        char start[16] = {};
        file.read(start, sizeof start);
        const std::string_view bytes(start, static_cast<std::size_t>(file.gcount()));
        for (const Mark& mark : marks) {
            if (bytes.starts_with(mark.bytes))
                format = mark.format;
        }
        std::string end = path.substr(path.size() - std::min<std::size_t>(path.size(), 4));
        std::ranges::transform(end, end.begin(), [](unsigned char letter) { return std::tolower(letter); });
        if (!format && end == ".tga")
            format = "targa";
    }

    std::int64_t size = 0;
    const char* format = nullptr; ///< null for what is no image
};

constexpr const char* noImage = "it is no image";

} // namespace

std::optional<ImageFacts> headerFacts(const std::string& path, std::string& reason)
try {
    const Recognized file(path);
    if (!file.format) {
        reason = noImage;
        return {};
    }
    const Input input = openInput(file.format, path, nullptr, reason);
    if (!input)
        return {};
    const OIIO::ImageSpec spec = input->spec();
    if (const char* wrong = faultOfSpec(spec, file.size)) {
        reason = wrong;
        return {};
    }

    ImageFacts facts;
    facts.size = QSize(spec.width, spec.height);
    facts.depth = std::max(spec.depth, 1);
    facts.channels = spec.nchannels;
    facts.bytesPerChannel = static_cast<int>(spec.channel_bytes());
    facts.bytesPerPixel = static_cast<int>(spec.pixel_bytes(true));
    facts.isFloat = isFloat(spec);
    facts.hasAlpha = spec.alpha_channel >= 0;
    facts.compression = compressionOf(spec, file.format);
    while (facts.mips < mostMips && input->seek_subimage(0, facts.mips))
        ++facts.mips;
    while (facts.images < mostImages && input->seek_subimage(facts.images, 0))
        ++facts.images;
    input->geterror();
    return facts;
} catch (const std::exception& exception) {
    reason = exception.what();
    return {};
}

Decoded decodeFile(const std::string& path, int image, int mip, const IsWanted& isWanted)
{
    const Recognized file(path);
    if (!file.format)
        return Decoded::refused(noImage);
    std::string fault;
    const Input input = openInput(file.format, path, nullptr, fault);
    return input ? decode(*input, image, mip, file.size, isWanted) : Decoded::refused(std::move(fault));
}

Decoded decodeDdsBlocks(std::vector<unsigned char> file, const IsWanted& isWanted)
{
    OIIO::Filesystem::IOMemReader memory(file.data(), file.size());
    std::string fault;
    const Input input = openInput("dds", "memory.dds", &memory, fault);
    return input ? decode(*input, 0, 0, static_cast<std::int64_t>(file.size()), isWanted)
                 : Decoded::refused(std::move(fault));
}

} // namespace Ozy
