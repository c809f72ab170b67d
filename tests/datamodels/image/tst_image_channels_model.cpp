#include "held_workers.h"
#include "sample_images.h"

#include <datamodels/image/image_channels_model.h>

#include <support/disk_folder.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QtTest>

using datamodels::ImageChannelsModel;

namespace {

/// The channels as lines: name, "available", "enabled".
QStringList channels(const ImageChannelsModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row);
        lines << index.data().toString()
                     + (index.data(ImageChannelsModel::AvailableRole).toBool() ? " available" : "")
                     + (index.data(ImageChannelsModel::EnabledRole).toBool() ? " enabled" : "");
    }
    return lines;
}

const QStringList none{"red enabled", "green enabled", "blue enabled", "alpha"};
const QStringList colours{"red available enabled", "green available enabled", "blue available enabled", "alpha"};
const QStringList coloursAndAlpha{"red available enabled", "green available enabled", "blue available enabled",
                                  "alpha available"};

/// Channels of a file with a given number of them.
struct Fixture
{
    explicit Fixture(QImage::Format format = QImage::Format_RGBA8888)
    {
        folder.write("image.png", SampleImages::png(4, 4, format));
    }
    void open() { model.setFileName(folder.path("image.png")); }

    DiskFolder folder;
    ImageChannelsModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

class tst_ImageChannelsModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewModelHasFourChannelsThatAreNotAvailable()
    {
        const ImageChannelsModel model;

        QCOMPARE(channels(model), none);
        QVERIFY(!model.hasAlpha());
        QCOMPARE(model.fileName(), QString());
    }

    void rowsHaveNoRows()
    {
        const ImageChannelsModel model;

        QCOMPARE(model.rowCount(model.index(0)), 0);
    }

    void aRowTellsItsChannelByNameAndNumber()
    {
        const ImageChannelsModel model;

        QCOMPARE(model.index(0).data(), QVariant("red"));
        QCOMPARE(model.index(1).data(257), QVariant("green"));
        QCOMPARE(model.index(2).data(256), QVariant(quint64(3)));
        QCOMPARE(model.index(3).data(256), QVariant(quint64(0)));
        QCOMPARE(model.index(3).data(256).userType(), int(QMetaType::ULongLong));
        QCOMPARE(model.index(3).data(257), QVariant("alpha"));
    }

    void otherRolesAndRowsAreInvalid()
    {
        const ImageChannelsModel model;

        QVERIFY(!model.data(model.index(0), 260).isValid());
        QVERIFY(!model.data(model.index(0), Qt::EditRole).isValid());
        QVERIFY(!model.data(model.index(4)).isValid());
        QVERIFY(!model.data(QModelIndex()).isValid());
    }

    void threeRolesAddToThoseOfTheBase()
    {
        const ImageChannelsModel model;

        const QHash<int, QByteArray> names = model.roleNames();

        QCOMPARE(names.value(0), QByteArray("display"));
        QVERIFY(!names.contains(256));
        QCOMPARE(names.value(257), QByteArray("channelName"));
        QCOMPARE(names.value(258), QByteArray("channelAvailable"));
        QCOMPARE(names.value(259), QByteArray("channelEnabled"));
    }

