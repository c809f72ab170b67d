#include "scene_desk.h"

#include <QtTest>

using namespace editor;

namespace {

/// A desk on the level with everything opened and something selected.
class FormDesk : public SceneDesk
{
public:
    explicit FormDesk(const QStringList& selected)
    {
        open("Quay");
        open("Lamps");
        open("Ferry");
        for (const QString& name : selected)
            select(name, name == selected.first() ? Qt::NoModifier : Qt::ControlModifier);
    }

    void enter(const QString& field, const QString& typed)
    {
        click("entry-" + field);
        press(Qt::Key_A, Qt::ControlModifier);
        type(typed);
        press(Qt::Key_Return);
    }
    QString field(const QString& name) const { return text("entry-" + name); }
    bool isTicked(const QString& name) const { return item("entry-" + name).property("isTicked").toBool(); }
    void drag(const QString& field, int by) { dragAt(item("entry-" + field), {20, 12}, {qreal(by), 0}); }
    QStringList edits() const { return steps().mid(1); }
};

} // namespace

class tst_SceneForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withNothingSelectedTheLevelIsShown()
    {
        const SceneDesk desk;

        QCOMPARE(desk.text("title"), QString("Quay"));
        QCOMPARE(desk.text("subjectType"), QString("Level"));
        QCOMPARE(desk.text("entry-width"), QString("100"));
    }

    void oneObjectIsShownWithItsValues()
    {
        const FormDesk desk({"Crate"});

        QCOMPARE(desk.text("title"), QString("Crate"));
        QCOMPARE(desk.field("_objectName"), QString("Crate"));
        QVERIFY(desk.isTicked("_isEnabled"));
        QCOMPARE(desk.field("position.y"), QString("20.00"));
        QCOMPARE(desk.field("scale"), QString("1.50"));
        QCOMPARE(desk.field("mass"), QString("405"));
        QCOMPARE(desk.reads(desk.item("entry-mobility")), QString("Movable"));
        QCOMPARE(desk.field("model"), QString("models/crate.mesh"));
        QCOMPARE(desk.field("tags.0"), QString("prop"));
        QCOMPARE(desk.field("components.1.density"), QString("0.60"));
    }

    void aPointOfAPathIsShownUnderItsLabel()
    {
        const FormDesk desk({"Point 2"});

        QCOMPARE(desk.text("title"), QString("Point 2"));
        QCOMPARE(desk.field("wait"), QString("5.0"));
    }

    void anEditOfSeveralObjectsIsOneStepThatUndoTakesBack()
    {
        FormDesk desk({"North lamp", "South lamp", "East lamp"});
        const QString title = desk.text("title");
        const QString before = desk.field("range");

        desk.enter("range", "33");
        const QString after = desk.field("range");
        const QStringList edits = desk.edits();
        desk.click("undo");

        QCOMPARE(title, QString("3 objects"));
        QCOMPARE(before, QString("\u2014"));
        QCOMPARE(after, QString("33.0"));
        QCOMPARE(edits, QStringList{"1 3 objects: Range"});
        QCOMPARE(desk.field("range"), QString("\u2014"));
        QCOMPARE(desk.objectAs<Light>("East lamp").range, 8.0);
    }

    void aMixedSwitchHasADashAndIsTickedForAll()
    {
        FormDesk desk({"North lamp", "South lamp"});
        const bool dashed = desk.item("entry-castsShadows").property("isFilled").toBool() && !desk.isTicked("castsShadows");

        desk.click("entry-castsShadows");

        QVERIFY(dashed);
        QVERIFY(desk.isTicked("castsShadows"));
        QVERIFY(desk.objectAs<Light>("South lamp").castsShadows);
    }

    void leavingAMixedFieldAloneChangesNothing()
    {
        FormDesk desk({"North lamp", "East lamp"});

        desk.click("entry-_objectName");
        desk.press(Qt::Key_Tab);
        desk.click("entry-range");
        desk.press(Qt::Key_Return);

        QCOMPARE(desk.edits(), QStringList());
        QCOMPARE(desk.field("_objectName"), QString("\u2014"));
    }

    void objectsOfAnotherTypeAreCounted()
    {
        const FormDesk desk({"North lamp", "East lamp", "Start"});

        QCOMPARE(desk.text("title"), QString("2 objects"));
        QVERIFY(desk.item("others").isVisible());
        QCOMPARE(desk.text("others"), QString("One selected object is of another type"));
    }

    void aDragIsOneStep()
    {
        FormDesk desk({"Crate"});

        desk.drag("heading", 60);
        const double dragged = desk.objectAs<Actor>("Crate").heading;
        const QStringList edits = desk.edits();
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(dragged, 72.0);
        QCOMPARE(edits, QStringList{"1 Crate: Heading"});
        QCOMPARE(desk.field("heading"), QString("0"));
    }

    void numbersKeepToTheirBounds()
    {
        FormDesk desk({"Start"});

        desk.enter("crew", "9");
        const QString most = desk.field("crew");
        desk.enter("crew", "-3");

        QCOMPARE(most, QString("4"));
        QCOMPARE(desk.field("crew"), QString("1"));
    }

    void whatIsNoNumberOrNoColourIsTakenBack()
    {
        FormDesk desk({"East lamp"});

        desk.enter("range", "far");
        desk.enter("colour", "blue");

        QCOMPARE(desk.field("range"), QString("8.0"));
        QCOMPARE(desk.field("colour"), QString("#a8c8ff"));
        QCOMPARE(desk.edits(), QStringList());
    }

    void aVectorsNumbersAreEditedOneByOne()
    {
        FormDesk desk({"Crate", "Barrel"});

        desk.enter("position.y", "42.5");

        QCOMPARE(desk.field("position.x"), QString("\u2014"));
        QCOMPARE(desk.objectAs<Actor>("Crate").position.y, 42.5);
        QCOMPARE(desk.objectAs<Actor>("Barrel").position.y, 42.5);
        QCOMPARE(desk.objectAs<Actor>("Barrel").position.x, 30.0);
    }

    void aChoiceIsMadeFromAList()
    {
        FormDesk desk({"Crate"});

        desk.click("entry-mobility");
        desk.click("choice-Driven");

        QVERIFY(desk.objectAs<Actor>("Crate").mobility == Actor::Mobility::Driven);
        QCOMPARE(desk.edits(), QStringList{"1 Crate: Mobility"});
    }

    void aSwatchSetsTheColour()
    {
        FormDesk desk({"North lamp", "East lamp"});

        desk.click("colour-#7fc8a9");

        QCOMPARE(desk.field("colour"), QString("#7fc8a9"));
        QCOMPARE(desk.objectAs<Light>("East lamp").colour, std::string("#7fc8a9"));
    }

    void aFileIsChosenFromThoseOfTheProject()
    {
        FormDesk desk({"Crane"});
        const bool hasProblem = desk.item("problemNote").isVisible();

        desk.click("browse-model");
        desk.click("choice-models/crate.mesh");

        QVERIFY(hasProblem);
        QCOMPARE(desk.field("model"), QString("models/crate.mesh"));
        QVERIFY(!desk.item("problemNote").isVisible());
    }

    void severalLinesAreHandedOverWhenTheFieldIsLeft()
    {
        FormDesk desk({"Crate"});

        desk.click("entry-notes");
        desk.type("one");
        desk.press(Qt::Key_Return);
        desk.type("two");
        desk.press(Qt::Key_Return, Qt::ControlModifier);

        QCOMPARE(QString::fromStdString(desk.objectAs<Actor>("Crate").notes), QString("one\ntwo"));
        QCOMPARE(desk.edits(), QStringList{"1 Crate: Notes"});
    }

    void elementsAreAddedAndRemoved()
    {
        FormDesk desk({"Crate"});

        desk.click("add-tags");
        desk.enter("tags.1", "heavy");
        desk.click("remove-tags.0");
        desk.settle();

        QCOMPARE(*desk.objectAs<Actor>("Crate").tags, std::vector<std::string>{"heavy"});
        QCOMPARE(desk.edits(), (QStringList{"1 Crate: Add to Tags", "2 Crate: Tags 2", "3 Crate: Remove Tags 1"}));
        QCOMPARE(desk.field("tags.0"), QString("heavy"));
    }

    void aComponentIsChosenWhenItIsAdded()
    {
        FormDesk desk({"Barrel"});

        desk.click("add-components");
        desk.click("choice-Sound");
        desk.settle();

        QCOMPARE(desk.field("components.1.volume"), QString("80"));
    }

    void aHeadingOpensAndClosesWhatIsBelowIt()
    {
        FormDesk desk({"Crate"});

        desk.click("heading-components.0");
        const bool closed = !desk.has("line-components.0.shape");
        desk.click("heading-components.0");

        QVERIFY(closed);
        QVERIFY(desk.has("line-components.0.shape"));
    }

    void aMethodIsAButton()
    {
        FormDesk desk({"North lamp", "South lamp"});

        desk.click("call-dim");

        QCOMPARE(desk.field("intensity"), QString("20.0"));
        QCOMPARE(desk.edits(), QStringList{"1 2 objects: Dim"});
    }

    void aLockedObjectCanOnlyBeUnlocked()
    {
        FormDesk desk({"Crate"});

        desk.click("entry-locked");
        const bool isLocked = desk.item("locked").isVisible() && desk.item("entry-scale").property("readOnly").toBool();
        desk.click("entry-locked");

        QVERIFY(isLocked);
        QVERIFY(!desk.item("entry-scale").property("readOnly").toBool());
    }

    void whatARowButtonDoesShowsInTheForm()
    {
        FormDesk desk({"Crate"});

        desk.pressButton("Crate", "eye");

        QVERIFY(!desk.isTicked("visible"));
    }

    void anotherNameShowsInTheRowAndTheTitle()
    {
        FormDesk desk({"Crate"});

        desk.enter("_objectName", "Box");

        QVERIFY(desk.has("row-Box"));
        QCOMPARE(desk.text("title"), QString("Box"));
        QCOMPARE(desk.selected(), QStringList{"Box"});
    }

    void deletingTheSelectionShowsTheLevelAgain()
    {
        FormDesk desk({"Crate"});

        desk.press(Qt::Key_Delete);

        QCOMPARE(desk.text("subjectType"), QString("Level"));
    }

    void undoOfTheTypingComesBeforeThatOfTheLevel()
    {
        FormDesk desk({"Crate"});
        desk.enter("scale", "3");
        desk.click("entry-_objectName");
        desk.type("x");

        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(desk.field("_objectName"), QString("Crate"));
        QCOMPARE(desk.objectAs<Actor>("Crate").scale(), 3.0);
    }
};

int main(int argc, char** argv)
{
    tst_SceneForm test;
    return runAtDesk(test, argc, argv);
}
#include "tst_scene_form.moc"
