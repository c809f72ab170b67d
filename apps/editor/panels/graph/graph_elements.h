#pragma once

#include <datamodels/graph/edge.h>
#include <datamodels/graph/vertex.h>

namespace editor {

/// A node of the graph: a vertex with an icon, which can be selected. Thread: GUI.
class GraphNode : public datamodels::Vertex
{
    Q_OBJECT
    Q_PROPERTY(QString icon READ icon CONSTANT)
    Q_PROPERTY(bool isSelected READ isSelected NOTIFY selectedChanged)

public:
    /// `icon` is a file of icons/, without its extension.
    GraphNode(const QString& label, const QString& icon, QObject* parent);

    QString icon() const { return m_icon; }
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);

Q_SIGNALS:
    void selectedChanged();

private:
    QString m_icon;
    bool m_isSelected = false;
};

/// A connection of two nodes, which can be selected. Thread: GUI.
class GraphWire : public datamodels::Edge
{
    Q_OBJECT
    Q_PROPERTY(bool isSelected READ isSelected NOTIFY selectedChanged)

public:
    GraphWire(datamodels::Vertex* from, datamodels::Vertex* to, QObject* parent) : Edge(from, to, parent) {}

    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);

Q_SIGNALS:
    void selectedChanged();

private:
    bool m_isSelected = false;
};

} // namespace editor
