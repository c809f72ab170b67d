#include <host/jobs/async_manager.h>

#include <support/gate.h>

#include <QtTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

using Ozy::AsyncManager;
using Job = AsyncManager::Job;

/// `cancel(true)` in all the places that could lock it up. A deadlock shows as a test that does not end.
class tst_JobCancelling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cancellingWaitsForTheRunningTask()
    {
        Gate started;
        std::atomic<bool> hasEnded{false};
        const Job job = AsyncManager::async(0, [&](const Job& own) {
            started.open();
            while (own.state() != Job::Cancelled)
                std::this_thread::yield();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            hasEnded = true;
            return true;
        });
        started.pass();

        job.cancel(true);

        QVERIFY(hasEnded);
        QCOMPARE(job.state(), Job::Ended);
    }

    void cancellingWithoutWaitingOnlyAsks()
    {
        Gate started;
        Gate leave;
        const Job job = AsyncManager::async(0, [&] {
            started.open();
            leave.pass();
        });
        started.pass();

        job.cancel(false);

        QCOMPARE(job.state(), Job::Cancelled);
        leave.open();
        QCOMPARE(job.wait(), Job::Ended);
    }

    void anEndedJobStaysAsItIs()
    {
        const Job job = AsyncManager::async(0, [] {});
        job.wait();

        job.cancel(true);

        QCOMPARE(job.state(), Job::Ended);
    }

    void aPostedTaskIsDropped()
    {
        bool hasRun = false;
        const auto held = std::make_shared<int>(1);
        const Job job = AsyncManager::sync(false, [&hasRun, held] { hasRun = true; });

        job.cancel(true);

        QCOMPARE(held.use_count(), 1L);
        QCoreApplication::processEvents();
        QVERIFY(!hasRun);
    }

    void aWorkerThatWaitsForTheGuiThreadIsReleased()
    {
        Gate posted;
        bool hasRun = false;
        std::atomic<int> seen{-1};
        const Job job = AsyncManager::async(0, [&]() {
            const Job task = AsyncManager::sync(true, [&hasRun] { hasRun = true; });
            posted.open();
            seen = task.wait();
            return true;
        });
        posted.pass();

        job.cancel(true);

        QCOMPARE(job.state(), Job::Ended);
        QCOMPARE(seen.load(), int(Job::Ended));
        QCoreApplication::processEvents();
        QVERIFY(!hasRun);
    }

    void aWorkerThatWaitsForAnAddedGuiTaskIsReleased()
    {
        Gate posted;
        bool hasRun = false;
        std::atomic<int> seen{-1};
        const Job job = AsyncManager::async(0, [&](const Job& own) {
            const Job task = AsyncManager::sync(false, [&hasRun] { hasRun = true; });
            own += task;
            posted.open();
            seen = task.wait();
            return true;
        });
        posted.pass();

        job.cancel(true);

        QCOMPARE(job.state(), Job::Ended);
        QCOMPARE(seen.load(), int(Job::Ended));
        QCoreApplication::processEvents();
        QVERIFY(!hasRun);
    }

    void aWorkerThatWaitsForAJobOfSomebodyElseGetsIt()
    {
        Gate posted;
        bool hasRun = false;
        const Job job = AsyncManager::async(0, [&] {
            const Job task = AsyncManager::sync(false, [&hasRun] { hasRun = true; });
            posted.open();
            task.wait();
        });
        posted.pass();

        job.cancel(true);

        QVERIFY(hasRun);
        QCOMPARE(job.state(), Job::Ended);
    }

    void whatIsAddedToACancelledJobIsCancelledAtOnce()
    {
        bool hasRun = false;
        const Job job = AsyncManager::sync(false, [] {});
        job.cancel(true);
        const Job added = AsyncManager::sync(false, [&hasRun] { hasRun = true; });

        job += added;

        QCOMPARE(added.state(), Job::Ended);
        QCoreApplication::processEvents();
        QVERIFY(!hasRun);
    }

    void aTaskThatACancelledJobPostsNeverRuns()
    {
        Gate started;
        Gate cancelled;
        std::atomic<bool> hasRun{false};
        const Job job = AsyncManager::async(0, [&](const Job& own) {
            started.open();
            cancelled.pass();
            own += AsyncManager::sync(false, [&hasRun] { hasRun = true; });
            AsyncManager::sync(true, [&hasRun] { hasRun = true; }).wait();
            return true;
        });
        started.pass();
        job.cancel(false);
        cancelled.open();

        job.cancel(true);

        QCoreApplication::processEvents();
        QVERIFY(!hasRun);
    }

    void cancellingCoversAddedJobsOfAddedJobs()
    {
        QString order;
        const Job inner = AsyncManager::sync(false, [&order] { order += "inner"; });
        const Job middle = AsyncManager::sync(false, [&order] { order += "middle"; });
        const Job outer = AsyncManager::sync(false, [&order] { order += "outer"; });
        middle += inner;
        outer += middle;

        outer.cancel(true);

        QCOMPARE(inner.state(), Job::Ended);
        QCOMPARE(middle.state(), Job::Ended);
        QCOMPARE(outer.state(), Job::Ended);
        QCoreApplication::processEvents();
        QCOMPARE(order, QString());
    }

    void anAddedJobMayBeCancelledAlone()
    {
        QString order;
        const Job inner = AsyncManager::sync(false, [&order] { order += "inner"; });
        const Job outer = AsyncManager::sync(false, [&order] { order += "outer"; });
        outer += inner;

        inner.cancel(true);

        QCOMPARE(outer.wait(), Job::Ended);
        QCOMPARE(order, QString("outer"));
    }

    void aGuiTaskMayCancelItsOwnJob()
    {
        Job job;
        Job::State seen = Job::Idle;
        job = AsyncManager::sync(false, [&](const Job& own) {
            own.cancel(true);
            seen = own.state();
            return true;
        });

        job.wait();

        QCOMPARE(seen, Job::Cancelled);
        QCOMPARE(job.state(), Job::Ended);
    }

    void aGuiTaskMayCancelTheJobWhoseWorkerWaitsForIt()
    {
        Job job;
        bool workerHasEnded = false;
        bool wasEndedInTask = false;
        Gate assigned;
        job = AsyncManager::async(0, [&](const Job& own) {
            assigned.pass();
            const Job task = AsyncManager::sync(true, [&] {
                job.cancel(true);
                wasEndedInTask = workerHasEnded;
            });
            own += task;
            task.wait();
            workerHasEnded = true;
            return true;
        });
        assigned.open();

        QTRY_COMPARE(job.state(), Job::Ended);

        QVERIFY(wasEndedInTask);
    }

    void aWorkerMayCancelItsOwnJobWhileItsGuiTaskDoesSo()
    {
        Job job;
        Gate assigned;
        Gate inTask;
        job = AsyncManager::async(0, [&](const Job& own) {
            assigned.pass();
            own += AsyncManager::sync(false, [&] {
                inTask.open();
                job.cancel(true);
            });
            inTask.pass();
            own.cancel(true);
            return true;
        });
        assigned.open();

        QTRY_COMPARE(job.state(), Job::Ended);
    }

    void aTaskDoesNotWaitForItsOwnJob()
    {
        Job::State seen = Job::Idle;

        const Job job = AsyncManager::async(0, [&seen](const Job& own) {
            seen = own.wait();
            return true;
        });

        QCOMPARE(job.wait(), Job::Ended);
        QCOMPARE(seen, Job::Running);
    }

    void anotherThreadMayCancelWhileTheGuiTaskRuns()
    {
        Gate inTask;
        std::atomic<bool> hasEnded{false};
        std::atomic<bool> sawTheEnd{false};
        const Job job = AsyncManager::sync(false, [&] {
            inTask.open();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            hasEnded = true;
        });
        std::thread other([&] {
            inTask.pass();
            job.cancel(true);
            sawTheEnd = hasEnded.load();
        });

        QTRY_COMPARE(job.state(), Job::Ended);

        other.join();
        QVERIFY(sawTheEnd);
    }

    void aWatcherMayCancelItsJob()
    {
        Job job;
        QList<int> states;
        job = AsyncManager::async(0, [](const Job& own) {
            while (own.state() != Job::Cancelled)
                std::this_thread::yield();
            return true;
        });
        job.connectStateChanged([&](Job::State state) {
            states.append(int(state));
            job.cancel(true);
        });

        QTRY_COMPARE(states, (QList<int>{2, 3, 4}));
    }
};

QTEST_GUILESS_MAIN(tst_JobCancelling)

#include "tst_job_cancelling.moc"
