#include <panels/graph/graph_document.h>

#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QPointer>
#include <QtTest>

using datamodels::Edge;
using datamodels::Vertex;
using editor::GraphDocument;
using editor::GraphNode;

namespace {

QStringList labels(GraphDocument& document)
{
    QStringList labels;
    for (const Vertex* node : document.model()->getVertices())
        labels << node->getLabel();
    return labels;
}

QStringList wires(GraphDocument& document)
{
    QStringList lines;
    for (const Edge* wire : document.model()->getEdges())
        lines << wire->getFromVertex()->getLabel() + " > " + wire->getToVertex()->getLabel();
    return lines;
}

QStringList selected(GraphDocument& document)
{
    QStringList names;
    for (const Vertex* node : document.model()->getVertices()) {
        if (node->property("isSelected").toBool())
            names << node->getLabel();
    }
    for (int row = 0; row < wires(document).size(); ++row) {
        if (document.model()->getEdges().at(row)->property("isSelected").toBool())
            names << wires(document).at(row);
    }
    return names;
}

Vertex* node(GraphDocument& document, const QString& label)
{
    return document.model()->getVertices().value(labels(document).indexOf(label));
}

Edge* wire(GraphDocument& document, const QString& name)
{
    return document.model()->getEdges().value(wires(document).indexOf(name));
}

const QStringList sampleNodes{"Texture", "Noise", "Colour", "Colour 2", "Multiply",
                              "Mix",     "Mix 2", "Rim",    "Surface"};

} // namespace

