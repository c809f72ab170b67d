#include "sample_atlas.h"

#include <host/reflection/meta.h>
#include <host/reflection/multi_selection.h>
#include <host/reflection/notifiers.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <support/log_capture.h>

#include <QtTest>

using zarn::BoundProperty;
using zarn::reflect;

class tst_AtlasTile : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;
    std::unique_ptr<AtlasAsset> asset;

    AtlasTile& tile(std::size_t slot = 0) const { return *asset->getTile(slot); }
    BoundProperty property(const char* name, std::size_t slot = 0) const
    {
        return reflect(tile(slot)).findPropertyByName(name);
    }
    QString text(const char* name, std::size_t slot = 0) const
    {
        return QString::fromStdString(property(name, slot).get().value<std::string>());
    }
    QStringList paths(std::size_t slot = 0) const
    {
        QStringList paths;
        for (const std::string& path : tile(slot).textures())
            paths << QString::fromStdString(path);
        return paths;
    }
    static QStringList companions(const QString& stem)
    {
        return {"content/" + stem + "_AM.png", "content/" + stem + "_GBMT.png", "content/" + stem + "_MAO.png"};
    }

private Q_SLOTS:
    void init()
    {
        desk = std::make_unique<AtlasDesk>();
        desk->writeAtlas({2, 1}, {"oak", "-"});
        desk->writeTextures({"elm"});
        asset = std::make_unique<AtlasAsset>("content/sheet", nullptr);
    }
    void cleanup()
    {
        asset.reset();
        desk.reset();
    }

    void aTileHasATextureOfEachClass()
    {
        QCOMPARE(paths(0), companions("oak"));
        QVERIFY(tile(0).isComplete());
        QVERIFY(!tile(0).isEmpty());
    }

    void aSlotWithoutTexturesIsEmpty()
    {
        QCOMPARE(paths(1), (QStringList{"", "", ""}));
        QVERIFY(tile(1).isEmpty());
        QVERIFY(!tile(1).isComplete());
    }

    void onlyMaoIsOfHalfSize()
    {
        QVERIFY(!AtlasTile::isHalfSize(AtlasType::AM));
        QVERIFY(!AtlasTile::isHalfSize(AtlasType::GBMT));
        QVERIFY(AtlasTile::isHalfSize(AtlasType::MAO));
    }

    void settingAmSetsItsCompanions()
    {
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(tile(1).setTexture(AtlasType::AM, textureOf("elm")));

        QCOMPARE(paths(1), companions("elm"));
    }

    void theOthersAreSetByThemselves_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("texture");
        QTest::addColumn<QStringList>("paths");
        QTest::newRow("GBMT") << 1 << "content/elm_GBMT.png"
                              << QStringList{"content/oak_AM.png", "content/elm_GBMT.png", "content/oak_MAO.png"};
        QTest::newRow("MAO") << 2 << "content/elm_MAO.png"
                             << QStringList{"content/oak_AM.png", "content/oak_GBMT.png", "content/elm_MAO.png"};
        QTest::newRow("none") << 1 << "" << QStringList{"content/oak_AM.png", "", "content/oak_MAO.png"};
    }
    void theOthersAreSetByThemselves()
    {
        QFETCH(int, type);
        QFETCH(QString, texture);

        QVERIFY(tile().setTexture(AtlasType(type), texture.toStdString()));

        QTEST(paths(), "paths");
    }

    void clearingAmClearsAllThree()
    {
        QVERIFY(tile().setTexture(AtlasType::AM, ""));

        QCOMPARE(paths(), (QStringList{"", "", ""}));
    }

    void imagesMustHaveTwiceTheSizeOfTheSlot_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("refusal");
        const QString mismatch = "5 Selected image size mismatch 'content/try.png'. Image size: %1, required size: %2.";
        QTest::newRow("AM of the slot's size") << 0 << QSize(4, 4) << mismatch.arg("4x4", "8");
        QTest::newRow("GBMT too wide") << 1 << QSize(9, 8) << mismatch.arg("9x8", "8");
        QTest::newRow("GBMT too high") << 1 << QSize(8, 9) << mismatch.arg("8x9", "8");
        QTest::newRow("MAO of the size of the others") << 2 << QSize(8, 8) << mismatch.arg("8x8", "4");
        QTest::newRow("MAO of its slot's size") << 2 << QSize(2, 2) << mismatch.arg("2x2", "4");
    }
    void imagesMustHaveTwiceTheSizeOfTheSlot()
    {
        QFETCH(int, type);
        QFETCH(QSize, size);
        QFETCH(QString, refusal);
        desk->writeImage("content/try.png", size);
        LogCapture log;

        QVERIFY(!tile().setTexture(AtlasType(type), "content/try.png"));

        QCOMPARE(log.messages(), QStringList{refusal});
        QCOMPARE(paths(), companions("oak"));
    }

    void ofTiles256WideTheSourcesAre512And256()
    {
        AtlasDesk::AtlasData data;
        data.leadingFlag = 1;
        data.width = data.height = 256;
        data.tiles = {{{0, 256, 0, 256}, ""}};
        desk->writeData(AtlasType::AM, data, "content/large");
        desk->writeData(AtlasType::GBMT, data, "content/large");
        data.width = data.height = 128;
        data.tiles = {{{0, 128, 0, 128}, ""}};
        desk->writeData(AtlasType::MAO, data, "content/large");
        desk->writeImage("content/big_AM.png", 512);
        desk->writeImage("content/big_GBMT.png", 512);
        desk->writeImage("content/big_MAO.png", 256);
        AtlasAsset large("content/large", nullptr);

        QVERIFY(large.getTile(0)->setTexture(AtlasType::AM, "content/big_AM.png"));
    }

    void aMissingCompanionRefusesAm()
    {
        desk->disk.remove("content/elm_MAO.png");
        LogCapture log;

        QVERIFY(!tile().setTexture(AtlasType::AM, textureOf("elm")));

        QCOMPARE(log.messages(), QStringList{"5 File 'content/elm_MAO.png' doesn't exist."});
        QCOMPARE(paths(), companions("oak"));
    }

    void aFileThatIsNoImageIsRefusedByItsAbsolutePath()
    {
        desk->disk.write("content/elm_AM.png", "no image");
        LogCapture log;

        QVERIFY(!tile().setTexture(AtlasType::AM, textureOf("elm")));

        QCOMPARE(log.messages(), QStringList{"5 Failed to load image '" + desk->disk.path("content/elm_AM.png") + "'."});
        QCOMPARE(paths(), companions("oak"));
    }

    void theClassIsReplacedInTheWholePath()
    {
        desk->disk.makeDirectory("content/AMMO");
        desk->disk.makeDirectory("content/GBMTMO");
        desk->disk.makeDirectory("content/MAOMO");
        desk->writeImage("content/AMMO/tree_AM.png", 8);
        desk->writeImage("content/GBMTMO/tree_GBMT.png", 8);
        desk->writeImage("content/MAOMO/tree_MAO.png", 4);

        QVERIFY(tile().setTexture(AtlasType::AM, "content/AMMO/tree_AM.png"));

        QCOMPARE(paths(), (QStringList{"content/AMMO/tree_AM.png", "content/GBMTMO/tree_GBMT.png",
                                       "content/MAOMO/tree_MAO.png"}));
    }

    void namesNeedNotBeAscii()
    {
        desk->writeTextures({QString::fromUtf8("дуб-橡树")});
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(tile().setTexture(AtlasType::AM, textureOf(QString::fromUtf8("дуб-橡树"))));

        QCOMPARE(text("_objectName"), QString::fromUtf8("0. дуб-橡树_AM.png"));
    }

    void aTextureMayBeSetToItself()
    {
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(tile().setTexture(AtlasType::AM, tile().texturePath(AtlasType::AM)));

        QCOMPARE(paths(), companions("oak"));
    }

    void aValueThatIsNoClassIsAnAssertionAndGetsAm()
    {
        LogCapture log;

        QCOMPARE(tile().texturePath(AtlasType(3)), std::string("content/oak_AM.png"));

        QCOMPARE(log.assertions(), QStringList{"false (Unknown texture type)"});
    }

    void theNameTellsTheSlotAndTheAmTexture()
    {
        tile(1).setIndex(7);
        QCOMPARE(text("_objectName", 0), QString("0. oak_AM.png"));
        QCOMPARE(text("_objectName", 1), QString("7. No image"));

        tile(1).setTexture(AtlasType::AM, textureOf("elm"));

        QCOMPARE(text("_objectName", 1), QString("7. elm_AM.png"));
    }

    void theIconWarnsWhileACompanionIsMissing()
    {
        QCOMPARE(text("_objectIcon"), QString("resources/images/texture_asset/texture.svg"));

        desk->disk.remove("content/oak_MAO.png");

        QCOMPARE(text("_objectIcon"), QString("resources/images/texture_asset/texture-warning.svg"));
        QCOMPARE(text("_objectIcon", 1), QString("resources/images/texture_asset/texture-warning.svg"));
    }

    void theIconDoesNotAskForAm()
    {
        desk->disk.remove("content/oak_AM.png");

        QCOMPARE(text("_objectIcon"), QString("resources/images/texture_asset/texture.svg"));
    }

    void listenersAreToldOnceAfterTheChange()
    {
        QStringList told;
        const ryk::ScopedConnection listening = tile(1).connectTextureChanged([&](AtlasType type, std::size_t slot) {
            told << QString("%1 of %2: %3").arg(int(type)).arg(slot).arg(paths(1).at(0));
        });

        tile(1).setTexture(AtlasType::AM, textureOf("elm"));
        property("AM", 1).set(qelm::Variant(textureOf("oak")), {});
        tile(1).clear();

        QCOMPARE(told, (QStringList{"0 of 1: content/elm_AM.png", "0 of 1: content/oak_AM.png", "0 of 1: "}));
    }

    void listenersAreToldOfARefusalToo()
    {
        LogCapture log;
        QStringList told;
        const ryk::ScopedConnection listening = tile().connectTextureChanged(
            [&](AtlasType type, std::size_t) { told << QString::number(int(type)) + " " + paths(0).at(0); });

        tile().setTexture(AtlasType::MAO, "content/none.png");

        QCOMPARE(told, QStringList{"2 content/oak_AM.png"});
    }

    void theSignalHasTheIndexOfNow()
    {
        std::vector<std::size_t> slots;
        const ryk::ScopedConnection listening =
            tile(1).connectTextureChanged([&](AtlasType, std::size_t slot) { slots.push_back(slot); });

        tile(1).setIndex(5);
        tile(1).setTexture(AtlasType::GBMT, "");

        QCOMPARE(slots, std::vector<std::size_t>{5});
    }

    void unseenWritesAreIgnored()
    {
        int told = 0;
        const ryk::ScopedConnection listening = tile().connectTextureChanged([&](AtlasType, std::size_t) { ++told; });

        property("AM").set(qelm::Variant(textureOf("elm")), zarn::SetterFlag::Unseen);

        QCOMPARE(text("AM"), QString("content/oak_AM.png"));
        QCOMPARE(told, 0);
    }

    void aRefusedWriteKeepsTheValueAndIsToldAsSet()
    {
        LogCapture log;

        QVERIFY(property("GBMT").set(qelm::Variant(std::string("content/none.png")), {}));

        QCOMPARE(text("GBMT"), QString("content/oak_GBMT.png"));
        QCOMPARE(log.messages(), QStringList{"5 File 'content/none.png' doesn't exist."});
    }

    void clearIsAnEditThatCanBeUndone()
    {
        Ozy::ChangesController history;
        {
            const Ozy::CommitChangesScope scope("Clear", &history);
            property("clear").genericInvoke({}, 0, nullptr);
        }
        QCOMPARE(paths(), (QStringList{"", "", ""}));

        QVERIFY(history.undo());
        QCOMPARE(paths(), companions("oak"));

        QVERIFY(history.redo());
        QCOMPARE(paths(), (QStringList{"", "", ""}));
    }

    void undoBringsBackCompanionsThatWereSetApart_data()
    {
        QTest::addColumn<QString>("am");
        QTest::addColumn<QString>("set");
        QTest::newRow("another") << "content/oak_AM.png" << "content/elm_AM.png";
        QTest::newRow("none") << "content/oak_AM.png" << "";
        QTest::newRow("none where none was") << "" << "";
    }
    void undoBringsBackCompanionsThatWereSetApart()
    {
        QFETCH(QString, am);
        QFETCH(QString, set);
        Ozy::ChangesController history;
        tile().setTexture(AtlasType::AM, am.toStdString());
        tile().setTexture(AtlasType::GBMT, "content/elm_GBMT.png");
        tile().setTexture(AtlasType::MAO, "");
        const QStringList before = paths();
        {
            const Ozy::CommitChangesScope scope("Set", &history);
            property("AM").set(qelm::Variant(set.toStdString()), {});
        }
        const QStringList after = paths();

        QVERIFY(history.undo());
        QCOMPARE(paths(), before);

        QVERIFY(history.redo());
        QCOMPARE(paths(), after);

        QVERIFY(history.undo());
        QCOMPARE(paths(), before);
    }

    void theReflectionShowsThePropertiesInOrder()
    {
        const zarn::ReflectedObject handle = reflect(tile());

        QCOMPARE(propertyNames(handle), (QStringList{"_typeName", "_typeIcon", "_objectName", "_objectIcon", "AM", "GBMT",
                                                     "MAO", "clear"}));
        QCOMPARE(text("_typeName"), QString("Texture"));
        QCOMPARE(text("_typeIcon"), QString("resources/images/texture_asset/texture.svg"));
        QCOMPARE(handle.metaObject()->name(), std::string("AtlasTile"));
        QCOMPARE(handle.annotations().valueOr<Meta::MultiSelection::ObjectType>().name(handle), std::string("Tiles"));
    }

    void panelsAreToldHowToEditATexture()
    {
        const zarn::Annotations am = property("AM").annotations();
        const zarn::Annotations clear = property("clear").annotations();

        QCOMPARE(am.valueOr<Meta::FilesFilter>().pattern, std::string("*_AM.png"));
        QCOMPARE(property("GBMT").annotations().valueOr<Meta::FilesFilter>().pattern, std::string("*_GBMT.png"));
        QCOMPARE(property("MAO").annotations().valueOr<Meta::FilesFilter>().pattern, std::string("*_MAO.png"));
        QCOMPARE(am.valueOr<Meta::DialogInitialPath>().path, std::wstring(L"content/"));
        QVERIFY(am.contain<Meta::View::ImagePath>());
        QCOMPARE(am.valueOr<Meta::DefaultValue>().label, std::string("Delete"));
        QCOMPARE(am.valueOr<Meta::DefaultValue>().value(property("AM")).value<std::string>(), std::string());
        QCOMPARE(am.equal_range<Meta::Dependent>().begin()->value<Meta::Dependent>().names,
                 (std::vector<std::string>{"_objectName", "_objectIcon"}));
        QCOMPARE(std::next(am.equal_range<Meta::Dependent>().begin())->value<Meta::Dependent>().names,
                 (std::vector<std::string>{"GBMT", "MAO"}));
        QCOMPARE(clear.valueOr<Meta::Button::Text>()(property("clear")), std::string("Clear"));
        QCOMPARE(clear.valueOr<Meta::ToolTip>()(property("clear")), std::string("Clear all textures in tile"));
        QVERIFY(!clear.valueOr<Meta::Label::Visible>()(property("clear")));
        QVERIFY(clear.contain<Meta::Layout::FillWidth>());
    }

    void severalTilesShowTheirNamesJoined()
    {
        zarn::MultiSelection selection;
        selection.merge(reflect(tile(0)), {});
        selection.merge(reflect(tile(1)), {});

        const auto names = reflect(selection).findPropertyByName("_objectName").get().value<std::string>();

        QCOMPARE(names, std::string("0. oak_AM.png,1. No image"));
    }

    void aTileThatOutlivesItsAtlasTakesNoNewTexture()
    {
        const std::shared_ptr<AtlasTile> left = asset->getTile(1);
        asset.reset();
        LogCapture log;

        QVERIFY(!left->setTexture(AtlasType::AM, textureOf("elm")));
        QVERIFY(left->setTexture(AtlasType::AM, ""));

        QCOMPARE(log.messages(),
                 QStringList{"5 Selected image size mismatch 'content/elm_AM.png'. Image size: 8x8, required size: 0."});
    }
};

QTEST_MAIN(tst_AtlasTile)
#include "tst_atlas_tile.moc"
