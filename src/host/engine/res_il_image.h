#pragma once

#include <host/base/host_export.h>

#include <string>

namespace Ozy {

/// Tells whether a file holds an image, and of what size, without keeping its pixels.
///
/// A PNG file is read chunk by chunk and every checksum compared, which finds what is cut off and what is damaged without
/// decoding anything; other formats are decoded, some rows at a time. Memory: the file for PNG, else a few rows. Threads:
/// any, one an object.
class DATAMODELS_HOST_API ResILImage
{
public:
    /// False if the file is missing, no image, cut off or damaged, or larger than 16384 pixels on a side; the dimensions
    /// are zero then. Logs nothing: the caller knows what the image was for.
    bool loadImage(const std::wstring& path);

    /// In pixels.
    void getDimensions(unsigned& width, unsigned& height) const;

private:
    unsigned m_width = 0;
    unsigned m_height = 0;
};

} // namespace Ozy
