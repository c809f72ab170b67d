#include "titled_composite.h"

#include <support/index_keeper.h>
#include <support/log_capture.h>
#include <support/paths.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QtTest>

namespace {

/// Makes rows of a composite known by asking for their indexes.
void know(const CompositeModel& composite, const QStringList& paths)
{
    for (const QString& path : paths)
        QVERIFY(indexAt(composite, path).isValid());
}

} // namespace

/// What the composite tells when a mounted model changes. 258 is the model's own number of the size.
class tst_CompositeUpdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void insertedRowsAreToldBelowTheMount()
    {
        TitledComposite composite;
        const auto model = composite.mount("a/m", {"oak"});
        SignalLog log(composite);

        model->insert({}, 0, {"elm", "ash"});

        QCOMPARE(log.take(), (QStringList{"inserting /0/0 [0..1]", "inserted /0/0 [0..1]"}));
        QCOMPARE(treeLines(composite), (QStringList{"a", "  m", "    elm", "    ash", "    oak"}));
    }

    void insertedRowsAreToldBelowAKnownRow()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak"});
        know(composite, {"/0/0"});
        SignalLog log(composite);

        model->insert(model->find("oak"), 0, {"acorn"});

        QCOMPARE(log.take(), (QStringList{"inserting /0/0 [0..0]", "inserted /0/0 [0..0]"}));
    }

    void whatHappensBelowARowThatNobodyAskedForIsNotTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        know(composite, {"/0/1"});
        SignalLog log(composite);

        model->insert(model->find("oak"), 0, {"leaf"});
        model->change(model->find("acorn"), "seed");
        model->remove(model->find("oak"), 0);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "    seed", "  elm"}));
    }

    void knownRowsMoveWhenRowsAreInsertedAhead()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        const IndexKeeper indexes(composite);

        model->insert({}, 0, {"ash"});

        QCOMPARE(indexes.strayed(), QStringList());
        QCOMPARE(indexes.lost(), QStringList());
        QCOMPARE(treeLines(composite), (QStringList{"m", "  ash", "  oak", "    acorn", "  elm"}));
    }

    void removedRowsAreTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash"});
        SignalLog log(composite);

        model->remove({}, 0, 2);

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..1]", "removed /0 [0..1]"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  ash"}));
    }

    // Intended: of the rows that go one stays known, and stands where the next one should.
    void ofTheKnownRowsThatGoTheLastStaysWithoutAValue()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash", "fir"});
        know(composite, {"/0/0", "/0/1", "/0/2", "/0/3"});

        model->remove({}, 1);
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  (invalid)", "  ash"}));

        model->remove({}, 0, 2);
        QCOMPARE(treeLines(composite), (QStringList{"m", "  (invalid)"}));
    }

    void aRowThatStayedThoughItIsGoneHasNoRowsAndKeepsValuesForItself()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        know(composite, {"/0/0/0", "/0/1"});
        model->remove({}, 0);
        const QModelIndex gone = composite.index(0, 0, composite.index(0, 0));
        SignalLog log(composite);

        QCOMPARE(composite.rowCount(gone), 0);
        QVERIFY(!composite.index(0, 0, gone).isValid());
        QVERIFY(composite.setData(gone, "gone", Qt::DisplayRole));

        QCOMPARE(log.take(), QStringList{"changed /0/0"});
        QCOMPARE(gone.data(), QVariant("gone"));
    }

    void changesAreToldForTheRowThatShowsThem()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash"});
        know(composite, {"/0/0", "/0/1", "/0/2"});
        model->remove({}, 0);
        SignalLog log(composite);

        model->change(model->find("elm"), 7, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), QStringList{"changed /0/1 roles 258"});
    }

    void ofTwoRowsForOneTheFirstIsTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash"});
        know(composite, {"/0/1", "/0/2"});
        model->remove({}, 0);
        know(composite, {"/0/0"});
        QCOMPARE(treeLines(composite), (QStringList{"m", "  elm", "  elm"}));
        SignalLog log(composite);

        model->change(model->find("elm"), 7, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 258"});
    }

    void rowsThatNobodyAskedForLeaveNothingBehind()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash"});
        know(composite, {"/0/0"});

        model->remove({}, 1);

        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  ash"}));
    }

    void aMoveBetweenKnownRowsIsAMove()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm", "  cone"});
        know(composite, {"/0/0", "/0/1"});
        SignalLog log(composite);

        model->move(model->find("oak"), 0, 1, model->find("elm"), 1);

        QCOMPARE(log.take(), (QStringList{"moving /0/0 [0..0] to /0/1 [1]", "moved /0/0 [0..0] to /0/1 [1]"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  elm", "    cone", "    acorn"}));
    }

    void aMoveOutOfTheUnknownIsAnInsertion()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        know(composite, {"/0/1"});
        SignalLog log(composite);

        model->move(model->find("oak"), 0, 1, model->find("elm"), 0);

        QCOMPARE(log.take(), (QStringList{"inserting /0/1 [0..0]", "inserted /0/1 [0..0]"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  elm", "    acorn"}));
    }

    void aMoveIntoTheUnknownIsARemoval()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm", "  cone"});
        know(composite, {"/0/0"});
        SignalLog log(composite);

        model->move(model->find("oak"), 0, 1, model->find("elm"), 0);

        QCOMPARE(log.take(), (QStringList{"removing /0/0 [0..0]", "removed /0/0 [0..0]"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  elm", "    acorn", "    cone"}));
    }

    void aMoveInTheUnknownIsNotTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"wood", "  oak", "    acorn", "  elm"});
        know(composite, {"/0/0"});
        SignalLog log(composite);

        model->move(model->find("oak"), 0, 1, model->find("elm"), 0);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(composite), (QStringList{"m", "  wood", "    oak", "    elm", "      acorn"}));
    }

    // Intended: of the one row that moves the slot stays, and an empty one opens at its destination.
    void aMoveOfOneRowWithinItsParentIsToldButNotShown()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm", "ash"});
        know(composite, {"/0/0", "/0/1", "/0/2"});
        SignalLog log(composite);

        model->move({}, 0, 1, {}, 3);

        QCOMPARE(log.take(), (QStringList{"moving /0 [0..0] to /0 [3]", "moved /0 [0..0] to /0 [3]"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  elm", "  ash"}));
    }

    void persistentIndexesBelowMovedRowsBecomeInvalid()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "ash", "elm"});
        const QPersistentModelIndex acorn = indexAt(composite, "/0/0/0");
        know(composite, {"/0/1", "/0/2"});

        model->move({}, 0, 2, {}, 3);

        QVERIFY(!acorn.isValid());
    }

    void aLayoutChangeOfAParentForgetsWhatIsBelow()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        const IndexKeeper indexes(composite);
        SignalLog log(composite);

        model->rearrange({}, {1, 0});

        QCOMPARE(log.take(), (QStringList{"layout changing /0 sorted rows", "layout changed /0 sorted rows"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  elm", "  oak", "    acorn"}));
        QCOMPARE(indexes.lost(), (QStringList{"oak", "acorn", "elm"}));
        QCOMPARE(indexes.strayed(), QStringList());
    }

    void ofALayoutChangeOnlyKnownParentsAreTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  a", "  b", "elm"});
        SignalLog log(composite);

        model->rearrange(model->find("oak"), {1, 0});

        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "    b", "    a", "  elm"}));
    }

    // Intended: known rows stay where they were.
    void aLayoutChangeWithoutParentsIsPassedOnAndMovesNothing()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm"});
        know(composite, {"/0/0"});
        SignalLog log(composite);

        model->rearrange({}, {1, 0}, ScriptedTree::TellNoParents);
        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));

        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak", "  oak"}));
        model->change(model->find("oak"), 7, ScriptedTree::SizeRole);
        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 258"});
    }

    void aResetIsARemovalOfAllRowsAndAnInsertion()
    {
        TitledComposite composite;
        const auto model = composite.mount("a/m", {"oak", "elm"});
        SignalLog log(composite);

        model->reset({"ash", "fir", "box"});

        QCOMPARE(log.take(), (QStringList{"removing /0/0 [0..1]", "removed /0/0 [0..1]",
                                          "inserting /0/0 [0..2]", "inserted /0/0 [0..2]"}));
        QCOMPARE(treeLines(composite), (QStringList{"a", "  m", "    ash", "    fir", "    box"}));
    }

    void theRowCountIsTheNewOneWhenTheRemovalOfAResetCloses()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm"});
        QList<int> counts;
        connect(&composite, &QAbstractItemModel::rowsRemoved, this,
                [&](const QModelIndex& parent) { counts << composite.rowCount(parent); });

        model->reset({"ash", "fir", "box"});

        QCOMPARE(counts, QList<int>{3});
    }

    void aResetLeavesTheRowsOfOtherMounts()
    {
        TitledComposite composite;
        const auto first = composite.mount("m1", {"oak"});
        const auto second = composite.mount("m2", {"elm", "  cone"});
        const IndexKeeper indexes(composite);

        first->reset({"ash"});

        QCOMPARE(indexes.strayed(), QStringList());
        QCOMPARE(indexes.lost(), QStringList{"oak"});
    }

    void aResetFromAndToNothingIsNotTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {});
        SignalLog log(composite);

        model->reset({});

        QCOMPARE(log.take(), QStringList());
    }

    void aResetToNothingIsARemovalAndOneFromNothingAnInsertion()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak"});
        SignalLog log(composite);

        model->reset({});
        QCOMPARE(log.take(), (QStringList{"removing /0 [0..0]", "removed /0 [0..0]"}));

        model->reset({"elm"});
        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..0]", "inserted /0 [0..0]"}));
    }

    void aChangeIsToldInRunsOfKnownRows()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"});
        know(composite, {"/0/2", "/0/3", "/0/8"});
        SignalLog log(composite);

        model->change(model->index(2, 0), model->index(9, 0), ScriptedTree::SizeRole, {7});

        QCOMPARE(log.take(), (QStringList{"changed /0/2 .. /0/3 roles 258", "changed /0/8 roles 258"}));
    }

    void aChangeBelowAKnownRowIsTold()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn"});
        know(composite, {"/0/0/0"});
        SignalLog log(composite);

        model->change(model->find("acorn"), "seed");

        QCOMPARE(log.take(), QStringList{"changed /0/0/0 roles 0"});
    }

    void aChangeInAnotherColumnIsReportedAndToldAllTheSame()
    {
        TitledComposite composite;
        const auto model = std::make_shared<ScriptedTree>(QStringList{"oak"}, 2);
        composite.addSubmodel("m", model);
        know(composite, {"/0/0"});
        SignalLog log(composite);
        LogCapture messages;

        model->change(model->index(0, 1), 7, ScriptedTree::SizeRole);

        QCOMPARE(messages.assertions(), (QStringList{"topLeft.isValid() && topLeft.column() == 0",
                                                     "bottomRight.isValid() && bottomRight.column() == 0"}));
        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 258"});
    }

    void aChangeOfNoIndexIsOneOfTheMount()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak"});
        SignalLog log(composite);
        const LogCapture messages;

        Q_EMIT model->dataChanged({}, {}, {});

        QCOMPARE(log.take(), QStringList{"changed /0"});
    }

    void aChangeBetweenTwoParentsIsReported()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn"});
        know(composite, {"/0/0/0"});
        SignalLog log(composite);
        LogCapture messages;

        Q_EMIT model->dataChanged(model->find("oak"), model->find("acorn"), {});

        QCOMPARE(messages.assertions(), QStringList{"topLeft.parent() == bottomRight.parent()"});
        QCOMPARE(log.take(), QStringList{"changed /0/0"});
    }

    void anInsertionOfNoRowsIsReported()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak"});
        LogCapture messages;

        Q_EMIT model->rowsAboutToBeInserted({}, 1, 0, {});
        Q_EMIT model->rowsInserted({}, 1, 0, {});

        QCOMPARE(messages.assertions(), QStringList{"first <= last"});
        QCOMPARE(treeLines(composite), (QStringList{"m", "  oak"}));
    }

    void aModelThatIsMountedTwiceIsToldTwiceOneInTheOther()
    {
        TitledComposite composite;
        const auto model = composite.mount("m1", {"oak"});
        composite.addSubmodel("m2", model);
        SignalLog log(composite);

        model->insert({}, 0, {"elm"});

        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..0]", "inserting /1 [0..0]", "inserted /1 [0..0]",
                                          "inserted /0 [0..0]"}));
    }

    void theTwoMountsOfAModelMayTellAMoveDifferently()
    {
        TitledComposite composite;
        const auto model = composite.mount("m1", {"oak", "  acorn", "elm"});
        composite.addSubmodel("m2", model);
        know(composite, {"/0/0", "/0/1", "/1/1"});
        SignalLog log(composite);

        model->move(model->find("oak"), 0, 1, model->find("elm"), 0);

        QCOMPARE(log.take(), (QStringList{"moving /0/0 [0..0] to /0/1 [0]", "inserting /1/1 [0..0]",
                                          "inserted /1/1 [0..0]", "moved /0/0 [0..0] to /0/1 [0]"}));
    }

    void aListenerThatAsksForRowsInTheMiddleOfAChangeDoesNoHarm()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn"});
        connect(model.get(), &QAbstractItemModel::rowsAboutToBeInserted, this, [&] { treeLines(composite); });

        model->insert(model->find("oak"), 0, {"leaf"});
        model->change(model->find("acorn"), "seed");

        QCOMPARE(treeLines(*model), (QStringList{"oak", "  leaf", "  seed"}));
        QCOMPARE(composite.rowCount(indexAt(composite, "/0/0")), 2);
    }

    void indexesOfRowsThatHaveGoneMayBeAskedFor()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn", "elm"});
        const QModelIndex oak = indexAt(composite, "/0/0");
        const QModelIndex acorn = indexAt(composite, "/0/0/0");

        model->reset({});

        QCOMPARE(composite.data(oak), QVariant());
        QCOMPARE(composite.data(acorn), QVariant());
        QCOMPARE(composite.rowCount(oak), 0);
        QVERIFY(!composite.parent(acorn).isValid());
    }

    void aSortFilterProxyOnTopFollowsInsertionsChangesAndResets()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "elm"});
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&composite);
        proxy.sort(0);
        QCOMPARE(treeLines(proxy), (QStringList{"m", "  elm", "  oak"}));

        model->insert({}, 0, {"ash", "  key"});
        QCOMPARE(treeLines(proxy), (QStringList{"m", "  ash", "    key", "  elm", "  oak"}));
        model->rearrange({}, {2, 1, 0});
        QCOMPARE(treeLines(proxy), (QStringList{"m", "  ash", "    key", "  elm", "  oak"}));
        model->reset({"fir", "box"});
        QCOMPARE(treeLines(proxy), (QStringList{"m", "  box", "  fir"}));
    }

    // Left out are removals of known rows, resets to some rows, and values set on the root: these break the contract on
    // purpose.
    void followsQtsContract()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak", "  acorn"});
        const QAbstractItemModelTester tester(&composite, QAbstractItemModelTester::FailureReportingMode::QtTest);

        model->insert({}, 0, {"elm", "  cone"});
        model->change(model->find("acorn"), "seed");
        model->rearrange({}, {1, 0});
        model->reset({});

        QCOMPARE(treeLines(composite), QStringList{"m"});
    }
};

QTEST_GUILESS_MAIN(tst_CompositeUpdates)
#include "tst_composite_updates.moc"
