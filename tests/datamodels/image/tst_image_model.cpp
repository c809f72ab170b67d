#include "held_workers.h"
#include "sample_images.h"

#include <datamodels/image/image_channels_model.h>
#include <datamodels/image/image_model.h>
#include <host/images/tessen_image_request_desc.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QtTest>

using datamodels::ImageChannelsModel;
using datamodels::ImageModel;

namespace {

/// What a row's URL asks for.
TessenImageRequestDesc request(const ImageModel& model, int row = 0)
{
    return TessenImageRequestDesc::fromUrl(model.index(row).data(ImageModel::UriRole).toUrl())
        .value_or(TessenImageRequestDesc());
}

QStringList titles(const ImageModel& model)
{
    QStringList all;
    for (int row = 0; row < model.rowCount(); ++row)
        all << model.index(row).data().toString();
    return all;
}

/// A model with a plain file of four channels and a cube map at hand.
struct Fixture
{
    Fixture()
    {
        folder.write("plain.png", SampleImages::png(4, 4, QImage::Format_RGBA8888));
        folder.write("cube.dds", SampleImages::cubeMap(4));
    }
    void open(const QString& name) { model.setFileName(folder.path(name)); }
    /// Opens a file and waits until the channels are those of the file as well.
    bool openAndWait(const QString& name, int rows)
    {
        open(name);
        return QTest::qWaitFor([&] {
            return model.rowCount() == rows && model.channelsModel()->index(0).data(258).toBool();
        });
    }
    void turn(int channel, bool on) { model.channelsModel()->setData(model.channelsModel()->index(channel), on); }

