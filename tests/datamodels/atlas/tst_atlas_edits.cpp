#include "sample_atlas.h"

#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <support/log_capture.h>

#include <QtTest>

using zarn::reflect;

/// Resizes and crops of an atlas, and their undo.
class tst_AtlasEdits : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;
    std::unique_ptr<AtlasAsset> asset;
    std::unique_ptr<Ozy::ChangesController> history;

    void load(AtlasViewData::Point grid, const QStringList& stems)
    {
        desk->writeAtlas(grid, stems);
        asset = std::make_unique<AtlasAsset>("content/sheet", history.get());
    }
    bool set(const char* property, int count)
    {
        return reflect(*asset).findPropertyByName(property).set(qelm::Variant(count), {});
    }
    int get(const char* property) const
    {
        return reflect(*asset).findPropertyByName(property).get().value<int>();
    }
    void resize(int columns, int rows) { AtlasAssetAccess::setTilesCount(*asset, {columns, rows}); }
    bool crop()
    {
        const Ozy::CommitChangesScope scope("Crop", history.get());
        return asset->crop();
    }
    void clear(std::size_t slot)
    {
        const Ozy::CommitChangesScope scope("Clear", history.get());
        asset->getTile(slot)->clear();
    }
    QStringList historyNames() const
    {
        QStringList names;
        for (std::size_t step = 0; step < history->historySize(); ++step)
            names << QString::fromUtf8(history->barrierName(step).data(), int(history->barrierName(step).size()));
        return names;
    }
    QList<int> indexes() const
    {
        QList<int> indexes;
        for (const auto& tile : *asset->data().tiles)
            indexes << int(tile->index());
        return indexes;
    }

