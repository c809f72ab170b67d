#include <datamodels/virtual_filesystem/virtual_filesystem_model.h>
#include <host/registry/instances.h>
#include <host/resources/disk_monitor.h>

#include <support/disk_folder.h>
#include <support/hand_monitor.h>
#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>
#include <support/without_root_flags.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using datamodels::VirtualFilesystemModel;
using Model = VirtualFilesystemModel;

namespace {

constexpr int FileName = Qt::UserRole + 1;

QStringList rows(const Model& model)
{
    return treeLines(model, FileName);
}

Model::FilterAndQuery keeping(const QString& suffix)
{
    return {[suffix](const QFileInfo& info) { return info.isDir() || info.fileName().endsWith(suffix); }, {}};
}

struct DiskWatching
{
    DiskWatching() { instances::set<IFileSystemMonitor>(&Ozy::FS::DiskMonitor::instance()); }
    ~DiskWatching() { instances::set<IFileSystemMonitor>(nullptr); }
};

class ShoutingNode : public Model::Node
{
public:
    using Node::Node;
    QVariant data(int role) const override { return role == Qt::DisplayRole ? getFileInfo().fileName().toUpper() : Node::data(role); }
};

class ShoutingModel : public Model
{
protected:
    std::unique_ptr<Node> createNode(VirtualFilesystemModel& model, QFileInfo info, QString displayName) override
    {
        return std::make_unique<ShoutingNode>(model, info, displayName);
    }
};

} // namespace

