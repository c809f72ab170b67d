#include "sample_atlas.h"

#include <host/reflection/meta.h>
#include <host/registry/instances.h>
#include <support/log_capture.h>

#include <QtTest>

using AtlasData = AtlasDesk::AtlasData;
using zarn::reflect;

/// Changes the three files of a sound atlas.
using Damage = std::function<void(AtlasData& am, AtlasData& gbmt, AtlasData& mao)>;
Q_DECLARE_METATYPE(Damage)

class tst_AtlasAsset : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;

    static QString rectsOf(const AtlasData& data)
    {
        QStringList lines;
        for (const auto& [rect, path] : data.tiles)
            lines << QString("%1-%2 %3-%4 %5").arg(rect.left).arg(rect.right).arg(rect.top).arg(rect.bottom).arg(path.c_str());
        return lines.join("; ");
    }

private Q_SLOTS:
    void init() { desk = std::make_unique<AtlasDesk>(); }
    void cleanup() { desk.reset(); }

    void namesOfFilesEndInTheirClass()
    {
        QCOMPARE(AtlasAsset::atlasExtension, std::string(".atlas"));
        QCOMPARE(AtlasAsset::atlasFilenameSuffix("AM"), std::string("_AM.atlas"));
        QCOMPARE(AtlasAsset::atlasFilenameSuffix(AtlasType::GBMT), std::string("_GBMT.atlas"));
        QCOMPARE(AtlasAsset::atlasFilenameSuffix(AtlasType::MAO), std::string("_MAO.atlas"));
    }

    void atlasFilesAreToldByTheirSuffix_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isAtlas");
        QTest::newRow("AM") << "a/b_AM.atlas" << true;
        QTest::newRow("GBMT") << "b_GBMT.atlas" << true;
        QTest::newRow("MAO") << "b_MAO.atlas" << true;
        QTest::newRow("suffix alone") << "_AM.atlas" << true;
        QTest::newRow("no class") << "b.atlas" << false;
        QTest::newRow("small letters") << "b_am.atlas" << false;
        QTest::newRow("another extension") << "b_AM.atlas_processed" << false;
        QTest::newRow("nothing") << "" << false;
    }
    void atlasFilesAreToldByTheirSuffix()
    {
        QFETCH(QString, name);

        QTEST(AtlasAsset::isAtlasFilename(name.toStdString()), "isAtlas");
    }

    void basePathsHaveNeitherSuffixNorExtension_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("base");
        QTest::newRow("AM") << "content/sheet_AM.atlas" << "content/sheet";
        QTest::newRow("MAO") << "content/sheet_MAO.atlas" << "content/sheet";
        QTest::newRow("bare") << "content/sheet" << "content/sheet";
        QTest::newRow("other file") << "name.png" << "name";
        QTest::newRow("stem with a dot") << "a.b_AM.atlas" << "a";
        QTest::newRow("only the first suffix") << "a_GBMT.atlas_AM.atlas" << "a_GBMT";
        QTest::newRow("processed") << "x_AM.atlas_processed" << "x_AM";
    }
    void basePathsHaveNeitherSuffixNorExtension()
    {
        QFETCH(QString, path);

        QTEST(QString::fromStdString(AtlasAsset::getAtlasBasePath(path.toStdString(), false)), "base");
    }

    void aResolvedBasePathIsAbsolute()
    {
        QCOMPARE(AtlasAsset::getAtlasBasePath("content/sheet_AM.atlas", true), desk->file("content/sheet"));
    }

    void otherNamesLeadToTheAmFile_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("resource");
        QTest::newRow("atlas file") << "a_MAO.atlas" << "a_MAO.atlas";
        QTest::newRow("other file") << "name.png" << "name_AM.atlas";
        QTest::newRow("bare") << "content/sheet" << "content/sheet_AM.atlas";
    }
    void otherNamesLeadToTheAmFile()
    {
        QFETCH(QString, path);

        QTEST(QString::fromStdString(AtlasAsset::toAtlasResourcePath(path.toStdString())), "resource");
    }

    void anAtlasIsLoadedByAnyOfItsNames_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("bare") << "content/sheet";
        QTest::newRow("AM") << "content/sheet_AM.atlas";
        QTest::newRow("MAO") << "content/sheet_MAO.atlas";
        QTest::newRow("other extension") << "content/sheet.png";
    }
    void anAtlasIsLoadedByAnyOfItsNames()
    {
        QFETCH(QString, path);
        desk->writeAtlas({3, 2}, {"oak", "-", "elm", "ash"});
        LogCapture log(LogCapture::FailOnRest);

        const AtlasAsset asset(path.toStdString(), nullptr);

        QCOMPARE(stemsOf(asset), (QStringList{"oak", "-", "elm", "ash", "-", "-"}));
        QCOMPARE(asset.basePath(), desk->file("content/sheet"));
    }

    void anAtlasIsLoadedByItsAbsolutePath()
    {
        desk->writeAtlas({2, 1}, {"oak"});

        const AtlasAsset asset(desk->file("content/sheet_AM.atlas"), nullptr);

        QCOMPARE(stemsOf(asset), (QStringList{"oak", "-"}));
        QCOMPARE(asset.assetPath(), std::string("content/sheet_AM.atlas"));
    }

    void theGridFollowsFromTheFirstEntryAndTheSize()
    {
        desk->writeAtlas({3, 2}, {"oak"});

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(gridOf(asset), QString("3x2"));
        QCOMPARE(asset.tileSize(), 4);
        QCOMPARE(asset.data().atlasSize.x, 12);
        QCOMPARE(asset.data().atlasSize.y, 8);
        QCOMPARE(asset.totalTilesCount(), 6);
        QCOMPARE(asset.assetPath(), std::string("content/sheet_AM.atlas"));
        QCOMPARE(asset.getTile(5)->index(), std::size_t(5));
        QVERIFY(!asset.getTile(6));
    }

    void eachTileHasTheTexturesOfItsThreeFiles()
    {
        desk->writeAtlas({2, 1}, {"-", "oak"});

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(asset.getTile(1)->textures(),
                 (std::vector<std::string>{"content/oak_AM.png", "content/oak_GBMT.png", "content/oak_MAO.png"}));
    }

    void theFirstOfSeveralEntriesForASlotWins()
    {
        AtlasData data = AtlasDesk::dataOf(AtlasType::AM, {2, 1}, {"oak", "elm"});
        data.tiles.push_back({data.tiles[1].first, "content/late_AM.png"});
        desk->writeData(AtlasType::AM, data);
        desk->writeData(AtlasType::GBMT, data);
        AtlasData mao = AtlasDesk::dataOf(AtlasType::MAO, {2, 1}, {"oak", "elm"});
        mao.tiles.push_back({mao.tiles[1].first, "content/late_MAO.png"});
        desk->writeData(AtlasType::MAO, mao);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(stemsOf(asset), (QStringList{"oak", "elm"}));
    }

    void entriesBesideTheGridAreLeftOut()
    {
        AtlasData data = AtlasDesk::dataOf(AtlasType::AM, {2, 2}, {"oak"});
        data.tiles.push_back({{2, 6, 0, 4}, "content/between_AM.png"});
        data.tiles.push_back({{0, 8, 4, 12}, "content/double_AM.png"});
        desk->writeData(AtlasType::AM, data);
        desk->writeData(AtlasType::GBMT, data);
        AtlasData mao = AtlasDesk::dataOf(AtlasType::MAO, {2, 2}, {"oak"});
        mao.tiles.push_back({{1, 3, 0, 2}, "content/between_MAO.png"});
        mao.tiles.push_back({{0, 4, 2, 6}, "content/double_MAO.png"});
        desk->writeData(AtlasType::MAO, mao);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(stemsOf(asset), (QStringList{"oak", "-", "-", "-"}));
    }

    void remaindersOfTheSizeAreDropped()
    {
        AtlasData data = AtlasDesk::dataOf(AtlasType::AM, {2, 1}, {"oak"});
        data.width = 10;
        data.height = 6;
        desk->writeData(AtlasType::AM, data);
        desk->writeData(AtlasType::GBMT, data);
        AtlasData mao = AtlasDesk::dataOf(AtlasType::MAO, {2, 1}, {"oak"});
        mao.width = 5;
        mao.height = 3;
        desk->writeData(AtlasType::MAO, mao);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(gridOf(asset), QString("2x1"));
        QCOMPARE(asset.data().atlasSize.x, 10);
    }

    void filesThatDoNotAgreeAreRefused_data()
    {
        QTest::addColumn<Damage>("damage");
        QTest::addColumn<QString>("refusal");
        const auto row = [](const char* name, const Damage& damage, const char* refusal) {
            QTest::newRow(name) << damage << QString(refusal);
        };
        row("AM without entries", [](AtlasData& am, AtlasData&, AtlasData&) { am.tiles.clear(); },
            "5 Failed to load AM atlas data.");
        row("GBMT without entries", [](AtlasData&, AtlasData& gbmt, AtlasData&) { gbmt.tiles.clear(); },
            "5 Failed to load GBMT atlas data.");
        row("MAO without entries", [](AtlasData&, AtlasData&, AtlasData& mao) { mao.tiles.clear(); },
            "5 Failed to load MAO atlas data.");
        row("the order of the checks",
            [](AtlasData& am, AtlasData& gbmt, AtlasData& mao) {
                am.height = 0;
                gbmt.tiles.pop_back();
                mao.tiles.clear();
            },
            "5 Failed to load MAO atlas data.");
        row("fewer GBMT entries", [](AtlasData&, AtlasData& gbmt, AtlasData&) { gbmt.tiles.pop_back(); },
            "5 GMBT tiles count mismatch. AM tiles: 2, GBMT tiles: 1.");
        row("fewer MAO entries", [](AtlasData&, AtlasData&, AtlasData& mao) { mao.tiles.pop_back(); },
            "5 MAO tiles count mismatch. AM tiles: 2, MAO tiles: 1.");
        row("an AM tile without width", [](AtlasData& am, AtlasData&, AtlasData&) { am.tiles[1].first.right = 4; },
            "5 Invalid 1 tile rect in AM atlas. Rect: 4x0 - 4x4.");
        row("an AM tile upside down", [](AtlasData& am, AtlasData&, AtlasData&) { am.tiles[0].first = {0, 4, 4, 0}; },
            "5 Invalid 0 tile rect in AM atlas. Rect: 0x4 - 4x0.");
        row("another GBMT tile", [](AtlasData&, AtlasData& gbmt, AtlasData&) { gbmt.tiles[1].first.bottom = 5; },
            "5 GBMT 1 tile rect inconsistency. AM rect: 4x0 - 8x4. GBMT rect: 4x0 - 8x5");
        row("another MAO tile", [](AtlasData&, AtlasData&, AtlasData& mao) { mao.tiles[1].first.left = 3; },
            "5 MAO 1 tile rect inconsistency. AM rect: 4x0 - 8x4. MAO rect: 3x0 - 4x2");
        row("the same tiles in another order",
            [](AtlasData&, AtlasData& gbmt, AtlasData&) { std::swap(gbmt.tiles[0], gbmt.tiles[1]); },
            "5 GBMT 0 tile rect inconsistency. AM rect: 0x0 - 4x4. GBMT rect: 4x0 - 8x4");
        row("no height", [](AtlasData& am, AtlasData&, AtlasData&) { am.height = 0; }, "5 AM atlas has zero size.");
        row("another GBMT size", [](AtlasData&, AtlasData& gbmt, AtlasData&) { gbmt.width = 16; },
            "5 GMBT atlas size mismatch. AM size: 8x4, GBMT size: 16x4. GBMT atlas must be same size as AM atlas.");
        row("another MAO size", [](AtlasData&, AtlasData&, AtlasData& mao) { mao.height = 4; },
            "5 MAO atlas size mismatch. AM size: 8x4, MAO size: 4x4. MAO atlas must be twice smaller than AM atlas.");
    }
    void filesThatDoNotAgreeAreRefused()
    {
        QFETCH(Damage, damage);
        QFETCH(QString, refusal);
        ScriptedManager manager;
        damage(manager.am, manager.gbmt, manager.mao);
        LogCapture log(LogCapture::FailOnRest);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(log.messages(), QStringList{refusal});
        QCOMPARE(asset.totalTilesCount(), 0);
        QCOMPARE(asset.tileSize(), 0);
    }

    void aGridThatFitsInNoMemoryIsRefused()
    {
        ScriptedManager manager;
        manager.am.width = manager.am.height = manager.gbmt.width = manager.gbmt.height = 4000000000U;
        manager.mao.width = manager.mao.height = 2000000000U;
        LogCapture log;

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(log.messages(), QStringList{"5 Atlas of 4000000000x4000000000 with tiles of 4 is too large."});
        QCOMPARE(asset.totalTilesCount(), 0);
    }

    void aTileThatIsLargerThanItsAtlasLeavesNoGrid()
    {
        ScriptedManager manager;
        manager.am.tiles = manager.gbmt.tiles = {{{0, 40, 0, 40}, ""}};
        manager.mao.tiles = {{{0, 20, 0, 20}, ""}};
        LogCapture log(LogCapture::FailOnRest);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(gridOf(asset), QString("0x0"));
        QCOMPARE(asset.data().tiles->size(), std::size_t(0));
    }

    void withoutFilesThereAreNoTiles()
    {
        LogCapture log;

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(log.messages(), QStringList{"5 Failed to load AM atlas data."});
        QCOMPARE(asset.totalTilesCount(), 0);
        QVERIFY(!asset.getTile(0));
    }

    void withoutTheManagerThereAreNoTiles()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        instances::set<IAtlasManager>(nullptr);
        LogCapture log;

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(log.assertions(), (QStringList{"ptr", "ptr", "ptr"}));
        QCOMPARE(asset.totalTilesCount(), 0);
    }

    void aTextureMayBeGoneSinceTheAtlasWasSaved()
    {
        desk->writeAtlas({2, 1}, {"oak", "elm"});
        desk->disk.remove("content/oak_AM.png");
        LogCapture log(LogCapture::FailOnRest);

        const AtlasAsset asset("content/sheet", nullptr);

        QCOMPARE(stemsOf(asset), (QStringList{"oak", "elm"}));
    }

    void savingWritesOneEntryATexture()
    {
        desk->writeAtlas({2, 2}, {"oak", "-", "elm"});
        const AtlasAsset asset("content/sheet", nullptr);
        desk->disk.remove("content/sheet_AM.atlas");
        desk->disk.remove("content/sheet_GBMT.atlas");
        desk->disk.remove("content/sheet_MAO.atlas");

        QVERIFY(asset.save());

        const AtlasData am = desk->read("content/sheet_AM.atlas");
        const AtlasData gbmt = desk->read("content/sheet_GBMT.atlas");
        const AtlasData mao = desk->read("content/sheet_MAO.atlas");
        QCOMPARE(rectsOf(am), QString("0-4 0-4 content/oak_AM.png; 0-4 4-8 content/elm_AM.png"));
        QCOMPARE(rectsOf(gbmt), QString("0-4 0-4 content/oak_GBMT.png; 0-4 4-8 content/elm_GBMT.png"));
        QCOMPARE(rectsOf(mao), QString("0-2 0-2 content/oak_MAO.png; 0-2 2-4 content/elm_MAO.png"));
        QVERIFY(am.leadingFlag == 1 && am.fullSizeFlag == 1 && am.width == 8 && am.height == 8);
        QVERIFY(gbmt.leadingFlag == 1 && gbmt.fullSizeFlag == 1 && gbmt.width == 8 && gbmt.height == 8);
        QVERIFY(mao.leadingFlag == 1 && mao.fullSizeFlag == 0 && mao.width == 4 && mao.height == 4);
    }

    void whatIsSavedIsLoadedAsItWas()
    {
        desk->writeAtlas({3, 2}, {"oak", "-", "elm"});
        desk->writeTextures({QString::fromUtf8("дуб")});
        AtlasAsset asset("content/sheet", nullptr);
        asset.getTile(4)->setTexture(AtlasType::AM, textureOf(QString::fromUtf8("дуб")));

        QVERIFY(asset.save());

        const AtlasAsset again("content/sheet", nullptr);
        QCOMPARE(stemsOf(again), (QStringList{"oak", "-", "elm", "-", QString::fromUtf8("дуб"), "-"}));
        QCOMPARE(gridOf(again), QString("3x2"));
    }

    void anEmptyAtlasKeepsItsGrid()
    {
        desk->writeAtlas({3, 2}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        asset.getTile(0)->setTexture(AtlasType::AM, "");

        QVERIFY(asset.save());

        QCOMPARE(rectsOf(desk->read("content/sheet_MAO.atlas")), QString("0-2 0-2 "));
        const AtlasAsset again("content/sheet", nullptr);
        QCOMPARE(gridOf(again), QString("3x2"));
        QCOMPARE(again.tileSize(), 4);
        QCOMPARE(stemsOf(again), (QStringList{"-", "-", "-", "-", "-", "-"}));
    }

    void aTileWithoutMaoMakesFilesThatDoNotLoad()
    {
        desk->writeAtlas({2, 1}, {"oak", "elm"});
        AtlasAsset asset("content/sheet", nullptr);
        asset.getTile(1)->setTexture(AtlasType::MAO, "");
        LogCapture log;

        QVERIFY(asset.save());

        const AtlasAsset again("content/sheet", nullptr);
        QCOMPARE(log.messages(), QStringList{"5 MAO tiles count mismatch. AM tiles: 2, MAO tiles: 1."});
    }

    void aClassThatNoTileHasMakesAFileWithoutEntries()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        asset.getTile(0)->setTexture(AtlasType::MAO, "");
        LogCapture log;

        QVERIFY(asset.save());

        const AtlasAsset again("content/sheet", nullptr);
        QCOMPARE(log.messages(), QStringList{"5 Failed to load MAO atlas data."});
    }

    void allFilesAreTriedWhenOneCannotBeWritten()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        const AtlasAsset asset("content/sheet", nullptr);
        desk->disk.remove("content/sheet_AM.atlas");
        desk->disk.remove("content/sheet_MAO.atlas");
        desk->disk.makeDirectory("content/sheet_AM.atlas/in the way");
        LogCapture log;

        QVERIFY(!asset.save());

        QCOMPARE(desk->read("content/sheet_MAO.atlas").tiles.size(), std::size_t(1));
        QCOMPARE(log.messages().size(), 1);
    }

    void theManagerIsToldOfASaveThatSucceeds()
    {
        ScriptedManager manager;
        const AtlasAsset asset("content/sheet", nullptr);

        QVERIFY(asset.save());
        QCOMPARE(manager.saved, 1);

        desk->disk.remove("content/sheet_GBMT.atlas");
        desk->disk.makeDirectory("content/sheet_GBMT.atlas/in the way");
        LogCapture log;
        QVERIFY(!asset.save());
        QCOMPARE(manager.saved, 1);
    }

    void anAtlasThatWasNotLoadedSavesOneEmptyEntry()
    {
        LogCapture log;
        const AtlasAsset asset("content/none", nullptr);

        asset.save();

        QCOMPARE(log.assertions(), QStringList());
        QVERIFY(desk->read("content/none_AM.atlas").tiles.size() <= 1);
    }

    void anotherPathIsWhereTheNextSaveGoes()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        int told = 0;
        const zarn::BoundProperty name = reflect(asset).findPropertyByName("_objectName");
        const ryk::ScopedConnection listening = name.connectPropertyChanged([&] { ++told; });

        asset.setAtlasPath("content/copy");

        QCOMPARE(told, 1);
        QCOMPARE(asset.assetPath(), std::string("content/copy_AM.atlas"));
        QCOMPARE(stemsOf(asset), (QStringList{"oak", "-"}));
        QVERIFY(asset.save());
        QCOMPARE(desk->read("content/copy_AM.atlas"), desk->read("content/sheet_AM.atlas"));
    }

    void aTileThatChangesIsToldWithItsClassAndSlot()
    {
        desk->writeAtlas({2, 1}, {"oak", "elm"});
        AtlasAsset asset("content/sheet", nullptr);
        QStringList told;
        const ryk::ScopedConnection listening = asset.connectTileChanged(
            [&](AtlasType type, std::size_t slot) { told << QString("%1 %2").arg(int(type)).arg(slot); });

        asset.getTile(1)->setTexture(AtlasType::AM, "");
        asset.getTile(0)->setTexture(AtlasType::MAO, "");

        QCOMPARE(told, (QStringList{"0 1", "2 0"}));
    }

    void tilesThatOutliveTheAtlasTellNobody()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        auto asset = std::make_unique<AtlasAsset>("content/sheet", nullptr);
        int told = 0;
        const ryk::ScopedConnection listening = asset->connectTileChanged([&](AtlasType, std::size_t) { ++told; });
        const std::shared_ptr<AtlasTile> tile = asset->getTile(0);
        asset.reset();

        QVERIFY(tile->setTexture(AtlasType::AM, ""));

        QCOMPARE(told, 0);
    }

    void theReflectionShowsThePropertiesInOrder()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        const zarn::ReflectedObject handle = reflect(asset);
        const auto text = [&](const char* name) { return handle.findPropertyByName(name).get().value<std::string>(); };

        QCOMPARE(propertyNames(handle),
                 (QStringList{"_maxTiles", "_typeName", "_typeIcon", "_objectName", "_objectIcon", "tilesCountX",
                              "tilesCountY", "addTextures", "crop", "tiles"}));
        QCOMPARE(handle.findPropertyByName("_maxTiles").get().value<int>(), 4096);
        QCOMPARE(text("_typeName"), std::string("Atlas"));
        QCOMPARE(text("_typeIcon"), std::string("resources/images/texture_asset/texture-atlas.svg"));
        QCOMPARE(text("_objectName"), std::string("sheet"));
        QCOMPARE(text("_objectIcon"), std::string("resources/images/texture_asset/texture-atlas.svg"));
        QCOMPARE(handle.metaObject()->name(), std::string("AtlasAsset"));
        QCOMPARE(handle.annotations().valueOr<Meta::MultiSelection::ObjectType>().name(handle), std::string("Atlas"));
    }

    void panelsAreToldHowToEditTheGrid()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        const zarn::BoundProperty columns = reflect(asset).findPropertyByName("tilesCountX");
        const auto limits = columns.annotations().valueOr<Meta::MinMax>();

        QVERIFY(columns.isStateless());
        QCOMPARE(columns.annotations().valueOr<Meta::Label::Text>()(columns), std::string("Columns"));
        QCOMPARE(columns.annotations().valueOr<Meta::Precision>().digits, 0);
        QCOMPARE(limits.range(columns)->first.value<int>(), 1);
        QCOMPARE(limits.range(columns)->second.value<int>(), 4096);
        QVERIFY(!limits.range(columns, zarn::SetterFlag::Unlimited));
    }

    void theMethodsAreButtons()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);
        const zarn::BoundProperty add = reflect(asset).findPropertyByName("addTextures");
        const zarn::BoundProperty crop = reflect(asset).findPropertyByName("crop");

        QVERIFY(add.isMethod() && crop.isMethod());
        QCOMPARE(add.annotations().valueOr<Meta::Button::Text>()(add), std::string("Add textures"));
        QCOMPARE(crop.annotations().valueOr<Meta::Button::Text>()(crop), std::string("Crop texture atlas"));
        QCOMPARE(crop.annotations().valueOr<Meta::Selection>().first, 3);
        QVERIFY(!add.annotations().valueOr<Meta::Label::Visible>()(add));
    }

    void theTilesAreACollectionOfSceneItems()
    {
        desk->writeAtlas({2, 1}, {"oak"});
        AtlasAsset asset("content/sheet", nullptr);

        const zarn::ReflectedObject tiles(reflect(asset).findPropertyByName("tiles"));

        QCOMPARE(tiles.propertyCount(), std::size_t(2));
        QVERIFY(tiles.isStateless());
        QVERIFY(zarn::ReflectedObject(tiles.propertyAt(1)) == reflect(*asset.getTile(1)));
        QVERIFY(tiles.propertyAt(1).annotations().contain<Meta::SceneItem>());
        QVERIFY(tiles.reference().annotations().contain<Meta::Children>());
    }

private:
    /// Answers for "content/sheet", a sound atlas of two tiles, from memory.
    struct ScriptedManager final : IAtlasManager
    {
        ScriptedManager() { instances::set<IAtlasManager>(this); }

        const AtlasData& getAtlasData(const std::string& path) override
        {
            return path == "content/sheet_AM.atlas" ? am : path == "content/sheet_GBMT.atlas" ? gbmt : mao;
        }
        void onAtlasFilesSaved() override { ++saved; }

        AtlasData am = AtlasDesk::dataOf(AtlasType::AM, {2, 1}, {"oak", "elm"});
        AtlasData gbmt = AtlasDesk::dataOf(AtlasType::GBMT, {2, 1}, {"oak", "elm"});
        AtlasData mao = AtlasDesk::dataOf(AtlasType::MAO, {2, 1}, {"oak", "elm"});
        int saved = 0;
    };
};

QTEST_MAIN(tst_AtlasAsset)
#include "tst_atlas_asset.moc"
