#include "held_workers.h"
#include "sample_images.h"

#include <datamodels/image/flat_image_info_model.h>
#include <datamodels/image/image_info_model.h>

#include <support/disk_folder.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QtTest>

using datamodels::FlatImageInfoModel;
using datamodels::ImageInfoModel;

namespace {

/// The table as lines "name: value".
QStringList facts(const ImageInfoModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row)
        lines << model.index(row).data().toString() + ": " + model.index(row).data(256).toString();
    return lines;
}

const QStringList unknown{"Format: unknown"};
const QStringList loading{"Loading...: "};

struct Fixture
{
    Fixture() { folder.write("plain.png", SampleImages::png(8, 4, QImage::Format_RGBA8888)); }
    QString path(const QString& name = "plain.png") const { return folder.path(name); }

    DiskFolder folder;
};

struct Table : Fixture
{
    ImageInfoModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

struct Form : Fixture
{
    FlatImageInfoModel model;
};

} // namespace

class tst_ImageInfoModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewTableSaysThatTheFormatIsUnknown()
    {
        const ImageInfoModel model;

        QCOMPARE(facts(model), unknown);
        QCOMPARE(model.rowCount(model.index(0)), 0);
        QCOMPARE(model.roleNames().value(256), QByteArray("value"));
        QCOMPARE(model.roleNames().value(0), QByteArray("display"));
    }

    void theTableHasTheFactsInOrder()
    {
        Table table;
        table.folder.write("cube.dds", SampleImages::cubeMap(16));

        table.model.setFileName(table.path("cube.dds"));

        QTRY_COMPARE(facts(table.model),
                     (QStringList{"Width: 16", "Height: 16", "Depth: 1", "FileSize: 0.00598Mb", "Mip count: 1",
                                  "BytesPerPixel: 4", "BytesPerChannel: 1", "Compression: None", "Format: RGBA8",
                                  "Lod Mode: 0"}));
    }

    void factsHaveTheirTypes()
    {
        Table table;

        table.model.setFileName(table.path());
        QTRY_COMPARE(table.model.rowCount(), 10);

        QCOMPARE(table.model.index(0).data(256), QVariant(8));
        QCOMPARE(table.model.index(1).data(256).userType(), int(QMetaType::Int));
        QCOMPARE(table.model.index(3).data(256).userType(), int(QMetaType::QString));
        QCOMPARE(table.model.index(4).data(256).userType(), int(QMetaType::UInt));
        QCOMPARE(table.model.index(9).data(256).userType(), int(QMetaType::UInt));
        QVERIFY(!table.model.index(0).data(257).isValid());
    }

    void theSizeOfAFileHasThreeDigits_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<QString>("text");

        QTest::newRow("half more than one") << 3 * 512 * 1024 << "1.5Mb";
        QTest::newRow("rounded") << 1300000 << "1.24Mb";
        QTest::newRow("thousandfold") << 1234 * 1024 * 1024 + 512 * 1024 << "1.23e+03Mb";
    }
    void theSizeOfAFileHasThreeDigits()
    {
        QFETCH(int, bytes);
        Table table;
        // What follows the end of a picture is part of the file all the same. The hole takes no room on the disk.
        QVERIFY(QFile::resize(table.path(), bytes));

        table.model.setFileName(table.path());
        QTRY_COMPARE(table.model.rowCount(), 10);

        QTEST(table.model.index(3).data(256).toString(), "text");
    }

    void aFirstFileIsAResetAChangeAndNineInsertions()
    {
        Table table;
        SignalLog log;
        log.addAll(table.model);

        table.model.setFileName(table.path());
        const QStringList waiting = facts(table.model);
        QTRY_COMPARE(table.model.rowCount(), 10);

        QCOMPARE(waiting, loading);
        QCOMPARE(log.take(), answered);
    }

    void aSecondFileGoesTheSameWay()
    {
        Table table;
        table.folder.write("other.png", SampleImages::png(2, 2, QImage::Format_RGB888));
        table.model.setFileName(table.path());
        QTRY_COMPARE(table.model.rowCount(), 10);
        SignalLog log;
        log.addAll(table.model);

        table.model.setFileName(table.path("other.png"));
        const QStringList waiting = facts(table.model);
        QTRY_COMPARE(table.model.rowCount(), 10);

        QCOMPARE(waiting, loading);
        QCOMPARE(log.take(), answered);
        QCOMPARE(table.model.index(0).data(256), QVariant(2));
    }

    void theSameNameDoesNothingToTheTable()
    {
        Table table;
        table.model.setFileName(table.path());
        QTRY_COMPARE(table.model.rowCount(), 10);
        SignalLog log;
        log.addAll(table.model);

        table.model.setFileName(table.path());

        QCOMPARE(log.take(), QStringList());
    }

    void aFileWithoutDescriptionIsUnknown()
    {
        Table table;
        SignalLog log;
        log.addAll(table.model);

        table.model.setFileName(table.path("missing.png"));
        QTRY_COMPARE(facts(table.model), unknown);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "resetting", "reset", "resetting", "reset"}));
    }

    void twoQuickNamesGiveOneAnswer()
    {
        Table table;
        SignalLog log;
        log.addAll(table.model);

        HeldWorkers workers;
        table.model.setFileName(table.path("missing.png"));
        table.model.setFileName(table.path());
        workers.release();
        QTRY_COMPARE(table.model.rowCount(), 10);

        QCOMPARE(log.take(), (QStringList{"fileNameChanged()", "resetting", "reset"}) + answered);
    }

    void aSlotOfTheAnswerMayAskAnewAndEndsIt()
    {
        Table table;
        connect(&table.model, &QAbstractItemModel::rowsInserted, &table.model,
                [&] { table.model.setFileName(table.path("missing.png")); });
        SignalLog log;
        log.addAll(table.model);

        table.model.setFileName(table.path());
        QTRY_COMPARE(table.model.fileName(), table.path("missing.png"));
        QTRY_COMPARE(facts(table.model), unknown);

        QCOMPARE(log.take(),
                 (QStringList{"fileNameChanged()", "resetting", "reset", "changed /0 roles 0,256",
                              "inserting / [1..1]", "inserted / [1..1]", "fileNameChanged()", "resetting", "reset",
                              "resetting", "reset"}));
    }

    void aNewFormIsNotValid()
    {
        const FlatImageInfoModel model;

        QVERIFY(!model.valid());
        QCOMPARE(model.width(), 0);
        QCOMPARE(model.mipCount(), 0);
        QCOMPARE(model.compression(), QString("Unknown"));
        QCOMPARE(model.format(), QString("Unknown"));
    }

    void theFormTellsAllFactsInOrderAndThenItsValidity()
    {
        Form form;
        SignalLog log;
        log.addAll(form.model);

        form.model.setFileName(form.path());
        QTRY_VERIFY(form.model.valid());

        QCOMPARE(log.take(), described);
        QCOMPARE(form.model.fileName(), form.path());
        QCOMPARE(form.model.width(), 8);
        QCOMPARE(form.model.height(), 4);
        QCOMPARE(form.model.depth(), 1);
        QCOMPARE(form.model.mipCount(), 1);
        QCOMPARE(form.model.bytesPerPixel(), 4);
        QCOMPARE(form.model.bytesPerChannel(), 1);
        QCOMPARE(form.model.compression(), QString("Deflate"));
        QCOMPARE(form.model.format(), QString("RGBA8"));
    }

    void theSameNameAsksTheFormAgain()
    {
        Form form;
        form.model.setFileName(form.path());
        QTRY_VERIFY(form.model.valid());
        SignalLog log;
        log.addAll(form.model);

        form.model.setFileName(form.path());
        const bool isValidMeanwhile = form.model.valid();
        QTRY_VERIFY(form.model.valid());

        QVERIFY(!isValidMeanwhile);
        QCOMPARE(log.take(), described);
    }

    void aFormWithoutDescriptionKeepsTheOldFacts()
    {
        Form form;
        form.model.setFileName(form.path());
        QTRY_VERIFY(form.model.valid());
        SignalLog log;
        log.addAll(form.model);
        int answers = 0;
        connect(&form.model, &FlatImageInfoModel::validChanged, [&answers] { ++answers; });

        form.model.setFileName(form.path("missing.png"));
        QTRY_COMPARE(answers, 2);

        QCOMPARE(log.take(), (QStringList{"validChanged()", "validChanged()"}));
        QVERIFY(!form.model.valid());
        QCOMPARE(form.model.width(), 8);
        QCOMPARE(form.model.format(), QString("RGBA8"));
    }

    void aSlotOfTheFormsAnswerMayAskAnew()
    {
        Form form;
        form.folder.write("other.png", SampleImages::png(2, 2, QImage::Format_RGB888));
        connect(&form.model, &FlatImageInfoModel::widthChanged, &form.model, [&] {
            if (form.model.width() == 8)
                form.model.setFileName(form.path("other.png"));
        });

        form.model.setFileName(form.path());

        QTRY_COMPARE(form.model.width(), 2);
        QTRY_VERIFY(form.model.valid());
        QCOMPARE(form.model.height(), 2);
    }

    void theyMayGoWhileAQueryRuns()
    {
        const Fixture fixture;
        auto table = std::make_unique<ImageInfoModel>();
        auto form = std::make_unique<FlatImageInfoModel>();
        HeldWorkers workers;
        table->setFileName(fixture.path());
        form->setFileName(fixture.path());

        table.reset();
        form.reset();

        workers.release();
        FlatImageInfoModel other;
        other.setFileName(fixture.path());
        QTRY_VERIFY(other.valid());
    }

private:
    const QStringList answered{"fileNameChanged()",  "resetting",           "reset",
                               "changed /0 roles 0,256", "inserting / [1..1]", "inserted / [1..1]",
                               "inserting / [2..2]", "inserted / [2..2]",   "inserting / [3..3]",
                               "inserted / [3..3]",  "inserting / [4..4]",  "inserted / [4..4]",
                               "inserting / [5..5]", "inserted / [5..5]",   "inserting / [6..6]",
                               "inserted / [6..6]",  "inserting / [7..7]",  "inserted / [7..7]",
                               "inserting / [8..8]", "inserted / [8..8]",   "inserting / [9..9]",
                               "inserted / [9..9]"};
    const QStringList described{"validChanged()",         "widthChanged()",         "heightChanged()",
                                "depthChanged()",         "mipCountChanged()",      "bytesPerPixelChanged()",
                                "bytesPerChannelChanged()", "compressionChanged()", "formatChanged()",
                                "validChanged()"};
};

QTEST_GUILESS_MAIN(tst_ImageInfoModels)
#include "tst_image_info_models.moc"
