#include "graph_elements.h"

namespace editor {

GraphNode::GraphNode(const QString& label, const QString& icon, QObject* parent)
    : Vertex(label, parent), m_icon(icon)
{
}

void GraphNode::setSelected(bool selected)
{
    if (m_isSelected == selected)
        return;
    m_isSelected = selected;
    Q_EMIT selectedChanged();
}

void GraphWire::setSelected(bool selected)
{
    if (m_isSelected == selected)
        return;
    m_isSelected = selected;
    Q_EMIT selectedChanged();
}

} // namespace editor
