#include <datamodels/graph/edge.h>

namespace datamodels {

Edge::Edge(Vertex* from, Vertex* to, QObject* parent) : QObject(parent), m_from(from), m_to(to) {}

} // namespace datamodels
