#pragma once

#include <host/base/host_export.h>
#include <host/engine/res_il_image.h>

#include <memory>

namespace Ozy::Fennel {

/// The engine's reader of images. Threads: any.
class DATAMODELS_HOST_API ResIL
{
public:
    std::unique_ptr<ResILImage> createImage();
};

/// What the engine draws with; of it only the reader of images is offered. Threads: any.
class DATAMODELS_HOST_API RenderSystem
{
public:
    ResIL* resIL() { return &m_resIL; }

private:
    ResIL m_resIL;
};

/// The one of the process.
DATAMODELS_HOST_API RenderSystem& rs();

} // namespace Ozy::Fennel
