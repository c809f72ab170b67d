#pragma once

#include <datamodels/graph/primitive_creation_requestor.h>

namespace datamodels {

/// The palette of vertices: the view emits the signal with the picked row's "itemID" and the place of the
/// drop.
class DATAMODELS_API VertexCreationRequestor : public PrimitiveCreationRequestor
{
    Q_OBJECT

public:
    explicit VertexCreationRequestor(QObject* parent = nullptr);

Q_SIGNALS:
    void requestVertexCreation(int id, double x, double y);
};

} // namespace datamodels