private Q_SLOTS:
    void init()
    {
        desk = std::make_unique<AtlasDesk>();
        history = std::make_unique<Ozy::ChangesController>();
    }
    void cleanup()
    {
        history.reset();
        asset.reset();
        desk.reset();
    }

    void moreRowsAreEmptyTilesAtTheEnd()
    {
        load({2, 1}, {"oak", "elm"});

        QVERIFY(set("tilesCountY", 2));

        QCOMPARE(gridOf(*asset), QString("2x2"));
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "-", "-"}));
        QCOMPARE(indexes(), (QList<int>{0, 1, 2, 3}));
        QCOMPARE(asset->data().atlasSize.y, 8);
        QCOMPARE(historyNames(), QStringList{"Set Tiles Count"});
    }

    void moreColumnsMoveNoTileInTheList()
    {
        load({2, 2}, {"oak", "elm", "ash"});

        set("tilesCountX", 3);

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "ash", "-", "-", "-"}));
        QCOMPARE(asset->data().atlasSize.x, 12);
        QVERIFY(asset->save());
        QCOMPARE(desk->read("content/sheet_AM.atlas").tiles[2].first, (Ozy::RectT<unsigned>{8, 12, 0, 4}));
    }

    void aResizeIsUndoneAndRedone()
    {
        load({2, 1}, {"oak", "elm"});
        set("tilesCountY", 3);

        QVERIFY(history->undo());
        QCOMPARE(gridOf(*asset), QString("2x1"));
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
        QCOMPARE(get("tilesCountY"), 1);

        QVERIFY(history->redo());
        QCOMPARE(gridOf(*asset), QString("2x3"));
        QCOMPARE(get("tilesCountY"), 3);
    }

    void fewerRowsTakeTheLastTilesAndUndoBringsTheirTexturesBack()
    {
        load({2, 2}, {"oak", "elm", "ash", "fir"});

        set("tilesCountY", 1);
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));

        QVERIFY(history->undo());
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "ash", "fir"}));
        QCOMPARE(asset->getTile(3)->texturePath(AtlasType::MAO), std::string("content/fir_MAO.png"));
    }

    void aResizeTellsTheCountsTheTilesAndTheGrid()
    {
        load({2, 1}, {"oak", "elm"});
        QStringList told;
        const auto note = [&](const char* text) { return [&told, text] { told << text; }; };
        const zarn::ReflectedObject handle = reflect(*asset);
        const zarn::ReflectedObject tiles(handle.findPropertyByName("tiles"));
        const ryk::ScopedConnection connections[] = {
            handle.findPropertyByName("tilesCountX").connectPropertyAboutToBeChanged(note("columns to change")),
            handle.findPropertyByName("tilesCountY").connectPropertyAboutToBeChanged(note("rows to change")),
            handle.findPropertyByName("tilesCountX").connectPropertyChanged(note("columns")),
            handle.findPropertyByName("tilesCountY").connectPropertyChanged(note("rows")),
            tiles.connectPropertyAdded(note("tile added")),
            asset->connectTilesCountChanged(note("grid")),
        };

        resize(2, 2);

        QCOMPARE(told.mid(0, 5), (QStringList{"columns to change", "rows to change", "tile added", "tile added", "grid"}));
        QCOMPARE(QSet<QString>(told.begin() + 5, told.end()), (QSet<QString>{"columns", "rows"}));
        QCOMPARE(told.size(), 7);
    }

    void theSameNumberOfTilesIsRefused()
    {
        load({3, 2}, {"oak"});
        LogCapture log;

        resize(2, 3);

        QCOMPARE(log.messages(),
                 QStringList{"5 RemoveTilesCommand: current tiles count (6) lesser than new count (6)."});
        QCOMPARE(gridOf(*asset), QString("3x2"));
        QCOMPARE(historyNames(), QStringList());
    }

    void aRefusedCountStaysRequested()
    {
        load({3, 2}, {"oak"});
        LogCapture log;
        AtlasAssetAccess::request(*asset, {2, 2});

        set("tilesCountY", 3);

        QCOMPARE(get("tilesCountX"), 2);
        QCOMPARE(get("tilesCountY"), 3);
        QCOMPARE(gridOf(*asset), QString("3x2"));
        QCOMPARE(log.messages().size(), 1);
    }

    void theCountThatIsThereChangesNothing()
    {
        load({3, 2}, {"oak"});
        LogCapture log(LogCapture::FailOnRest);

        set("tilesCountX", 3);

        QCOMPARE(historyNames(), QStringList());
    }

    void aWiderButLowerAtlasCannotBeUndone()
    {
        load({3, 4}, {"oak"});
        resize(4, 2);
        QCOMPARE(gridOf(*asset), QString("4x2"));
        LogCapture log;

        QVERIFY(!history->undo());

        QVERIFY(log.messages().contains("5 AddTilesCommand: new tiles X count (3) lesser than current (4)."));
        QCOMPARE(gridOf(*asset), QString("4x2"));
    }

    void moreTilesInFewerRowsAreRefused()
    {
        load({2, 3}, {"oak"});
        LogCapture log;

        resize(4, 2);

        QCOMPARE(log.messages(), QStringList{"5 AddTilesCommand: new tiles Y count (2) lesser than current (3)."});
        QCOMPARE(gridOf(*asset), QString("2x3"));
        QCOMPARE(historyNames(), QStringList());
    }

    void moreTilesInFewerColumnsAreRefused()
    {
        load({3, 2}, {"oak"});
        LogCapture log;

        resize(2, 4);

        QCOMPARE(log.messages(), QStringList{"5 AddTilesCommand: new tiles X count (2) lesser than current (3)."});
    }

    void impossibleCountsAreRefused_data()
    {
        QTest::addColumn<int>("columns");
        QTest::newRow("negative") << -1;
        QTest::newRow("too many") << 1000000;
        QTest::newRow("beyond an int") << 2000000000;
    }
    void impossibleCountsAreRefused()
    {
        QFETCH(int, columns);
        load({2, 2}, {"oak", "elm"});
        LogCapture log;

        set("tilesCountX", columns);

        QCOMPARE(log.messages(), QStringList{QString("5 An atlas of %1 x 2 tiles is not possible.").arg(columns)});
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "-", "-"}));
        QCOMPARE(historyNames(), QStringList());
    }

    void noColumnsAreNoTilesAndUndoBringsThemBack()
    {
        load({2, 1}, {"oak", "elm"});

        set("tilesCountX", 0);
        QCOMPARE(asset->data().tiles->size(), std::size_t(0));
        QCOMPARE(AtlasAssetAccess::freeSlots(*asset), std::vector<std::size_t>());

        QVERIFY(history->undo());
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
    }

    void aPreviewCannotBeResized()
    {
        load({2, 1}, {"oak", "elm"});
        asset->setChangesController(nullptr);
        LogCapture log;

        set("tilesCountX", 3);

        QCOMPARE(log.assertions(), QStringList{"m_changesController"});
        QCOMPARE(gridOf(*asset), QString("2x1"));
    }

    void theCollectionRecordsNothingItself()
    {
        load({2, 1}, {"oak", "elm"});
        {
            const Ozy::CommitChangesScope scope("Remove", history.get());
            zarn::ReflectedObject(reflect(*asset).findPropertyByName("tiles")).removePropertyAt(1);
        }

        QCOMPARE(historyNames(), QStringList());
    }

    void cropTakesWholeRowsOfEmptyTiles()
    {
        load({4, 4}, {"-", "a", "-", "b", "c", "-", "-", "d", "-", "e", "-", "-", "f", "g", "-", "-"});

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("4x2"));
        QCOMPARE(stemsOf(*asset), (QStringList{"a", "b", "c", "d", "e", "f", "g", "-"}));
        QCOMPARE(indexes(), (QList<int>{0, 1, 2, 3, 4, 5, 6, 7}));
        QCOMPARE(asset->data().atlasSize.y, 8);
    }

    void cropOfLessThanARowLeavesTheFilledTiles()
    {
        load({4, 4}, {"-", "a", "-", "-", "b", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "c"});

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("3x1"));
        QCOMPARE(stemsOf(*asset), (QStringList{"a", "b", "c"}));
    }

    void cropOfAnEmptyAtlasLeavesOneTile()
    {
        load({4, 4}, {"oak"});
        asset->getTile(0)->setTexture(AtlasType::AM, "");

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("1x1"));
        QCOMPARE(stemsOf(*asset), QStringList{"-"});
    }

    void cropOfAFullAtlasIsAStepThatChangesNothing()
    {
        load({2, 1}, {"oak", "elm"});
        int told = 0;
        const zarn::BoundProperty columns = reflect(*asset).findPropertyByName("tilesCountX");
        const ryk::ScopedConnection listening = columns.connectPropertyChanged([&] { ++told; });

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("2x1"));
        QCOMPARE(told, 1);
        QCOMPARE(historyNames(), QStringList{"Crop"});
    }

    void aTileWithOneTextureOnlyIsNotCropped()
    {
        load({2, 1}, {"oak", "elm"});
        desk->writeAtlas({2, 2}, {"oak", "elm", "ash", "-"});
        asset = std::make_unique<AtlasAsset>("content/sheet", history.get());
        asset->getTile(0)->setTexture(AtlasType::AM, "");
        asset->getTile(0)->setTexture(AtlasType::GBMT, textureOf("oak", "GBMT"));
        asset->getTile(2)->setTexture(AtlasType::AM, "");

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("2x1"));
        QCOMPARE(asset->getTile(0)->texturePath(AtlasType::GBMT), std::string("content/oak_GBMT.png"));
    }

    void cropIsUndoneAndRedone()
    {
        const QStringList before = {"-", "a", "-", "b", "c", "-", "-", "d"};
        load({2, 4}, before);
        crop();
        QCOMPARE(stemsOf(*asset), (QStringList{"a", "b", "c", "d"}));

        QVERIFY(history->undo());
        QCOMPARE(gridOf(*asset), QString("2x4"));
        QCOMPARE(stemsOf(*asset), before);
        QCOMPARE(indexes(), (QList<int>{0, 1, 2, 3, 4, 5, 6, 7}));

        QVERIFY(history->redo());
        QCOMPARE(gridOf(*asset), QString("2x2"));
        QCOMPARE(stemsOf(*asset), (QStringList{"a", "b", "c", "d"}));
    }

    void filledTilesStayTheSameObjects()
    {
        load({2, 2}, {"-", "-", "oak", "elm"});
        const std::shared_ptr<AtlasTile> oak = asset->getTile(2);

        crop();
        QCOMPARE(asset->getTile(0), oak);

        history->undo();
        QCOMPARE(asset->getTile(2), oak);
    }

    void editsOfTilesThatWereCroppedAreStillUndone()
    {
        load({1, 3}, {"oak", "elm", "ash"});
        clear(2);
        crop();

        QVERIFY(history->jumpTo(0));

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "ash"}));
    }

    void editsOfTilesThatAResizeTookAreStillUndone()
    {
        load({1, 3}, {"oak", "elm", "ash"});
        clear(2);
        set("tilesCountY", 2);

        QVERIFY(history->jumpTo(0));

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "ash"}));
    }

    void tilesThatComeLaterTellOfTheirChangesToo()
    {
        load({1, 2}, {"oak", "-"});
        crop();
        QStringList told;
        const ryk::ScopedConnection listening = asset->connectTileChanged(
            [&](AtlasType type, std::size_t slot) { told << QString("%1 %2").arg(int(type)).arg(slot); });

        history->undo();
        set("tilesCountY", 3);
        asset->getTile(1)->setTexture(AtlasType::GBMT, "");
        asset->getTile(2)->setTexture(AtlasType::MAO, "");

        QCOMPARE(told, (QStringList{"1 1", "2 2"}));
    }

    void theAtlasIsToldOfATileBeforeOthersAre()
    {
        load({1, 1}, {"oak"});
        QStringList told;
        const ryk::ScopedConnection ofTile =
            asset->getTile(0)->connectTextureChanged([&](AtlasType, std::size_t) { told << "tile"; });
        const ryk::ScopedConnection ofAtlas = asset->connectTileChanged([&](AtlasType, std::size_t) { told << "atlas"; });

        asset->getTile(0)->clear();

        QCOMPARE(told, (QStringList{"atlas", "tile"}));
    }

    void cropWithoutATransactionStands()
    {
        load({2, 2}, {"oak", "elm"});

        QVERIFY(asset->crop());

        QCOMPARE(gridOf(*asset), QString("2x1"));
        QCOMPARE(historyNames(), QStringList());
    }

    void cropIsCalledByTheReflection()
    {
        load({2, 2}, {"oak", "elm"});

        const qelm::Variant result = reflect(*asset).findPropertyByName("crop").genericInvoke({}, 0, nullptr);

        QVERIFY(result.value<bool>());
        QCOMPARE(gridOf(*asset), QString("2x1"));
    }

    void anAtlasThatWasNotLoadedHasNothingToCrop()
    {
        LogCapture log;
        asset = std::make_unique<AtlasAsset>("content/none", history.get());

        QVERIFY(crop());

        QCOMPARE(gridOf(*asset), QString("0x0"));
        QCOMPARE(log.assertions(), QStringList());
    }

    void severalEditsAreUndoneInReverse()
    {
        load({2, 1}, {"oak", "elm"});
        set("tilesCountY", 2);
        set("tilesCountX", 3);
        crop();

        QVERIFY(history->jumpTo(0));

        QCOMPARE(gridOf(*asset), QString("2x1"));
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
        QVERIFY(history->jumpTo(3));
        QCOMPARE(gridOf(*asset), QString("2x1"));
    }

    void freeSlotsAreThoseWithoutAnAmTexture()
    {
        load({4, 1}, {"oak", "-", "elm", "-"});
        asset->getTile(0)->setTexture(AtlasType::MAO, "");
        asset->getTile(3)->setTexture(AtlasType::GBMT, textureOf("oak", "GBMT"));

        QCOMPARE(AtlasAssetAccess::freeSlots(*asset), (std::vector<std::size_t>{1, 3}));
    }
};

QTEST_MAIN(tst_AtlasEdits)
#include "tst_atlas_edits.moc"
