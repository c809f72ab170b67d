#pragma once

#include <datamodels/graph/primitive_creation_requestor.h>
#include <datamodels/graph/vertex.h>

namespace datamodels {

/// The palette of edges: the view emits the signal when two vertices have been joined.
class DATAMODELS_API EdgeCreationRequestor : public PrimitiveCreationRequestor
{
    Q_OBJECT

public:
    explicit EdgeCreationRequestor(QObject* parent = nullptr);

Q_SIGNALS:
    void requestEdgeCreation(datamodels::Vertex* from, datamodels::Vertex* to);
};

} // namespace datamodels
