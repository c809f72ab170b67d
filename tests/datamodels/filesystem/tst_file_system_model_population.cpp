#include "file_model_kit.h"

#include <host/resources/local_file_system.h>
#include <host/resources/memory_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QSemaphore>
#include <QtTest>

#include <atomic>
#include <stdexcept>
#include <thread>

using namespace datamodels;
using qelm::MemoryFileSystem;

namespace {

constexpr const char* started = "1 FileSystemModel: async populating started";
constexpr const char* finished = "1 FileSystemModel: async populating finished";

/// `directories` of `filesEach` files, beside each other.
void fill(MemoryFileSystem& files, int directories, int filesEach)
{
    for (int directory = 0; directory < directories; ++directory) {
        for (int file = 0; file < filesEach; ++file)
            files.addFile("dir_" + std::to_string(directory) + "/file_" + std::to_string(file));
    }
}

/// How many of the rounds saw the rows as they are while workers read them.
int roundsOfReadingAndDropping(FileModel& model, int rounds)
{
    int right = 0;
    for (int round = 0; round < rounds; ++round) {
        model.asyncPopulate();
        right += model.rowCount() == 40 && model.index(20, 0).data() == "dir_20"
                 && model.rowCount(model.index(round % 40, 0)) == 20;
        model.reset();
    }
    return right;
}

void readTexts(const FileModel& model, const QModelIndex& directory)
{
    for (int row = 0; row < 1000; ++row)
        model.index(row, 0, directory).data(260);
}

/// Holds an enumeration at one entry until it is let go.
struct Gate
{
    Gate(MemoryFileSystem& files, const std::string& at)
    {
        files.setHook([this, at](const std::string& name) {
            if (name == at) {
                reached.release();
                open.acquire();
            }
        });
    }

    QSemaphore reached;
    QSemaphore open;
};

} // namespace

