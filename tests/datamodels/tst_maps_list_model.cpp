#include <datamodels/maps_list_model.h>
#include <host/resources/multi_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

/// The names, checked ones with an "x".
QStringList maps(const MapsListModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        lines << index.data().toString() + (index.data(Qt::CheckStateRole).toBool() ? " x" : "");
    }
    return lines;
}

struct Resources
{
    Resources() { Ozy::FS::fileSystem()->setRoots({disk.bytes()}); }
    void addMap(const QString& name) { disk.write("scripts/arena_defs/" + name); }

    DiskFolder disk;
};

} // namespace

class tst_MapsListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsReadUntilItIsLoaded()
    {
        Resources resources;
        resources.addMap("north.xml");
        const MapsListModel model;

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 1);
    }

    void mapsAreEntriesWithoutTheirExtension()
    {
        Resources resources;
        resources.addMap("north.xml");
        resources.addMap("a.b.xml");
        resources.addMap("_common_.xml");
        resources.addMap("_default_.xml");
        resources.addMap("_list_.xml");
        resources.disk.makeDirectory("scripts/arena_defs/.svn");
        resources.disk.makeDirectory("scripts/arena_defs/folder");
        MapsListModel model;

        model.load();

        QCOMPARE(maps(model), (QStringList{"a.b", "folder", "north"}));
    }

    void otherNamesAreToldApartByCase()
    {
        Resources resources;
        resources.addMap("_Common_.xml");
        MapsListModel model;

        model.load();

        QCOMPARE(maps(model), QStringList{"_Common_"});
    }

    void namesAreUtf8()
    {
        Resources resources;
        resources.addMap(QString::fromUtf8("Mühle.xml"));
        MapsListModel model;

        model.load();

        QCOMPARE(maps(model), QStringList{QString::fromUtf8("Mühle")});
    }

    void aDirectoryWithoutMapsIsEmpty()
    {
        Resources resources;
        resources.addMap("_list_.xml");
        MapsListModel model;

        model.load();

        QCOMPARE(model.rowCount(), 0);
    }

    void aMissingDirectoryIsEmptyWithoutAMessage()
    {
        const Resources resources;
        LogCapture log(LogCapture::FailOnRest);
        MapsListModel model;

        model.load();

        QCOMPARE(model.rowCount(), 0);
    }

    void theMapsOfTheSampleContentAreThere()
    {
        Ozy::FS::fileSystem()->setRoots({SAMPLE_CONTENT});
        MapsListModel model;

        model.load();

        QCOMPARE(model.rowCount(), 12);
        QCOMPARE(maps(model).first(), QString("brickfield_bend"));
        QCOMPARE(maps(model).last(), QString("windmill_row"));
    }

    void loadingAgainLosesTheCheckMarks()
    {
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();
        model.setCheckedAll(true);
        SignalLog log(model);

        model.load();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(maps(model), QStringList{"north"});
    }

    void theDirectoryIsReadAheadOfTheReset()
    {
        Resources resources;
        MapsListModel model;
        connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, [&resources] { resources.addMap("late.xml"); });
        resources.addMap("north.xml");

        model.load();

        QCOMPARE(maps(model), QStringList{"north"});
    }

    void clearingIsAReset()
    {
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();
        SignalLog log(model);

        model.clear();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(model.rowCount(), 0);
    }

    void aChangeOfAValueIsTold()
    {
        Resources resources;
        resources.addMap("north.xml");
        resources.addMap("south.xml");
        MapsListModel model;
        model.load();
        SignalLog log(model);

        QVERIFY(model.setData(model.index(1, 0), "west", Qt::DisplayRole));
        QVERIFY(model.setData(model.index(1, 0), true, Qt::CheckStateRole));

        QCOMPARE(log.take(), (QStringList{"changed /1 roles 0", "changed /1 roles 10"}));
        QCOMPARE(maps(model), (QStringList{"north", "west x"}));
    }

    void whatChangesNothingSucceedsInSilence_data()
    {
        QTest::addColumn<int>("role");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("same name") << int(Qt::DisplayRole) << QVariant("north");
        QTest::newRow("same mark") << int(Qt::CheckStateRole) << QVariant(false);
        QTest::newRow("unknown role") << 1 << QVariant("west");
    }

    void whatChangesNothingSucceedsInSilence()
    {
        QFETCH(int, role);
        QFETCH(QVariant, value);
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();
        SignalLog log(model);

        QVERIFY(model.setData(model.index(0, 0), value, role));

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(maps(model), QStringList{"north"});
    }

    void aRowOutOfRangeHasNothing()
    {
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();
        const QModelIndex stale = model.index(0, 0);
        model.clear();

        QVERIFY(!model.setData(stale, true, Qt::CheckStateRole));
        QVERIFY(!model.setData(QModelIndex(), true, Qt::CheckStateRole));
        QCOMPARE(stale.data(), QVariant());
    }

    void otherRolesHaveNoValue()
    {
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();

        QCOMPARE(model.index(0, 0).data(Qt::EditRole), QVariant());
        QCOMPARE(model.index(0, 0).data(Qt::CheckStateRole), QVariant(false));
        QCOMPARE(model.roleNames(), (QHash<int, QByteArray>{{0, "name"}, {10, "checked"}}));
    }

    void checkingAllTellsThoseThatChange()
    {
        Resources resources;
        resources.addMap("a.xml");
        resources.addMap("b.xml");
        resources.addMap("c.xml");
        MapsListModel model;
        model.load();
        model.setData(model.index(1, 0), true, Qt::CheckStateRole);
        SignalLog log(model);

        model.setCheckedAll(true);

        QCOMPARE(log.take(), (QStringList{"changed /0 roles 10", "changed /2 roles 10"}));
        QCOMPARE(maps(model), (QStringList{"a x", "b x", "c x"}));
    }

    void everyParentHasTheRowsOfTheList()
    {
        Resources resources;
        resources.addMap("north.xml");
        MapsListModel model;
        model.load();

        QCOMPARE(model.rowCount(model.index(0, 0)), 1);
    }

    // With rows the tester objects: a row counts the rows of the list and has no children all the same.
    void anEmptyListKeepsTheContract()
    {
        const Resources resources;
        MapsListModel model;
        const QAbstractItemModelTester tester(&model);

        model.load();
        model.clear();

        QCOMPARE(model.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_MapsListModel)
#include "tst_maps_list_model.moc"
