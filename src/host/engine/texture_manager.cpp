#include <host/engine/texture_manager.h>

namespace Ozy::Fennel {

const char* const* TextureManager::validTextureExtensions()
{
    static const char* const extensions[] = {"bmp", "dds", "exr", "hdr", "jpeg", "jpg", "png",
                                             "tga", "tif", "tiff", nullptr};
    return extensions;
}

} // namespace Ozy::Fennel
