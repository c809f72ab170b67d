#include <host/resources/utils.h>

#include <support/disk_folder.h>

#include <QtTest>

using Ozy::FS::Utils;

namespace {

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), int(view.size()));
}

} // namespace

class tst_PathUtils : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPathHasFourParts_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("filename");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("withoutExtension");
        QTest::addColumn<QString>("basename");

        QTest::newRow("plain") << "map.xml" << "map.xml" << "xml" << "map" << "map";
        QTest::newRow("two dots") << "a.b.xml" << "a.b.xml" << "xml" << "a.b" << "a.b";
        QTest::newRow("with directory") << "maps/north.xml" << "north.xml" << "xml" << "maps/north" << "north";
        QTest::newRow("dot in directory") << "maps.old/north" << "north" << "" << "maps.old/north" << "north";
        QTest::newRow("leading dot") << ".svn" << ".svn" << "" << ".svn" << ".svn";
        QTest::newRow("hidden with extension") << "x/.a.b" << ".a.b" << "b" << "x/.a" << ".a";
        QTest::newRow("trailing dot") << "archive." << "archive." << "" << "archive" << "archive";
        QTest::newRow("parent") << "../.." << ".." << "" << "../.." << "..";
        QTest::newRow("trailing separator") << "maps/" << "" << "" << "maps/" << "";
        QTest::newRow("empty") << "" << "" << "" << "" << "";
    }

    void aPathHasFourParts()
    {
        QFETCH(QString, path);
        const std::string bytes = path.toStdString();

        QTEST(text(Utils::getFilename(bytes)), "filename");
        QTEST(text(Utils::getExtension(bytes)), "extension");
        QTEST(text(Utils::removeExtension(bytes)), "withoutExtension");
        QTEST(text(Utils::getBasename(bytes)), "basename");
    }

    void aFileExistsByItsAbsolutePath()
    {
        const DiskFolder disk;
        disk.write("oak.png");

        QVERIFY(Utils::fileExists(disk.bytes("oak.png")));
        QVERIFY(!Utils::fileExists(disk.bytes("elm.png")));
    }

    void aFileExistsByItsNameAsAResource()
    {
        const DiskFolder disk;
        disk.write("textures/oak.png");
        QVERIFY(Ozy::FS::fileSystem()->setRoots({disk.bytes()}));

        QVERIFY(Utils::fileExists("textures/oak.png"));
        QVERIFY(!Utils::fileExists("textures/elm.png"));
    }

    void aDirectoryIsNoFile()
    {
        const DiskFolder disk;
        disk.makeDirectory("textures");
        QVERIFY(Ozy::FS::fileSystem()->setRoots({disk.bytes()}));

        QVERIFY(!Utils::fileExists("textures"));
        QVERIFY(!Utils::fileExists(disk.bytes("textures")));
        QVERIFY(!Utils::fileExists(""));
    }

    void theProcessWideFileSystemResolves()
    {
        const DiskFolder disk;
        disk.write("textures/oak.png");
        QVERIFY(Ozy::FS::fileSystem()->setRoots({disk.bytes()}));
        std::string path = "textures/oak.png";

        QCOMPARE(Utils::resolveToAbsolutePath(path), Ozy::FS::FileSystem::File);

        QCOMPARE(path, disk.bytes("textures/oak.png"));
    }
};

QTEST_APPLESS_MAIN(tst_PathUtils)
#include "tst_path_utils.moc"
