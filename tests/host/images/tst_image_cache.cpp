#include "sample_images.h"

#include <support/disk_folder.h>
#include <support/gate.h>
#include <support/hand_monitor.h>
#include <support/log_capture.h>

#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system.h>

#include <QtTest>

#include <stdexcept>

using Ozy::AsyncManager;
using Action = Ozy::ResourceModificationListener;
using ImageInfo = TessenImageCache::ImageInfo;
using Job = AsyncManager::Job;

namespace {

TessenImageCache& cache()
{
    return TessenImageProvider::imageCache();
}

/// Counts the changes of a file that it can change itself.
class Listener final : public TessenImageCache::CacheListener
{
public:
    explicit Listener(const QString& name) : name(name) { cache().registerListener(this); }
    ~Listener() { cache().unregisterListener(this); }
    Q_DISABLE_COPY_MOVE(Listener)

    const QString& fileName() const override { return name; }
    void onImageChanged() override
    {
        ++changes;
        wasOnGuiThread = QThread::currentThread() == qApp->thread();
        if (then)
            then();
    }

    QString name;
    int changes = 0;
    bool wasOnGuiThread = false;
    std::function<void()> then;
};

/// A folder with a picture that a listener looks at, and a monitor in the test's hand.
struct Watched
{
    Watched()
    {
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));
        disk.write("b.png", pngOf(filled(4, 4, Qt::red)));
    }
    void change(const QString& name) { monitor.tell(disk.path(name), Action::Modified); }

    DiskFolder disk;
    HandMonitor monitor;
};

} // namespace

