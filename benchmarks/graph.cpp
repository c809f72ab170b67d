// The graph: growth of a list, and a hub of many edges, against the searches that the lists would need
// without hints.
#include <support/comparison.h>

#include <datamodels/graph/graph_model.h>

#include <QCoreApplication>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

using namespace bench;
using datamodels::Edge;
using datamodels::GraphModel;
using datamodels::Vertex;

namespace {

constexpr int allEdges = 100000;

/// A graph of `allEdges` edges, `degree` of which enter one hub.
struct Hub
{
    explicit Hub(int degree)
    {
        QList<Vertex*> vertices;
        for (int i = 0; i < allEdges; ++i)
            vertices << new Vertex(QString(), &owner);
        hub = new Vertex(QString(), &owner);
        model.resetData(vertices << hub, {});
        for (int i = 0; i < allEdges; ++i) {
            Vertex* to = i % (allEdges / degree) == 0 ? hub : vertices.at((i + 1) % allEdges);
            model.addEdge(new Edge(vertices.at(i), to, &owner));
        }
    }

    QObject owner;
    GraphModel model;
    Vertex* hub = nullptr;
};

auto removalOfHub(int degree)
{
    return [degree] {
        auto graph = std::make_shared<Hub>(degree);
        return [graph] { graph->model.removeVertex(graph->hub); };
    };
}

/// What finding each edge from the front of the list costs alone.
auto searchesOfHub(int degree)
{
    return [degree] {
        auto graph = std::make_shared<Hub>(degree);
        return [graph] {
            QList<Edge*> edges = graph->model.getEdges();
            for (Edge* edge : graph->hub->getInEdges())
                edges.removeAt(edges.indexOf(edge));
            keep(edges.size());
        };
    };
}

/// Seconds for each edge that goes with its hub.
std::function<double()> removalPerEdge(int degree)
{
    return [degree] {
        const auto removal = removalOfHub(degree)();
        const auto start = std::chrono::steady_clock::now();
        removal();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / degree;
    };
}

auto edgesIntoHub(int degree)
{
    return [degree] {
        auto graph = std::make_shared<Hub>(degree);
        return [graph] {
            for (int i = 0; i < 1000; ++i) {
                auto* vertex = new Vertex(QString(), &graph->owner);
                graph->model.addEdge(new Edge(vertex, graph->hub, &graph->owner));
            }
        };
    };
}

auto growth(int vertices)
{
    return [vertices] {
        auto owner = std::make_shared<QObject>();
        QList<Vertex*> made;
        for (int i = 0; i < vertices; ++i)
            made << new Vertex(QString(), owner.get());
        return [owner, made] {
            for (int repeat = 0; repeat < 100000 / made.size(); ++repeat) {
                GraphModel model;
                for (Vertex* vertex : made)
                    model.addVertex(vertex);
            }
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);

    for (const int degree : {100, 1000, 10000}) {
        Comparison("remove a vertex of " + std::to_string(degree) + " among " + std::to_string(allEdges) +
                   " edges")
            .add("each edge searched from the front", searchesOfHub(degree))
            .add("GraphModel, with all its signals", removalOfHub(degree));
    }
    Comparison("remove a vertex, for each of its edges")
        .addQuantity("of 100", removalPerEdge(100))
        .addQuantity("of 1000", removalPerEdge(1000))
        .addQuantity("of 10000", removalPerEdge(10000));
    Comparison("1000 edges more into a hub")
        .add("of 100", edgesIntoHub(100))
        .add("of 10000", edgesIntoHub(10000));
    Comparison("add 100000 vertices to lists of").add("1000", growth(1000)).add("100000", growth(100000));

    return runAll(argc, argv);
}
