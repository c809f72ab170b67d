#include "sample_project.h"

#include <panels/library/asset_list_model.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using editor::AssetListModel;

namespace {

QStringList paths(const AssetListModel& model)
{
    QStringList paths;
    for (int row = 0; row < model.rowCount(); ++row)
        paths << model.index(row).data(AssetListModel::PathRole).toString();
    return paths;
}

} // namespace

class tst_AssetListModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itListsAllFilesInTheOrderOfTheirPaths()
    {
        const SampleProject project;

        const AssetListModel model(project.path());

        QCOMPARE(paths(model),
                 (QStringList{"boats/Sail.mesh", "boats/barge.mesh", "notes.txt",
                              "scripts/arena_defs/quay.xml", "scripts/weir.lua", "textures/quay.png"}));
    }

    void rowsTellWhatTheirFilesAre()
    {
        const SampleProject project;
        const AssetListModel model(project.path());

        const QModelIndex map = model.index(3);

        QCOMPARE(map.data(AssetListModel::NameRole), QVariant("quay.xml"));
        QCOMPARE(map.data(AssetListModel::IconRole), QVariant("map"));
        QCOMPARE(map.data(AssetListModel::KindRole), QVariant("Map"));
        QCOMPARE(map.data(AssetListModel::FolderRole), QVariant("scripts/arena_defs"));
        QCOMPARE(map.data(AssetListModel::ExtensionRole), QVariant("xml"));
        QCOMPARE(map.data(AssetListModel::SizeRole), QVariant(50));
        QCOMPARE(map.data(AssetListModel::SizeTextRole), QVariant("50 B"));
        QCOMPARE(map.data(AssetListModel::IsGroupRole), QVariant(false));
        QCOMPARE(map.data(AssetListModel::KeyRole), QVariant("scripts/arena_defs/quay.xml"));
        QVERIFY(!map.data(AssetListModel::CountRole).isValid());
    }

    void whatHasNoFolderOrExtensionSaysSo()
    {
        SampleProject project;
        project.write("LICENCE", 1);

        const AssetListModel model(project.path());

        QCOMPARE(model.index(0).data(AssetListModel::FolderRole), QVariant("/"));
        QCOMPARE(model.index(0).data(AssetListModel::ExtensionRole), QVariant("none"));
    }

    void hiddenFilesAndLinkedFoldersAreLeftOut()
    {
        SampleProject project;
        project.write(".cache/thumbs.bin", 1);
        QFile::link(project.path(), project.filePath("boats/loop"));

        const AssetListModel model(project.path());

        QCOMPARE(model.rowCount(), 6);
    }

    void aDirectoryThatIsNotThereIsEmpty()
    {
        const AssetListModel model("/nowhere/at/all");

        QCOMPARE(model.rowCount(), 0);
    }

    void newFilesAreInsertedInTheirPlacesNeighboursTogether()
    {
        SampleProject project;
        AssetListModel model(project.path());
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        SignalLog log(model);
        project.write("levels/a.level", 1);
        project.write("levels/b.level", 1);
        project.write("zebra.txt", 1);

        model.synchronise();

        QCOMPARE(log.take(), (QStringList{"inserting / [2..3]", "inserted / [2..3]", "inserting / [8..8]",
                                          "inserted / [8..8]"}));
        QCOMPARE(paths(model).mid(1, 4),
                 (QStringList{"boats/barge.mesh", "levels/a.level", "levels/b.level", "notes.txt"}));
    }

    void deletedFilesAreRemovedFromTheBackNeighboursTogether()
    {
        SampleProject project;
        AssetListModel model(project.path());
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        SignalLog log(model);
        QDir(project.filePath("boats")).removeRecursively();
        QFile::remove(project.filePath("scripts/weir.lua"));

        model.synchronise();

        QCOMPARE(log.take(), (QStringList{"removing / [4..4]", "removed / [4..4]", "removing / [0..1]",
                                          "removed / [0..1]"}));
        QCOMPARE(paths(model),
                 (QStringList{"notes.txt", "scripts/arena_defs/quay.xml", "textures/quay.png"}));
    }

    void aFileThatHasGrownIsAChange()
    {
        SampleProject project;
        AssetListModel model(project.path());
        SignalLog log(model);
        project.write("notes.txt", 77);

        model.synchronise();

        QCOMPARE(log.take(), (QStringList{"changed /2 roles 261,262,263,264"}));
        QCOMPARE(model.index(2).data(AssetListModel::SizeRole), QVariant(77));
    }

    void withoutAChangeNothingIsTold()
    {
        const SampleProject project;
        AssetListModel model(project.path());
        SignalLog log(model);

        model.synchronise();

        QCOMPARE(log.take(), QStringList());
    }

    void aNewNameIsARemovalAndAnInsertion()
    {
        const SampleProject project;
        AssetListModel model(project.path());
        SignalLog log(model);
        QFile::rename(project.filePath("notes.txt"), project.filePath("aims.txt"));

        model.synchronise();

        QCOMPARE(log.take(), (QStringList{"removing / [2..2]", "removed / [2..2]", "inserting / [0..0]",
                                          "inserted / [0..0]"}));
    }

    void itFollowsTheDiskByItself()
    {
        SampleProject project;
        const AssetListModel model(project.path());

        project.write("levels/deep/new.level", 1);
        QFile::remove(project.filePath("notes.txt"));
        QTRY_VERIFY(paths(model).contains("levels/deep/new.level") && !paths(model).contains("notes.txt"));

        project.write("levels/deep/new.level", 30);
        QTRY_COMPARE(model.index(2).data(AssetListModel::SizeRole), QVariant(30));

        QFile::rename(project.filePath("levels"), project.filePath("arenas"));
        QTRY_COMPARE(paths(model).first(), QString("arenas/deep/new.level"));

        project.write("arenas/deep/another.level", 1);
        QTRY_COMPARE(paths(model).first(), QString("arenas/deep/another.level"));
    }
};

QTEST_GUILESS_MAIN(tst_AssetListModel)
#include "tst_asset_list_model.moc"
