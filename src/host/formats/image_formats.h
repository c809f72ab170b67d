#pragma once

#include <host/base/host_export.h>
#include <host/formats/decoded_image.h>

#include <QSize>

#include <optional>
#include <string>
#include <vector>

namespace Ozy {

/// What the header of an image file tells.
struct ImageFacts
{
    QSize size;
    int depth = 1;
    int channels = 0;
    int bytesPerPixel = 0;
    int bytesPerChannel = 0;
    int mips = 1;
    int images = 1;
    bool isFloat = false;
    bool hasAlpha = false;
    std::string compression; ///< empty for none
};

/// The decoders of image files of all formats.
///
/// They stand in a module of their own, which is loaded when they are first needed: what it links takes a third of a second
/// and more than 100 MB, which a program that shows no images shall not pay. Threads: any.
class DATAMODELS_HOST_API ImageFormats
{
public:
    ImageFormats() = default;
    virtual ~ImageFormats();
    ImageFormats(const ImageFormats&) = delete;
    ImageFormats& operator=(const ImageFormats&) = delete;

    /// The one of the process. When the module cannot be loaded, one that can read nothing; the reason is logged once.
    static ImageFormats& instance();

    /// What the header of a file tells; no pixels are decoded. Nothing, with the reason as the rest of a sentence, for what
    /// is no image. The content tells the format, where it has a mark. DDS files are left to the image service.
    virtual std::optional<ImageFacts> facts(const std::string& path, std::string& reason) = 0;

    /// Decodes an image of a file at a mip level.
    virtual Decoded decode(const std::string& path, int image, int mip, const IsWanted& isWanted) = 0;
    /// Decodes the one picture in the bytes of a whole DDS file that holds compressed blocks.
    virtual Decoded decodeDdsBlocks(std::vector<unsigned char> file, const IsWanted& isWanted) = 0;

    /// The size of the image in a file, found by decoding all of its pixels, with its mips; an empty size if that fails or
    /// a side is above `largest`. Memory: some rows, as far as the format allows.
    virtual QSize decodedSize(const std::string& path, int largest) = 0;
};

} // namespace Ozy
