#pragma once

#include <host/base/host_export.h>
#include <host/base/math.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Ozy::Fennel {

/// A texture atlas as the engine knows it: one file a texture class.
class DATAMODELS_HOST_API AtlasTexture
{
public:
    struct AtlasData;

    /// The largest side of an atlas in pixels.
    static constexpr int MAX_SIZE = 16384;

    /// Writes one atlas file, `path` being absolute. The file is replaced as a whole and is on the disk when this returns
    /// true. On false, with a message that tells the reason, it is what it was before; so it is for a side above
    /// `MAX_SIZE` and for more than 64 MiB. The last parameter is the engine's own and not looked at. Threads: any.
    static bool makeAtlasFile(const std::string& path, const AtlasData& data, void* context);
};

/// What one atlas file holds.
struct AtlasTexture::AtlasData
{
    /// One entry an occupied slot: its place in the atlas in pixels, and the resource that fills it; none for an empty text.
    std::vector<std::pair<RectT<unsigned int>, std::string>> tiles;
    std::uint32_t leadingFlag = 0;
    std::uint32_t width = 0;  ///< in pixels
    std::uint32_t height = 0; ///< in pixels
    std::uint32_t fullSizeFlag = 0;

    bool operator==(const AtlasData&) const = default;
};

} // namespace Ozy::Fennel
