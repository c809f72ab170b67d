#include <host/images/decode_image.h>

#include <host/formats/image_formats.h>
#include <host/images/dds_layout.h>
#include <host/images/dds_pixels.h>
#include <host/images/image_facts.h>
#include <host/images/input_file.h>
#include <host/images/png_header.h>

#include <exception>

namespace Tessen {

Decoded decodeImage(const std::string& path, int image, int mip, const IsWanted& isWanted)
try {
    const InputFile file(path);
    if (!file.fault().empty())
        return Decoded::refused(file.fault());
    if (image < 0 || mip < 0)
        return Decoded::refused(noSuchImage);
    unsigned char start[8] = {};
    if (file.read(0, start, sizeof start) == 0)
        return Decoded::refused("it is empty");
    if (startsLikePng(start)) {
        // Its decoder is content with a file that lacks its end.
        const ImageFacts facts = readPngFacts(file);
        if (!facts.info)
            return Decoded::refused(facts.fault);
    }
    return startsLikeDds(start) ? decodeDds(file, image, mip, isWanted)
                                : Ozy::ImageFormats::instance().decode(path, image, mip, isWanted);
} catch (const std::exception& exception) {
    return Decoded::refused(exception.what()); // memory, and the decoders of some formats
}

} // namespace Tessen
