#include <host/jobs/async_manager.h>
#include <host/jobs/cpu_info.h>

#include <support/gate.h>
#include <support/log_capture.h>

#include <QtTest>

#include <algorithm>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using Ozy::AsyncManager;
using Job = AsyncManager::Job;

namespace {

/// A worker task that returns once it has been cancelled.
bool runUntilCancelled(const Job& job)
{
    while (job.state() != Job::Cancelled)
        std::this_thread::yield();
    return true;
}

/// The states that a job tells, as text.
class StateLog
{
public:
    explicit StateLog(const Job& job)
        : connection(job.connectStateChanged([this](Job::State state) { states.append(int(state)); }))
    {
    }
    ~StateLog() { connection.disconnect(); }
    Q_DISABLE_COPY_MOVE(StateLog)

    bool hasEnded() const { return !states.isEmpty() && states.back() == 4; }

    QList<int> states;
    ryk::Connection connection;
};

} // namespace

class tst_AsyncManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noJobIsIdleAndTakesEverything()
    {
        const Job none;

        none.cancel(true);
        none += Job();

        QCOMPARE(none.state(), Job::Idle);
        QCOMPARE(none.wait(), Job::Idle);
        QVERIFY(!none.connectStateChanged([](Job::State) {}).isConnected());
    }

    void idleAndEndedAreFinal_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("isFinal");
        QTest::newRow("idle") << 0 << true;
        QTest::newRow("queued") << 1 << false;
        QTest::newRow("running") << 2 << false;
        QTest::newRow("cancelled") << 3 << false;
        QTest::newRow("ended") << 4 << true;
    }
    void idleAndEndedAreFinal()
    {
        QFETCH(int, state);
        QFETCH(bool, isFinal);

        QCOMPARE(Job::isFinalState(static_cast<Job::State>(state)), isFinal);
    }

    void aTaskRunsOnAnotherThread()
    {
        std::thread::id thread;

        const Job job = AsyncManager::async(0, [&thread] { thread = std::this_thread::get_id(); });

        QCOMPARE(job.wait(), Job::Ended);
        QVERIFY(thread != std::thread::id());
        QVERIFY(thread != std::this_thread::get_id());
    }

    void aTaskIsGivenItsJob()
    {
        Job::State seen = Job::Idle;

        const Job job = AsyncManager::async(0, [&seen](const Job& own) {
            seen = own.state();
            return true;
        });

        job.wait();
        QCOMPARE(seen, Job::Running);
    }

    void copiesAreTheSameJob()
    {
        Gate gate;
        const Job job = AsyncManager::async(0, [&gate] { gate.pass(); });
        const Job copy = job;

        gate.open();

        QCOMPARE(job.wait(), Job::Ended);
        QCOMPARE(copy.state(), Job::Ended);
    }

    void aJobGoesOnWithoutHandles()
    {
        std::atomic<bool> hasRun{false};

        AsyncManager::async(0, [&hasRun] { hasRun = true; });

        QTRY_VERIFY(hasRun);
    }

    void whatATaskHoldsIsGoneWhenItsJobHasEnded()
    {
        const auto held = std::make_shared<int>(1);

        AsyncManager::async(0, [held] {}).wait();

        QCOMPARE(held.use_count(), 1L);
    }

    void aGuiTaskRunsOnTheGuiThreadFromTheEventLoop()
    {
        QThread* thread = nullptr;

        const Job job = AsyncManager::sync(false, [&thread] { thread = QThread::currentThread(); });

        QCOMPARE(job.state(), Job::Queued);
        QVERIFY(!thread);
        QTRY_COMPARE(job.state(), Job::Ended);
        QCOMPARE(thread, QCoreApplication::instance()->thread());
    }

    void guiTasksRunInTheOrderInWhichTheyArePosted()
    {
        QString order;
        AsyncManager::sync(false, [&order] { order += "a"; });
        AsyncManager::sync(true, [&order] { order += "b"; });

        const Job last = AsyncManager::sync(false, [&order] { order += "c"; });

        QTRY_COMPARE(last.state(), Job::Ended);
        QCOMPARE(order, QString("abc"));
    }

    void waitingOnTheGuiThreadRunsTheTasksOfTheJob()
    {
        bool hasRun = false;
        const Job job = AsyncManager::sync(false, [&hasRun] { hasRun = true; });

        job.wait();

        QVERIFY(hasRun);
        QCOMPARE(job.state(), Job::Ended);
    }

    void waitingOnTheGuiThreadRunsWhatAWorkerWaitsFor()
    {
        bool hasRun = false;

        AsyncManager::async(0, [&hasRun] {
            AsyncManager::sync(false, [&hasRun] { hasRun = true; }).wait();
        }).wait();

        QVERIFY(hasRun);
    }

    void waitingOnTheGuiThreadLeavesTheTasksOfOtherJobs()
    {
        QString order;
        const Job other = AsyncManager::sync(false, [&order] { order += "other "; });

        AsyncManager::sync(false, [&order] { order += "waited for "; }).wait();

        QTRY_COMPARE(other.state(), Job::Ended);
        QCOMPARE(order, QString("waited for other "));
    }

    void moreTasksThanWorkersMayWaitForOneAnother()
    {
        Job inner = AsyncManager::async(0, [] {});
        const auto waitFor = [](const Job& other) {
            return AsyncManager::async(0,
                                       [other] { AsyncManager::async(0, [other] { other.wait(); }).wait(); });
        };
        const auto waitForTwo = [&waitFor](const Job& other) { return waitFor(waitFor(other)); };

        const Job last = waitForTwo(waitForTwo(waitForTwo(waitForTwo(inner))));

        QCOMPARE(last.wait(), Job::Ended);
    }

    void theHighestPriorityGoesFirst()
    {
        Gate last;
        Gate others;
        std::vector<Job> occupied(std::size_t(std::max(4, Ozy::CpuInfo::instance().processorCount()) - 1));
        std::generate(occupied.begin(), occupied.end(),
                      [&others] { return AsyncManager::async(0, [&others] { others.pass(); }); });
        AsyncManager::async(0, [&last] { last.pass(); });
        QString order;
        const Job low = AsyncManager::async(0, [&order] { order += "low"; });
        const Job high = AsyncManager::async(5, [&order] { order += "high "; });

        last.open();

        low.wait();
        high.wait();
        QCOMPARE(order, QString("high low"));
        others.open();
        std::for_each(occupied.begin(), occupied.end(), [](const Job& job) { job.wait(); });
    }

    void addedJobsHoldUpTheEnd()
    {
        Gate gate;
        const Job first = AsyncManager::async(0, [] {});
        const Job second = AsyncManager::async(0, [&gate] { gate.pass(); });
        Gate tied;
        const Job both = AsyncManager::async(0, [&](const Job& own) {
            own += first;
            own += second;
            tied.open();
            return true;
        });
        tied.pass();
        first.wait();
        QCOMPARE(both.state(), Job::Running);

        gate.open();

        QCOMPARE(both.wait(), Job::Ended);
        QCOMPARE(second.state(), Job::Ended);
    }

    void aJobMayBeAddedToAnEndedOne()
    {
        const Job ended = AsyncManager::async(0, [] {});
        ended.wait();
        bool hasRun = false;
        const Job added = AsyncManager::sync(false, [&hasRun] { hasRun = true; });

        ended += added;

        QCOMPARE(ended.state(), Job::Ended);
        added.wait();
        QVERIFY(hasRun);
    }

    void aJobIsNotAddedToItself()
    {
        LogCapture log(LogCapture::FailOnRest);
        Gate gate;
        const Job outer = AsyncManager::async(0, [&gate] { gate.pass(); });
        const Job inner = AsyncManager::async(0, [&gate] { gate.pass(); });
        outer += inner;

        outer += outer;
        inner += outer;

        gate.open();
        QCOMPARE(outer.wait(), Job::Ended);
        QCOMPARE(log.messages(), (QStringList{"5 Ozy::AsyncManager: a job cannot be added to itself",
                                              "5 Ozy::AsyncManager: a job cannot be added to itself"}));
    }

    void aTaskThatThrowsEndsItsJobAndIsLogged()
    {
        LogCapture log(LogCapture::FailOnRest);

        const Job known = AsyncManager::async(0, [] { throw std::runtime_error("no such file"); });
        known.wait();
        const Job unknown = AsyncManager::sync(false, [] { throw 1; });
        unknown.wait();

        QCOMPARE(known.state(), Job::Ended);
        QCOMPARE(unknown.state(), Job::Ended);
        QCOMPARE(log.messages(), (QStringList{"6 Ozy::AsyncManager: exception in a task: no such file",
                                              "6 Ozy::AsyncManager: exception in a task: of unknown type"}));
    }

    void anEmptyTaskIsLogged()
    {
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(AsyncManager::async(0, AsyncManager::Task()).wait(), Job::Ended);

        QCOMPARE(log.messages(), QStringList{"6 Ozy::AsyncManager: exception in a task: bad_function_call"});
    }

    void aWatcherHearsEveryStateInOrderOnTheGuiThread()
    {
        QThread* thread = nullptr;
        const Job job = AsyncManager::async(0, [] {});
        const StateLog log(job);
        const ryk::ScopedConnection other =
            job.connectStateChanged([&thread](Job::State) { thread = QThread::currentThread(); });

        QTRY_VERIFY(log.hasEnded());

        QCOMPARE(log.states, (QList<int>{2, 4}));
        QCOMPARE(thread, QCoreApplication::instance()->thread());
    }

    void aWatcherThatComesLateHearsAllTheSame()
    {
        const Job job = AsyncManager::async(0, [] {});
        job.wait();

        const StateLog log(job);

        QVERIFY(log.states.isEmpty());
        QTRY_COMPARE(log.states, (QList<int>{2, 4}));
    }

    void aRunningJobThatIsCancelledTellsAllItsStates()
    {
        Gate started;
        const Job job = AsyncManager::async(0, [&started](const Job& own) {
            started.open();
            return runUntilCancelled(own);
        });
        started.pass();
        const StateLog log(job);

        job.cancel(true);

        QCOMPARE(job.state(), Job::Ended);
        QTRY_COMPARE(log.states, (QList<int>{2, 3, 4}));
    }

    void aJobThatIsCancelledBeforeItRunsNeverDoes()
    {
        const Job job = AsyncManager::sync(false, [] {});
        const StateLog log(job);

        job.cancel(true);

        QCOMPARE(job.state(), Job::Ended);
        QTRY_COMPARE(log.states, (QList<int>{3, 4}));
    }

    void aDisconnectedWatcherHearsNothingMore()
    {
        const Job job = AsyncManager::sync(false, [] {});
        StateLog log(job);
        job.wait();

        log.connection.disconnect();

        const StateLog other(job);
        QTRY_VERIFY(other.hasEnded());
        QVERIFY(log.states.isEmpty());
    }

    void aWatcherIsDroppedAfterTheLastState()
    {
        const auto held = std::make_shared<int>(1);
        const Job job = AsyncManager::async(0, [] {});

        job.connectStateChanged([held, job](Job::State) {});

        QCOMPARE(held.use_count(), 2L);
        QTRY_COMPARE(held.use_count(), 1L);
    }

    void aWatcherThatThrowsIsLoggedAndTheOthersAreTold()
    {
        LogCapture log(LogCapture::FailOnRest);
        const Job job = AsyncManager::async(0, [] {});
        job.connectStateChanged([](Job::State) { throw std::runtime_error("no"); });
        const StateLog other(job);

        QTRY_VERIFY(other.hasEnded());

        QCOMPARE(other.states, (QList<int>{2, 4}));
        QCOMPARE(log.messages(), (QStringList{"6 Ozy::AsyncManager: exception in a watcher of states: no",
                                              "6 Ozy::AsyncManager: exception in a watcher of states: no"}));
    }

    void theMachineHasAProcessor() { QVERIFY(Ozy::CpuInfo::instance().processorCount() >= 1); }
};

QTEST_GUILESS_MAIN(tst_AsyncManager)

#include "tst_async_manager.moc"
