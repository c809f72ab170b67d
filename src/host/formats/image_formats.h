#pragma once

#include <host/base/host_export.h>

#include <QSize>

#include <string>

namespace Ozy {

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

    /// The size of the image in a file, found by decoding all of its pixels, with its mips; an empty size if that fails or
    /// a side is above `largest`. Memory: some rows, as far as the format allows.
    virtual QSize decodedSize(const std::string& path, int largest) = 0;
};

} // namespace Ozy
