#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/graph/vertex.h>

#include <QObject>

namespace datamodels {

/// A directed connection of two vertices, which it does not own and which stay the same for its life.
///
/// The edge enters the books of its vertices only when it is added to a `GraphModel`. Its vertices must
/// outlive its time in a model; a null vertex is accepted here, and refused there. Thread: GUI.
class DATAMODELS_API Edge : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject* fromVertex READ getFromVertex CONSTANT)
    Q_PROPERTY(QObject* toVertex READ getToVertex CONSTANT)

public:
    Edge(Vertex* from, Vertex* to, QObject* parent);

    Vertex* getFromVertex() const { return m_from; }
    Vertex* getToVertex() const { return m_to; }

private:
    Vertex* m_from;
    Vertex* m_to;
};

} // namespace datamodels
