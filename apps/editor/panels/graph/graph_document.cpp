#include "graph_document.h"

#include "panels/texts.h"

#include <algorithm>

using datamodels::Edge;
using datamodels::Vertex;

namespace editor {
namespace {

QRectF areaOf(const Vertex& node)
{
    return {node.getCenterX() - node.getWidth() / 2, node.getCenterY() - node.getHeight() / 2,
            node.getWidth(), node.getHeight()};
}

template <class Element, class Base>
QList<Element*> selectedOf(const QList<Base*>& elements)
{
    QList<Element*> selected;
    for (Base* element : elements) {
        if (static_cast<Element*>(element)->isSelected())
            selected << static_cast<Element*>(element);
    }
    return selected;
}

} // namespace

GraphDocument::GraphDocument(QObject* parent) : QObject(parent)
{
    connect(&m_palette, &NodePalette::requestVertexCreation, this,
            [this](int id, double x, double y) { select(addNode(id, x, y)); });
    connect(&m_wirePalette, &datamodels::EdgeCreationRequestor::requestEdgeCreation, this,
            [this](Vertex* from, Vertex* to) {
                if (GraphWire* wire = addWire(from, to))
                    select(wire);
            });
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &GraphDocument::statusChanged);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &GraphDocument::statusChanged);
    connect(this, &GraphDocument::selectionChanged, this, &GraphDocument::statusChanged);
    fillWithSample();
}

QString GraphDocument::status() const
{
    QString text = counted(m_model.getVertices().size(), "node, ", "nodes, ") +
                   counted(m_model.getEdges().size(), "wire", "wires");
    if (selectedCount() > 0)
        text += QStringLiteral(", %1 selected").arg(selectedCount());
    return text;
}

QRectF GraphDocument::bounds() const
{
    QRectF bounds;
    for (const Vertex* node : m_model.getVertices())
        bounds |= areaOf(*node);
    return bounds;
}

bool GraphDocument::accepts(QObject* from, QObject* to) const
{
    auto* source = qobject_cast<GraphNode*>(from);
    auto* target = qobject_cast<GraphNode*>(to);
    if (!source || !target || source == target)
        return false;
    const auto& wires = source->getOutEdges();
    return std::none_of(wires.begin(), wires.end(),
                        [&](const Edge* wire) { return wire->getToVertex() == target; });
}

int GraphDocument::selectedCount() const
{
    return selectedNodes().size() + selectedWires().size();
}

void GraphDocument::select(QObject* element)
{
    for (GraphNode* node : selectedNodes())
        node->setSelected(node == element);
    for (GraphWire* wire : selectedWires())
        wire->setSelected(wire == element);
    setSelected(element, true);
    Q_EMIT selectionChanged();
}

void GraphDocument::toggle(QObject* element)
{
    setSelected(element, element && !element->property("isSelected").toBool());
    Q_EMIT selectionChanged();
}

void GraphDocument::selectIn(const QRectF& area, bool adding)
{
    if (!adding)
        select(nullptr);
    for (Vertex* node : m_model.getVertices()) {
        if (areaOf(*node).intersects(area))
            setSelected(node, true);
    }
    Q_EMIT selectionChanged();
}

void GraphDocument::selectAll()
{
    for (Vertex* node : m_model.getVertices())
        setSelected(node, true);
    for (Edge* wire : m_model.getEdges())
        setSelected(wire, true);
    Q_EMIT selectionChanged();
}

void GraphDocument::moveSelected(double dx, double dy)
{
    for (GraphNode* node : selectedNodes()) {
        node->setCenterX(node->getCenterX() + dx);
        node->setCenterY(node->getCenterY() + dy);
    }
}

// Deleted later, since a delegate may still be reading what goes.
void GraphDocument::removeSelected()
{
    for (GraphWire* wire : selectedWires()) {
        m_model.removeEdge(wire);
        wire->deleteLater();
    }
    for (GraphNode* node : selectedNodes()) {
        m_model.removeVertex(node); // its sets keep the wires that went with it
        std::unordered_set<Edge*> wires = node->getInEdges();
        wires.insert(node->getOutEdges().begin(), node->getOutEdges().end());
        for (Edge* wire : wires)
            wire->deleteLater();
        node->deleteLater();
    }
    Q_EMIT selectionChanged();
}

GraphNode* GraphDocument::addNode(int kind, double x, double y)
{
    const QString label = m_palette.labelOf(kind);
    if (label.isEmpty())
        return nullptr;
    auto* node = new GraphNode(freeLabel(label), m_palette.iconOf(kind), this);
    node->setCenterX(x);
    node->setCenterY(y);
    m_model.addVertex(node);
    return node;
}

GraphWire* GraphDocument::addWire(Vertex* from, Vertex* to)
{
    if (!accepts(from, to))
        return nullptr;
    auto* wire = new GraphWire(from, to, this);
    m_model.addEdge(wire);
    return wire;
}

void GraphDocument::fillWithSample()
{
    enum Kind
    {
        Texture,
        Colour,
        Noise,
        Multiply,
        Mix,
        Rim,
        Surface
    };
    const auto at = [this](Kind kind, int column, double row) {
        return addNode(kind, column * 250, row * 72);
    };

    GraphNode* water = at(Texture, 0, 0);
    GraphNode* wind = at(Noise, 0, 1);
    GraphNode* deep = at(Colour, 0, 2);
    GraphNode* shallow = at(Colour, 0, 3);
    GraphNode* ripples = at(Multiply, 1, 0.5);
    GraphNode* depth = at(Mix, 1, 2.5);
    GraphNode* body = at(Mix, 2, 1);
    GraphNode* rim = at(Rim, 2, 2.5);
    GraphNode* surface = at(Surface, 3, 1.5);
    addWire(water, ripples);
    addWire(wind, ripples);
    addWire(deep, depth);
    addWire(shallow, depth);
    addWire(ripples, body);
    addWire(depth, body);
    addWire(depth, rim);
    addWire(body, surface);
    addWire(rim, surface);
}

QString GraphDocument::freeLabel(const QString& wanted) const
{
    const auto isTaken = [this](const QString& label) {
        const auto& nodes = m_model.getVertices();
        return std::any_of(nodes.begin(), nodes.end(),
                           [&](const Vertex* node) { return node->getLabel() == label; });
    };
    QString label = wanted;
    for (int number = 2; isTaken(label); ++number)
        label = QStringLiteral("%1 %2").arg(wanted).arg(number);
    return label;
}

QList<GraphNode*> GraphDocument::selectedNodes() const
{
    return selectedOf<GraphNode>(m_model.getVertices());
}

QList<GraphWire*> GraphDocument::selectedWires() const
{
    return selectedOf<GraphWire>(m_model.getEdges());
}

void GraphDocument::setSelected(QObject* element, bool selected)
{
    if (auto* node = qobject_cast<GraphNode*>(element))
        node->setSelected(selected);
    else if (auto* wire = qobject_cast<GraphWire*>(element))
        wire->setSelected(selected);
}

} // namespace editor