class tst_GraphDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStartsWithTheSampleMaterial()
    {
        GraphDocument document;

        QCOMPARE(labels(document), sampleNodes);
        QCOMPARE(wires(document), (QStringList{"Texture > Multiply", "Noise > Multiply", "Colour > Mix",
                                               "Colour 2 > Mix", "Multiply > Mix 2", "Mix > Mix 2",
                                               "Mix > Rim", "Mix 2 > Surface", "Rim > Surface"}));
        QCOMPARE(document.status(), QString("9 nodes, 9 wires"));
    }

    void thePaletteHasTheKindsWithTheirIcons()
    {
        GraphDocument document;

        QCOMPARE(document.palette()->rowCount(), 7);
        QCOMPARE(document.palette()->index(2).data(Qt::UserRole + 1), QVariant("Noise"));
        QCOMPARE(document.palette()->iconOf(2), QString("noise"));
        QCOMPARE(document.palette()->iconOf(7), QString());
        QCOMPARE(document.palette()->iconOf(-1), QString());
    }

    void aRequestMakesANodeInItsPlaceAndSelectsIt()
    {
        GraphDocument document;
        document.select(node(document, "Mix"));

        Q_EMIT document.palette()->requestVertexCreation(2, 40, -25.5);

        const Vertex* added = document.model()->getVertices().constLast();
        QCOMPARE(added->getLabel(), QString("Noise 2"));
        QCOMPARE(added->getCenterX(), 40.0);
        QCOMPARE(added->getCenterY(), -25.5);
        QCOMPARE(selected(document), (QStringList{"Noise 2"}));
    }

    void aRequestForAnUnknownKindIsRefused()
    {
        GraphDocument document;

        Q_EMIT document.palette()->requestVertexCreation(7, 0, 0);

        QCOMPARE(labels(document), sampleNodes);
    }

    void aRequestMakesAWireAndSelectsIt()
    {
        GraphDocument document;

        Q_EMIT document.wirePalette()->requestEdgeCreation(node(document, "Noise"), node(document, "Rim"));

        QCOMPARE(wires(document).last(), QString("Noise > Rim"));
        QCOMPARE(selected(document), (QStringList{"Noise > Rim"}));
    }

    void whatCannotBeWiredIsRefused_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");

        QTest::newRow("to itself") << "Mix"
                                   << "Mix";
        QTest::newRow("a second time") << "Mix"
                                       << "Rim";
        QTest::newRow("from nowhere") << "none"
                                      << "Rim";
        QTest::newRow("to nowhere") << "Mix"
                                    << "none";
    }
    void whatCannotBeWiredIsRefused()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        GraphDocument document;

        Q_EMIT document.wirePalette()->requestEdgeCreation(node(document, from), node(document, to));

        QCOMPARE(wires(document).size(), 9);
        QVERIFY(!document.accepts(node(document, from), node(document, to)));
    }

    void theOppositeDirectionIsAnotherWire()
    {
        GraphDocument document;

        QVERIFY(document.accepts(node(document, "Rim"), node(document, "Mix")));
    }

    void selectingReplacesTheSelectionAndTogglingAddsToIt()
    {
        GraphDocument document;

        document.select(node(document, "Mix"));
        document.select(node(document, "Noise"));
        document.toggle(node(document, "Rim"));
        document.toggle(wire(document, "Mix > Rim"));
        const QStringList several = selected(document);
        document.toggle(node(document, "Noise"));

        QCOMPARE(several, (QStringList{"Noise", "Rim", "Mix > Rim"}));
        QCOMPARE(selected(document), (QStringList{"Rim", "Mix > Rim"}));
        QCOMPARE(document.status(), QString("9 nodes, 9 wires, 2 selected"));
    }

    void nothingSelectsNothing()
    {
        GraphDocument document;
        document.selectAll();

        document.select(nullptr);

        QCOMPARE(document.selectedCount(), 0);
    }

    void anAreaSelectsTheNodesThatItTouches()
    {
        GraphDocument document;

        document.selectIn({-100, 10, 20, 70}, false); // touches Texture and Noise, but no more

        QCOMPARE(selected(document), (QStringList{"Texture", "Noise"}));
    }

    void anAreaCanAddToTheSelection()
    {
        GraphDocument document;
        document.select(node(document, "Rim"));

        document.selectIn({-10, 140, 5, 5}, true);

        QCOMPARE(selected(document), (QStringList{"Colour", "Rim"}));
    }

    void onlySelectedNodesMove()
    {
        GraphDocument document;
        document.select(node(document, "Noise"));
        document.toggle(node(document, "Rim"));

        document.moveSelected(10, -4);

        QCOMPARE(node(document, "Noise")->getCenterX(), 10.0);
        QCOMPARE(node(document, "Noise")->getCenterY(), 68.0);
        QCOMPARE(node(document, "Rim")->getCenterX(), 510.0);
        QCOMPARE(node(document, "Texture")->getCenterX(), 0.0);
    }

    void aRemovedNodeTakesItsWiresAlong()
    {
        GraphDocument document;
        const QAbstractItemModelTester tester(document.model(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        document.select(node(document, "Mix"));

        document.removeSelected();

        QVERIFY(!labels(document).contains("Mix"));
        QCOMPARE(wires(document), (QStringList{"Texture > Multiply", "Noise > Multiply", "Multiply > Mix 2",
                                               "Mix 2 > Surface", "Rim > Surface"}));
        QCOMPARE(document.status(), QString("8 nodes, 5 wires"));
    }

    void aRemovedWireLeavesItsNodes()
    {
        GraphDocument document;
        document.select(wire(document, "Mix > Rim"));

        document.removeSelected();

        QCOMPARE(labels(document), sampleNodes);
        QVERIFY(!wires(document).contains("Mix > Rim"));
        QVERIFY(document.accepts(node(document, "Mix"), node(document, "Rim")));
    }

    void everythingCanBeRemoved()
    {
        GraphDocument document;
        document.selectAll();

        document.removeSelected();

        QVERIFY(document.model()->isEmpty());
        QCOMPARE(document.bounds(), QRectF());
        QCOMPARE(document.status(), QString("0 nodes, 0 wires"));
    }

    void whatIsRemovedIsDeletedByTheEventLoop()
    {
        GraphDocument document;
        const QPointer<Vertex> mix = node(document, "Mix");
        const QPointer<Edge> leaving = wire(document, "Mix > Rim");
        const QPointer<Edge> entering = wire(document, "Colour > Mix");
        document.select(mix);
        document.removeSelected();
        QVERIFY(mix && leaving && entering);

        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QVERIFY(!mix && !leaving && !entering);
    }

    void theBoundsAreThoseOfAllNodes()
    {
        GraphDocument document;

        QCOMPARE(document.bounds(), QRectF(-90, -16, 930, 248));
    }
};

QTEST_GUILESS_MAIN(tst_GraphDocument)
#include "tst_graph_document.moc"
