#pragma once

#include "graph_elements.h"
#include "node_palette.h"

#include <datamodels/graph/edge_creation_requestor.h>
#include <datamodels/graph/graph_model.h>

#include <QRectF>

namespace editor {

/// A material as a graph: its nodes and wires, which of them are selected, and the palettes that views ask
/// for more.
///
/// It owns the elements, and makes one when a palette's request comes; what cannot be is refused silently,
/// and `accepts` tells beforehand. New elements are selected, alone. Thread: GUI.
class GraphDocument : public QObject
{
    Q_OBJECT
    Q_PROPERTY(datamodels::GraphModel* model READ model CONSTANT)
    Q_PROPERTY(editor::NodePalette* palette READ palette CONSTANT)
    Q_PROPERTY(datamodels::EdgeCreationRequestor* wirePalette READ wirePalette CONSTANT)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)

public:
    /// Starts with the sample material.
    explicit GraphDocument(QObject* parent = nullptr);

    datamodels::GraphModel* model() { return &m_model; }
    NodePalette* palette() { return &m_palette; }
    datamodels::EdgeCreationRequestor* wirePalette() { return &m_wirePalette; }
    QString status() const;

    /// What all nodes together cover; a null rectangle without nodes.
    Q_INVOKABLE QRectF bounds() const;
    /// Whether a wire can lead from one node to the other: both are nodes of the graph, not the same one, and
    /// no wire leads there yet.
    Q_INVOKABLE bool accepts(QObject* from, QObject* to) const;

    int selectedCount() const;
    /// Selects an element alone, or nothing for null.
    Q_INVOKABLE void select(QObject* element);
    Q_INVOKABLE void toggle(QObject* element);
    /// Selects the nodes that a rectangle touches, and those that were selected before if `adding`.
    Q_INVOKABLE void selectIn(const QRectF& area, bool adding);
    Q_INVOKABLE void selectAll();
    /// Nodes only; wires follow theirs.
    Q_INVOKABLE void moveSelected(double dx, double dy);
    /// Removes the selected elements and the wires of removed nodes.
    Q_INVOKABLE void removeSelected();

Q_SIGNALS:
    void selectionChanged();
    void statusChanged();

private:
    GraphNode* addNode(int kind, double x, double y);
    GraphWire* addWire(datamodels::Vertex* from, datamodels::Vertex* to);
    void fillWithSample();
    QString freeLabel(const QString& wanted) const;
    QList<GraphNode*> selectedNodes() const;
    QList<GraphWire*> selectedWires() const;
    void setSelected(QObject* element, bool selected);

    datamodels::GraphModel m_model;
    NodePalette m_palette;
    datamodels::EdgeCreationRequestor m_wirePalette;
};

} // namespace editor
