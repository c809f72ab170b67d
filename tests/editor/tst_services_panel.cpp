#include "desk.h"

#include <panels/history/history_panel.h>
#include <panels/services/services_panel.h>

#include <QtTest>

namespace {

/// A desk with what there is to see and to edit of the scene.
class SceneDesk : public Desk
{
public:
    SceneDesk() : Desk("services") {}

    void choose(const QString& object) { click("node-" + object); }
    void enter(const QString& field, const QString& text)
    {
        click("entry-" + field);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
    }
    QString field(const QString& name) const { return text("entry-" + name); }
    bool isTicked(const QString& name) const { return item("entry-" + name).property("isTicked").toBool(); }

    /// The objects as the list shows them.
    QStringList objects() const { return readAll("scene"); }
    /// The history as the list shows it.
    QStringList steps() const { return readAll("steps"); }
    QString currentStep() const { return currentIn("steps"); }
    QString currentObject() const { return currentIn("scene"); }

private:
    QStringList readAll(const QString& list) const
    {
        QStringList lines;
        for (const QQuickItem* row : rowItems(list))
            lines << reads(*row);
        return lines;
    }
    QString currentIn(const QString& list) const
    {
        for (const QQuickItem* row : rowItems(list)) {
            if (row->property("isCurrent").toBool())
                return reads(*row);
        }
        return {};
    }
};

const QColor undoneText("#6b737e");
const QColor text("#d6dae0");

} // namespace

