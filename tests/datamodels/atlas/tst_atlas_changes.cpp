#include "sample_atlas.h"

#include <host/resources/multi_file_system.h>
#include <support/log_capture.h>

#include <QtTest>

/// What an atlas tells when files change.
class tst_AtlasChanges : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;
    std::unique_ptr<AtlasAsset> asset;
    int told = 0;
    Ozy::Reloader* teller = nullptr;
    ryk::ScopedConnection listening;

    int reloadsAfter(const char* name, unsigned action = 2)
    {
        told = 0;
        asset->onResourceModified(desk->file("") + "/", name, action);
        return told;
    }

private Q_SLOTS:
    void init()
    {
        desk = std::make_unique<AtlasDesk>();
        desk->writeAtlas({2, 1}, {"oak"});
        desk->writeTextures({"elm"});
        asset = std::make_unique<AtlasAsset>("content/sheet", nullptr);
        told = 0;
        listening = asset->connectReloaded([this](Ozy::Reloader* reloader) {
            ++told;
            teller = reloader;
        });
    }
    void cleanup()
    {
        asset.reset();
        desk.reset();
    }

    void aChangeOfAFileOfTheAtlasIsToldOnce_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("count");
        QTest::newRow("AM") << QByteArray("content/sheet_AM.atlas") << 1;
        QTest::newRow("GBMT") << QByteArray("content/sheet_GBMT.atlas") << 1;
        QTest::newRow("MAO") << QByteArray("content/sheet_MAO.atlas") << 1;
        QTest::newRow("processed") << QByteArray("content/sheet.atlas_processed") << 1;
        QTest::newRow("processed with a suffix") << QByteArray("content/sheet_AM.atlas_processed") << 0;
        QTest::newRow("another atlas") << QByteArray("content/other_AM.atlas") << 0;
        QTest::newRow("the same name elsewhere") << QByteArray("sheet_AM.atlas") << 0;
        QTest::newRow("another extension") << QByteArray("content/sheet_AM.txt") << 0;
    }
    void aChangeOfAFileOfTheAtlasIsToldOnce()
    {
        QFETCH(QByteArray, name);

        QTEST(reloadsAfter(name), "count");
    }

    void aChangeOfATextureIsToldOnce_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("count");
        QTest::newRow("AM") << QByteArray("content/oak_AM.png") << 1;
        QTest::newRow("GBMT") << QByteArray("content/oak_GBMT.png") << 1;
        QTest::newRow("MAO") << QByteArray("content/oak_MAO.png") << 1;
        QTest::newRow("no tile's") << QByteArray("content/elm_AM.png") << 0;
        QTest::newRow("large letters") << QByteArray("content/oak_AM.PNG") << 0;
    }
    void aChangeOfATextureIsToldOnce()
    {
        QFETCH(QByteArray, name);

        QTEST(reloadsAfter(name), "count");
    }

    void onlyModificationsAreTold()
    {
        QCOMPARE(reloadsAfter("content/sheet_AM.atlas", Ozy::ResourceModificationListener::Added), 0);
        QCOMPARE(reloadsAfter("content/sheet_AM.atlas", Ozy::ResourceModificationListener::Removed), 0);
        QCOMPARE(reloadsAfter("content/oak_AM.png", Ozy::ResourceModificationListener::RenamedTo), 0);
        QCOMPARE(reloadsAfter("content/oak_AM.png", Ozy::ResourceModificationListener::Modified), 1);
    }

    void theAtlasItselfIsTheReloader()
    {
        reloadsAfter("content/sheet_AM.atlas");

        QCOMPARE(teller, static_cast<Ozy::Reloader*>(asset.get()));
    }

    void nothingIsLoadedAnew()
    {
        desk->writeAtlas({2, 1}, {"elm"});

        reloadsAfter("content/sheet_AM.atlas");

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void anotherPathIsWatchedInstead()
    {
        asset->setAtlasPath("content/copy");

        QCOMPARE(reloadsAfter("content/sheet_AM.atlas"), 0);
        QCOMPARE(reloadsAfter("content/copy_AM.atlas"), 1);
    }

    void aTextureThatWasTakenOutIsNotWatched()
    {
        asset->getTile(0)->setTexture(AtlasType::AM, "");

        QCOMPARE(reloadsAfter("content/oak_AM.png"), 0);
    }

    void theMonitorOfTheResourcesTellsOfRealChanges_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("atlas file") << "content/sheet_GBMT.atlas";
        QTest::newRow("texture") << "content/oak_MAO.png";
    }
    void theMonitorOfTheResourcesTellsOfRealChanges()
    {
        QFETCH(QString, name);
        QTest::qWait(200); // what was written before is told first
        told = 0;

        desk->disk.write(name, "changed");

        QTRY_VERIFY(told > 0);
    }

    void anAtlasThatIsGoneHearsNothing()
    {
        QTest::qWait(200);
        told = 0;
        asset.reset();

        desk->disk.write("content/sheet_AM.atlas", "changed");
        QTest::qWait(300);

        QCOMPARE(told, 0);
    }
};

QTEST_MAIN(tst_AtlasChanges)
#include "tst_atlas_changes.moc"
