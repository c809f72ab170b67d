#include <datamodels/graph/vertex.h>

namespace datamodels {
namespace {

// Unlike `!=`, false for a NaN on either side.
template <class Number>
bool differ(Number a, Number b)
{
    return a < b || a > b;
}

} // namespace

Vertex::Vertex(const QString& label, QObject* parent, double width, double height)
    : QObject(parent), m_label(label), m_width(width), m_height(height)
{
}

void Vertex::setLabel(const QString& label)
{
    if (m_label == label)
        return;
    const QString oldLabel = m_label;
    m_label = label;
    Q_EMIT labelChanged(oldLabel);
}

void Vertex::setCenterX(double x)
{
    if (!differ<double>(x, m_center.x))
        return;
    m_center.x = static_cast<float>(x);
    Q_EMIT centerXChanged();
}

void Vertex::setCenterY(double y)
{
    if (!differ<double>(y, m_center.y))
        return;
    m_center.y = static_cast<float>(y);
    Q_EMIT centerYChanged();
}

void Vertex::setCenterZ(double z)
{
    if (!differ<double>(z, m_center.z))
        return;
    m_center.z = static_cast<float>(z);
    Q_EMIT centerZChanged();
}

void Vertex::setWidth(double width)
{
    if (!differ(width, m_width))
        return;
    m_width = width;
    Q_EMIT widthChanged();
}

void Vertex::setHeight(double height)
{
    if (!differ(height, m_height))
        return;
    m_height = height;
    Q_EMIT heightChanged();
}

void Vertex::setCenterPosition(const Ozy::Vector3& center)
{
    const Ozy::Vector3 target = center; // the reference may be to our own centre, which slots can change
    if (differ(target.x, m_center.x)) {
        m_center.x = target.x;
        Q_EMIT centerXChanged();
    }
    if (differ(target.y, m_center.y)) {
        m_center.y = target.y;
        Q_EMIT centerYChanged();
    }
    if (differ(target.z, m_center.z)) {
        m_center.z = target.z;
        Q_EMIT centerZChanged();
    }
}

bool Vertex::insertInEdge(Edge* edge)
{
    return m_inEdges.insert(edge).second;
}

bool Vertex::insertOutEdge(Edge* edge)
{
    return m_outEdges.insert(edge).second;
}

bool Vertex::eraseInEdge(Edge* edge)
{
    return m_inEdges.erase(edge) != 0;
}

bool Vertex::eraseOutEdge(Edge* edge)
{
    return m_outEdges.erase(edge) != 0;
}

} // namespace datamodels
