#include <panels/history/live_history_model.h>

#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using editor::LiveHistoryModel;

namespace {

/// Takes no effect and is its own opposite.
class Nothing : public Ozy::utils::Command
{
public:
    Nothing() : Command("Nothing") {}
    bool execute() override { return Ozy::CommitChangesScope::makeUndo<Nothing>(); }
};

/// A document's history and the model that follows it, under Qt's tester.
struct Followed
{
    void step(const char* name)
    {
        const Ozy::CommitChangesScope scope(name, &history);
        Ozy::CommitChangesScope::makeCommand<Nothing>();
    }
    void steps(const QStringList& names)
    {
        for (const QString& name : names)
            step(qPrintable(name));
    }

    /// The names of the rows, with what else is known of them behind.
    QStringList rows() const
    {
        QStringList lines;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row);
            lines << index.data().toString() +
                         (index.data(LiveHistoryModel::IsCurrentRole).toBool() ? " current" : "") +
                         (index.data(LiveHistoryModel::IsUndoneRole).toBool() ? " undone" : "") +
                         (index.data(LiveHistoryModel::IsSavedRole).toBool() ? " saved" : "");
        }
        return lines;
    }

    Ozy::ChangesController history;
    LiveHistoryModel model{history};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

class tst_LiveHistoryModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyHistoryHasTheRowOfTheOpenedState()
    {
        const Followed followed;

        QCOMPARE(followed.rows(), (QStringList{"Opened current saved"}));
    }

    void aHistoryThatHasStepsAlreadyIsShownAsItStands()
    {
        Followed followed;
        followed.steps({"Move", "Turn"});
        followed.history.undo();

        const LiveHistoryModel later(followed.history);

        QCOMPARE(later.rowCount(), 3);
        QCOMPARE(later.index(1).data().toString(), QString("Move"));
        QCOMPARE(later.index(1).data(LiveHistoryModel::IsCurrentRole), QVariant(true));
        QCOMPARE(later.index(2).data(LiveHistoryModel::IsUndoneRole), QVariant(true));
    }

    void aStepIsARowAtTheEnd()
    {
        Followed followed;
        followed.step("Move");
        SignalLog log(followed.model);

        followed.step("Turn");

        QCOMPARE(log.take(),
                 (QStringList{"inserting / [2..2]", "inserted / [2..2]", "changed /1 .. /2 roles 257,258"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened saved", "Move", "Turn current"}));
    }

    void undoKeepsTheRowAndMarksIt()
    {
        Followed followed;
        followed.steps({"Move", "Turn"});
        SignalLog log(followed.model);

        followed.history.undo();

        QCOMPARE(log.take(), (QStringList{"changed /1 .. /2 roles 257,258"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened saved", "Move current", "Turn undone"}));
    }

    void aJumpMarksAllThatLiesBetween()
    {
        Followed followed;
        followed.steps({"Move", "Turn", "Paint"});

        followed.history.jumpTo(0);
        const QStringList back = followed.rows();
        followed.history.jumpTo(2);

        QCOMPARE(back, (QStringList{"Opened current saved", "Move undone", "Turn undone", "Paint undone"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened saved", "Move", "Turn current", "Paint undone"}));
    }

    void aStepTakesThePlaceOfThoseThatWereUndone()
    {
        Followed followed;
        followed.steps({"Move", "Turn", "Paint"});
        followed.history.jumpTo(1);
        SignalLog log(followed.model);

        followed.step("Scale");

        QCOMPARE(log.take(), (QStringList{"removing / [2..3]", "removed / [2..3]", "inserting / [2..2]",
                                          "inserted / [2..2]", "changed /1 .. /2 roles 257,258"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened saved", "Move", "Scale current"}));
    }

    void theSavedStateHasAMarkThatStaysWhenItIsLeft()
    {
        Followed followed;
        followed.steps({"Move", "Turn"});
        SignalLog log(followed.model);

        followed.history.markClean();
        const QStringList told = log.take();
        followed.history.undo();

        QCOMPARE(told, (QStringList{"changed /0 roles 259", "changed /2 roles 259"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened", "Move current", "Turn undone saved"}));
    }

    void theMarkGoesWithTheStepThatItIsOn()
    {
        Followed followed;
        followed.steps({"Move", "Turn"});
        followed.history.markClean();
        followed.history.undo();

        followed.step("Paint");

        QCOMPARE(followed.rows(), (QStringList{"Opened", "Move", "Paint current"}));
    }

    void aStepLikeTheOneThatItReplacesIsNotTheSavedState()
    {
        Followed followed;
        followed.step("Move");
        followed.history.markClean();
        followed.history.undo();

        followed.step("Move");

        QCOMPARE(followed.rows(), (QStringList{"Opened", "Move current"}));
    }

    void atTheLimitTheFirstStepBecomesTheOpenedState()
    {
        Followed followed;
        followed.history.setLimit(2);
        followed.steps({"Move", "Turn"});
        SignalLog log(followed.model);

        followed.step("Paint");

        QCOMPARE(log.take(),
                 (QStringList{"removing / [1..1]", "removed / [1..1]", "changed /0 roles 259",
                              "inserting / [2..2]", "inserted / [2..2]", "changed /1 .. /2 roles 257,258"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened", "Turn", "Paint current"}));
    }

    void atTheLimitTheMarkMovesWithItsState()
    {
        Followed followed;
        followed.history.setLimit(2);
        followed.step("Move");
        followed.history.markClean();
        followed.step("Turn");

        followed.step("Paint");

        QCOMPARE(followed.rows(), (QStringList{"Opened saved", "Turn", "Paint current"}));
    }

    void clearingLeavesTheOpenedState()
    {
        Followed followed;
        followed.steps({"Move", "Turn"});
        SignalLog log(followed.model);

        followed.history.clear();

        QCOMPARE(log.take(),
                 (QStringList{"removing / [1..2]", "removed / [1..2]", "changed /0 roles 257,258"}));
        QCOMPARE(followed.rows(), (QStringList{"Opened current saved"}));
    }

    void theRolesHaveTheNamesThatViewsBindTo()
    {
        const Followed followed;

        QCOMPARE(
            followed.model.roleNames(),
            (QHash<int, QByteArray>{{0, "name"}, {257, "isCurrent"}, {258, "isUndone"}, {259, "isSaved"}}));
    }
};

QTEST_GUILESS_MAIN(tst_LiveHistoryModel)
#include "tst_live_history_model.moc"
