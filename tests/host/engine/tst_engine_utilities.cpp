#include <host/engine/reloader.h>
#include <host/engine/texture_manager.h>
#include <host/engine/utilities.h>
#include <host/resources/multi_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

class tst_EngineUtilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBranchIsWhatLiesBelowTheRoots_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isWithin");

        QTest::newRow("a file of the first root") << "%1/mod/oak.png" << true;
        QTest::newRow("a file of another root") << "%1/game/oak.png" << true;
        QTest::newRow("a file that is not there") << "%1/game/none/elm.png" << true;
        QTest::newRow("the name of a resource") << "textures/oak.png" << true;
        QTest::newRow("outside") << "%1/outside/oak.png" << false;
        QTest::newRow("beside a root of a longer name") << "%1/games/oak.png" << false;
        QTest::newRow("climbing out") << "%1/game/../outside/oak.png" << false;
        QTest::newRow("a name that climbs out") << "../oak.png" << false;
        QTest::newRow("no name") << "" << false;
    }
    void theBranchIsWhatLiesBelowTheRoots()
    {
        QFETCH(QString, path);
        QFETCH(bool, isWithin);
        DiskFolder disk;
        disk.makeDirectory("mod");
        disk.makeDirectory("game");
        Ozy::FS::fileSystem()->setRoots({disk.bytes("mod"), disk.bytes("game")});
        LogCapture log(LogCapture::FailOnRest);

        QCOMPARE(Ozy::Utilities::isFromCurrentBranch(path.replace("%1", disk.path()).toStdString()), isWithin);
    }

    void theExtensionsOfTexturesEndWithNull()
    {
        QStringList extensions;

        for (const char* const* extension = Ozy::Fennel::TextureManager::validTextureExtensions(); *extension; ++extension)
            extensions << *extension;

        QCOMPARE(extensions, QStringList({"bmp", "dds", "exr", "hdr", "jpeg", "jpg", "png", "tga", "tif", "tiff"}));
    }

    void aReloaderTellsThoseWhoListen()
    {
        Ozy::Reloader reloader;
        std::vector<Ozy::Reloader*> told;
        ryk::Connection connection = reloader.connectReloaded([&](Ozy::Reloader* which) { told.push_back(which); });

        reloader.onReloaded(&reloader);
        connection.disconnect();
        reloader.onReloaded(&reloader);

        QVERIFY(told == std::vector<Ozy::Reloader*>{&reloader});
    }
};

QTEST_GUILESS_MAIN(tst_EngineUtilities)
#include "tst_engine_utilities.moc"
