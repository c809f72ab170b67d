#include <host/resources/disk_monitor.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/multi_file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QElapsedTimer>
#include <QSet>
#include <QThread>
#include <QtTest>

#include <functional>

using namespace Ozy::FS;

namespace {

/// What a monitor tells, as "+ path", "- path" and "~ path", with paths relative to a folder.
class Listener : public Ozy::ResourceModificationListener
{
public:
    explicit Listener(const DiskFolder& disk) : m_top(disk.path() + "/") {}

    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override
    {
        QString path = QString::fromStdString(std::string(directory).append(name));
        path.remove(m_top);
        lines << QString("%1 %2").arg(action == 0 || action == 4 ? "+" : action == 2 ? "~" : "-", path);
        last = QStringList{QString::fromStdString(std::string(directory)), QString::fromStdString(std::string(name))};
        threads.insert(QThread::currentThread());
        if (then)
            then();
    }
    void onTriggerTaskQueue() override { lines << "begin"; }
    void onTaskQueueEmpty() override { lines << "end"; }

    QStringList changes() const
    {
        QStringList changes = lines;
        changes.removeAll("begin");
        changes.removeAll("end");
        return changes;
    }
    int count(const QString& line) const { return int(lines.count(line)); }

    QStringList lines;
    QStringList last;
    QSet<QThread*> threads;
    std::function<void()> then;

private:
    QString m_top;
};

struct Watched
{
    explicit Watched(const DiskFolder& disk, const QString& path = {})
        : listener(disk), handle(DiskMonitor::instance().createHandle(&listener))
    {
        handle->watch(disk.bytes(path));
        DiskMonitor::instance().finishWatching();
    }

    Listener listener;
    std::unique_ptr<IFileSystemMonitor::Handle> handle;
};

void runFor(int milliseconds)
{
    QTest::qWait(milliseconds);
}

} // namespace