class tst_VirtualFilesystemModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDirectoryIsAddedWithAllBeneathIt()
    {
        const DiskFolder disk;
        disk.write("wood/deep/elm.png");
        disk.write("wood/oak.png");
        disk.write("wood/.hidden");
        HandMonitor monitor;
        WithoutRootFlags<Model> model;
        const QAbstractItemModelTester tester(&model);
        QStringList added;

        Model::Node* node = model.addPath(disk.path("wood"), added, "Wood", {});

        QCOMPARE(rows(model), (QStringList{"wood", "  deep", "    elm.png", "  oak.png"}));
        QCOMPARE(added, (QStringList{disk.path("wood"), disk.path("wood/deep"), disk.path("wood/deep/elm.png"),
                                     disk.path("wood/oak.png")}));
        QCOMPARE(node->getDisplayName(), QString("Wood"));
        QCOMPARE(monitor.watched, QStringList{disk.path("wood")});
    }

    void eachDirectoryIsCompleteBeforeTheNext()
    {
        const DiskFolder disk;
        disk.write("wood/deep/elm.png");
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;
        SignalLog log(model);
        QStringList added;

        model.addPath(disk.path("wood"), added, {}, {});

        QCOMPARE(log.take(), (QStringList{"inserting / [0..0]", "inserted / [0..0]", "inserting /0 [0..0]", "inserted /0 [0..0]",
                                          "inserting /0/0 [0..0]", "inserted /0/0 [0..0]", "inserting /0 [1..1]",
                                          "inserted /0 [1..1]"}));
    }

    void theFilesOfADirectoryComeAsOneBlock()
    {
        const DiskFolder disk;
        disk.write("a");
        disk.write("b");
        disk.write("c");
        HandMonitor monitor;
        Model model;
        SignalLog log(model);
        QStringList added;

        model.addPath(disk.path(), added, {}, {});

        QCOMPARE(log.take(), (QStringList{"inserting / [0..0]", "inserted / [0..0]", "inserting /0 [0..2]", "inserted /0 [0..2]"}));
    }

    void aFileIsARowWithoutChildren()
    {
        const DiskFolder disk;
        disk.write("oak.tar.gz");
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path("oak.tar.gz"), added, {}, {});

        const QModelIndex oak = model.index(0, 0);
        QCOMPARE(model.rowCount(oak), 0);
        QCOMPARE(oak.data(257), QVariant("oak.tar.gz"));
        QCOMPARE(oak.data(258), QVariant(disk.path("oak.tar.gz")));
        QCOMPARE(oak.data(259), QVariant("oak.tar.gz"));
        QCOMPARE(oak.data(260), QVariant("gz"));
        QCOMPARE(oak.data(261), QVariant(true));
        QCOMPARE(oak.data(262).typeName(), "QFileInfo");
        QCOMPARE(oak.data(262).value<QFileInfo>(), QFileInfo(disk.path("oak.tar.gz")));
        QCOMPARE(oak.data(Qt::DisplayRole), QVariant());
    }

    void rolesAreThoseOfQtAndSixMore()
    {
        HandMonitor monitor;
        const Model model;
        const QHash<int, QByteArray> names = model.roleNames();

        QCOMPARE(names.value(257), QByteArray("fileName"));
        QCOMPARE(names.value(258), QByteArray("filePath"));
        QCOMPARE(names.value(259), QByteArray("displayName"));
        QCOMPARE(names.value(260), QByteArray("fileExtension"));
        QCOMPARE(names.value(261), QByteArray("isFile"));
        QCOMPARE(names.value(262), QByteArray("fileInfo"));
        QCOMPARE(names.value(Qt::DisplayRole), QByteArray("display"));
        QCOMPARE(names.size(), 12);
    }

    void aDirectoryIsNamedByThePathBeforeItsLastSeparator()
    {
        const DiskFolder disk;
        disk.makeDirectory("wood/deep");
        HandMonitor monitor;
        Model model;
        QStringList added;

        QCOMPARE(model.addPath(disk.path("wood/deep"), added, {}, {})->getDisplayName(), QString("wood"));
        QCOMPARE(model.addPath(disk.path("wood/deep/"), added, {}, {})->getDisplayName(), QString("deep"));
    }

    void aPathThatDoesNotExistHasARow()
    {
        const DiskFolder disk;
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path("nothing"), added, {}, {});

        QCOMPARE(rows(model), QStringList{"nothing"});
        QCOMPARE(model.index(0, 0).data(261), QVariant(false));
    }

    void aFilterPrunes()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        disk.write("wood/oak.txt");
        disk.write("skip/elm.png");
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path(), added, {}, {[](const QFileInfo& info) {
                                                   return info.fileName() != "skip" && info.suffix() != "txt";
                                               },
                                               {}});

        QCOMPARE(rows(model).mid(1), (QStringList{"  wood", "    oak.png"}));
        QCOMPARE(added, (QStringList{disk.path(), disk.path("wood"), disk.path("wood/oak.png")}));
    }

    void aQueryNamesWhatLiesBeneath()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path("wood"), added, "Top", {{}, [](const QFileInfo& info) { return info.baseName(); }});

        QCOMPARE(treeLines(model, 259), (QStringList{"Top", "  oak"}));
    }

    void withoutAQueryThereIsNoNameBeneath()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path("wood"), added, "Top", {});

        QCOMPARE(model.index(0, 0, model.index(0, 0)).data(259), QVariant(QString()));
    }

    void linksThatLeadBackAreLeafs()
    {
        const DiskFolder disk;
        disk.write("a/oak.png");
        disk.makeDirectory("b");
        disk.link(disk.path("b"), "a/to_b");
        disk.link(disk.path("a"), "b/to_a");
        disk.link("/", "b/to_top");
        HandMonitor monitor;
        Model model;
        QStringList added;

        model.addPath(disk.path("a"), added, {}, {});

        QCOMPARE(added.size(), 5);
        QVERIFY(added.contains(disk.path("a/to_b/to_a")));
        QVERIFY(!added.contains(disk.path("a/to_b/to_a/oak.png")));
        QVERIFY(added.contains(disk.path("a/to_b/to_top")));
    }

    void pathsAreFoundByTheirText()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});

        QCOMPARE(model.nodeFromPath(disk.path("wood/oak.png"))->getFileInfo().fileName(), QString("oak.png"));
        QCOMPARE(model.indexFromPath(disk.path("wood/oak.png")), model.index(0, 0, model.index(0, 0, model.index(0, 0))));
        QVERIFY(!model.nodeFromPath(disk.path("wood/")));
        QCOMPARE(model.indexFromPath("elsewhere"), QModelIndex());
    }

    void aWalkOverPathsStopsAtTheFirstTrue()
    {
        const DiskFolder disk;
        disk.write("a");
        disk.write("b");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        QStringList all;
        int asked = 0;

        model.traverse([&all](const QString& path, Model::Node* node) {
            all << path + (node->getFileInfo().isFile() ? "" : "/");
            return false;
        });
        model.traverse([&asked](const QString&, Model::Node*) { return ++asked == 2; });

        all.sort();
        QCOMPARE(all, (QStringList{disk.path() + "/", disk.path("a"), disk.path("b")}));
        QCOMPARE(asked, 2);
    }

    void onDemandOnlyTheTopIsThere()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;

        model.addPathOnDemand(disk.path(), "Top", {});

        QCOMPARE(model.rowCount(), 1);
        QVERIFY(!model.nodeFromPath(disk.path("wood")));
        QCOMPARE(monitor.watched, QStringList{disk.path()});
    }

    void theFirstCountOpensADirectory()
    {
        const DiskFolder disk;
        disk.write("b.png");
        disk.write("a.png");
        disk.write("wood/oak.png");
        HandMonitor monitor;
        Model model;
        model.addPathOnDemand(disk.path(), "Top", {});
        const QModelIndex top = model.index(0, 0);
        SignalLog log(model);

        QCOMPARE(model.rowCount(top), 3);
        disk.write("late.png");
        QCOMPARE(model.rowCount(top), 3);

        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..2]", "inserting /0 [0..2]", "inserted /0 [0..2]", "inserted /0 [0..2]"}));
        QCOMPARE(rows(model).mid(1), (QStringList{"  wood", "    oak.png", "  a.png", "  b.png"}));
    }

    void onDemandTheContractHolds()
    {
        const DiskFolder disk;
        disk.write("wood/deep/oak.png");
        HandMonitor monitor;
        WithoutRootFlags<Model> model;
        const QAbstractItemModelTester tester(&model);

        model.addPathOnDemand(disk.path("wood"), "Top", {});

        QCOMPARE(rows(model), (QStringList{"wood", "  deep", "    oak.png"}));
    }

    void anEmptyDirectoryIsReadEachTime()
    {
        const DiskFolder disk;
        HandMonitor monitor;
        Model model;
        model.addPathOnDemand(disk.path(), "Top", {});
        const QModelIndex top = model.index(0, 0);
        SignalLog log(model);

        QCOMPARE(model.rowCount(top), 0);
        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..-1]", "inserted /0 [0..-1]"}));
        disk.write("oak.png");
        QCOMPARE(model.rowCount(top), 1);
    }

    void nothingIsOpenedWhileRowsAreAnnounced()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        const DiskFolder other;
        other.write("elm.png");
        HandMonitor monitor;
        Model model;
        Model second;
        model.addPathOnDemand(disk.path(), "Top", {});
        second.addPathOnDemand(other.path(), "Top", {});
        QList<int> counts;
        connect(&model, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex& parent) {
            counts << model.rowCount(model.index(0, 0, parent)) << second.rowCount(second.index(0, 0));
        });

        model.rowCount(model.index(0, 0));

        QCOMPARE(counts, (QList<int>{0, 0, 0, 0}));
        QCOMPARE(second.rowCount(second.index(0, 0)), 1);
    }

    void onDemandAFilterAndAQueryGoDownTheTree()
    {
        const DiskFolder disk;
        disk.write("wood/oak.png");
        disk.write("wood/oak.txt");
        HandMonitor monitor;
        Model model;
        Model::FilterAndQuery both = keeping(".png");
        both.query = [](const QFileInfo& info) { return info.baseName(); };

        model.addPathOnDemand(disk.path(), "Top", both);

        QCOMPARE(treeLines(model, 259), (QStringList{"Top", "  wood", "    oak"}));
    }

    void onDemandAQueryWithoutAFilterThrows()
    {
        const DiskFolder disk;
        disk.write("oak.png");
        HandMonitor monitor;
        Model model;
        model.addPathOnDemand(disk.path(), "Top", {{}, [](const QFileInfo&) { return QString(); }});
        const DiskFolder other;
        other.write("elm.png");
        model.addPathOnDemand(other.path(), "Other", {});

        QVERIFY_EXCEPTION_THROWN(model.rowCount(model.index(0, 0)), std::bad_function_call);

        QCOMPARE(model.rowCount(model.index(1, 0)), 1); // the guard is down again
    }

    void whatHasGoneLosesItsRow_data()
    {
        QTest::addColumn<unsigned>("action");
        QTest::addColumn<int>("rowsLeft");

        QTest::newRow("come") << 0u << 2;
        QTest::newRow("gone") << 1u << 1;
        QTest::newRow("changed") << 2u << 2;
        QTest::newRow("gone by renaming") << 3u << 1;
        QTest::newRow("come by renaming") << 4u << 2;
    }

    void whatHasGoneLosesItsRow()
    {
        QFETCH(unsigned, action);
        QFETCH(int, rowsLeft);
        const DiskFolder disk;
        disk.write("a");
        disk.write("b");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});

        monitor.tell(disk.path("a"), action);

        QCOMPARE(model.rowCount(model.index(0, 0)), rowsLeft);
    }

    void aSubtreeGoesFromTheDeepest()
    {
        const DiskFolder disk;
        disk.write("wood/deep/elm");
        disk.write("wood/oak");
        HandMonitor monitor;
        WithoutRootFlags<Model> model;
        const QAbstractItemModelTester tester(&model);
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        SignalLog log(model);
        log.add(static_cast<const Model&>(model), &Model::pathDeleted);

        monitor.tell(disk.path("wood"), 1);

        const QString deleted = "pathDeleted(\"" + disk.path("wood") + "%1\")";
        QCOMPARE(log.take(), (QStringList{deleted.arg("/oak"), "removing /0/0 [1..1]", "removed /0/0 [1..1]",
                                          deleted.arg("/deep/elm"), "removing /0/0/0 [0..0]", "removed /0/0/0 [0..0]",
                                          deleted.arg("/deep"), "removing /0/0 [0..0]", "removed /0/0 [0..0]",
                                          deleted.arg(""), "removing /0 [0..0]", "removed /0 [0..0]"}));
        QVERIFY(!model.nodeFromPath(disk.path("wood/deep/elm")));
    }

    void unknownPathsAreIgnored()
    {
        const DiskFolder disk;
        disk.write("oak");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        SignalLog log(model);

        monitor.tell(disk.path("elm"), 1);
        monitor.tell("/", 1);

        QCOMPARE(log.take(), QStringList());
    }

    void aPathAddedTwiceHasTwoRowsOfWhichTheLaterIsFound()
    {
        const DiskFolder disk;
        disk.write("wood/oak");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path("wood"), added, "first", {});
        Model::Node* second = model.addPath(disk.path("wood"), added, "second", {});

        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.nodeFromPath(disk.path("wood")), second);
        monitor.tell(disk.path("wood"), 1);

        QCOMPARE(treeLines(model, 259), (QStringList{"first", "  "}));
        QVERIFY(!model.nodeFromPath(disk.path("wood")));
    }

    void aResetForgetsAllPathsAndEndsTheWatches()
    {
        const DiskFolder disk;
        disk.write("oak");
        HandMonitor monitor;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        SignalLog log(model);

        model.resetModel();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.nodeFromPath(disk.path()));
        QCOMPARE(monitor.listeners.size(), std::size_t(1));
    }

    void theWatchesEndWithTheModel()
    {
        HandMonitor monitor;

        std::make_unique<Model>().reset();

        QCOMPARE(monitor.listeners.size(), std::size_t(0));
    }

    void withoutAMonitorNothingVanishes()
    {
        const DiskFolder disk;
        disk.write("oak");
        LogCapture log(LogCapture::FailOnRest);
        Model model;
        QStringList added;

        model.addPath(disk.path(), added, {}, {});

        QCOMPARE(log.assertions(), QStringList{"ptr"});
        QCOMPARE(model.rowCount(model.index(0, 0)), 1);
    }

    void aDerivedModelMakesItsOwnNodes()
    {
        const DiskFolder disk;
        disk.write("wood/oak");
        HandMonitor monitor;
        ShoutingModel model;
        QStringList added;

        model.addPath(disk.path("wood"), added, {}, {});

        QCOMPARE(treeLines(model), (QStringList{"WOOD", "  OAK"}));
    }

    void aTreeOf1000FilesVanishesFromTheRealDisk()
    {
        const DiskFolder disk;
        disk.writeMany(10, 100);
        disk.write("stays");
        const DiskWatching watching;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        Ozy::FS::DiskMonitor::instance().finishWatching();
        QStringList deleted;
        connect(&model, &Model::pathDeleted, this, [&deleted](const QString& path) { deleted << path; });

        disk.removeTree("dir_0");
        disk.removeTree("dir_1");

        QTRY_COMPARE(deleted.size(), 202);
        QCOMPARE(model.rowCount(model.index(0, 0)), 9);
        QVERIFY(!model.nodeFromPath(disk.path("dir_1")));
        QVERIFY(model.nodeFromPath(disk.path("dir_2/file_99")));
    }

    void aRenamedDirectoryVanishesFromTheRealDisk()
    {
        const DiskFolder disk;
        disk.write("wood/oak");
        const DiskWatching watching;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        Ozy::FS::DiskMonitor::instance().finishWatching();

        disk.rename("wood", "trees");

        QTRY_COMPARE(model.rowCount(model.index(0, 0)), 0);
    }

    void aFileReplacedInOneBurstLosesItsRow()
    {
        const DiskFolder disk;
        disk.write("oak", "1");
        const DiskWatching watching;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        Ozy::FS::DiskMonitor::instance().finishWatching();

        disk.remove("oak");
        disk.write("oak", "1");

        QTRY_COMPARE(model.rowCount(model.index(0, 0)), 0);
    }

    void aFileDeletedAsSoonAsItsDirectoryWasAddedVanishes()
    {
        const DiskFolder disk;
        disk.write("oak");
        const DiskWatching watching;
        Model model;
        QStringList added;

        model.addPath(disk.path(), added, {}, {});
        disk.remove("oak");

        QTRY_COMPARE(model.rowCount(model.index(0, 0)), 0);
    }

    void noGhostSurvivesABurstThatOverflowsTheSystemsQueue()
    {
        const DiskFolder disk(DiskFolder::Large);
        disk.writeMany(20, 500);
        const DiskWatching watching;
        Model model;
        QStringList added;
        model.addPath(disk.path(), added, {}, {});
        Ozy::FS::DiskMonitor::instance().finishWatching();

        disk.runWhileStopped(DiskFolder::flood("dir_8")
                             + "; mv dir_0 moved; rm -r dir_5 dir_6; rm dir_7/file_3");

        QTRY_VERIFY_WITH_TIMEOUT(!model.nodeFromPath(disk.path("dir_0")) && !model.nodeFromPath(disk.path("dir_5"))
                                     && !model.nodeFromPath(disk.path("dir_6"))
                                     && !model.nodeFromPath(disk.path("dir_7/file_3")),
                                 20000);
        QVERIFY(model.nodeFromPath(disk.path("dir_8/file_3")));
    }
};

QTEST_GUILESS_MAIN(tst_VirtualFilesystemModel)
#include "tst_virtual_filesystem_model.moc"
