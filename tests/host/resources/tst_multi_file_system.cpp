#include <host/resources/editor_utils.h>
#include <host/resources/multi_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

using Ozy::FS::FileSystem;
using Ozy::FS::MultiFileSystem;

namespace {

/// A mod laid over a game: both have the oak, each has a tree of its own.
struct Overlay
{
    Overlay()
    {
        disk.write("mod/textures/oak.png", "mod");
        disk.write("mod/textures/elm.png");
        disk.write("game/textures/oak.png", "game");
        disk.write("game/textures/fir.png");
        disk.write("outside/secret.txt");
        resources.setRoots({disk.bytes("mod"), disk.bytes("game")});
    }

    QString resolved(const std::string& name) const
    {
        std::string path = name;
        resources.resolveToAbsolutePath(path);
        return QString::fromStdString(path);
    }

    DiskFolder disk;
    MultiFileSystem resources;
};

} // namespace

class tst_MultiFileSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstRootThatHasAFileWins()
    {
        const Overlay overlay;

        QCOMPARE(overlay.resolved("textures/oak.png"), overlay.disk.path("mod/textures/oak.png"));
        QCOMPARE(overlay.resolved("textures/fir.png"), overlay.disk.path("game/textures/fir.png"));
    }

    void resolvingTellsWhatIsThere()
    {
        const Overlay overlay;
        std::string file = "textures/fir.png";
        std::string directory = "textures/";
        std::string nothing = "textures/yew.png";

        QCOMPARE(overlay.resources.resolveToAbsolutePath(file), FileSystem::File);
        QCOMPARE(overlay.resources.resolveToAbsolutePath(directory), FileSystem::Directory);
        QCOMPARE(overlay.resources.resolveToAbsolutePath(nothing), FileSystem::NotFound);
        QCOMPARE(int(FileSystem::NotFound), 2);
    }

    void whatNoRootHasIsPlacedInTheFirst()
    {
        const Overlay overlay;

        QCOMPARE(overlay.resolved("textures/yew.png"), overlay.disk.path("mod/textures/yew.png"));
    }

    void dissolvingIsTheInverseOfResolving_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("in the first root") << "textures/elm.png";
        QTest::newRow("in the second root") << "textures/fir.png";
        QTest::newRow("in both") << "textures/oak.png";
        QTest::newRow("in none") << "textures/new/yew.png";
        QTest::newRow("directory") << "textures";
        QTest::newRow("the top") << "";
    }

    void dissolvingIsTheInverseOfResolving()
    {
        QFETCH(QString, name);
        const Overlay overlay;
        bool ok = false;
        const std::string absolute = overlay.resolved(name.toStdString()).toStdString();

        const std::string dissolved = overlay.resources.dissolveFilename(absolute, &ok);

        QVERIFY(ok);
        QCOMPARE(QString::fromStdString(dissolved), name);
        QCOMPARE(overlay.resolved(dissolved).toStdString(), absolute);
    }

    void aHiddenFileHasNoName()
    {
        const Overlay overlay;
        LogCapture log(LogCapture::FailOnRest);
        bool ok = true;

        const std::string dissolved = overlay.resources.dissolveFilename(overlay.disk.bytes("game/textures/oak.png"), &ok);

        QVERIFY(!ok);
        QCOMPARE(dissolved, std::string());
        QCOMPARE(log.messages(), QStringList{QString("5 Path '%1' is hidden by '%2'.")
                                                 .arg(overlay.disk.path("game/textures/oak.png"),
                                                      overlay.disk.path("mod/textures/oak.png"))});
    }

    void aNameDissolvesToItsTidyForm()
    {
        const Overlay overlay;
        bool ok = false;

        QCOMPARE(overlay.resources.dissolveFilename("./textures//wood/../oak.png", &ok), std::string("textures/oak.png"));

        QVERIFY(ok);
    }

    void aPathOutsideOfEveryRootIsRefused()
    {
        const Overlay overlay;
        LogCapture log(LogCapture::FailOnRest);
        bool ok = true;
        std::string path = overlay.disk.bytes("outside/secret.txt");

        overlay.resources.dissolveFilename(path, &ok);
        const FileSystem::FileType type = overlay.resources.resolveToAbsolutePath(path);

        QVERIFY(!ok);
        QCOMPARE(type, FileSystem::NotFound);
        QCOMPARE(path, overlay.disk.bytes("outside/secret.txt"));
        const QString message = QString("5 Path '%1' is outside of every root.").arg(overlay.disk.path("outside/secret.txt"));
        QCOMPARE(log.messages(), (QStringList{message, message}));
    }

    void aRootIsNoPrefixOfAnother()
    {
        Overlay overlay;
        overlay.disk.write("mod2/yew.png");
        LogCapture log;
        bool ok = true;

        overlay.resources.dissolveFilename(overlay.disk.bytes("mod2/yew.png"), &ok);

        QVERIFY(!ok);
    }

    void badPathsAreRefused_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("message");

        QTest::newRow("climbs") << QByteArray("../outside/secret.txt")
                                << "5 Path '../outside/secret.txt' climbs out of the resources.";
        QTest::newRow("climbs inside") << QByteArray("textures/../../outside/secret.txt")
                                       << "5 Path 'textures/../../outside/secret.txt' climbs out of the resources.";
        QTest::newRow("zero") << QByteArray("oak\0.png", 8)
                              << "5 Path 'oak\\x00.png' holds bytes that no resource has in its name.";
        QTest::newRow("line break") << QByteArray("oak\n.png")
                                    << "5 Path 'oak\\x0a.png' holds bytes that no resource has in its name.";
        QTest::newRow("backslash") << QByteArray("..\\oak.png")
                                   << "5 Path '..\\x5coak.png' holds bytes that no resource has in its name.";
        QTest::newRow("not UTF-8") << QByteArray("oak\xff.png")
                                   << "5 Path 'oak\\xff.png' holds bytes that no resource has in its name.";
        QTest::newRow("cut UTF-8") << QByteArray("oak\xc3")
                                   << "5 Path 'oak\\xc3' holds bytes that no resource has in its name.";
    }

    void badPathsAreRefused()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, message);
        const Overlay overlay;
        LogCapture log(LogCapture::FailOnRest);
        bool ok = true;
        std::string resolved = path.toStdString();
        std::vector<std::string> entries{"before"};

        QCOMPARE(overlay.resources.resolveToAbsolutePath(resolved), FileSystem::NotFound);
        overlay.resources.dissolveFilename(path.toStdString(), &ok);
        QVERIFY(!overlay.resources.readDirectory(entries, path.toStdString()));

        QCOMPARE(resolved, path.toStdString());
        QVERIFY(!ok);
        QVERIFY(entries.empty());
        QCOMPARE(log.messages(), (QStringList{message, message, message}));
    }

    void namesMayBeInAnyScript()
    {
        Overlay overlay;
        overlay.disk.write(QString::fromUtf8("mod/Bäume/дуб.png"));

        QCOMPARE(overlay.resolved("Bäume/дуб.png"), overlay.disk.path(QString::fromUtf8("mod/Bäume/дуб.png")));
    }

    void aDirectoryShowsTheEntriesOfAllRoots()
    {
        const Overlay overlay;
        std::vector<std::string> entries{"before"};

        QVERIFY(overlay.resources.readDirectory(entries, "textures"));

        QCOMPARE(entries, (std::vector<std::string>{"elm.png", "fir.png", "oak.png"}));
    }

    void aMissingDirectoryIsNotReadAndNotLogged()
    {
        const Overlay overlay;
        LogCapture log(LogCapture::FailOnRest);
        std::vector<std::string> entries{"before"};

        QVERIFY(!overlay.resources.readDirectory(entries, "models"));
        QVERIFY(!overlay.resources.readDirectory(entries, "textures/oak.png"));

        QVERIFY(entries.empty());
    }

    void hiddenNamesAndDirectoriesAreEntriesToo()
    {
        Overlay overlay;
        overlay.disk.makeDirectory("game/textures/.svn");
        std::vector<std::string> entries;

        QVERIFY(overlay.resources.readDirectory(entries, "textures"));

        QCOMPARE(entries, (std::vector<std::string>{".svn", "elm.png", "fir.png", "oak.png"}));
    }

    void aRootThatIsNoDirectoryLeavesTheOldOnes()
    {
        Overlay overlay;
        const std::vector<std::string> before = overlay.resources.roots();
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!overlay.resources.setRoots({overlay.disk.bytes("game"), overlay.disk.bytes("mod/textures/oak.png")}));
        QVERIFY(!overlay.resources.setRoots({"game"}));

        QCOMPARE(overlay.resources.roots(), before);
        QCOMPARE(log.messages(), (QStringList{QString("5 Path '%1' is not the absolute path of a directory, and no root.")
                                                  .arg(overlay.disk.path("mod/textures/oak.png")),
                                              "5 Path 'game' is not the absolute path of a directory, and no root."}));
    }

    void aRootCountsOnce()
    {
        Overlay overlay;

        QVERIFY(overlay.resources.setRoots({overlay.disk.bytes("game") + "/", overlay.disk.bytes("game")}));

        QCOMPARE(overlay.resources.roots(), std::vector<std::string>{overlay.disk.bytes("game")});
    }

    void withoutRootsNothingIsFound()
    {
        const MultiFileSystem resources;
        std::string path = "textures/oak.png";

        QCOMPARE(resources.resolveToAbsolutePath(path), FileSystem::NotFound);

        QCOMPARE(path, std::string("textures/oak.png"));
    }

    void theEditorsFormsNeedNoType()
    {
        const Overlay overlay;
        Ozy::FS::fileSystem()->setRoots(overlay.resources.roots());
        const Ozy::FS::EditorUtils utils;

        QCOMPARE(QString::fromStdString(utils.resolveFilename("textures/fir.png")),
                 overlay.disk.path("game/textures/fir.png"));
        QCOMPARE(QString::fromStdWString(utils.resolveFilenameW("Bäume/дуб.png")),
                 overlay.disk.path(QString::fromUtf8("mod/Bäume/дуб.png")));
    }

    void aRefusedNameComesBackFromTheEditorsForms()
    {
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(Ozy::FS::EditorUtils().resolveFilename("../oak.png"), std::string("../oak.png"));

        QCOMPARE(log.messages(), QStringList{"5 Path '../oak.png' climbs out of the resources."});
    }
};

QTEST_APPLESS_MAIN(tst_MultiFileSystem)
#include "tst_multi_file_system.moc"