    void channelsAreAvailableInTheOrderOfTheRows_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("one channel") << QImage::Format_Grayscale8
                                     << QStringList{"red available enabled", "green enabled", "blue enabled", "alpha"};
        QTest::newRow("three channels") << QImage::Format_RGB888 << colours;
        QTest::newRow("four channels") << QImage::Format_RGBA8888 << coloursAndAlpha;
    }
    void channelsAreAvailableInTheOrderOfTheRows()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QStringList, expected);
        Fixture fixture(format);

        fixture.open();

        QTRY_COMPARE(channels(fixture.model), expected);
    }

    void aFileWithoutAlphaIsToldByItsThreeRows()
    {
        Fixture fixture(QImage::Format_RGB888);
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open();
        QTRY_COMPARE(channels(fixture.model), colours);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 258", "changed /1 roles 258",
                                          "changed /2 roles 258"}));
        QVERIFY(!fixture.model.hasAlpha());
    }

    void alphaIsToldAfterItsRow()
    {
        Fixture fixture;
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 258", "changed /1 roles 258",
                                          "changed /2 roles 258", "changed /3 roles 258", "hasAlphaChanged()"}));
    }

    void anUnknownFileTakesTheChannelsAway()
    {
        Fixture fixture;
        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setFileName(fixture.folder.path("missing.png"));
        QTRY_COMPARE(channels(fixture.model), none);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 258", "changed /1 roles 258",
                                          "changed /2 roles 258", "changed /3 roles 258", "hasAlphaChanged()"}));
    }

    void theEmptyNameIsAskedForLikeAnyOther()
    {
        Fixture fixture;
        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());

        fixture.model.setFileName({});

        QTRY_COMPARE(channels(fixture.model), none);
    }

    void theSameNameDoesNothing()
    {
        Fixture fixture;
        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open();

        QCOMPARE(log.take(), QStringList());
    }

    void anAnswerPutsTheChoiceBack()
    {
        Fixture fixture;
        fixture.folder.write("other.png", SampleImages::png(2, 2, QImage::Format_RGBA8888));
        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());
        fixture.model.setData(fixture.model.index(0), false, ImageChannelsModel::EnabledRole);
        fixture.model.setData(fixture.model.index(3), true, ImageChannelsModel::EnabledRole);
        SignalLog log;
        log.addAll(fixture.model);

        fixture.model.setFileName(fixture.folder.path("other.png"));
        QTRY_COMPARE(channels(fixture.model), coloursAndAlpha);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 259", "changed /3 roles 259"}));
    }

    void aChannelThatIsThereIsTurnedByItsRole()
    {
        Fixture fixture;
        fixture.open();
        QTRY_VERIFY(fixture.model.hasAlpha());
        SignalLog log;
        log.addAll(fixture.model);

        QVERIFY(fixture.model.setData(fixture.model.index(3), true, 259));

        QCOMPARE(log.take(), QStringList{"changed /3 roles 259"});
        QCOMPARE(fixture.model.index(3).data(259), QVariant(true));
    }

    void aChannelThatIsMissingIsTurnedByTheEditRoleOnly()
    {
        ImageChannelsModel model;
        SignalLog log;
        log.addAll(model);

        QVERIFY(!model.setData(model.index(3), true, 259));
        QCOMPARE(log.take(), QStringList());

        QVERIFY(model.setData(model.index(3), true, Qt::EditRole));
        QCOMPARE(log.take(), QStringList{"changed /3 roles 259"});
        QCOMPARE(model.index(3).data(259), QVariant(true));
    }

    void theSameChoiceIsToldAgain()
    {
        ImageChannelsModel model;
        SignalLog log;
        log.addAll(model);

        QVERIFY(model.setData(model.index(0), true));

        QCOMPARE(log.take(), QStringList{"changed /0 roles 259"});
    }

    void nothingElseIsWritten()
    {
        ImageChannelsModel model;
        SignalLog log;
        log.addAll(model);

        QVERIFY(!model.setData(QModelIndex(), false));
        QVERIFY(!model.setData(model.index(4), false));
        QVERIFY(!model.setData(model.index(0), false, Qt::DisplayRole));
        QVERIFY(!model.setData(model.index(0), false, 258));

        QCOMPARE(log.take(), QStringList());
    }

    void onlyAvailableChannelsAreEditable()
    {
        Fixture fixture(QImage::Format_RGB888);
        fixture.open();
        QTRY_COMPARE(channels(fixture.model), colours);

        QVERIFY(fixture.model.flags(fixture.model.index(2)) & Qt::ItemIsEditable);
        QVERIFY(!(fixture.model.flags(fixture.model.index(3)) & Qt::ItemIsEditable));
        QCOMPARE(fixture.model.flags(QModelIndex()), Qt::NoItemFlags);
    }

    void twoQuickNamesGiveOneAnswer()
    {
        Fixture fixture;
        fixture.folder.write("gray.png", SampleImages::png(2, 2, QImage::Format_Grayscale8));
        SignalLog log;
        log.addAll(fixture.model);

        HeldWorkers workers;
        fixture.open();
        fixture.model.setFileName(fixture.folder.path("gray.png"));
        workers.release();
        QTRY_VERIFY(fixture.model.index(0).data(258).toBool());

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "fileNameChanged()", "changed /0 roles 258"}));
    }

    void aSlotOfTheNameMayGiveAnother()
    {
        Fixture fixture;
        fixture.folder.write("gray.png", SampleImages::png(2, 2, QImage::Format_Grayscale8));
        connect(&fixture.model, &ImageChannelsModel::fileNameChanged, &fixture.model,
                [&] { fixture.model.setFileName(fixture.folder.path("gray.png")); });

        fixture.open();

        QTRY_VERIFY(fixture.model.index(0).data(258).toBool());
        QCOMPARE(fixture.model.fileName(), fixture.folder.path("gray.png"));
        QVERIFY(!fixture.model.index(1).data(258).toBool());
    }

    void aSlotOfTheAnswerMayAskAnewAndEndsIt()
    {
        Fixture fixture;
        connect(&fixture.model, &QAbstractItemModel::dataChanged, &fixture.model,
                [&] { fixture.model.setFileName(fixture.folder.path("missing.png")); });
        SignalLog log;
        log.addAll(fixture.model);

        fixture.open();
        QTRY_COMPARE(fixture.model.fileName(), fixture.folder.path("missing.png"));
        QTRY_COMPARE(channels(fixture.model), none);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "changed /0 roles 258", "fileNameChanged()",
                                          "changed /0 roles 258"}));
    }
};

QTEST_GUILESS_MAIN(tst_ImageChannelsModel)
#include "tst_image_channels_model.moc"
