#pragma once

#include <QtGlobal>

#if defined(DATAMODELS_BUILD)
#define DATAMODELS_API Q_DECL_EXPORT
#else
#define DATAMODELS_API Q_DECL_IMPORT
#endif