class tst_DiskMonitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewFileHasCome()
    {
        const DiskFolder disk;
        Watched watched(disk);

        disk.write("oak.png");

        QTRY_VERIFY(watched.listener.lines.contains("end"));
        QCOMPARE(watched.listener.lines.mid(0, 2), (QStringList{"begin", "+ oak.png"}));
        QCOMPARE(watched.listener.last, (QStringList{disk.path() + "/", "oak.png"}));
    }

    void aRemovedFileHasGone()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        Watched watched(disk);

        disk.remove("wood/oak.png");

        QTRY_COMPARE(watched.listener.changes(), QStringList{"- wood/oak.png"});
    }

    void aWrittenFileHasChanged()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png", "1");
        Watched watched(disk);

        disk.write("wood/oak.png", "22");

        QTRY_COMPARE(watched.listener.changes(), QStringList{"~ wood/oak.png"});
    }

    void listenersAreCalledOnTheirThread()
    {
        const DiskFolder disk;
        Watched watched(disk);

        disk.write("oak.png");

        QTRY_VERIFY(!watched.listener.changes().isEmpty());
        QCOMPARE(watched.listener.threads, QSet<QThread*>{QThread::currentThread()});
    }

    void aRenamedFileHasGoneAndCome()
    {
        const DiskFolder disk;
        disk.write("a/oak.png");
        disk.makeDirectory("b");
        Watched watched(disk);

        disk.rename("a/oak.png", "b/elm.png");

        QTRY_COMPARE(watched.listener.changes(), (QStringList{"- a/oak.png", "+ b/elm.png"}));
    }

    void aRenamedDirectoryTakesItsTreeAlong()
    {
        const DiskFolder disk;
        disk.write("wood/deep/oak.png");
        Watched watched(disk);

        disk.rename("wood", "trees");

        QTRY_COMPARE(watched.listener.changes(),
                     (QStringList{"- wood/deep/oak.png", "- wood/deep", "- wood", "+ trees", "+ trees/deep",
                                  "+ trees/deep/oak.png"}));
    }

    void aRenamedDirectoryIsFollowedOn()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        Watched watched(disk);
        disk.rename("wood", "trees");
        QTRY_VERIFY(watched.listener.lines.contains("end"));
        watched.listener.lines.clear();

        disk.write("trees/elm.png");
        disk.write("wood/fir.png");

        QTRY_COMPARE(watched.listener.count("+ trees/elm.png"), 1);
        QTRY_COMPARE(watched.listener.count("+ wood/fir.png"), 1);
    }

    void aTreeOf1000FilesGoesFileByFile()
    {
        const DiskFolder disk;
        disk.writeMany(10, 100);
        Watched watched(disk);

        disk.removeTree("dir_3");
        disk.removeTree("dir_7");

        QTRY_COMPARE(watched.listener.changes().filter("- dir_").size(), 202);
        runFor(700);
        QCOMPARE(watched.listener.changes().removeDuplicates(), 0);
        QCOMPARE(watched.listener.changes().size(), 202);
    }

    void aDirectoryGoesAfterWhatWasInIt()
    {
        const DiskFolder disk;
        disk.write("wood/deep/oak.png");
        Watched watched(disk);

        disk.removeTree("wood");

        QTRY_COMPARE(watched.listener.changes(), (QStringList{"- wood/deep/oak.png", "- wood/deep", "- wood"}));
    }

    void aFileReplacedInOneBurstHasGoneAndCome()
    {
        const DiskFolder disk;
        disk.write("oak.png", "1");
        Watched watched(disk);

        disk.remove("oak.png");
        disk.write("oak.png", "1");

        QTRY_COMPARE(watched.listener.changes().mid(0, 2), (QStringList{"- oak.png", "+ oak.png"}));
    }

    void aDirectoryReplacedInOneBurstHasGoneAndCome()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        Watched watched(disk);

        disk.removeTree("wood");
        disk.write("wood/elm.png");

        QTRY_VERIFY(watched.listener.lines.contains("end"));
        QCOMPARE(watched.listener.changes(), (QStringList{"- wood/oak.png", "- wood", "+ wood", "+ wood/elm.png"}));
    }

    void anAtomicSaveReplacesTheFile()
    {
        const DiskFolder disk;
        disk.write("oak.txt", "old");
        Watched watched(disk);

        disk.write("oak.txt.tmp", "new");
        disk.rename("oak.txt.tmp", "oak.txt");

        QTRY_VERIFY(watched.listener.lines.contains("end"));
        QCOMPARE(watched.listener.changes(), (QStringList{"- oak.txt", "+ oak.txt"}));
    }

    void whatCameAndWentInABurstIsNotTold()
    {
        const DiskFolder disk;
        Watched watched(disk);

        disk.write("temporary");
        disk.remove("temporary");
        disk.write("oak.png");

        QTRY_VERIFY(watched.listener.lines.contains("end"));
        QCOMPARE(watched.listener.changes(), QStringList{"+ oak.png"});
    }

    void filesInADirectoryMadeAMomentBeforeAreTold()
    {
        const DiskFolder disk;
        Watched watched(disk);

        disk.write("a/b/c/oak.png");

        QTRY_COMPARE(watched.listener.changes(), (QStringList{"+ a", "+ a/b", "+ a/b/c", "+ a/b/c/oak.png"}));
    }

    void directoriesThatCameAreWatched()
    {
        const DiskFolder disk;
        Watched watched(disk);
        disk.makeDirectory("a/b");
        QTRY_COMPARE(watched.listener.changes(), (QStringList{"+ a", "+ a/b"}));

        disk.write("a/b/oak.png");

        QTRY_COMPARE(watched.listener.count("+ a/b/oak.png"), 1);
    }

    void aSingleFileIsWatchedAlone()
    {
        const DiskFolder disk;
        disk.write("oak.png", "1");
        Watched watched(disk, "oak.png");

        disk.write("elm.png");
        disk.write("oak.png", "22");

        QTRY_COMPARE(watched.listener.changes(), QStringList{"~ oak.png"});
        disk.remove("oak.png");
        QTRY_COMPARE(watched.listener.changes(), (QStringList{"~ oak.png", "- oak.png"}));
    }

    void aWatchedDirectoryMayGoAndComeBack()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        Watched watched(disk, "wood");
        disk.removeTree("wood");
        QTRY_COMPARE(watched.listener.changes(), (QStringList{"- wood/oak.png", "- wood"}));
        watched.listener.lines.clear();

        disk.write("wood/elm.png");

        QTRY_COMPARE(watched.listener.changes(), (QStringList{"+ wood", "+ wood/elm.png"}));
    }

    void aPathMayComeLater()
    {
        const DiskFolder disk;
        Watched watched(disk, "later/wood");

        disk.write("later/wood/oak.png");

        QTRY_COMPARE(watched.listener.changes(), (QStringList{"+ later/wood", "+ later/wood/oak.png"}));
    }

    void overlappingPathsAreToldOnce()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        Watched watched(disk, "wood");
        watched.handle->watch(disk.bytes());
        watched.handle->watch(disk.bytes("wood"));
        DiskMonitor::instance().finishWatching();

        disk.remove("wood/oak.png");

        QTRY_COMPARE(watched.listener.changes(), QStringList{"- wood/oak.png"});
    }

    void linksAreNotFollowed()
    {
        const DiskFolder disk;
        disk.makeDirectory("wood");
        disk.link(disk.path(), "wood/loop");
        Watched watched(disk);

        disk.remove("wood/loop");

        QTRY_COMPARE(watched.listener.changes(), QStringList{"- wood/loop"});
    }

    void oddNamesAreTold()
    {
        const DiskFolder disk;
        const QString longest(255, 'x');
        disk.write(longest);
        Watched watched(disk);

        disk.remove(longest);

        QTRY_COMPARE(watched.listener.changes(), QStringList{"- " + longest});
    }

    void anEndedHandleTellsNothing()
    {
        const DiskFolder disk;
        Watched watched(disk);
        disk.write("oak.png");

        watched.handle.reset();

        runFor(200);
        QCOMPARE(watched.listener.lines, QStringList());
    }

    void aHandleMayEndInsideOfACall()
    {
        const DiskFolder disk;
        Watched watched(disk);
        watched.listener.then = [&watched] { watched.handle.reset(); };

        disk.write("a");
        disk.write("b");

        QTRY_VERIFY(!watched.handle);
        QCOMPARE(watched.listener.changes(), QStringList{"+ a"});
    }

    void aRelativePathIsRefused()
    {
        const DiskFolder disk;
        LogCapture log(LogCapture::FailOnRest);
        Listener listener(disk);
        const auto handle = DiskMonitor::instance().createHandle(&listener);

        handle->watch("wood");

        QCOMPARE(log.messages(), QStringList{"5 Path 'wood' is not absolute and cannot be watched."});
        QVERIFY(!DiskMonitor::instance().createHandle(nullptr));
    }

    void aBurstThatOverflowsTheSystemsQueueLosesNothing()
    {
        const DiskFolder disk(DiskFolder::Large);
        disk.writeMany(10, 100);
        Watched watched(disk);

        disk.runWhileStopped(DiskFolder::flood("dir_0")
                             + "; rm -r dir_1; rm dir_2/file_7; mkdir new; touch new/oak; echo changed > dir_3/file_7");

        QTRY_COMPARE_WITH_TIMEOUT(watched.listener.count("- dir_1"), 1, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(watched.listener.count("- dir_2/file_7"), 1, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(watched.listener.count("+ new/oak"), 1, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(watched.listener.count("~ dir_3/file_7"), 1, 20000);
        QCOMPARE(watched.listener.changes().filter("- dir_").size(), 102);
    }

    void tenThousandDirectoriesDoNotHoldTheCaller()
    {
        const DiskFolder disk(DiskFolder::Large);
        disk.writeMany(10000, 0);
        Listener listener(disk);
        const auto handle = DiskMonitor::instance().createHandle(&listener);

        handle->watch(disk.bytes());
        DiskMonitor::instance().finishWatching();
        disk.write("dir_9999/oak.png");

        QTRY_COMPARE_WITH_TIMEOUT(listener.changes(), QStringList{"+ dir_9999/oak.png"}, 20000);
    }

    void resourcesAreToldByName()
    {
        const DiskFolder disk;
        disk.write("mod/wood/oak.png");
        disk.write("game/wood/oak.png");
        disk.write("game/wood/fir.png");
        MultiFileSystem resources;
        resources.setRoots({disk.bytes("mod"), disk.bytes("game")});
        Listener listener(disk);
        resources.getFilesystemMonitor().addModificationListener(&listener);
        DiskMonitor::instance().finishWatching();

        disk.write("game/wood/oak.png", "hidden");
        disk.write("game/wood/fir.png", "22");

        QTRY_COMPARE(listener.changes(), QStringList{"~ game/wood/fir.png"});
        QCOMPARE(listener.last, (QStringList{disk.path("game") + "/", "wood/fir.png"}));
        resources.getFilesystemMonitor().removeModificationListener(&listener);
    }

    void rootsThatChangeAreFollowed()
    {
        const DiskFolder disk;
        disk.makeDirectory("mod");
        disk.makeDirectory("game");
        MultiFileSystem resources;
        resources.setRoots({disk.bytes("mod")});
        Listener listener(disk);
        resources.getFilesystemMonitor().addModificationListener(&listener);

        resources.setRoots({disk.bytes("game")});
        DiskMonitor::instance().finishWatching();
        disk.write("mod/oak.png");
        disk.write("game/elm.png");

        QTRY_COMPARE(listener.changes(), QStringList{"+ game/elm.png"});
        resources.getFilesystemMonitor().removeModificationListener(&listener);
    }

    void listenersMayLeaveInsideOfACall()
    {
        const DiskFolder disk;
        MultiFileSystem resources;
        resources.setRoots({disk.bytes()});
        MonitorThreadBase& monitor = resources.getFilesystemMonitor();
        Listener first(disk);
        Listener second(disk);
        first.then = [&] {
            monitor.removeModificationListener(&first);
            monitor.removeModificationListener(&second);
        };
        monitor.addModificationListener(&first);
        monitor.addModificationListener(&first);
        monitor.addModificationListener(&second);
        DiskMonitor::instance().finishWatching();

        disk.write("oak.png");

        QTRY_COMPARE(first.changes(), QStringList{"+ oak.png"});
        QCOMPARE(second.changes(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_DiskMonitor)
#include "tst_disk_monitor.moc"