    DiskFolder folder;
    ImageModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

const QStringList sides{"+X Right", "-X Left", "+Y Top", "-Y Bottom", "+Z Front", "-Z Back"};

} // namespace

class tst_ImageModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewModelIsEmptyAndOwnsItsChannels()
    {
        const ImageModel model;

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.channelsModel()->parent(), &model);
        QCOMPARE(model.channelsModel()->rowCount(), 4);
    }

    void threeRolesAddToThoseOfTheBase()
    {
        const ImageModel model;

        const QHash<int, QByteArray> names = model.roleNames();

        QCOMPARE(names.value(1), QByteArray("decoration"));
        QCOMPARE(names.value(256), QByteArray("uri"));
        QCOMPARE(names.value(257), QByteArray("title"));
        QCOMPARE(names.value(258), QByteArray("noChannels"));
    }

    void aPlainTextureIsOneRowWithoutTitleAndColour()
    {
        Fixture fixture;

        QVERIFY(fixture.openAndWait("plain.png", 1));

        QCOMPARE(fixture.model.index(0).data(), QVariant(QString()));
        QCOMPARE(fixture.model.index(0).data(257), QVariant(QString()));
        QVERIFY(!fixture.model.index(0).data(Qt::DecorationRole).value<QColor>().isValid());
        QCOMPARE(fixture.model.index(0).data(258), QVariant(false));
        QCOMPARE(fixture.model.rowCount(fixture.model.index(0)), 0);
    }

    void theUrlOfARowIsTheFileWithTheChannelsOfTheStart()
    {
        Fixture fixture;

        QVERIFY(fixture.openAndWait("plain.png", 1));

        QCOMPARE(request(fixture.model).fileName(), fixture.folder.path("plain.png"));
        QCOMPARE(request(fixture.model).imageIndex(), 0);
        QVERIFY(request(fixture.model).isChannelVisible(TessenImageRequestDesc::Red));
        QVERIFY(!request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));
    }

    void aCubeMapIsSixRowsWithTheTitlesOfItsSides()
    {
        Fixture fixture;

        QVERIFY(fixture.openAndWait("cube.dds", 6));

        QCOMPARE(titles(fixture.model), sides);
        QCOMPARE(request(fixture.model, 5).imageIndex(), 5);
    }

    void oppositeSidesHaveTheColourOfTheirAxis_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QColor>("colour");

        QTest::newRow("+X") << 0 << QColor(58, 190, 68, 255);
        QTest::newRow("-X") << 1 << QColor(58, 190, 68, 255);
        QTest::newRow("+Y") << 2 << QColor(41, 132, 251, 255);
        QTest::newRow("-Y") << 3 << QColor(41, 132, 251, 255);
        QTest::newRow("+Z") << 4 << QColor(225, 28, 31, 255);
        QTest::newRow("-Z") << 5 << QColor(225, 28, 31, 255);
    }
    void oppositeSidesHaveTheColourOfTheirAxis()
    {
        QFETCH(int, row);
        Fixture fixture;

        QVERIFY(fixture.openAndWait("cube.dds", 6));

        QTEST(fixture.model.index(row).data(Qt::DecorationRole).value<QColor>(), "colour");
    }

    void rowsOfTheFirstFileAreInsertedOneByOne()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        QVERIFY(fixture.openAndWait("cube.dds", 6));

        QCOMPARE(log.take(),
                 (QStringList{"fileNameChanged()", "resetting", "reset", "inserting / [0..0]", "inserted / [0..0]",
                              "inserting / [1..1]", "inserted / [1..1]", "inserting / [2..2]", "inserted / [2..2]",
                              "inserting / [3..3]", "inserted / [3..3]", "inserting / [4..4]", "inserted / [4..4]",
                              "inserting / [5..5]", "inserted / [5..5]"}));
    }

    void asManyRowsAsBeforeAreToldAsChanges()
    {
        Fixture fixture;
        fixture.folder.write("other.png", SampleImages::png(2, 2, QImage::Format_RGBA8888));
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("other.png");
        QTRY_COMPARE(request(fixture.model).fileName(), fixture.folder.path("other.png"));

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 256"}));
    }

    void otherManyRowsThanBeforeAreAReset()
    {
        Fixture fixture;
        QVERIFY(fixture.openAndWait("cube.dds", 6));
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("plain.png");
        QTRY_COMPARE(fixture.model.rowCount(), 1);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "resetting", "reset", "inserting / [0..0]",
                                          "inserted / [0..0]"}));
    }

    void aFileThatCannotBeDescribedHasNoRows()
    {
        LogCapture messages; // of what is wrong with the file
        Fixture fixture;
        fixture.folder.write("broken.png", "no picture at all");
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("broken.png");
        QTRY_COMPARE(fixture.model.rowCount(), 0);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "resetting", "reset"}));
    }

    void turningAChannelTellsNewUrls()
    {
        Fixture fixture;
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        fixture.turn(3, true);
        QTRY_VERIFY(request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));

        QCOMPARE(log.take(), QStringList{"changed /0 roles 256"});
        QCOMPARE(fixture.model.index(0).data(258), QVariant(false));
    }

    void turningAllChannelsOffIsToldByTheRows()
    {
        Fixture fixture;
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        HeldWorkers workers;
        fixture.turn(0, false);
        fixture.turn(1, false);
        fixture.turn(2, false);
        workers.release();
        QTRY_VERIFY(fixture.model.index(0).data(258).toBool());

        QCOMPARE(log.take(), QStringList{"changed /0 roles 256,258"});
    }

    void aChoiceThatStaysIsAskedForButChangesNothing()
    {
        Fixture fixture;
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        fixture.turn(0, true);
        fixture.turn(1, false);
        QTRY_VERIFY(!request(fixture.model).isChannelVisible(TessenImageRequestDesc::Green));

        QCOMPARE(log.take(), QStringList{"changed /0 roles 256"});
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
        QTRY_COMPARE(fixture.model.rowCount(), 1);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "fileNameChanged()", "resetting", "reset",
                                          "inserting / [0..0]", "inserted / [0..0]"}));
    }

    void aChannelThatIsTurnedBeforeTheFileIsShownThatWay()
    {
        Fixture fixture;

        fixture.turn(3, true);
        QVERIFY(fixture.openAndWait("plain.png", 1));

        // The answer of the channels puts the choice back, which is asked for again.
        QTRY_VERIFY(!fixture.model.channelsModel()->index(3).data(259).toBool());
        QTRY_VERIFY(!request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));
    }

    void changesOfTheChannelsFarFromTheChoiceAreLeftAlone()
    {
        Fixture fixture;
        QVERIFY(fixture.openAndWait("plain.png", 1));
        SignalLog log;
        log.addAll(fixture.model);

        HeldWorkers workers;
        fixture.turn(3, true);
        Q_EMIT fixture.model.channelsModel()->dataChanged(fixture.model.channelsModel()->index(0),
                                                          fixture.model.channelsModel()->index(3), {258});
        workers.release();
        QTRY_VERIFY(request(fixture.model).isChannelVisible(TessenImageRequestDesc::Alpha));

        QCOMPARE(log.take(), QStringList{"changed /0 roles 256"});
    }

    void aChangeAcrossColumnsFailsAnAssertion()
    {
        LogCapture log;
        ImageModel model;

        Q_EMIT model.channelsModel()->dataChanged(model.channelsModel()->index(0), QModelIndex(), {258});

        QCOMPARE(log.assertions(), QStringList{"topLeft.column() == bottomRight.column()"});
    }

    void aSlotOfTheAnswerMayAskAnewAndEndsIt()
    {
        Fixture fixture;
        connect(&fixture.model, &QAbstractItemModel::rowsInserted, &fixture.model, [&] { fixture.open("plain.png"); });
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open("cube.dds");
        QTRY_COMPARE(request(fixture.model).fileName(), fixture.folder.path("plain.png"));

        // The first side came, then the rest of the cube map was not wanted.
        QCOMPARE(log.take(),
                 (QStringList{"fileNameChanged()", "resetting", "reset", "inserting / [0..0]", "inserted / [0..0]",
                              "fileNameChanged()", "changed /0 roles 256,0,257,1"}));
    }

    void itMayGoWhileAQueryRuns()
    {
        Fixture fixture;
        auto model = std::make_unique<ImageModel>();
        model->setFileName(fixture.folder.path("cube.dds"));

        model.reset();

        QVERIFY(fixture.openAndWait("plain.png", 1));
    }

    void itMayGoWhileTheAnswerWaitsForTheGuiThread()
    {
        Fixture fixture;
        auto model = std::make_unique<ImageModel>();
        HeldWorkers workers;
        model->setFileName(fixture.folder.path("cube.dds"));
        workers.release();
        const auto later = Ozy::AsyncManager::async(0, [] {});
        later.wait();

        model.reset();

        QVERIFY(fixture.openAndWait("plain.png", 1));
    }
};

QTEST_GUILESS_MAIN(tst_ImageModel)
#include "tst_image_model.moc"
