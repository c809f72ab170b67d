#pragma once

#include <datamodels/graph/graph_model.h>

#include <QStringList>
#include <QVector>

#include <random>

/// A seeded walk of additions, removals and moves over one graph, with a mirror of both lists that hears
/// nothing but the model's signals. `faults` tells every step after which lists, mirror and books of the
/// vertices disagreed.
class GraphWalk
{
public:
    GraphWalk(datamodels::GraphModel& model, QObject* owner) : m_model(model), m_owner(owner)
    {
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, owner,
                         [this](const QModelIndex& parent, int first, int) {
                             mirrorOf(parent).insert(first, elementAt(first, parent));
                         });
        QObject::connect(
            &model, &QAbstractItemModel::rowsRemoved, owner,
            [this](const QModelIndex& parent, int first, int) { mirrorOf(parent).removeAt(first); });
        QObject::connect(&model, &QAbstractItemModel::rowsMoved, owner,
                         [this](const QModelIndex& parent, int from, int, const QModelIndex&, int to) {
                             mirrorOf(parent).move(from, to);
                         });
    }

    void run(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            takeStep();
            check(step);
        }
    }

    QStringList faults() const { return m_faults; }
    int edgesSeen() const { return m_edgesSeen; }

private:
    using Mirror = QVector<QObject*>;

    Mirror& mirrorOf(const QModelIndex& container) { return container.row() == 0 ? m_edges : m_vertices; }
    QObject* elementAt(int row, const QModelIndex& container)
    {
        return m_model.index(row, 0, container).data(Qt::UserRole).value<QObject*>();
    }
    int random(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    datamodels::Vertex* anyVertex() { return m_model.getVertices().at(random(m_model.getVertices().size())); }

    void takeStep()
    {
        const int vertices = m_model.getVertices().size();
        const int kind = vertices < 3 ? 0 : random(20);
        if (kind < 3)
            m_model.addVertex(new datamodels::Vertex("vertex", m_owner), random(vertices + 1));
        else if (kind < 14)
            addEdge();
        else if (kind < 17)
            removeEdge();
        else if (kind < 18)
            m_model.moveRow(m_model.index(1, 0), vertices - 1, m_model.index(1, 0), random(vertices - 1));
        else if (kind < 19)
            m_model.removeItem(m_model.index(random(vertices), 0, m_model.index(1, 0)));
    }

    void addEdge()
    {
        auto* edge = new datamodels::Edge(anyVertex(), anyVertex(), m_owner);
        m_edgesSeen += m_model.addEdge(edge, random(m_model.getEdges().size() + 1)) ? 1 : 0;
    }

    void removeEdge()
    {
        if (!m_model.getEdges().empty())
            m_model.removeEdge(m_model.getEdges().at(random(m_model.getEdges().size())));
    }

    void check(int step)
    {
        const bool listed =
            std::equal(m_vertices.begin(), m_vertices.end(), m_model.getVertices().begin(),
                       m_model.getVertices().end()) &&
            std::equal(m_edges.begin(), m_edges.end(), m_model.getEdges().begin(), m_model.getEdges().end());
        std::size_t booked = 0;
        for (const datamodels::Vertex* vertex : m_model.getVertices())
            booked += vertex->getOutEdgesCount() + vertex->getInEdgesCount();
        if (!listed || booked != 2 * static_cast<std::size_t>(m_model.getEdges().size()))
            m_faults << QString("step %1").arg(step);
    }

    datamodels::GraphModel& m_model;
    QObject* m_owner;
    std::minstd_rand m_random{7};
    Mirror m_edges;
    Mirror m_vertices;
    QStringList m_faults;
    int m_edgesSeen = 0;
};
