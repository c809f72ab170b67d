#include <datamodels/graph/edge_creation_requestor.h>

namespace datamodels {

EdgeCreationRequestor::EdgeCreationRequestor(QObject* parent) : PrimitiveCreationRequestor(parent) {}

} // namespace datamodels
