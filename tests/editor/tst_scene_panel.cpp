#include "scene_desk.h"

#include <host/reflection/cast.h>

#include <QtTest>

using namespace editor;

namespace {

const QStringList closed{"Quay", "Lamps", "Start", "Ferry", "Winter"};
const QStringList lampsOpen{"Quay", "Lamps", "North lamp", "South lamp", "East lamp", "Start", "Ferry", "Winter"};

} // namespace

class tst_ScenePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheGroupsOfTheLevelClosed()
    {
        const SceneDesk desk;

        QCOMPARE(desk.treeNames(), closed);
        QCOMPARE(desk.selected(), QStringList());
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
        QCOMPARE(desk.status(), QString("12 objects, saved"));
    }

    void anArrowOpensAndClosesItsBranch()
    {
        SceneDesk desk;

        desk.open("Lamps");
        const QStringList open = desk.treeNames();
        desk.open("Lamps");

        QCOMPARE(open, lampsOpen);
        QCOMPARE(desk.treeNames(), closed);
    }

    void aClickSelectsOneControlAddsAndTakesAwayShiftSelectsTo()
    {
        SceneDesk desk;
        desk.open("Lamps");

        desk.select("North lamp");
        const QStringList one = desk.selected();
        desk.select("Start", Qt::ControlModifier);
        const QStringList two = desk.selected();
        desk.select("North lamp", Qt::ControlModifier);
        const QStringList other = desk.selected();
        desk.select("Ferry");
        desk.select("South lamp", Qt::ShiftModifier);

        QCOMPARE(one, QStringList{"North lamp"});
        QCOMPARE(two, (QStringList{"North lamp", "Start"}));
        QCOMPARE(other, QStringList{"Start"});
        QCOMPARE(desk.selected(), (QStringList{"South lamp", "East lamp", "Start", "Ferry"}));
        QCOMPARE(desk.status(), QString("12 objects, 4 selected, saved"));
    }

    void theKeysWalkSelectAndOpen()
    {
        SceneDesk desk;
        desk.select("Quay");

        desk.press(Qt::Key_Down);
        const QStringList down = desk.selected();
        desk.press(Qt::Key_Right);
        desk.press(Qt::Key_Right);
        const QStringList inside = desk.selected();
        desk.press(Qt::Key_Down, Qt::ShiftModifier);
        const QStringList range = desk.selected();
        desk.press(Qt::Key_End);
        const QStringList end = desk.selected();
        desk.press(Qt::Key_Home, Qt::ShiftModifier);
        const int all = desk.selected().size();
        desk.press(Qt::Key_Left);

        QCOMPARE(down, QStringList{"Lamps"});
        QCOMPARE(inside, QStringList{"North lamp"});
        QCOMPARE(range, (QStringList{"North lamp", "South lamp"}));
        QCOMPARE(end, QStringList{"Winter"});
        QCOMPARE(all, 8);
    }

    void controlASelectsAllAndEscapeNothing()
    {
        SceneDesk desk;
        desk.select("Quay");

        desk.press(Qt::Key_A, Qt::ControlModifier);
        const QString all = desk.status();
        desk.press(Qt::Key_Escape);

        QCOMPARE(all, QString("12 objects, 15 selected, saved"));
        QCOMPARE(desk.status(), QString("12 objects, saved"));
    }

    void whatIsSelectedStaysSoWhileItIsFilteredOut()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("North lamp");
        desk.select("Start", Qt::ControlModifier);

        desk.click("words");
        desk.type("ferry");
        const QStringList filtered = desk.treeNames();
        desk.press(Qt::Key_Escape);

        QCOMPARE(filtered.first(), QString("Ferry"));
        QCOMPARE(desk.treeNames(), lampsOpen);
        QCOMPARE(desk.selected(), (QStringList{"North lamp", "Start"}));
    }

    void filtersNarrowByTypeByProblemAndByModification()
    {
        SceneDesk desk;

        desk.click("only-lamp");
        const QStringList lights = desk.treeNames();
        desk.click("only-lamp");
        desk.click("onlyProblems");
        const QStringList problems = desk.treeNames();
        desk.click("onlyProblems");
        desk.click("onlyModified");
        const QStringList modified = desk.treeNames();
        desk.click("emptyAction");

        QCOMPARE(lights, (QStringList{"Lamps", "North lamp", "South lamp", "East lamp"}));
        QCOMPARE(problems, (QStringList{"Quay", "Crane"}));
        QCOMPARE(modified, QStringList());
        QCOMPARE(desk.treeNames(), closed);
    }

    void aRowButtonIsOneStepThatUndoTakesBack()
    {
        SceneDesk desk;

        desk.pressButton("Start", "eye");
        const bool hidden = !desk.object("Start").isVisible;
        const QStringList steps = desk.steps();
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QVERIFY(hidden);
        QCOMPARE(steps, (QStringList{"Opened Saved", "1 Icon pressed"}));
        QVERIFY(desk.object("Start").isVisible);
        QVERIFY(desk.hasButton("Start", "eye"));
    }

    void aRowButtonOfASelectedRowActsOnAllThatIsSelected()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("North lamp");
        desk.select("East lamp", Qt::ControlModifier);

        desk.pressButton("East lamp", "eye");

        QVERIFY(!desk.object("North lamp").isVisible);
        QVERIFY(desk.object("South lamp").isVisible);
        QVERIFY(!desk.object("East lamp").isVisible);
        QCOMPARE(desk.selected(), (QStringList{"North lamp", "East lamp"}));
        QCOMPARE(desk.steps().size(), 2);
    }

    void altOnASwitchExchangesItWithItsSiblings()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("North lamp");

        desk.pressButton("North lamp", "unlock", Qt::AltModifier);

        QVERIFY(!desk.object("North lamp").isLocked);
        QVERIFY(desk.object("South lamp").isLocked);
        QVERIFY(desk.object("East lamp").isLocked);
    }

    void addItemOfAGroupMakesANewObjectInIt()
    {
        SceneDesk desk;
        desk.open("Lamps");

        desk.pressButton("Lamps", "add");

        QCOMPARE(desk.treeNames(), (QStringList{"Quay", "Lamps", "North lamp", "South lamp", "East lamp", "New actor",
                                                "Start", "Ferry", "Winter"}));
    }

    void aPathKeepsAsManyPointsAsItNeeds()
    {
        SceneDesk desk;
        desk.open("Ferry");
        const bool three = desk.hasButton("Point 2", "trash");

        desk.pressButton("Point 2", "trash");

        QVERIFY(three);
        QCOMPARE(desk.treeNames(), (QStringList{"Quay", "Lamps", "Start", "Ferry", "Point 1", "Point 2", "Winter"}));
        QVERIFY(!desk.hasButton("Point 1", "trash"));
        QVERIFY(!desk.hasButton("Point 2", "trash"));
    }

    void deletingAnObjectWhileItsRowIsExpandedTakesItsBranchAway()
    {
        SceneDesk desk;
        desk.open("Lamps");

        desk.pressButton("Lamps", "trash");
        const QStringList gone = desk.treeNames();
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(gone, (QStringList{"Quay", "Start", "Ferry", "Winter"}));
        QCOMPARE(desk.treeNames(), lampsOpen);
    }

    void deletingAnObjectWhileItsButtonIsHeldDownEndsThePress()
    {
        SceneDesk desk;
        desk.select("Start");
        QQuickItem& button = desk.buttonOf("Ferry", "trash");
        desk.pressAt(button);

        desk.scene().outliner()->selectObject(zarn::reflect(desk.object("Ferry")));
        desk.scene().outliner()->remove();
        desk.settle();
        desk.release();

        QCOMPARE(desk.treeNames(), (QStringList{"Quay", "Lamps", "Start", "Winter"}));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Delete Ferry"}));
    }

    void deleteRemovesWhatIsSelectedAsOneStep()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("North lamp");
        desk.select("East lamp", Qt::ControlModifier);
        desk.select("Start", Qt::ControlModifier);

        desk.press(Qt::Key_Delete);
        const QStringList removed = desk.treeNames();
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(removed, (QStringList{"Quay", "Lamps", "South lamp", "Ferry", "Winter"}));
        QCOMPARE(desk.treeNames(), lampsOpen);
    }

    void lockedObjectsAreNotDeleted()
    {
        SceneDesk desk;
        desk.pressButton("Lamps", "unlock");
        desk.open("Lamps");
        desk.select("North lamp");

        desk.press(Qt::Key_Delete);

        QCOMPARE(desk.treeNames(), lampsOpen);
        QVERIFY(!desk.item("remove").isEnabled());
    }

    void theButtonsOfALockedObjectSayThatItIs()
    {
        SceneDesk desk;
        desk.pressButton("Lamps", "unlock");
        desk.open("Lamps");

        desk.pressButton("North lamp", "trash");

        QCOMPARE(desk.treeNames(), lampsOpen);
        QCOMPARE(desk.text("message"), "North lamp is locked, or in a locked group. Unlock it first.");
    }

    void aButtonOfSeveralSelectedRowsDoesNothingWhereOneIsLocked()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.pressButton("South lamp", "unlock");
        desk.select("North lamp");
        desk.select("South lamp", Qt::ControlModifier);

        desk.pressButton("North lamp", "trash");

        QCOMPARE(desk.treeNames(), lampsOpen);
        QCOMPARE(desk.text("message"), "South lamp is locked, or in a locked group. Unlock it first.");
    }

    void aLockedObjectCanBeHiddenAndUnlocked()
    {
        SceneDesk desk;
        desk.pressButton("Start", "unlock");

        desk.pressButton("Start", "eye");
        desk.pressButton("Start", "lock");

        QVERIFY(!desk.object("Start").isVisible);
        QVERIFY(!desk.object("Start").isLocked);
        QVERIFY(!desk.item("message").isVisible());
    }

    void whatIsSelectedStaysSoWhileRowsAboveItGo()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("South lamp");
        desk.select("East lamp", Qt::ControlModifier);

        desk.pressButton("North lamp", "trash");

        QCOMPARE(desk.selected(), (QStringList{"South lamp", "East lamp"}));
    }

    void addingPutsAnObjectIntoTheCurrentGroupAndSelectsIt()
    {
        SceneDesk desk;
        desk.select("Lamps");

        desk.click("add-Light");

        QCOMPARE(desk.treeNames(), (QStringList{"Quay", "Lamps", "North lamp", "South lamp", "East lamp", "New light",
                                                "Start", "Ferry", "Winter"}));
        QCOMPARE(desk.selected(), QStringList{"New light"});
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Add light"}));
    }

    void aDisabledGroupIsPaleWithAllThatIsInIt()
    {
        SceneDesk desk;

        desk.open("Winter");

        QVERIFY(desk.pixels(desk.row("Stall"), QColor("#6b737e")) > 0);
        QCOMPARE(desk.pixels(desk.row("Stall"), QColor("#d6dae0")), 0);
    }

    void aDoubleClickFramesTheObjectOnTheMap()
    {
        SceneDesk desk;
        desk.open("Lamps");

        desk.doubleClick(desk.row("East lamp"), {150, 10});

        QCOMPARE(desk.text("framed"), QString("Framed: East lamp"));
        QCOMPARE(desk.item("map").property("centre").toPointF(), QPointF(90, 50));
    }

    void aClickOnTheMapSelectsAndRevealsTheObject()
    {
        SceneDesk desk;

        desk.clickAt(desk.item("map"), desk.onMap({90, 50}));

        QCOMPARE(desk.selected(), QStringList{"East lamp"});
        QCOMPARE(desk.treeNames(), lampsOpen);
    }

    void draggingAnObjectOnTheMapMovesWhatIsSelectedAsOneStep()
    {
        SceneDesk desk;
        desk.open("Lamps");
        desk.select("North lamp");
        desk.select("East lamp", Qt::ControlModifier);
        const QPointF east = desk.onMap({90, 50});

        desk.dragAt(desk.item("map"), east, desk.onMap({80, 40}) - east);
        const QStringList steps = desk.steps();
        const auto moved = desk.placeOf("East lamp") + desk.placeOf("North lamp");
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(moved, QPointF(80 + 40, 40 + 80));
        QCOMPARE(steps, (QStringList{"Opened Saved", "1 Move 2 objects"}));
        QCOMPARE(desk.placeOf("North lamp"), QPointF(50, 90));
    }

    void draggingALockedObjectMovesNothing()
    {
        SceneDesk desk;
        desk.pressButton("Start", "unlock");
        const QPointF start = desk.onMap({70, 70});

        desk.dragAt(desk.item("map"), start, {40, 0});

        QCOMPARE(desk.placeOf("Start"), QPointF(70, 70));
    }

    void draggingTheSheetAndTheWheelChangeTheView()
    {
        SceneDesk desk;
        QQuickItem& map = desk.item("map");
        const QPointF before = desk.onMap({50, 50});

        desk.dragAt(map, desk.onMap({40, 60}), {30, 10});
        const QPointF dragged = desk.onMap({50, 50});
        desk.turnWheel(map, dragged, 3);
        const double reach = desk.onMap({60, 50}).x() - desk.onMap({50, 50}).x();
        desk.click("fit");

        QCOMPARE(dragged.toPoint(), (before + QPointF(30, 10)).toPoint());
        QVERIFY(reach > 1.5 * (desk.onMap({60, 50}).x() - desk.onMap({50, 50}).x()));
        QCOMPARE(desk.onMap({50, 50}), before);
    }

    void thePointerOverTheMapLightsUpTheRow()
    {
        SceneDesk desk;

        desk.moveTo(desk.item("map"), desk.onMap({70, 70}));
        desk.settle();

        QVERIFY(desk.row("Start").property("isHovered").toBool());
        QVERIFY(!desk.row("Ferry").property("isHovered").toBool());
    }

    void savingTakesTheMarksAwayAndWritesTheFile()
    {
        SceneDesk desk;
        desk.pressButton("Start", "eye");
        const bool marked = desk.item("modifiedMark").isVisible();
        const QString status = desk.status();

        desk.press(Qt::Key_S, Qt::ControlModifier);

        QVERIFY(marked);
        QCOMPARE(status, QString("12 objects, modified"));
        QCOMPARE(desk.status(), QString("12 objects, saved"));
        QVERIFY(!desk.item("modifiedMark").isVisible());
        QVERIFY(desk.sceneText().contains("\"Start\", \"_isEnabled\": true, \"visible\": false"));
    }

    void aTruncatedFileKeepsTheLevelAndSaysWhy()
    {
        SceneDesk desk;
        desk.pressButton("Start", "eye");
        desk.writeScene(SceneDesk::level.left(300));

        desk.press(Qt::Key_F5);
        desk.press(Qt::Key_F5);
        const QString message = desk.text("message");
        desk.click("dismiss");

        QCOMPARE(message, desk.scenePath() + " was not read. Line 4: unterminated object");
        QVERIFY(!desk.item("message").isVisible());
        QVERIFY(!desk.object("Start").isVisible);
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Icon pressed"}));
    }

    void reloadingShowsWhatIsInTheFile()
    {
        SceneDesk desk;
        desk.pressButton("Lamps", "trash");

        desk.click("reload");
        desk.click("reload");

        QCOMPARE(desk.treeNames(), closed);
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
    }

    void reloadingAsksBeforeItLosesEdits()
    {
        SceneDesk desk;
        desk.pressButton("Lamps", "trash");

        desk.press(Qt::Key_F5);

        QVERIFY(desk.text("message").endsWith("has edits that were not saved. Reload once more to lose them."));
        QCOMPARE(desk.steps().size(), 2);
    }

    void aProjectWithoutASceneSaysWhereItWouldBe()
    {
        const Desk desk("scene");

        QVERIFY(desk.item("noScene").isVisible());
        QCOMPARE(desk.status(), QString("0 objects, saved"));
    }
};

int main(int argc, char** argv)
{
    tst_ScenePanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_scene_panel.moc"
