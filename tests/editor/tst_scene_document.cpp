#include <panels/services/scene_document.h>

#include <host/bridge/qt_script_object.h>
#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using editor::SceneDocument;
using editor::SceneListModel;

namespace {

/// The objects as they stand in the list, indented by their depth.
QStringList lines(SceneDocument& document)
{
    QStringList lines;
    for (int row = 0; row < document.nodes()->rowCount(); ++row) {
        const QModelIndex index = document.nodes()->index(row);
        lines << QString(2 * index.data(SceneListModel::LevelRole).toInt(), ' ') + index.data().toString();
    }
    return lines;
}

void go(SceneDocument& document, const QString& name)
{
    document.setCurrentRow(lines(document).replaceInStrings(" ", "").indexOf(QString(name).remove(' ')));
}

QString current(const SceneDocument& document)
{
    return document.subject()->property("name").toString();
}

QStringList steps(SceneDocument& document)
{
    QStringList names;
    for (int row = 1; row < document.steps()->rowCount(); ++row)
        names << document.steps()->index(row).data().toString();
    return names;
}

const QStringList asOpened{"Copper Quay", "  West gate",  "    West lamp",  "  East gate", "    East lamp",
                           "  Heron",     "    Bow lamp", "    Stern lamp", "  Kilnfolk",  "  Salt Raker"};

} // namespace

