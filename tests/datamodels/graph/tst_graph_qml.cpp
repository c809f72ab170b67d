#include <datamodels/graph/edge_creation_requestor.h>
#include <datamodels/graph/graph_model.h>
#include <datamodels/library_frame.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

using datamodels::Edge;
using datamodels::EdgeCreationRequestor;
using datamodels::GraphModel;
using datamodels::Vertex;

/// What a QML graph view sees of a graph of two vertices and one edge.
class tst_GraphQml : public QObject
{
    Q_OBJECT

    QQmlEngine engine;
    QObject owner;
    GraphModel model;
    EdgeCreationRequestor requestor;
    Vertex* a = new Vertex("a", &owner);
    Vertex* b = new Vertex("b", &owner);
    Edge* ab = new Edge(a, b, &owner);

    std::unique_ptr<QObject> create(const QByteArray& qml)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\nimport QtQml.Models 2.15\n" + qml, QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning() << component.errors();
        return object;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QCOMPARE(QMetaType::type("datamodels::Vertex*"), int(QMetaType::UnknownType));
        datamodels::registerGraphQml();

        model.addVertex(a);
        model.addVertex(b);
        model.addEdge(ab);
        engine.rootContext()->setContextProperty("graph", &model);
        engine.rootContext()->setContextProperty("requestor", &requestor);
    }

    void registrationMakesThePointerAndListTypesKnown()
    {
        QVERIFY(QMetaType::type("datamodels::Vertex*") != QMetaType::UnknownType);
        QVERIFY(QMetaType::type("datamodels::Edge*") != QMetaType::UnknownType);
        QVERIFY(QMetaType::type("QQmlListProperty<datamodels::Vertex>") != QMetaType::UnknownType);
        QVERIFY(QMetaType::type("QQmlListProperty<datamodels::Edge>") != QMetaType::UnknownType);
    }

    void delegatesReadTheElementsByTheRoleName()
    {
        const auto view = create(R"(
            Instantiator {
                property var labels: Array.from({length: count}, (_, row) => objectAt(row).label)
                model: DelegateModel {
                    model: graph
                    rootIndex: graph.index(1, 0)
                    delegate: QtObject { property string label: itemData.label }
                }
            })");
        QVERIFY(view);

        QCOMPARE(view->property("labels").toStringList(), (QStringList{"a", "b"}));
    }

    void aBindingFollowsAnElementsProperty()
    {
        const auto object = create(R"(
            QtObject {
                property var item: graph.data(graph.index(0, 0, graph.index(1, 0)), 256)
                property double right: item.centerX + item.width / 2
            })");
        QVERIFY(object);

        a->setCenterX(10);

        QCOMPARE(object->property("right").toDouble(), 100.0);
    }

    void qmlMovesAVertexByItsProperties()
    {
        const auto object = create(R"(
            QtObject {
                Component.onCompleted: {
                    const vertex = graph.getVertex(graph.index(1, 0, graph.index(1, 0)))
                    vertex.centerY = 25
                    vertex.label = "moved"
                }
            })");
        QVERIFY(object);

        QCOMPARE(b->getCenterY(), 25.0);
        QCOMPARE(b->getLabel(), QString("moved"));
    }

    void anEdgeLeadsToItsVertices()
    {
        const auto object = create(R"(
            QtObject {
                property var edge: graph.getEdge(graph.index(0, 0, graph.index(0, 0)))
                property var from: edge.fromVertex
                property var to: edge.toVertex
            })");
        QVERIFY(object);

        QCOMPARE(object->property("from").value<QObject*>(), a);
        QCOMPARE(object->property("to").value<QObject*>(), b);
    }

    void theCollectorLeavesWhatTheGettersGave()
    {
        const QPointer<QObject> loose = new Vertex("loose");
        model.addVertex(static_cast<Vertex*>(loose.data()));
        create(
            "QtObject { Component.onCompleted: graph.getItem(graph.index(2, 0, graph.index(1, 0))).label }");

        engine.collectGarbage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QVERIFY(loose);
        model.removeVertex(static_cast<Vertex*>(loose.data()));
        delete loose;
    }

    void emptinessIsABinding()
    {
        GraphModel other;
        Vertex vertex;
        engine.rootContext()->setContextProperty("other", &other);
        const auto object = create("QtObject { property bool empty: other.isEmpty }");
        QVERIFY(object);
        QCOMPARE(object->property("empty").toBool(), true);

        other.addVertex(&vertex);

        QCOMPARE(object->property("empty").toBool(), false);
    }

    void qmlAsksForAnEdgeBetweenTwoVertices()
    {
        Vertex* from = nullptr;
        Vertex* to = nullptr;
        connect(&requestor, &EdgeCreationRequestor::requestEdgeCreation, this,
                [&](Vertex* first, Vertex* second) {
                    from = first;
                    to = second;
                });

        create(R"(
            QtObject {
                Component.onCompleted: requestor.requestEdgeCreation(
                    graph.getVertex(graph.index(0, 0, graph.index(1, 0))),
                    graph.getVertex(graph.index(1, 0, graph.index(1, 0))))
            })");

        QCOMPARE(from, a);
        QCOMPARE(to, b);
    }
};

QTEST_GUILESS_MAIN(tst_GraphQml)
#include "tst_graph_qml.moc"
