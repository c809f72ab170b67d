#include <datamodels/graph/vertex_creation_requestor.h>

namespace datamodels {

VertexCreationRequestor::VertexCreationRequestor(QObject* parent) : PrimitiveCreationRequestor(parent) {}

} // namespace datamodels