class tst_SceneDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheSampleScene()
    {
        SceneDocument document;

        QCOMPARE(lines(document), asOpened);
        QCOMPARE(current(document), QString("Copper Quay"));
        QCOMPARE(document.status(), QString("10 objects, 0 steps, saved"));
    }

    void aWrittenValueIsOneStepNamedAfterTheObjectAndTheLabel()
    {
        SceneDocument document;
        go(document, "Heron");

        QVERIFY(document.write(document.subject(), "speed", 7.5));

        QCOMPARE(document.subject()->property("speed"), QVariant(7.5));
        QCOMPARE(steps(document), (QStringList{"Heron: Speed"}));
        QCOMPARE(document.status(), QString("10 objects, 1 step, modified"));
    }

    void aValueOfAnInnerObjectIsWrittenToo()
    {
        SceneDocument document;
        go(document, "Heron");
        auto* position = document.subject()->property("position").value<QObject*>();

        QVERIFY(document.write(position, "y", -3));

        QCOMPARE(position->property("y"), QVariant(-3.0));
        QCOMPARE(steps(document), (QStringList{"Heron: Position y"}));
    }

    void whatIsRefusedMakesNoStep_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("no colour") << "colour" << QVariant("green");
        QTest::newRow("no number") << "speed" << QVariant("fast");
        QTest::newRow("no such property") << "wings" << QVariant(2);
        QTest::newRow("a method") << "stop" << QVariant(1);
    }
    void whatIsRefusedMakesNoStep()
    {
        QFETCH(QString, property);
        QFETCH(QVariant, value);
        const LogCapture log;
        SceneDocument document;
        go(document, "Heron");

        QVERIFY(!document.write(document.subject(), property, value));

        QCOMPARE(steps(document), QStringList());
        QVERIFY(document.history()->isClean());
    }

    void whatIsNoObjectOfTheSceneIsRefused()
    {
        SceneDocument document;

        QVERIFY(!document.write(nullptr, "name", "Weir"));
        QVERIFY(!document.write(&document, "name", "Weir"));
    }

    void theSameValueMakesNoStep()
    {
        SceneDocument document;
        go(document, "Heron");

        document.write(document.subject(), "speed", 3.5);

        QCOMPARE(steps(document), QStringList());
    }

    void aMethodIsOneStepWithAllThatItChanges()
    {
        SceneDocument document;
        go(document, "Heron");

        document.call("ringBell");

        QCOMPARE(document.subject()->property("bells"), QVariant(1));
        QCOMPARE(steps(document), (QStringList{"Heron: Ring bell"}));
    }

    void aMethodThatThereIsNotIsIgnored()
    {
        SceneDocument document;
        go(document, "Heron");

        document.call("sink");
        document.call("speed");

        QCOMPARE(steps(document), QStringList());
    }

    void anAddedObjectIsTheLastChildAndCurrent()
    {
        SceneDocument document;
        go(document, "Heron");
        SignalLog log(*document.nodes());

        QVERIFY(document.add("lamp"));

        QCOMPARE(log.take(), (QStringList{"inserting / [8..8]", "inserted / [8..8]"}));
        QCOMPARE(lines(document).mid(5, 4),
                 (QStringList{"  Heron", "    Bow lamp", "    Stern lamp", "    New lamp"}));
        QCOMPARE(current(document), QString("New lamp"));
        QCOMPARE(steps(document), (QStringList{"Heron: Add lamp"}));
    }

    void onlyWhatThereIsAClassForCanBeAdded()
    {
        SceneDocument document;

        QVERIFY(!document.add("lighthouse"));

        QCOMPARE(lines(document), asOpened);
        QCOMPARE(steps(document), QStringList());
    }

    void aRemovedObjectTakesItsChildrenAlong()
    {
        SceneDocument document;
        go(document, "Heron");
        SignalLog log(*document.nodes());

        document.removeCurrent();

        QCOMPARE(log.take(), (QStringList{"removing / [5..7]", "removed / [5..7]"}));
        QCOMPARE(steps(document), (QStringList{"Heron: Remove"}));
        QCOMPARE(document.status(), QString("7 objects, 1 step, modified"));
    }

    void theObjectAboveARemovedOneBecomesCurrent()
    {
        SceneDocument document;
        go(document, "Heron");

        document.removeCurrent();

        QCOMPARE(current(document), QString("East lamp"));
    }

    void theCurrentObjectGoesWithTheParentThatIsUndone()
    {
        SceneDocument document;
        document.add("barge");
        document.add("lamp");
        document.history()->undo();

        document.history()->undo();

        QCOMPARE(current(document), QString("Salt Raker"));
        QCOMPARE(document.currentRow(), 9);
    }

    void undoBringsAllOfThemBackInTheirPlaces()
    {
        SceneDocument document;
        const QAbstractItemModelTester tester(document.nodes(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest);
        go(document, "Heron");
        document.removeCurrent();
        go(document, "West gate");
        document.removeCurrent();

        document.history()->jumpTo(0);
        const QStringList undone = lines(document);
        document.history()->jumpTo(2);

        QCOMPARE(undone, asOpened);
        QCOMPARE(lines(document),
                 (QStringList{"Copper Quay", "  East gate", "    East lamp", "  Kilnfolk", "  Salt Raker"}));
    }

    void anObjectThatCameBackIsStillEditedAndFollowed()
    {
        SceneDocument document;
        go(document, "Heron");
        document.removeCurrent();
        document.history()->undo();
        go(document, "Heron");

        document.write(document.subject(), "name", "Grey Heron");

        QCOMPARE(lines(document)[5], QString("  Grey Heron"));
    }

    void theSceneItselfStays()
    {
        SceneDocument document;
        go(document, "Copper Quay");

        document.removeCurrent();

        QVERIFY(!document.canRemove());
        QCOMPARE(lines(document), asOpened);
        QCOMPARE(steps(document), QStringList());
    }

    void theCurrentObjectKeepsItsPlaceWhenRowsComeAndGoAboveIt()
    {
        SceneDocument document;
        go(document, "Heron");
        document.removeCurrent();
        go(document, "Salt Raker");
        SignalLog log;
        log.add(document, &SceneDocument::currentRowChanged).add(document, &SceneDocument::subjectChanged);

        document.history()->undo();

        QCOMPARE(log.take(), (QStringList{"currentRowChanged()"}));
        QCOMPARE(current(document), QString("Salt Raker"));
        QCOMPARE(document.currentRow(), 9);
    }

    void aRowOutOfRangeIsNotTaken()
    {
        SceneDocument document;
        go(document, "Heron");

        document.setCurrentRow(10);
        document.setCurrentRow(-1);

        QCOMPARE(current(document), QString("Heron"));
    }

    void rowsTellWhatIsDrawn()
    {
        SceneDocument document;
        const QModelIndex lamp = document.nodes()->index(4);

        QCOMPARE(lamp.data(SceneListModel::IconRole), QVariant("lamp"));
        QCOMPARE(lamp.data(SceneListModel::ColourRole), QVariant("#ffd166"));
        QCOMPARE(lamp.data(SceneListModel::LevelRole), QVariant(2));
        QCOMPARE(lamp.data(SceneListModel::IsEnabledRole), QVariant(false));
    }

    void rowsFollowTheirObjects()
    {
        SceneDocument document;
        go(document, "East lamp");
        SignalLog log(*document.nodes());

        document.write(document.subject(), "enabled", true);
        document.write(document.subject(), "colour", "#ffffff");
        document.write(document.subject(), "brightness", 10);

        QCOMPARE(log.take(), (QStringList{"changed /4 roles 260", "changed /4 roles 258"}));
    }

    void savingMarksThePresentState()
    {
        SceneDocument document;
        document.add("barge");

        document.save();
        const QString saved = document.status();
        document.history()->undo();

        QCOMPARE(saved, QString("11 objects, 1 step, saved"));
        QCOMPARE(document.status(), QString("10 objects, 0 steps, 1 undone, modified"));
    }

    void documentsHaveHistoriesOfTheirOwn()
    {
        SceneDocument one;
        SceneDocument other;

        one.add("barge");

        QCOMPARE(steps(one), (QStringList{"Copper Quay: Add barge"}));
        QCOMPARE(steps(other), QStringList());
        QCOMPARE(lines(other), asOpened);
    }

    void panelsShareADocumentWhileOneOfThemLives()
    {
        auto one = SceneDocument::shared();
        auto other = SceneDocument::shared();
        QCOMPARE(one, other);
        one->add("barge");

        one.reset();
        const int stepsWhileShared = SceneDocument::shared()->history()->count();
        other.reset();

        QCOMPARE(stepsWhileShared, 1);
        QCOMPARE(SceneDocument::shared()->history()->count(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_SceneDocument)
#include "tst_scene_document.moc"
