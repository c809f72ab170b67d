#include <datamodels/library_frame.h>

#include <datamodels/atlas/qt_atlas_model.h>
#include <datamodels/atlas/qt_atlas_selection_helper.h>
#include <datamodels/atlas/qt_atlas_settings.h>
#include <datamodels/graph/edge.h>
#include <datamodels/graph/vertex.h>
#include <datamodels/helpers/qt_miltiselection_composer.h>
#include <datamodels/image/flat_image_info_model.h>
#include <datamodels/image/image_channels_model.h>
#include <datamodels/image/image_info_model.h>
#include <datamodels/image/image_model.h>
#include <datamodels/image/simple_image_model.h>
#include <datamodels/proxy/search_matcher.h>
#include <datamodels/proxy/search_proxy_model.h>
#include <datamodels/qml_registration.h>

// Every QML type of the library, in the order in which they are registered: a new type is a new line of its
// table.

namespace {

const datamodels::LoadTimeQmlTypes loadTimeTypes{
    datamodels::creatable<QtMiltiselectionComposer>("QelmTools.Misc", "QtMiltiselectionComposer"),
    datamodels::uncreatable<datamodels::ImageChannelsModel>(),
    datamodels::creatable<datamodels::ImageInfoModel>("QELM.ImagePreview", "ImageInfoModel"),
    datamodels::creatable<datamodels::FlatImageInfoModel>("QELM.ImagePreview", "FlatImageInfoModel"),
    datamodels::creatable<datamodels::ImageModel>("QELM.ImagePreview", "ImageModel"),
    datamodels::creatable<datamodels::SimpleImageModel>("QELM.ImagePreview", "SimpleImageModel"),
};

} // namespace

void registerAtlasQmlInterfaces()
{
    datamodels::registerQmlTypes({
        datamodels::creatable<QtAtlasModel>("QelmTools.AtlasEditor", "QtAtlasModel"),
        datamodels::creatable<QtAtlasSettings>("QelmTools.AtlasEditor", "QtAtlasSettings"),
        datamodels::creatable<QtAtlasSelectionHelper>("QelmTools.AtlasEditor", "AtlasSelectionHelper"),
    });
}

void datamodels::registerGraphQml()
{
    registerQmlTypes({
        uncreatable<Vertex>(),
        uncreatable<Edge>(),
    });
}

void datamodels::registerSearchQml()
{
    using namespace qelm::datamodels::proxy;
    registerQmlTypes({
        uncreatable<SearchProxyModel>(),
        creatable<TextSearchMatcher>("QelmTools.Misc", "TextSearchMatcher"),
        creatable<NaturalSearchMatcher>("QelmTools.Misc", "NaturalSearchMatcher"),
    });
}
