#pragma once

#include <datamodels/datamodels_export.h>

/// Makes `QtAtlasModel`, `QtAtlasSettings` and `AtlasSelectionHelper` elements of "QelmTools.AtlasEditor". The library
/// itself does not call it: a plug-in with an atlas view does, once, on the thread of the application.
DATAMODELS_API void registerAtlasQmlInterfaces();

namespace datamodels {

/// Makes the pointer and list types of `Vertex` and `Edge` known to QML, which needs them to hold what a
/// `GraphModel` gives. The library itself does not call it: a plug-in with a graph view does, once, on the
/// thread of the application.
DATAMODELS_API void registerGraphQml();

/// Makes `TextSearchMatcher` and `NaturalSearchMatcher` elements of "QelmTools.Misc", and the values that they
/// write known to QML. For a plug-in with a search to call, as above.
DATAMODELS_API void registerSearchQml();

} // namespace datamodels
