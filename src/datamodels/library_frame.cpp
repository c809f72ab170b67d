#include <datamodels/library_frame.h>

#include <datamodels/graph/edge.h>
#include <datamodels/graph/vertex.h>
#include <datamodels/helpers/qt_miltiselection_composer.h>
#include <datamodels/proxy/search_matcher.h>
#include <datamodels/proxy/search_proxy_model.h>
#include <datamodels/qml_registration.h>

// Every QML type of the library, in the order in which they are registered: a new type is a new line of its
// table.

namespace {

const datamodels::LoadTimeQmlTypes loadTimeTypes{
    datamodels::creatable<QtMiltiselectionComposer>("QelmTools.Misc", "QtMiltiselectionComposer"),
};

} // namespace

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