/// Queries as jobs, and listeners.
class tst_ImageCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aQueryAnswersOnceOnAWorker()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        int answers = 0;
        bool wasOnGuiThread = true;

        const Job job = cache().getImageInfo(disk.path("a.png"), [&](const Job&, const ImageInfo* info) {
            ++answers;
            wasOnGuiThread = QThread::currentThread() == qApp->thread();
            return info != nullptr;
        });
        job.wait();

        QCOMPARE(answers, 1);
        QVERIFY(!wasOnGuiThread);
        QCOMPARE(job.state(), Job::Ended);
    }

    void theDescriptionLivesUntilAnAddedTaskHasRun()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        QString format;

        const Job job = cache().getImageInfo(disk.path("a.png"), [&](const Job& own, const ImageInfo* info) {
            own += AsyncManager::sync(false, [&format, info] { format = info->format; });
            return true;
        });

        QTRY_COMPARE(job.state(), Job::Ended);
        QCOMPARE(format, QString("RGBA8"));
    }

    void aCancelledQueryNeverAnswers()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        bool hasAnswered = false;
        const Job job = cache().getImageInfo(disk.path("a.png"), [&](const Job& own, const ImageInfo*) {
            own += AsyncManager::sync(false, [&hasAnswered] { hasAnswered = true; });
            return true;
        });

        job.cancel(true);
        QTest::qWait(20);

        QVERIFY(!hasAnswered);
        QCOMPARE(job.state(), Job::Ended);
    }

    void ofTwoQueriesOnlyTheLatterAnswers()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(1, 1, Qt::red)));
        disk.write("b.png", pngOf(filled(2, 2, Qt::red)));
        QList<int> widths;
        const auto task = [&widths](const Job& own, const ImageInfo* info) {
            own += AsyncManager::sync(false, [&widths, info] { widths << info->width; });
            return true;
        };

        const Job first = cache().getImageInfo(disk.path("a.png"), task);
        const Job second = cache().getImageInfo(disk.path("b.png"), task);
        first.cancel(true);
        QTRY_COMPARE(second.state(), Job::Ended);

        QCOMPARE(widths, QList<int>{2});
    }

    void aQueryMayBeCancelledFromInsideItsSecondTask()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        int width = 0;
        const Job job = cache().getImageInfo(disk.path("a.png"), [&](const Job& own, const ImageInfo* info) {
            own += AsyncManager::sync(false, [own, info, &width] {
                own.cancel(true);
                width = info->width; // still there
            });
            return true;
        });

        QTRY_COMPARE(job.state(), Job::Ended);

        QCOMPARE(width, 4);
    }

    void aQueryMayBeCancelledFromInsideItsFirstTask()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        int width = 0;

        const Job job = cache().getImageInfo(disk.path("a.png"), [&](const Job& own, const ImageInfo* info) {
            own.cancel(true);
            width = info->width;
            return true;
        });
        job.wait();

        QCOMPARE(width, 4);
    }

    void anExceptionInATaskEndsTheQuery()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 2, Qt::red)));
        LogCapture log(LogCapture::FailOnRest);

        const Job job = cache().getImageInfo(disk.path("a.png"), [](const Job&, const ImageInfo*) -> bool {
            throw std::runtime_error("no room");
        });

        QCOMPARE(job.wait(), Job::Ended);
        QCOMPARE(log.messages(), QStringList{"6 Ozy::AsyncManager: exception in a task: no room"});
    }

    void aQueryWithoutATaskIsRefused()
    {
        LogCapture log(LogCapture::FailOnRest);

        const Job job = cache().getImageInfo("a.png", nullptr);

        QCOMPARE(job.state(), Job::Idle);
        QCOMPARE(log.assertions(), QStringList{"task"});
    }

    void aListenerHearsThatItsFileHasChanged()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));

        watched.change("a.png");

        QCOMPARE(listener.changes, 1);
        QVERIFY(listener.wasOnGuiThread);
    }

    void aFileIsWatchedFromWhenItsListenerAsksForIt()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));

        infoOf(watched.disk.path("a.png"));
        infoOf(watched.disk.path("b.png"));

        QCOMPARE(watched.monitor.watched, QStringList{watched.disk.path("a.png")});
    }

    void aFileThatWasAskedForBeforeIsWatchedSoonAfterItsListenerCame()
    {
        Watched watched;
        infoOf(watched.disk.path("a.png"));

        Listener listener(watched.disk.path("a.png"));

        QTRY_COMPARE(watched.monitor.watched, QStringList{watched.disk.path("a.png")});
    }

    void nothingIsWatchedWithoutListeners()
    {
        Watched watched;
        {
            Listener listener(watched.disk.path("a.png"));
            infoOf(watched.disk.path("a.png"));
        }

        QVERIFY(watched.monitor.listeners.empty());
    }

    void aListenerDoesNotHearOfOtherFiles()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        Listener other(watched.disk.path("b.png"));
        infoOf(watched.disk.path("a.png"));
        infoOf(watched.disk.path("b.png"));

        watched.change("b.png");

        QCOMPARE(listener.changes, 0);
        QCOMPARE(other.changes, 1);
    }

    void whatCountsIsTheFileOfTheListenerAtTheMomentOfTheChange()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        listener.name = watched.disk.path("b.png");
        infoOf(watched.disk.path("b.png"));

        watched.change("a.png");
        QCOMPARE(listener.changes, 0);
        watched.change("b.png");

        QCOMPARE(listener.changes, 1);
    }

    void oneRunOfChangesIsToldOnce()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        Ozy::ResourceModificationListener* const service = watched.monitor.listeners.front();

        service->onTriggerTaskQueue();
        watched.monitor.tell(watched.disk.path("a.png"), Action::Removed);
        watched.monitor.tell(watched.disk.path("a.png"), Action::Added);
        QCOMPARE(listener.changes, 0);
        service->onTaskQueueEmpty();

        QCOMPARE(listener.changes, 1);
    }

    void aListenerMayTakeItselfAwayInsideOfTheCall()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        Listener other(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        listener.then = [&] { cache().unregisterListener(&listener); };

        watched.change("a.png");
        watched.change("a.png");

        QCOMPARE(listener.changes, 1);
        QCOMPARE(other.changes, 2);
    }

    void aListenerMayTakeTheNextOneAwayInsideOfTheCall()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        Listener next(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        listener.then = [&] { cache().unregisterListener(&next); };

        watched.change("a.png");

        QCOMPARE(next.changes, 0);
    }

    void theLastListenerMayGoInsideOfTheCall()
    {
        Watched watched;
        auto listener = std::make_unique<Listener>(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        listener->then = [&] { QTimer::singleShot(0, [&] { listener.reset(); }); };

        watched.change("a.png");

        QTRY_VERIFY(!listener);
        QVERIFY(watched.monitor.listeners.empty());
    }

    void registeringTwiceOrNullDoesNothing()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        cache().registerListener(&listener);
        cache().registerListener(nullptr);
        infoOf(watched.disk.path("a.png"));

        watched.change("a.png");

        QCOMPARE(listener.changes, 1);
    }

    void aResourceIsWatchedInEveryRoot()
    {
        Watched watched;
        watched.disk.write("game/oak.png", pngOf(filled(4, 4, Qt::red)));
        watched.disk.makeDirectory("mod");
        Ozy::FS::fileSystem()->setRoots({watched.disk.bytes("mod"), watched.disk.bytes("game")});
        Listener listener("oak.png");
        infoOf("oak.png");

        watched.monitor.tell(watched.disk.path("mod/oak.png"), Action::Added);

        QCOMPARE(watched.monitor.watched,
                 (QStringList{watched.disk.path("game/oak.png"), watched.disk.path("mod/oak.png")}));
        QCOMPARE(listener.changes, 1);
        Ozy::FS::fileSystem()->setRoots({});
    }

    void aChangedFileHasANewUrlForTheSameDescription()
    {
        Watched watched;
        Listener listener(watched.disk.path("a.png"));
        infoOf(watched.disk.path("a.png"));
        const TessenImageRequestDesc desc = descOf(watched.disk.path("a.png"));
        const QUrl before = desc.toUrl();

        watched.change("a.png");

        QVERIFY(desc.toUrl() != before);
        QCOMPARE(*TessenImageRequestDesc::fromUrl(before), desc);
        QCOMPARE(*TessenImageRequestDesc::fromUrl(desc.toUrl()), desc);
    }

    void realChangesOnTheDiskAreTold_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("written over") << "cat b.png >> a.png";
        QTest::newRow("replaced") << "mv b.png a.png";
        QTest::newRow("gone") << "rm a.png";
    }
    void realChangesOnTheDiskAreTold()
    {
        QFETCH(QString, script);
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));
        disk.write("b.png", pngOf(filled(8, 8, Qt::red)));
        Listener listener(disk.path("a.png"));
        infoOf(disk.path("a.png"));
        Ozy::FS::DiskMonitor::instance().finishWatching();

        QCOMPARE(QProcess::execute("/bin/sh", {"-c", "cd '" + disk.path() + "' && " + script}), 0);

        QTRY_COMPARE_WITH_TIMEOUT(listener.changes, 1, 20000);
    }
};

QTEST_MAIN(tst_ImageCache)
#include "tst_image_cache.moc"
