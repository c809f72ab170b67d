#include <host/engine/render_system.h>

namespace Ozy::Fennel {

std::unique_ptr<ResILImage> ResIL::createImage()
{
    return std::make_unique<ResILImage>();
}

RenderSystem& rs()
{
    static RenderSystem instance;
    return instance;
}

} // namespace Ozy::Fennel
