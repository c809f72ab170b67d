#include <host/jobs/async_manager.h>

#include <support/gate.h>

#include <QtTest>

#include <memory>
#include <optional>
#include <thread>

using Ozy::AsyncManager;
using Job = AsyncManager::Job;

namespace {

int argumentCount = 1;
char programName[] = "tst_jobs_without_application";
char* arguments[] = {programName, nullptr};

/// An application that can be ended in the middle of a test.
class Application
{
public:
    Application() { m_application.emplace(argumentCount, arguments); }
    void end() { m_application.reset(); }

private:
    std::optional<QCoreApplication> m_application;
};

bool runUntilCancelled(const Job& job)
{
    while (job.state() != Job::Cancelled)
        std::this_thread::yield();
    return true;
}

} // namespace

/// What becomes of jobs before, between and after applications.
class tst_JobsWithoutApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // First in the file: the others leave the service closed.
    void guiTasksWaitForTheFirstApplication()
    {
        QThread* thread = nullptr;
        AsyncManager::async(0, [] {}).wait();
        const Job job = AsyncManager::sync(false, [&thread] { thread = QThread::currentThread(); });
        std::thread([&job] { job += AsyncManager::sync(false, [] {}); }).join();
        QCOMPARE(job.state(), Job::Queued);

        const Application application;
        QTRY_COMPARE(job.state(), Job::Ended);

        QCOMPARE(thread, QThread::currentThread());
    }

    void theEndOfTheApplicationEndsJobsInEveryState()
    {
        Application application;
        Gate posted;
        const Job none;
        const Job running = AsyncManager::async(0, &runUntilCancelled);
        const Job waiting = AsyncManager::async(0, [&posted] {
            const Job task = AsyncManager::sync(false, [] {});
            posted.open();
            task.wait();
        });
        posted.pass();
        const Job tied = AsyncManager::sync(false, [] {});
        tied += AsyncManager::sync(false, [] {});
        const Job ended = AsyncManager::async(0, [] {});
        ended.wait();

        application.end();

        QCOMPARE(none.state(), Job::Idle);
        QCOMPARE(running.state(), Job::Ended);
        QCOMPARE(waiting.state(), Job::Ended);
        QCOMPARE(tied.state(), Job::Ended);
        QCOMPARE(ended.state(), Job::Ended);
    }

    void tasksWithoutHandlesEndWithTheApplication()
    {
        const auto held = std::make_shared<int>(1);
        Application application;
        Gate started;
        AsyncManager::async(0, [held, &started](const Job& own) {
            started.open();
            return runUntilCancelled(own);
        });
        AsyncManager::sync(false, [held] {});
        started.pass();

        application.end();

        QCOMPARE(held.use_count(), 1L);
    }

    void watchersEndWithTheApplication()
    {
        const auto held = std::make_shared<int>(1);
        Application application;
        Gate started;
        const Job job = AsyncManager::async(0, [&started](const Job& own) {
            started.open();
            return runUntilCancelled(own);
        });
        started.pass();
        bool wasTold = false;
        job.connectStateChanged([held, &wasTold](Job::State) { wasTold = true; });

        application.end();

        QCOMPARE(job.state(), Job::Ended);
        QVERIFY(!wasTold);
        QCOMPARE(held.use_count(), 1L);
    }

    void jobsStartedAfterwardsAreCancelledFromTheStart()
    {
        Application().end();
        bool hasRun = false;

        const Job worker = AsyncManager::async(0, [&hasRun] { hasRun = true; });
        const Job gui = AsyncManager::sync(false, [&hasRun] { hasRun = true; });
        worker.cancel(true);

        QCOMPARE(worker.wait(), Job::Ended);
        QCOMPARE(gui.wait(), Job::Ended);
        QVERIFY(!hasRun);
    }

    void theNextApplicationIsServedAgain()
    {
        Application().end();
        QString order;

        const Application next;
        AsyncManager::async(0, [&order](const Job& own) {
            order += "worker ";
            own += AsyncManager::sync(false, [&order] { order += "gui"; });
            return true;
        }).wait();

        QCOMPARE(order, QString("worker gui"));
    }
};

QTEST_APPLESS_MAIN(tst_JobsWithoutApplication)

#include "tst_jobs_without_application.moc"
