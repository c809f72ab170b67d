#include <host/formats/open_image_io/header_facts.h>

#include <OpenImageIO/imageio.h>

namespace Ozy {
namespace {

constexpr long long mostPixels = 1ll << 28;

} // namespace

std::optional<ImageFacts> headerFacts(const std::string& path, std::string& reason)
{
    const std::unique_ptr<OIIO::ImageInput> input = OIIO::ImageInput::open(path);
    if (!input) {
        reason = OIIO::geterror();
        return {};
    }
    const OIIO::ImageSpec spec = input->spec();
    if (1ll * spec.width * spec.height * spec.depth > mostPixels) {
        reason = "it has more pixels than are shown";
        return {};
    }
    ImageFacts facts;
    facts.isCubeMap = spec.get_string_attribute("textureformat") == "CubeFace Environment";
    facts.size = QSize(spec.width, facts.isCubeMap ? spec.height / 6 : spec.height);
    facts.depth = spec.depth;
    facts.channels = spec.nchannels;
    facts.bytesPerPixel = static_cast<int>(spec.pixel_bytes());
    facts.bytesPerChannel = static_cast<int>(spec.channel_bytes());
    facts.compression = std::string(spec.get_string_attribute("compression"));
    facts.format = input->format_name();
    while (input->seek_subimage(0, facts.mips))
        ++facts.mips;
    input->geterror();
    return facts;
}

} // namespace Ozy