class tst_FileSystemModelPopulation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTreeIsReadAhead()
    {
        MemoryFileSystem files;
        fill(files, 20, 5);
        FileModel model(files, "");
        LogCapture log(LogCapture::FailOnRest);
        SignalLog signalLog(model);

        model.asyncPopulate();
        QTRY_COMPARE(log.messages(), (QStringList{started, finished}));

        QCOMPARE(model.enumeratedChildrenCount({}), 20);
        QCOMPARE(model.enumeratedChildrenCount(model.index(19, 0)), 5);
        QCOMPARE(treeLines(model).size(), 120);
        QCOMPARE(files.enumerations("dir_7"), 1);
        QCOMPARE(signalLog.take(), QStringList());
    }

    void bothWaysOfReadingShowTheSame()
    {
        const DiskFolder disk;
        disk.writeMany(30, 30);
        disk.write("dir_3/deep/deeper/oak");
        qelm::LocalFileSystem files(disk.bytes());
        FileModel lazy(files, disk.bytes());
        FileModel ahead(files, disk.bytes());
        LogCapture log;

        ahead.asyncPopulate();
        QTRY_COMPARE(log.messages(), (QStringList{started, finished}));

        QCOMPARE(treeLines(ahead), treeLines(lazy));
        QCOMPARE(treeLines(ahead).size(), 933);
    }

    void rowsAreWaitedForAndNeverSeenHalf()
    {
        MemoryFileSystem files;
        fill(files, 1, 10);
        FileModel model(files, "");
        Gate gate(files, "dir_0/file_5");
        model.asyncPopulate();
        gate.reached.acquire();
        std::thread later([&gate] {
            QTest::qSleep(50);
            gate.open.release();
        });

        const int rows = model.rowCount(model.index(0, 0));

        later.join();
        QCOMPARE(rows, 10);
        QCOMPARE(files.enumerations("dir_0"), 1);
    }

    void otherDirectoriesStayOpenMeanwhile()
    {
        MemoryFileSystem files;
        fill(files, 2, 3);
        FileModel model(files, "");
        Gate gate(files, "dir_1/file_0");
        model.asyncPopulate();
        gate.reached.acquire();

        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.rowCount(model.index(0, 0)), 3);
        QCOMPARE(model.index(1, 0).data().toString(), QString("dir_1"));

        gate.open.release();
    }

    void aSecondStartWaitsForTheFirst()
    {
        MemoryFileSystem files;
        fill(files, 3, 3);
        FileModel model(files, "");
        LogCapture log(LogCapture::FailOnRest);

        model.asyncPopulate();
        model.asyncPopulate();
        QTRY_COMPARE(log.messages().size(), 4);

        QCOMPARE(log.messages(), (QStringList{started, finished, started, finished}));
        QCOMPARE(files.enumerations("dir_0"), 1);
    }

    void aResetEndsTheJob()
    {
        MemoryFileSystem files;
        fill(files, 50, 50);
        FileModel model(files, "");
        QSemaphore read;
        files.setHook([&read](const std::string&) {
            read.release();
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        });
        model.asyncPopulate();
        read.acquire(20);

        model.reset();
        files.setHook({});

        QCOMPARE(model.enumeratedChildrenCount({}), 0);
        QCOMPARE(treeLines(model).size(), 2550);
    }

    void aCancelledDirectoryKeepsItsPart()
    {
        MemoryFileSystem files;
        fill(files, 1, 10);
        FileModel model(files, "");
        FileSystemModelItem item(model, files.getFileInfo("dir_0"), nullptr);
        int asked = 0;
        Predicate everything;

        item.populate(files, false, [&asked] { return ++asked == 4; });
        item.populate(files, false, {});

        QCOMPARE(item.childCount(), std::size_t(4));
        QCOMPARE(asked, 5); // once more at the end
    }

    void theEndOfTheModelEndsTheJob()
    {
        MemoryFileSystem files;
        fill(files, 50, 50);
        QSemaphore read;
        std::atomic<bool> isGone = false;
        std::atomic<bool> isLate = false;
        files.setHook([&](const std::string&) {
            read.release();
            isLate = isLate || isGone;
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        });
        auto model = std::make_unique<FileModel>(files, "");
        model->asyncPopulate();
        read.acquire(20);

        model.reset();
        isGone = true;
        QTest::qWait(50);

        QVERIFY(!isLate);
    }

    void predicatesAndProvidersRunOnWorkers()
    {
        MemoryFileSystem files;
        fill(files, 20, 20);
        FileModel model(files, "");
        std::atomic<int> excluded = 0;
        Predicate odd([&excluded](const qelm::IFileInfo& info) {
            const QByteArray name = info.name();
            const bool isOdd = name.startsWith("file") && name.endsWith("7");
            excluded += isOdd;
            return isOdd;
        });
        model.addPredicate(FileSystemModel::Exclude, &odd);
        LogCapture log;

        model.asyncPopulate();
        QTRY_COMPARE(log.messages(), (QStringList{started, finished}));

        QCOMPARE(treeLines(model).size(), 20 + 20 * 18);
        QCOMPARE(excluded.load(), 40);
    }

    void aPredicateThatThrowsEndsTheJobAndNothingIsHalfRead()
    {
        MemoryFileSystem files;
        fill(files, 1, 10);
        FileModel model(files, "");
        std::atomic<bool> isThrowing = true;
        Predicate thrower([&isThrowing](const qelm::IFileInfo& info) {
            if (isThrowing && QByteArray(info.name()) == "file_5")
                throw std::runtime_error("out of order");
            return false;
        });
        model.addPredicate(FileSystemModel::Exclude, &thrower);
        LogCapture log;
        model.asyncPopulate();
        QTRY_VERIFY(log.messages().size() >= 2);
        isThrowing = false;

        QCOMPARE(model.rowCount(model.index(0, 0)), 10);

        QVERIFY(log.messages().join('\n').contains("out of order"));
    }

    void rowsAreRightWhileWorkersReadThem()
    {
        const DiskFolder disk;
        disk.writeMany(40, 20);
        qelm::LocalFileSystem files(disk.bytes());
        FileModel model(files, disk.bytes());
        LogCapture log;

        QCOMPARE(roundsOfReadingAndDropping(model, 100), 100);
    }

    void textsAreConvertedOnceWhoeverAsksFirst()
    {
        MemoryFileSystem files;
        fill(files, 1, 1000);
        FileModel model(files, "");
        const QModelIndex directory = model.index(0, 0);
        QCOMPARE(model.rowCount(directory), 1000);

        std::thread other([&] { readTexts(model, directory); });
        readTexts(model, directory);
        other.join();

        QCOMPARE(model.index(999, 0, directory).data(260), QVariant("dir_0/file_999"));
    }
};

QTEST_GUILESS_MAIN(tst_FileSystemModelPopulation)
#include "tst_file_system_model_population.moc"
