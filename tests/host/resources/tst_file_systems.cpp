#include <host/resources/local_file_system.h>
#include <host/resources/memory_file_system.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/overlay_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QDateTime>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace qelm;

namespace {

/// What an enumeration tells, sorted: directories end in "/", hidden entries in "?", special ones in "!".
QStringList entriesOf(IFileSystem& files, const std::string& directory)
{
    QStringList lines;
    files.enumerate(directory.c_str(), [&lines](std::shared_ptr<IFileInfo>&& info) {
        const char* mark = info->isDirectory() ? "/" : info->isHidden() ? "?" : info->isSystem() ? "!" : "";
        lines << QString::fromUtf8(info->fullName()) + mark;
        return true;
    });
    lines.sort();
    return lines;
}

QDateTime fromTicks(quint64 ticks)
{
    return QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC).addMSecs(qint64(ticks / 10000));
}

} // namespace

class tst_FileSystems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDirectoryTellsEachEntryOnce()
    {
        const DiskFolder disk;
        disk.write("a.txt");
        disk.write(".hidden");
        disk.write("sub/b.txt");
        LocalFileSystem files(disk.bytes());

        QCOMPARE(entriesOf(files, disk.bytes()),
                 (QStringList{disk.path(".hidden?"), disk.path("a.txt"), disk.path("sub/")}));
    }

    void relativeNamesStartAtTheRoot()
    {
        const DiskFolder disk;
        disk.write("sub/b.txt");
        LocalFileSystem files(disk.bytes() + "/");

        QCOMPARE(entriesOf(files, "sub"), QStringList{disk.path("sub/b.txt")});
        QCOMPARE(files.absolutePath("sub/"), disk.bytes("sub"));
        QCOMPARE(files.relativePath(disk.bytes("sub/b.txt").c_str()), std::string("sub/b.txt"));
        QCOMPARE(files.relativePath("/elsewhere"), std::string("/elsewhere"));
    }

    void anInfoHoldsTheFactsOfItsTime()
    {
        const DiskFolder disk;
        disk.write("sub/oak.tar.gz", "12345");
        const QDateTime before = QDateTime::currentDateTimeUtc();
        LocalFileSystem files(disk.bytes());
        const auto info = files.getFileInfo("sub/oak.tar.gz");
        disk.write("sub/oak.tar.gz", "longer than before");

        QCOMPARE(info->name(), "oak.tar.gz");
        QCOMPARE(info->extension(), "gz");
        QCOMPARE(QString(info->fullName()), disk.path("sub/oak.tar.gz"));
        QCOMPARE(info->size(), quint64(5));
        QVERIFY(qAbs(fromTicks(info->modifiedTime()).msecsTo(before)) < 60000);
        QVERIFY(qAbs(fromTicks(info->createdTime()).msecsTo(before)) < 60000);
    }

    void timesAreExactToTheTick()
    {
        const DiskFolder disk;
        disk.write("oak");
        const timespec times[2] = {{1'000'000'000, 0}, {1'000'000'000, 123'456'700}};
        QCOMPARE(utimensat(AT_FDCWD, disk.bytes("oak").c_str(), times, 0), 0);
        LocalFileSystem files(disk.bytes());

        QCOMPARE(files.getFileInfo("oak")->modifiedTime(), quint64(126444736001234567));
    }

    void whatDoesNotExistHasNoInfo()
    {
        const DiskFolder disk;
        LocalFileSystem files(disk.bytes());

        QVERIFY(!files.getFileInfo("nothing"));
    }

    void linksLeadToFilesAndAreLeafsOtherwise()
    {
        const DiskFolder disk;
        disk.write("real/oak.txt", "12345");
        disk.link(disk.path("real/oak.txt"), "real/file_link");
        disk.link(disk.path("real"), "real/loop");
        disk.link(disk.path("nowhere"), "real/dead");
        disk.link(disk.path("real"), "top");
        LocalFileSystem files(disk.bytes());

        QCOMPARE(entriesOf(files, "real"), (QStringList{disk.path("real/dead"), disk.path("real/file_link"),
                                                        disk.path("real/loop"), disk.path("real/oak.txt")}));
        QCOMPARE(files.getFileInfo("real/file_link")->size(), quint64(5));
        QVERIFY(files.getFileInfo("top")->isDirectory());
        QCOMPARE(entriesOf(files, "top").size(), 4);
    }

    void pipesAreNoFiles()
    {
        const DiskFolder disk;
        QCOMPARE(mkfifo(disk.bytes("pipe").c_str(), 0600), 0);
        LocalFileSystem files(disk.bytes());

        QCOMPARE(entriesOf(files, ""), QStringList{disk.path("pipe!")});
    }

    void namesKeepTheirBytes()
    {
        const DiskFolder disk;
        const std::string name = disk.bytes() + "/odd\xff\n";
        close(open(name.c_str(), O_CREAT | O_WRONLY, 0600));
        LocalFileSystem files(disk.bytes());
        std::string found;

        files.enumerate("", [&found](std::shared_ptr<IFileInfo>&& info) {
            found = info->fullName();
            return true;
        });
        const auto info = files.getFileInfo(found.c_str());
        unlink(name.c_str()); // which Qt cannot name

        QCOMPARE(found, name);
        QVERIFY(info);
    }

    void namesMayHave255Bytes()
    {
        const DiskFolder disk;
        const QString name = QString(255, 'x');
        disk.write(name + "/" + name);
        LocalFileSystem files(disk.bytes());

        QCOMPARE(entriesOf(files, name.toStdString()), QStringList{disk.path(name + "/" + name)});
    }

    void aDirectoryThatCannotBeReadIsLogged()
    {
        const DiskFolder disk;
        disk.write("file");
        LocalFileSystem files(disk.bytes());
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(entriesOf(files, "file"), QStringList());
        QCOMPARE(entriesOf(files, "nothing"), QStringList());

        QCOMPARE(log.messages(),
                 (QStringList{QString("5 Could not read directory '%1': Not a directory.").arg(disk.path("file")),
                              QString("5 Could not read directory '%1': No such file or directory.").arg(disk.path("nothing"))}));
    }

    void anEnumerationEndsWhenItIsTold()
    {
        const DiskFolder disk;
        disk.writeMany(1, 50);
        LocalFileSystem files(disk.bytes());
        int told = 0;

        files.enumerate("dir_0", [&told](std::shared_ptr<IFileInfo>&&) { return ++told < 3; });

        QCOMPARE(told, 3);
    }

    void aDirectoryMayGoWhileItIsRead()
    {
        const DiskFolder disk;
        disk.writeMany(1, 2000);
        LocalFileSystem files(disk.bytes());
        LogCapture log(LogCapture::FailOnRest);
        int told = 0;

        files.enumerate("dir_0", [&](std::shared_ptr<IFileInfo>&&) {
            if (told++ == 0)
                disk.removeTree("dir_0");
            return true;
        });

        QVERIFY(told >= 1 && told < 2000);
    }

    void aLargeDirectoryIsReadWhole()
    {
        const DiskFolder disk;
        disk.writeMany(1, 3000);
        LocalFileSystem files(disk.bytes());

        QCOMPARE(entriesOf(files, "dir_0").size(), 3000);
    }

    void theOverlayShowsResourcesByName()
    {
        const DiskFolder disk;
        disk.write("mod/oak.png", "12345");
        disk.write("game/oak.png", "1");
        disk.write("game/wood/fir.png");
        Ozy::FS::MultiFileSystem resources;
        resources.setRoots({disk.bytes("mod"), disk.bytes("game")});
        OverlayFileSystem files(resources);

        QCOMPARE(entriesOf(files, ""), (QStringList{"oak.png", "wood/"}));
        QCOMPARE(entriesOf(files, "wood"), QStringList{"wood/fir.png"});
        QCOMPARE(files.getFileInfo("oak.png")->size(), quint64(5));
        QVERIFY(files.getFileInfo("")->isDirectory());
        QVERIFY(!files.getFileInfo("elm.png"));
        QCOMPARE(files.absolutePath("wood/fir.png"), disk.bytes("game/wood/fir.png"));
        QCOMPARE(files.relativePath(disk.bytes("game/wood/fir.png").c_str()), std::string("wood/fir.png"));
    }

    void theOverlayLeavesOutWhatHasNoName()
    {
        const DiskFolder disk;
        disk.write("oak\\png");
        disk.write("elm.png");
        Ozy::FS::MultiFileSystem resources;
        resources.setRoots({disk.bytes()});
        OverlayFileSystem files(resources);

        QCOMPARE(entriesOf(files, ""), QStringList{"elm.png"});
    }

    void theOverlayRefusesWhatClimbsOut()
    {
        const DiskFolder disk;
        disk.write("secret");
        disk.makeDirectory("root");
        Ozy::FS::MultiFileSystem resources;
        resources.setRoots({disk.bytes("root")});
        OverlayFileSystem files(resources);
        LogCapture log;

        QVERIFY(!files.getFileInfo("../secret"));
        QCOMPARE(files.absolutePath("../secret"), std::string());
        QCOMPARE(entriesOf(files, "../"), QStringList());
        QCOMPARE(log.messages().size(), 3);
    }

    void memoryHoldsWhatItIsGiven()
    {
        MemoryFileSystem files;
        files.addFile("art/oak.png", 5, 1'000'000'000'123'456'700);
        files.addDirectory("art/wood/");
        files.addFile("art.txt");
        files.addSpecial("art/pipe");

        QCOMPARE(entriesOf(files, ""), (QStringList{"art.txt", "art/"}));
        QCOMPARE(entriesOf(files, "art"), (QStringList{"art/oak.png", "art/pipe!", "art/wood/"}));
        QCOMPARE(files.getFileInfo("art/oak.png")->size(), quint64(5));
        QCOMPARE(files.getFileInfo("art/oak.png")->modifiedTime(), quint64(126444736001234567));
        QCOMPARE(files.absolutePath("art/oak.png"), std::string("/art/oak.png"));
        QCOMPARE(files.enumerations("art"), 1);
    }

    void memoryForgetsATree()
    {
        MemoryFileSystem files;
        files.addFile("art/wood/oak.png");
        files.addFile("artist");

        files.remove("art");

        QCOMPARE(entriesOf(files, ""), QStringList{"artist"});
    }

    void memoryFailsWhenItIsTold()
    {
        MemoryFileSystem files;
        files.addFile("art/a");
        files.addFile("art/b");
        files.failAfter("art", 1);
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(entriesOf(files, "art"), QStringList{"art/a"});

        QCOMPARE(log.messages(), QStringList{"5 Could not read directory 'art': Input/output error."});
    }

    void memoryMayChangeWhileItIsRead()
    {
        MemoryFileSystem files;
        files.addFile("art/a");
        files.addFile("art/b");
        files.addFile("art/c");
        files.setHook([&files](const std::string&) { files.remove("art/b"); });

        QCOMPARE(entriesOf(files, "art"), (QStringList{"art/a", "art/c"}));
    }
};

QTEST_APPLESS_MAIN(tst_FileSystems)
#include "tst_file_systems.moc"
