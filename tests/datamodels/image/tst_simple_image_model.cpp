#include "held_workers.h"
#include "sample_images.h"

#include "../atlas/sample_atlas.h"

#include <datamodels/atlas/i_atlas_view_settings.h>
#include <datamodels/image/simple_image_model.h>
#include <host/images/tessen_image_request_desc.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QMetaEnum>
#include <QtTest>

using datamodels::SimpleImageModel;

namespace {

TessenImageRequestDesc request(const SimpleImageModel& model, int row = 0)
{
    return TessenImageRequestDesc::fromUrl(model.index(row).data(SimpleImageModel::SourceRole).toUrl())
        .value_or(TessenImageRequestDesc());
}

QVector<int> sides(const SimpleImageModel& model)
{
    QVector<int> all;
    for (int row = 0; row < model.rowCount(); ++row)
        all << model.index(row).data(SimpleImageModel::ImageSideRole).toInt();
    return all;
}

const AtlasViewData* atlasOf(const SimpleImageModel& model, int row = 0)
{
    return model.index(row).data(SimpleImageModel::AtlasDataRole).value<AtlasViewData*>();
}

/// A model with a plain file of four channels and a cube map at hand.
struct Fixture
{
    Fixture()
    {
        desk.disk.write("plain.png", SampleImages::png(4, 4, QImage::Format_RGBA8888));
        desk.disk.write("cube.dds", SampleImages::cubeMap(4));
    }
    QString path(const QString& name) const { return desk.disk.path(name); }
    void open(const QString& name) { model.setFileName(path(name)); }
    /// Opens a file and waits for what comes of it.
    SimpleImageModel::Status openAndWait(const QString& name)
    {
        open(name);
        const bool isDone = QTest::qWaitFor([this] { return model.status() != SimpleImageModel::Loading; });
        return isDone ? model.status() : SimpleImageModel::Loading;
    }

    AtlasDesk desk;
    SimpleImageModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

class tst_SimpleImageModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewModelIsEmpty()
    {
        const SimpleImageModel model;

        QCOMPARE(model.status(), SimpleImageModel::Empty);
        QCOMPARE(model.statusText(), QString());
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.channelCount(), 0u);
        QVERIFY(!model.useAlpha());
    }

    void rolesHaveTheirNames()
    {
        const SimpleImageModel model;

        const QHash<int, QByteArray> names = model.roleNames();

        QCOMPARE(names.value(256), QByteArray("source"));
        QCOMPARE(names.value(257), QByteArray("imageSide"));
        QCOMPARE(names.value(258), QByteArray("atlasData"));
        QCOMPARE(names.value(259), QByteArray("atlasType"));
    }

    void qmlKnowsTheEnumerations()
    {
        const QMetaEnum status = QMetaEnum::fromType<SimpleImageModel::Status>();
        const QMetaEnum side = QMetaEnum::fromType<SimpleImageModel::ImageSide>();

        QCOMPARE(status.keyToValue("Undefined"), 4);
        QCOMPARE(side.keyToValue("ImageSideFront"), 4);
        QCOMPARE(side.keyToValue("ImageSideback"), 5);
    }