class tst_ServicesPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheSceneAndAnEmptyHistory()
    {
        const SceneDesk desk;

        QCOMPARE(desk.objects(),
                 (QStringList{"Copper Quay", "West gate", "West lamp", "East gate", "East lamp", "Heron",
                              "Bow lamp", "Stern lamp", "Kilnfolk", "Salt Raker"}));
        QCOMPARE(desk.currentObject(), QString("Copper Quay"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
        QCOMPARE(desk.status(), QString("10 objects, 0 steps, saved"));
    }

    void theFormHasTheValuesAndMethodsOfTheObjectsClass_data()
    {
        QTest::addColumn<QString>("object");
        QTest::addColumn<QString>("form");

        QTest::newRow("basin") << "Copper Quay"
                               << "Name Enabled Position x y z Colour Water level Fill Drain";
        QTest::newRow("barge") << "Heron"
                               << "Name Enabled Position x y z Colour Speed Length Bells rung Ring bell Stop";
        QTest::newRow("lamp") << "Bow lamp"
                              << "Name Enabled Position x y z Colour Brightness Range Dim";
        QTest::newRow("gate") << "West gate"
                              << "Name Enabled Position x y z Colour Opening Open gate Close gate";
    }
    void theFormHasTheValuesAndMethodsOfTheObjectsClass()
    {
        QFETCH(QString, object);
        SceneDesk desk;

        desk.choose(object);

        QTEST(desk.reads(desk.item("form")), "form");
    }

    void theFormShowsTheValuesOfTheCurrentObject()
    {
        SceneDesk desk;

        desk.choose("East lamp");

        QCOMPARE(desk.field("name"), QString("East lamp"));
        QVERIFY(!desk.isTicked("enabled"));
        QCOMPARE(desk.field("x"), QString("82.80"));
        QCOMPARE(desk.field("z"), QString("3.00"));
        QCOMPARE(desk.field("colour"), QString("#ffd166"));
        QCOMPARE(desk.field("brightness"), QString("80"));
        QCOMPARE(desk.field("range"), QString("12.0"));
    }

    void aChangedFieldIsOneStep()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.enter("speed", "7.5");

        QCOMPARE(desk.field("speed"), QString("7.5"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Heron: Speed"}));
        QCOMPARE(desk.currentStep(), QString("1 Heron: Speed"));
        QCOMPARE(desk.status(), QString("10 objects, 1 step, modified"));
    }

    void undoBringsTheOldValueIntoTheFieldAndRedoTheNewOne()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "7.5");

        desk.click("undo");
        const QString undone = desk.field("speed");
        desk.click("redo");

        QCOMPARE(undone, QString("3.5"));
        QCOMPARE(desk.field("speed"), QString("7.5"));
    }

    void undoneStepsAreGreyed()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "7.5");
        const int before = desk.pixels(desk.item("step-1"), text);

        desk.click("undo");

        QVERIFY(before > 0);
        QCOMPARE(desk.pixels(desk.item("step-1"), text), 0);
        QVERIFY(desk.pixels(desk.item("step-1"), undoneText) > 0);
        QCOMPARE(desk.currentStep(), QString("Opened Saved"));
    }

    void aClickOnAStepJumpsThere()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");
        desk.enter("speed", "5");
        desk.enter("length", "20");

        desk.click("step-1");
        const QString afterFirst = desk.field("speed") + ' ' + desk.field("length");
        desk.click("step-3");

        QCOMPARE(afterFirst, QString("4.0 18.0"));
        QCOMPARE(desk.field("speed") + ' ' + desk.field("length"), QString("5.0 20.0"));
        QCOMPARE(desk.steps().size(), 4);
    }

    void theKeysWalkThroughTheHistory()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");
        desk.enter("speed", "5");
        desk.click("step-2");

        desk.press(Qt::Key_Up);
        const QString up = desk.field("speed");
        desk.press(Qt::Key_Home);
        const QString home = desk.field("speed");
        desk.press(Qt::Key_Down);
        const QString down = desk.field("speed");
        desk.press(Qt::Key_End);

        QCOMPARE(up, QString("4.0"));
        QCOMPARE(home, QString("3.5"));
        QCOMPARE(down, QString("4.0"));
        QCOMPARE(desk.field("speed"), QString("5.0"));
    }

    void savingMarksTheStepThatIsInForce()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");
        const QString before = desk.text("modified");

        desk.click("save");
        const QString saved = desk.text("modified");
        desk.enter("speed", "5");

        QCOMPARE(before, QString("Modified"));
        QCOMPARE(saved, QString("Saved"));
        QCOMPARE(desk.text("modified"), QString("Modified"));
        QCOMPARE(desk.steps(), (QStringList{"Opened", "1 Heron: Speed Saved", "2 Heron: Speed"}));
    }

    void aJumpToTheSavedStepLeavesNothingToSave()
    {
        SceneDesk desk;
        desk.click("entry-enabled");

        desk.click("step-0");

        QCOMPARE(desk.text("modified"), QString("Saved"));
        QVERIFY(!desk.item("save").isEnabled());
    }

    void clearForgetsTheStepsButNotWhatTheyDid()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");

        desk.click("clearHistory");

        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
        QCOMPARE(desk.field("speed"), QString("4.0"));
        QVERIFY(!desk.item("undo").isEnabled());
    }

    void aTickIsAStep()
    {
        SceneDesk desk;
        desk.choose("East lamp");

        desk.click("entry-enabled");

        QVERIFY(desk.isTicked("enabled"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 East lamp: Enabled"}));
    }

    void aCoordinateOfThePositionIsAStep()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.enter("y", "-3.25");

        QCOMPARE(desk.field("y"), QString("-3.25"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Heron: Position y"}));
    }

    void aSwatchSetsTheColour()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.click("colour-#e08a5b");

        QCOMPARE(desk.field("colour"), QString("#e08a5b"));
        QVERIFY(desk.pixels(desk.item("node-Heron"), QColor("#e08a5b")) > 0);
    }

    void whatIsRefusedIsTakenBack_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");

        QTest::newRow("no colour") << "colour"
                                   << "green"
                                   << "#7fc8a9";
        QTest::newRow("no number") << "speed"
                                   << "fast"
                                   << "3.5";
        QTest::newRow("nothing") << "speed"
                                 << " "
                                 << "3.5";
    }
    void whatIsRefusedIsTakenBack()
    {
        QFETCH(QString, name);
        QFETCH(QString, typed);
        SceneDesk desk;
        desk.choose("Heron");

        desk.enter(name, typed);

        QTEST(desk.field(name), "kept");
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
    }

    void aNumberBeyondItsBoundsBecomesTheBound()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.enter("speed", "99");

        QCOMPARE(desk.field("speed"), QString("12.0"));
    }

    void theArrowsChangeANumberByOneAndWithShiftByTen()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.click("entry-length");

        desk.press(Qt::Key_Up);
        const QString up = desk.field("length");
        desk.press(Qt::Key_Down, Qt::ShiftModifier);

        QCOMPARE(up, QString("19.0"));
        QCOMPARE(desk.field("length"), QString("9.0"));
        QCOMPARE(desk.steps().size(), 3);
    }

    void escapeTakesTheTypingBack()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.click("entry-name");
        desk.type("Grey ");

        desk.press(Qt::Key_Escape);
        desk.press(Qt::Key_Return);

        QCOMPARE(desk.field("name"), QString("Heron"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved"}));
    }

    void theUndoKeyIsTheTypingsFirstAndThenTheDocuments()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");
        desk.click("entry-name");
        desk.press(Qt::Key_End);
        desk.type("s");

        desk.press(Qt::Key_Z, Qt::ControlModifier);
        const QString first = desk.field("name") + ' ' + desk.field("speed");
        desk.press(Qt::Key_Z, Qt::ControlModifier);
        const QString second = desk.field("name") + ' ' + desk.field("speed");
        desk.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);

        QCOMPARE(first, QString("Heron 4.0"));
        QCOMPARE(second, QString("Heron 3.5"));
        QCOMPARE(desk.field("speed"), QString("4.0"));
    }

    void theSaveKeyTakesWhatIsTypedAlong()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.click("entry-name");
        desk.press(Qt::Key_End);
        desk.type("s");

        desk.press(Qt::Key_S, Qt::ControlModifier);

        QCOMPARE(desk.objects().value(5), QString("Herons"));
        QCOMPARE(desk.steps(), (QStringList{"Opened", "1 Heron: Name Saved"}));
        QCOMPARE(desk.status(), QString("10 objects, 1 step, saved"));
    }

    void aButtonCallsAMethodOfTheObject()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.click("call-ringBell");
        desk.click("call-ringBell");

        QCOMPARE(desk.field("bells"), QString("2"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Heron: Ring bell", "2 Heron: Ring bell"}));
    }

    void anAddedChildIsShownAndCurrent()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.click("add-lamp");

        QCOMPARE(desk.objects().mid(5, 4), (QStringList{"Heron", "Bow lamp", "Stern lamp", "New lamp"}));
        QCOMPARE(desk.currentObject(), QString("New lamp"));
        QCOMPARE(desk.field("name"), QString("New lamp"));
    }

    void aRemovedObjectIsGoneAndUndoBringsItBack()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.click("remove");
        const QStringList without = desk.objects();
        desk.click("undo");

        QCOMPARE(without, (QStringList{"Copper Quay", "West gate", "West lamp", "East gate", "East lamp",
                                       "Kilnfolk", "Salt Raker"}));
        QCOMPARE(desk.objects().mid(5, 3), (QStringList{"Heron", "Bow lamp", "Stern lamp"}));
    }

    void theKeysWalkThroughTheSceneAndRemove()
    {
        SceneDesk desk;
        desk.choose("Heron");

        desk.press(Qt::Key_Down);
        const QString down = desk.currentObject();
        desk.press(Qt::Key_Delete);
        desk.press(Qt::Key_Up);

        QCOMPARE(down, QString("Bow lamp"));
        QCOMPARE(desk.objects().mid(5, 2), (QStringList{"Heron", "Stern lamp"}));
        QCOMPARE(desk.currentObject(), QString("East lamp"));
    }

    void theSceneItselfCannotBeRemoved()
    {
        SceneDesk desk;

        desk.choose("Copper Quay");

        QVERIFY(!desk.item("remove").isEnabled());
    }

    void theHistoryPanelShowsTheSameStepsAndTakesTheKeys()
    {
        SceneDesk desk;
        desk.choose("Heron");
        desk.enter("speed", "4");

        desk.click("tab-history");
        const QStringList steps = desk.steps();
        desk.press(Qt::Key_Z, Qt::ControlModifier);
        const QString undone = desk.status();
        desk.press(Qt::Key_Y, Qt::ControlModifier);
        desk.press(Qt::Key_S, Qt::ControlModifier);

        QCOMPARE(steps, (QStringList{"Opened Saved", "1 Heron: Speed"}));
        QCOMPARE(undone, QString("10 objects, 0 steps, 1 undone, saved"));
        QCOMPARE(desk.steps(), (QStringList{"Opened", "1 Heron: Speed Saved"}));
    }
};

int main(int argc, char** argv)
{
    tst_ServicesPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_services_panel.moc"
