#include "desk.h"

#include <panels/graph/graph_panel.h>

#include <QtTest>

namespace {

class GraphDesk : public Desk
{
public:
    GraphDesk() : Desk("graph") {}

    editor::GraphDocument& document() const { return *panel<editor::GraphPanel>().document(); }
    QPointF centre(const QString& name) const { return areaOf(item(name)).center(); }
    double zoom() const { return item("canvas").property("zoom").toDouble(); }
    bool isSelected(const QString& name) const
    {
        return item(name).property("vertex").value<QObject*>()->property("isSelected").toBool();
    }

    /// A place of the canvas that nothing stands on.
    QPointF ground() const { return {30, 30}; }
};

const QColor selectedFill("#2a4768");

} // namespace

class tst_GraphPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithAllNodesInView()
    {
        const GraphDesk desk;
        const QRectF canvas = desk.areaOf(desk.item("canvas"));

        QVERIFY(canvas.contains(desk.areaOf(desk.item("Texture"))));
        QVERIFY(canvas.contains(desk.areaOf(desk.item("Colour 2"))));
        QVERIFY(canvas.contains(desk.areaOf(desk.item("Surface"))));
        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void aWireLeadsFromTheOnePortToTheOther()
    {
        const GraphDesk desk;
        const QRectF wire = desk.areaOf(desk.item("Texture > Multiply"));

        QVERIFY(wire.contains(desk.centre("out Texture")));
        QVERIFY(wire.contains(desk.centre("in Multiply")));
    }

    void aDragMovesANodeAndItsWires()
    {
        GraphDesk desk;
        const QPointF before = desk.centre("Noise");

        desk.drag(desk.item("Noise"), {-30, 60});

        const QPointF moved = desk.centre("Noise") - before;
        QVERIFY(std::abs(moved.x() + 30) < 1 && std::abs(moved.y() - 60) < 1);
        QVERIFY(desk.areaOf(desk.item("Noise > Multiply")).contains(desk.centre("out Noise")));
        QVERIFY(desk.isSelected("Noise"));
    }

    void aTremblingHandMovesNothing()
    {
        GraphDesk desk;
        const QPointF before = desk.centre("Noise");

        desk.drag(desk.item("Noise"), {1, 1});

        QCOMPARE(desk.centre("Noise"), before);
    }

    void aDragIsToldByTheVertex()
    {
        GraphDesk desk;
        const auto* noise = desk.item("Noise").property("vertex").value<datamodels::Vertex*>();
        QSignalSpy started(noise, &datamodels::Vertex::dragStarted);
        QSignalSpy stopped(noise, &datamodels::Vertex::dragStopped);

        desk.drag(desk.item("Noise"), {-30, 60});

        QCOMPARE(started.size(), 1);
        QCOMPARE(stopped.size(), 1);
    }

    void aDragMovesAllThatIsSelected()
    {
        GraphDesk desk;
        const QPointF before = desk.centre("Rim");
        desk.click("Noise");
        desk.click("Rim", Qt::ControlModifier);

        desk.drag(desk.item("Noise"), {0, 80});

        QVERIFY(std::abs(desk.centre("Rim").y() - before.y() - 80) < 1);
    }

    void aClickSelectsOneNodeAndWithControlMore()
    {
        GraphDesk desk;

        desk.click("Noise");
        desk.click("Mix");
        desk.click("Rim", Qt::ControlModifier);

        QVERIFY(!desk.isSelected("Noise"));
        QVERIFY(desk.isSelected("Mix"));
        QVERIFY(desk.isSelected("Rim"));
        QVERIFY(desk.pixels(desk.item("Rim"), selectedFill) > 1000);
        QCOMPARE(desk.pixels(desk.item("Noise"), selectedFill), 0);
    }

    void aClickOnBareGroundSelectsNothing()
    {
        GraphDesk desk;
        desk.click("Noise");

        desk.clickAt(desk.item("canvas"), desk.ground());

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void aDragOnBareGroundSelectsWhatItTouches()
    {
        GraphDesk desk;
        const QPointF corner =
            desk.item("canvas").mapFromScene(desk.areaOf(desk.item("Colour")).topLeft()) - QPointF(20, 20);

        desk.dragAt(desk.item("canvas"), corner, {60, 160});

        QVERIFY(desk.isSelected("Colour"));
        QVERIFY(desk.isSelected("Colour 2"));
        QCOMPARE(desk.status(), QString("9 nodes, 9 wires, 2 selected"));
    }

    void aClickOnAWireSelectsIt()
    {
        GraphDesk desk;

        desk.click("Multiply > Mix 2");

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires, 1 selected"));
        QCOMPARE(desk.item("Multiply > Mix 2").property("lineWidth").toInt(), 3);
    }

    void aClickBesideAWireMeansTheGround()
    {
        GraphDesk desk;
        const QQuickItem& wire = desk.item("Multiply > Mix 2");
        desk.click("Noise");

        desk.clickAt(wire, {wire.width() - 10, 8});

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void theDeleteKeyRemovesNodesWithTheirWires()
    {
        GraphDesk desk;
        desk.click("Mix");

        desk.press(Qt::Key_Delete);

        QVERIFY(!desk.has("Mix"));
        QVERIFY(!desk.has("Mix > Rim"));
        QCOMPARE(desk.status(), QString("8 nodes, 5 wires"));
    }

    void theDeleteButtonRemovesWires()
    {
        GraphDesk desk;
        const bool before = desk.item("removeSelected").isEnabled();
        desk.click("Multiply > Mix 2");

        desk.click("removeSelected");

        QVERIFY(!before);
        QCOMPARE(desk.status(), QString("9 nodes, 8 wires"));
    }

    void everythingCanBeRemovedAndAClickInThePaletteBeginsAnew()
    {
        GraphDesk desk;
        desk.click("Noise");
        desk.press(Qt::Key_A, Qt::ControlModifier);
        const QString all = desk.status();
        desk.press(Qt::Key_Delete);
        const bool tellsSo = desk.item("empty").isVisible();

        desk.click("add-Rim");

        QCOMPARE(all, QString("9 nodes, 9 wires, 18 selected"));
        QVERIFY(tellsSo);
        QVERIFY(!desk.item("empty").isVisible());
        QVERIFY((desk.centre("Rim") - desk.centre("canvas")).manhattanLength() < 2);
        QCOMPARE(desk.status(), QString("1 node, 0 wires, 1 selected"));
    }

    void aDragFromThePaletteAddsANodeWhereItIsLetGo()
    {
        GraphDesk desk;
        const QPointF wanted = desk.areaOf(desk.item("canvas")).topLeft() + QPointF(300, 120);

        desk.drag(desk.item("add-Noise"), wanted - desk.centre("add-Noise"));

        QVERIFY((desk.centre("Noise 2") - wanted).manhattanLength() < 2);
        QVERIFY(desk.isSelected("Noise 2"));
    }

    void aDragThatEndsOutsideTheCanvasAddsNothing()
    {
        GraphDesk desk;

        desk.drag(desk.item("add-Noise"), {0, 400});

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void aDragFromPortToPortConnects()
    {
        GraphDesk desk;

        desk.dragTo(desk.item("out Noise"), desk.item("in Rim"));

        QVERIFY(desk.has("Noise > Rim"));
        QCOMPARE(desk.status(), QString("9 nodes, 10 wires, 1 selected"));
    }

    void aWireCanBeDrawnBackwards()
    {
        GraphDesk desk;

        desk.dragTo(desk.item("in Rim"), desk.item("out Noise"));

        QVERIFY(desk.has("Noise > Rim"));
    }

    void aWireShowsWhileItIsDrawnAndWhetherItFits()
    {
        GraphDesk desk;
        const QQuickItem& wire = desk.item("drawnWire");
        const bool before = wire.isVisible();

        desk.pressAt(desk.item("out Noise"));
        desk.moveTo(desk.item("canvas"), desk.ground());
        const QColor loose = wire.property("color").value<QColor>();
        desk.moveTo(desk.item("Rim"), {60, 10});
        const QColor fits = wire.property("color").value<QColor>();
        desk.moveTo(desk.item("Multiply"), {60, 10});
        const QColor doesNot = wire.property("color").value<QColor>();
        const bool during = wire.isVisible();
        desk.release();

        QVERIFY(!before);
        QVERIFY(during);
        QVERIFY(!wire.isVisible());
        QCOMPARE(loose, QColor("#5c9fe0"));
        QCOMPARE(fits, QColor("#7fc8a9"));
        QCOMPARE(doesNot, QColor("#d9716b"));
        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void whatCannotBeWiredIsNot_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");

        QTest::newRow("itself") << "out Noise"
                                << "in Noise";
        QTest::newRow("a second time") << "out Noise"
                                       << "in Multiply";
        QTest::newRow("bare ground") << "out Noise"
                                     << "fit";
    }
    void whatCannotBeWiredIsNot()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        GraphDesk desk;

        desk.dragTo(desk.item(from), desk.item(to));

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }

    void theWheelZoomsAtThePointer()
    {
        GraphDesk desk;
        const double zoom = desk.zoom();
        const QQuickItem& box = desk.item("Noise");
        const QPointF before = desk.areaOf(box).topLeft();

        desk.turnWheel(box, {0, 0}, -2);

        QVERIFY(qAbs(desk.zoom() - zoom / 1.44) < 0.001);
        QVERIFY((desk.areaOf(box).topLeft() - before).manhattanLength() < 1);
    }

    void theMiddleButtonMovesTheSheet()
    {
        GraphDesk desk;
        const QPointF before = desk.centre("Noise");

        desk.dragAt(desk.item("canvas"), desk.ground(), {120, 35}, Qt::MiddleButton);

        QCOMPARE(desk.centre("Noise") - before, QPointF(120, 35));
    }

    void fittingBringsEverythingBackIntoView()
    {
        GraphDesk desk;
        const QPointF before = desk.centre("Noise");
        desk.dragAt(desk.item("canvas"), desk.ground(), {700, 500}, Qt::MiddleButton);
        desk.turnWheel(desk.item("canvas"), desk.ground(), 3);

        desk.press(Qt::Key_F);
        const QPointF byKey = desk.centre("Noise");
        desk.turnWheel(desk.item("canvas"), desk.ground(), 3);
        desk.click("fit");

        QVERIFY((byKey - before).manhattanLength() < 1);
        QVERIFY((desk.centre("Noise") - before).manhattanLength() < 1);
    }

    void theArrowsMoveWhatIsSelected()
    {
        GraphDesk desk;
        desk.click("Noise");

        desk.press(Qt::Key_Right);
        desk.press(Qt::Key_Down, Qt::ShiftModifier);

        const auto* noise = desk.item("Noise").property("vertex").value<datamodels::Vertex*>();
        QCOMPARE(noise->getCenterX(), 5.0);
        QCOMPARE(noise->getCenterY(), 122.0);
    }

    void escapeSelectsNothing()
    {
        GraphDesk desk;
        desk.click("Noise");

        desk.press(Qt::Key_Escape);

        QCOMPARE(desk.status(), QString("9 nodes, 9 wires"));
    }
};

int main(int argc, char** argv)
{
    tst_GraphPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_graph_panel.moc"
