#include <datamodels/library_frame.h>

#include <datamodels/graph/edge.h>
#include <datamodels/graph/vertex.h>
#include <datamodels/qml_registration.h>

// Every QML type of the library, in the order in which they are registered: a new type is a new line of its
// table.

void datamodels::registerGraphQml()
{
    registerQmlTypes({
        uncreatable<Vertex>(),
        uncreatable<Edge>(),
    });
}
