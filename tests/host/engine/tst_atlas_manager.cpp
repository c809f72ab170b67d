#include <host/engine/atlas_manager.h>
#include <host/resources/multi_file_system.h>

#include "sample_atlas.h"

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

using namespace Ozy::Fennel;

namespace {

AtlasTexture::AtlasData otherAtlas()
{
    AtlasTexture::AtlasData data = sampleAtlas();
    data.tiles.pop_back();
    return data;
}

} // namespace

class tst_AtlasManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aResourceIsFoundByItsName()
    {
        DiskFolder disk;
        Ozy::FS::fileSystem()->setRoots({disk.bytes()});
        AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr);
        AtlasManager manager;

        const AtlasTexture::AtlasData& byName = manager.getAtlasData("park_AM.atlas");
        const AtlasTexture::AtlasData& byPath = manager.getAtlasData(disk.bytes("park_AM.atlas"));

        QVERIFY(byName == sampleAtlas());
        QCOMPARE(&byPath, &byName);
    }

    void aFileThatIsReplacedIsReadAnew()
    {
        DiskFolder disk;
        const std::string path = disk.bytes("park_AM.atlas");
        AtlasTexture::makeAtlasFile(path, sampleAtlas(), nullptr);
        AtlasManager manager;
        manager.getAtlasData(path);

        AtlasTexture::makeAtlasFile(path, otherAtlas(), nullptr);

        QVERIFY(manager.getAtlasData(path) == otherAtlas());
    }

    void aFileThatHasGoneGivesNoTiles()
    {
        DiskFolder disk;
        AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr);
        AtlasManager manager;
        manager.getAtlasData(disk.bytes("park_AM.atlas"));
        LogCapture log(LogCapture::FailOnRest);

        disk.remove("park_AM.atlas");

        QVERIFY(manager.getAtlasData(disk.bytes("park_AM.atlas")) == AtlasTexture::AtlasData());
    }

    void aDamagedFileGivesNoTilesAndIsToldOnce()
    {
        DiskFolder disk;
        disk.write("park_AM.atlas", "no atlas");
        const std::string path = disk.bytes("park_AM.atlas");
        AtlasManager manager;
        LogCapture log;

        manager.getAtlasData(path);
        const bool isEmpty = manager.getAtlasData(path).tiles.empty();

        QVERIFY(isEmpty);
        QCOMPARE(log.messages(),
                 QStringList{QString("5 Atlas file '%1' is no atlas file.").arg(disk.path("park_AM.atlas"))});
    }

    void theThreeFilesOfAnAtlasCanBeHeldAtOnce()
    {
        DiskFolder disk;
        AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr);
        AtlasManager manager;

        const AtlasTexture::AtlasData& am = manager.getAtlasData(disk.bytes("park_AM.atlas"));
        manager.getAtlasData(disk.bytes("park_GBMT.atlas"));
        manager.getAtlasData(disk.bytes("park_MAO.atlas"));

        QVERIFY(am == sampleAtlas());
    }

    void theFilesAskedForLongestAgoAreForgotten()
    {
        DiskFolder disk;
        disk.write("park_AM.atlas", "no atlas");
        AtlasManager manager;
        LogCapture log;
        manager.getAtlasData(disk.bytes("park_AM.atlas"));

        for (std::size_t i = 0; i < AtlasManager::capacity; ++i)
            manager.getAtlasData(disk.bytes("none") + std::to_string(i));
        manager.getAtlasData(disk.bytes("park_AM.atlas"));

        QCOMPARE(log.messages().size(), 2);
    }

    void savingForgetsWhatWasKept()
    {
        DiskFolder disk;
        disk.write("park_AM.atlas", "no atlas");
        AtlasManager manager;
        LogCapture log;
        manager.getAtlasData(disk.bytes("park_AM.atlas"));

        manager.onAtlasFilesSaved();
        manager.getAtlasData(disk.bytes("park_AM.atlas"));

        QCOMPARE(log.messages().size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_AtlasManager)
#include "tst_atlas_manager.moc"
