#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/graph/edge.h>
#include <datamodels/graph/element_list.h>
#include <datamodels/graph/vertex.h>
#include <datamodels/model_scopes.h>

#include <QAbstractItemModel>
#include <QList>

namespace datamodels {

/// A directed graph as a tree of two branches: row 0 of the root holds the edges, row 1 the vertices, and
/// each element is a leaf below its container.
///
/// Role `Qt::UserRole`, "itemData": the element as a `QObject*`, invalid for a container. Positions, sizes
/// and labels reach views through the element's own properties; the model never emits `dataChanged`.
/// Ownership: the model owns no element and watches none. An element is removed before it is deleted: the
/// model asks it for its class. The lists hold no element twice and no null. Two edges of the same direction
/// between the same vertices are refused, the opposite one and a self-loop are not. Cost: adding is constant
/// but for the smaller of the two edge sets it searches for duplicates; removing a vertex costs what its
/// edges cost. Bad input, such as a null element or a row past the list, gets false and changes nothing.
/// Thread: GUI.
class DATAMODELS_API GraphModel : public QAbstractItemModel
{
    Q_OBJECT
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

public:
    enum ContainerType
    {
        None = 0,
        Edges = 1,
        Vertices = 2
    };

    explicit GraphModel(QObject* parent = nullptr);

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;

    /// Removes the element of an index, a vertex together with its edges.
    virtual void removeItem(const QModelIndex& index);

    /// The element of an index, which QML's collector leaves alone from now on; null for a container, an
    /// invalid index or one of another model. Intended: an index of the other container logs an assertion, and
    /// its element is given all the same, under the wrong type: C++ callers look at the container first.
    Q_INVOKABLE virtual datamodels::Vertex* getVertex(const QModelIndex& ind) const;
    Q_INVOKABLE virtual datamodels::Edge* getEdge(const QModelIndex& ind) const;
    Q_INVOKABLE virtual QObject* getItem(const QModelIndex& ind) const;

    /// Empties the lists. The elements and their edge sets stay as they were.
    virtual void clearData();

    /// Inserts at a row of 0 to the element count; -1 appends. False if the element is listed already, or if
    /// an edge has a duplicate. An edge's vertices need not be in the model.
    bool addVertex(Vertex* vertex, int row = -1);
    bool addEdge(Edge* edge, int row = -1);

    /// Takes the vertex and every edge that touches it out of the model: edges that enter, then those that
    /// leave, then the vertex. Its own sets keep the edges it had, except that a self-loop is gone from the
    /// leaving ones.
    void removeVertex(Vertex* v);
    void removeEdge(Edge* e);

    /// Moves a vertex; for the vertices' container only. False for invalid or different parents.
    bool moveRow(const QModelIndex& sourceParent, int sourceRow, const QModelIndex& destinationParent,
                 int destinationRow);

    /// Replaces both lists. The edge sets of the vertices are not touched and must agree with the edges
    /// already.
    void resetData(QList<Vertex*> vertices, QList<Edge*> edges);

    /// The kind of a container's index; `None` for all others.
    ContainerType getContainerType(const QModelIndex& index) const;

    const QList<Vertex*>& getVertices() const { return m_vertices.elements(); }
    const QList<Edge*>& getEdges() const { return m_edges.elements(); }

    /// True without vertices; edges do not count.
    bool isEmpty() const { return m_vertices.empty(); }

Q_SIGNALS:
    /// After the rows: the first vertex came, the last one went, or everything was replaced.
    void isEmptyChanged();

private:
    friend struct ::ModelScopes;

    QModelIndex edgesIndex() const { return createIndex(0, 0, nullptr); }
    QModelIndex verticesIndex() const { return createIndex(1, 0, nullptr); }
    /// Null for a container and for an index of another model.
    void* elementOf(const QModelIndex& index) const
    {
        return index.model() == this ? index.internalPointer() : nullptr;
    }
    void unlistEdge(Edge* edge, Vertex* otherEnd, bool (Vertex::*erase)(Edge*));
    void replaceLists(QList<Vertex*> vertices, QList<Edge*> edges);

    ElementList<Vertex> m_vertices;
    ElementList<Edge> m_edges;
};

} // namespace datamodels
