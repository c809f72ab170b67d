#pragma once

#include <QtGlobal>

#if defined(DATAMODELS_HOST_BUILD)
#define DATAMODELS_HOST_API Q_DECL_EXPORT
#else
#define DATAMODELS_HOST_API Q_DECL_IMPORT
#endif
