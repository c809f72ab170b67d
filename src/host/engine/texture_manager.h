#pragma once

#include <host/base/host_export.h>

namespace Ozy::Fennel {

struct DATAMODELS_HOST_API TextureManager
{
    TextureManager() = delete;

    /// The extensions of files that the engine reads as textures, without dots and in small letters. A null pointer ends
    /// the array. Threads: any.
    static const char* const* validTextureExtensions();
};

} // namespace Ozy::Fennel