    void aPlainTextureIsOneRowOfTheFront()
    {
        Fixture fixture;

        QCOMPARE(fixture.openAndWait("plain.png"), SimpleImageModel::Ready);

        QCOMPARE(sides(fixture.model), QVector<int>{4});
        QCOMPARE(request(fixture.model).fileName(), fixture.path("plain.png"));
        QVERIFY(!request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));
        QVERIFY(request(fixture.model).isChannelVisible(TessenImageRequestDesc::Blue));
        QCOMPARE(fixture.model.channelCount(), 4u);
        QCOMPARE(fixture.model.index(0).data(259), QVariant(-1));
        QVERIFY(!atlasOf(fixture.model));
        QVERIFY(!fixture.model.index(0).data(Qt::DisplayRole).isValid());
        QVERIFY(!fixture.model.data(QModelIndex(), 256).isValid());
        QCOMPARE(fixture.model.rowCount(fixture.model.index(0)), 0);
    }

    void aCubeMapIsSixRowsWithItsSides()
    {
        Fixture fixture;

        QCOMPARE(fixture.openAndWait("cube.dds"), SimpleImageModel::Ready);

        QCOMPARE(sides(fixture.model), (QVector<int>{0, 1, 2, 3, 4, 5}));
        QCOMPARE(request(fixture.model, 5).imageIndex(), 5);
    }

    void theChannelsComeFirstThenTheRowsAndTheStatusLast()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        fixture.openAndWait("plain.png");

        QCOMPARE(log.take(),
                 (QStringList{"fileNameChanged()", "statusChanged()", "channelCountChanged()", "resetting", "reset",
                              "inserting / [0..0]", "inserted / [0..0]", "statusChanged()"}));
    }

    void anotherFileOfAsManyImagesIsToldAsAChange()
    {
        Fixture fixture;
        fixture.desk.disk.write("other.png", SampleImages::png(2, 2, QImage::Format_RGB888));
        fixture.openAndWait("plain.png");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.openAndWait("other.png");

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "channelCountChanged()",
                                          "changed /0 roles 256", "statusChanged()"}));
        QCOMPARE(fixture.model.channelCount(), 3u);
    }

    void anotherNumberOfImagesIsAReset()
    {
        Fixture fixture;
        fixture.openAndWait("cube.dds");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.openAndWait("plain.png");

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "resetting", "reset",
                                          "inserting / [0..0]", "inserted / [0..0]", "statusChanged()"}));
    }

    void aFileWithoutDescriptionIsAnErrorWithAText()
    {
        Fixture fixture;
        fixture.openAndWait("plain.png");
        SignalLog log;
        log.addAll(fixture.model);

        QCOMPARE(fixture.openAndWait("missing.png"), SimpleImageModel::Error);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "channelCountChanged()",
                                          "resetting", "reset", "statusChanged()"}));
        QCOMPARE(fixture.model.statusText(), QString("Image info not found"));
        QCOMPARE(fixture.model.channelCount(), 0u);
    }

    void theNextFileTakesTheTextOfTheErrorAway()
    {
        Fixture fixture;
        fixture.openAndWait("missing.png");

        fixture.open("plain.png");

        QCOMPARE(fixture.model.statusText(), QString());
        QCOMPARE(fixture.model.status(), SimpleImageModel::Loading);
    }

    void theEmptyNameEmptiesAtOnce()
    {
        Fixture fixture;
        fixture.openAndWait("plain.png");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setFileName({});

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "resetting", "reset"}));
        QCOMPARE(fixture.model.status(), SimpleImageModel::Empty);
        QCOMPARE(fixture.model.rowCount(), 0);
    }

    void theEmptyNameEndsTheQueryBeforeIt()
    {
        Fixture fixture;
        SignalLog log;
        HeldWorkers workers;
        fixture.open("cube.dds");
        log.addAll(fixture.model);

        fixture.model.setFileName({});
        workers.release();
        SimpleImageModel other;
        other.setFileName(fixture.path("plain.png"));
        QTRY_COMPARE(other.rowCount(), 1);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "resetting", "reset"}));
    }

    void theSameNameDoesNothing()
    {
        Fixture fixture;
        fixture.openAndWait("plain.png");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("plain.png");

        QCOMPARE(log.take(), QStringList());
    }

    void twoQuickNamesGiveOneUpdate()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        HeldWorkers workers;
        fixture.open("cube.dds");
        fixture.open("plain.png");
        workers.release();
        QTRY_COMPARE(fixture.model.status(), SimpleImageModel::Ready);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "statusChanged()", "fileNameChanged()",
                                          "channelCountChanged()", "resetting", "reset", "inserting / [0..0]",
                                          "inserted / [0..0]", "statusChanged()"}));
    }

    void alphaOfAPlainImageChangesItsSource()
    {
        Fixture fixture;
        fixture.openAndWait("plain.png");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setUseAlpha(true);
        QTRY_COMPARE(fixture.model.status(), SimpleImageModel::Ready);

        QCOMPARE(log.take(),
                 (QStringList{"useAlphaChanged()", "statusChanged()", "changed /0 roles 256", "statusChanged()"}));
        QVERIFY(request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));
    }

    void alphaThatStaysDoesNothing()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setUseAlpha(false);

        QCOMPARE(log.take(), QStringList());
    }

    void alphaAsksEvenForTheEmptyName()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setUseAlpha(true);
        QTRY_COMPARE(fixture.model.statusText(), QString("Image info not found"));

        QCOMPARE(log.take(), (QStringList{"useAlphaChanged()", "resetting", "reset"}));
        QCOMPARE(fixture.model.status(), SimpleImageModel::Empty);
    }

    void aSlotOfTheStatusMayAskAnew()
    {
        Fixture fixture;
        connect(&fixture.model, &SimpleImageModel::statusChanged, &fixture.model, [&] {
            if (fixture.model.status() == SimpleImageModel::Ready)
                fixture.open("missing.png");
        });

        fixture.open("plain.png");

        QTRY_COMPARE(fixture.model.status(), SimpleImageModel::Error);
        QCOMPARE(fixture.model.rowCount(), 0);
    }

    void aSlotThatAsksAnewLeavesNoTextOfTheAnswerBefore()
    {
        Fixture fixture;
        fixture.openAndWait("plain.png");
        connect(&fixture.model, &SimpleImageModel::channelCountChanged, &fixture.model, [&] { fixture.open("cube.dds"); });

        fixture.open("missing.png");

        QTRY_COMPARE(fixture.model.status(), SimpleImageModel::Ready);
        QCOMPARE(fixture.model.fileName(), fixture.path("cube.dds"));
        QCOMPARE(fixture.model.statusText(), QString());
    }

    void aSlotOfARowMayEmptyTheModel()
    {
        Fixture fixture;
        connect(&fixture.model, &QAbstractItemModel::rowsInserted, &fixture.model,
                [&] { fixture.model.setFileName({}); });
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("cube.dds");
        QTRY_COMPARE(fixture.model.fileName(), QString());

        QCOMPARE(log.take(),
                 (QStringList{"fileNameChanged()", "statusChanged()", "channelCountChanged()", "resetting", "reset",
                              "inserting / [0..0]", "inserted / [0..0]", "fileNameChanged()", "statusChanged()",
                              "resetting", "reset"}));
        QCOMPARE(fixture.model.status(), SimpleImageModel::Empty);
    }

    void itMayGoWhileAQueryRuns()
    {
        Fixture fixture;
        auto model = std::make_unique<SimpleImageModel>();
        HeldWorkers workers;
        model->setFileName(fixture.path("cube.dds"));

        model.reset();
        workers.release();

        QCOMPARE(fixture.openAndWait("plain.png"), SimpleImageModel::Ready);
    }

    void anAtlasIsOneRowWithItsSnapshot()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({3, 2}, {"oak", "-", "elm", "ash", "-", "-"});

        QCOMPARE(fixture.openAndWait("content/sheet_AM.atlas"), SimpleImageModel::Ready);

        QCOMPARE(sides(fixture.model), QVector<int>{4});
        QCOMPARE(fixture.model.index(0).data(256), QVariant(QUrl()));
        const AtlasViewData* atlas = atlasOf(fixture.model);
        QVERIFY(atlas);
        QCOMPARE(atlas->tilesCount.x, 3);
        QCOMPARE(atlas->tilesCount.y, 2);
        QCOMPARE(atlas->atlasSize.x, 12);
        QCOMPARE(atlas->tiles.size(), std::size_t(6));
        QCOMPARE(atlas->tiles[2]->textures()[0], std::string("content/elm_AM.png"));
    }

    void theSettingsOfAnAtlasAreThoseOfTheModel()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        fixture.model.setUseAlpha(true);

        fixture.openAndWait("content/sheet_GBMT.atlas");

        const IAtlasViewSettings* settings = atlasOf(fixture.model)->settings;
        QCOMPARE(settings->activeChannels().value(), 15u);
        QVERIFY(settings->showNumbers());
        QCOMPARE(settings->tileType(), AtlasType::GBMT);
    }

    void theTypeOfAnAtlasFollowsFromItsName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("type");

        QTest::newRow("AM") << "base_AM.atlas" << 0;
        QTest::newRow("GBMT") << "base_GBMT.atlas" << 1;
        QTest::newRow("MAO") << "base_MAO.atlas" << 2;
        QTest::newRow("none") << "base.atlas" << 0;
        QTest::newRow("AM before MAO") << "baseMAO.atlas_AM.atlas" << 0;
        QTest::newRow("MAO before GBMT") << "baseGBMT.atlas_MAO.atlas" << 2;
    }
    void theTypeOfAnAtlasFollowsFromItsName()
    {
        QFETCH(QString, name);
        LogCapture messages; // of the other two files, which are missing
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        QVERIFY(QFile::copy(fixture.path("content/sheet_AM.atlas"), fixture.path("content/" + name)));

        fixture.openAndWait("content/" + name);

        QTEST(fixture.model.index(0).data(259).toInt(), "type");
    }

    void alphaAppendsASecondRowToAnAtlas()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        fixture.openAndWait("content/sheet_AM.atlas");
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setUseAlpha(true);
        QTRY_COMPARE(fixture.model.status(), SimpleImageModel::Ready);

        QCOMPARE(log.take(), (QStringList{"useAlphaChanged()", "statusChanged()", "inserting / [0..0]",
                                          "inserted / [0..0]", "statusChanged()"}));
        QCOMPARE(fixture.model.rowCount(), 2);
        QCOMPARE(atlasOf(fixture.model, 0)->settings->activeChannels().value(), 7u);
        QCOMPARE(atlasOf(fixture.model, 1)->settings->activeChannels().value(), 15u);
    }

    void anAtlasAfterASingleImageHasTheSecondRow()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        fixture.openAndWait("plain.png");

        fixture.openAndWait("content/sheet_AM.atlas");

        QCOMPARE(fixture.model.rowCount(), 2);
        QVERIFY(!atlasOf(fixture.model, 0));
        QVERIFY(atlasOf(fixture.model, 1));
    }

    void aSingleImageAfterAnAtlasHasItsRow()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        fixture.openAndWait("content/sheet_AM.atlas");

        fixture.openAndWait("plain.png");

        QCOMPARE(fixture.model.rowCount(), 1);
        QCOMPARE(request(fixture.model).fileName(), fixture.path("plain.png"));
        QVERIFY(atlasOf(fixture.model)); // alive, as the row is
    }

    void anAtlasThatIsRefusedIsARowWithoutTiles()
    {
        LogCapture messages;
        Fixture fixture;
        fixture.desk.writeAtlas({1, 1}, {"oak"});
        fixture.desk.disk.remove("content/sheet_MAO.atlas");

        QCOMPARE(fixture.openAndWait("content/sheet_AM.atlas"), SimpleImageModel::Ready);

        QCOMPARE(fixture.model.rowCount(), 1);
        QCOMPARE(atlasOf(fixture.model)->atlasSize.x, 0);
        QCOMPARE(atlasOf(fixture.model)->tiles.size(), std::size_t(0));
        QVERIFY(messages.messages().contains("5 Failed to load MAO atlas data."));
    }

    void tilesOfAPreviewGiveTheirTexturesAsLongAsTheRowLives()
    {
        Fixture fixture;
        fixture.desk.writeAtlas({2, 1}, {"oak", "elm"});
        fixture.openAndWait("content/sheet_AM.atlas");
        const std::shared_ptr<IAtlasTile> tile = atlasOf(fixture.model)->tiles[1];

        fixture.model.setFileName({});

        QCOMPARE(tile->textures()[1], std::string("content/elm_GBMT.png"));
    }
};

QTEST_GUILESS_MAIN(tst_SimpleImageModel)
#include "tst_simple_image_model.moc"
