#pragma once

#include <datamodels/datamodels_export.h>

namespace datamodels {

/// Makes the pointer and list types of `Vertex` and `Edge` known to QML, which needs them to hold what a
/// `GraphModel` gives. The library itself does not call it: a plug-in with a graph view does, once, on the
/// thread of the application.
DATAMODELS_API void registerGraphQml();

} // namespace datamodels
