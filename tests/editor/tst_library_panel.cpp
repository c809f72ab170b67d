#include "desk.h"

#include <panels/library/library_panel.h>

#include <QtTest>

using editor::AssetListModel;
using editor::LibraryPanel;

namespace {

class LibraryDesk : public Desk
{
public:
    LibraryDesk() : Desk("library") {}

    SampleProject& project() { return m_project; }
    QVariant value(int row, int role) const { return panel<LibraryPanel>().rows()->index(row, 0).data(role); }
    /// The numbers of assets behind the names of the groups.
    QStringList counts() const
    {
        QStringList lines;
        for (int row = 0; row < treeNames().size(); ++row)
            lines << treeNames().at(row) + ' ' + value(row, AssetListModel::CountRole).toString();
        return lines;
    }
};

} // namespace

class tst_LibraryPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithAGroupForEachKind()
    {
        const LibraryDesk desk;

        QCOMPARE(desk.counts(), (QStringList{"Document 1", "Map 1", "Model 2", "Script 1", "Texture 1"}));
        QCOMPARE(desk.status(), QString("6 assets in 5 groups"));
    }

    void groupsCanBeMadeByFolderAndByExtension()
    {
        LibraryDesk desk;

        desk.click("Folder");
        const QStringList folders = desk.counts();
        desk.click("Extension");

        QCOMPARE(folders, (QStringList{"/ 1", "boats 2", "scripts 1", "scripts/arena_defs 1", "textures 1"}));
        QCOMPARE(desk.counts(), (QStringList{"lua 1", "mesh 2", "png 1", "txt 1", "xml 1"}));
    }

    void groupsOfAKindHaveItsIconAndOthersAFolder()
    {
        LibraryDesk desk;

        const QVariant ofKind = desk.value(2, AssetListModel::IconRole);
        desk.click("Folder");

        QCOMPARE(ofKind, QVariant("model"));
        QCOMPARE(desk.value(2, AssetListModel::IconRole), QVariant("folder"));
    }

    void aGroupShowsTheValuesThatAllOfItsAssetsHave()
    {
        LibraryDesk desk;

        QCOMPARE(desk.value(2, AssetListModel::KindRole), QVariant("Model"));
        QCOMPARE(desk.value(2, AssetListModel::FolderRole), QVariant("boats"));
        QCOMPARE(desk.value(2, AssetListModel::SizeTextRole), QVariant()); // 300 and 20 bytes
        QCOMPARE(desk.value(3, AssetListModel::SizeTextRole), QVariant("1.5 kB"));
        QVERIFY(desk.reads(*desk.rowItems("tree").value(2)).startsWith("Model 2 Model boats \u2013"));
    }

    void aDoubleClickOpensAGroup()
    {
        LibraryDesk desk;

        desk.doubleClick(*desk.rowItems("tree").value(2), {200, 10});

        QCOMPARE(desk.treeNames(),
                 (QStringList{"Document", "Map", "Model", "barge.mesh", "Sail.mesh", "Script", "Texture"}));
    }

    void wordsFilterTheAssetsAndOpenTheirGroups()
    {
        LibraryDesk desk;
        desk.click("words");

        desk.type("quay");

        QCOMPARE(desk.treeNames(), (QStringList{"Map", "quay.xml", "Texture", "quay.png"}));
        QCOMPARE(desk.status(), QString("2 of 6 assets in 2 groups"));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        LibraryDesk desk;
        desk.click("words");
        desk.type("lighthouse");
        const QString during = desk.status();
        const bool tellsWhy = desk.item("empty").isVisible();

        desk.click("emptyAction");

        QCOMPARE(during, QString("0 of 6 assets in 0 groups"));
        QVERIFY(tellsWhy);
        QVERIFY(!desk.item("empty").isVisible());
        QCOMPARE(desk.status(), QString("6 assets in 5 groups"));
    }

    void aHeaderSortsGroupsAndAssets()
    {
        LibraryDesk desk;

        desk.click("header-count");
        desk.click("header-count");
        const QString most = desk.treeNames().first();
        desk.click("expandAll");
        desk.click("header-size");

        QCOMPARE(most, QString("Model"));
        QCOMPARE(desk.treeNames().mid(0, 3), (QStringList{"Model", "Sail.mesh", "barge.mesh"}));
    }

    void theLibraryFollowsTheDisk()
    {
        LibraryDesk desk;
        desk.click("expandAll");

        desk.project().write("boats/anchor.mesh", 1);
        desk.project().write("sounds/gulls.bank", 1);
        QTRY_COMPARE(desk.status(), QString("8 assets in 6 groups"));
        desk.settle();

        QCOMPARE(desk.treeNames(),
                 (QStringList{"Document", "notes.txt", "Map", "quay.xml", "Model", "anchor.mesh",
                              "barge.mesh", "Sail.mesh", "Script", "weir.lua", "Sound bank", "gulls.bank",
                              "Texture", "quay.png"}));
        QCOMPARE(desk.value(4, AssetListModel::CountRole), QVariant(3));
    }

    void aGroupGoesWithItsLastAsset()
    {
        LibraryDesk desk;

        QFile::remove(desk.project().filePath("notes.txt"));
        QTRY_COMPARE(desk.status(), QString("5 assets in 4 groups"));
        desk.settle();

        QCOMPARE(desk.treeNames(), (QStringList{"Map", "Model", "Script", "Texture"}));
    }

    void anAssetThatChangesIsShownAndMayBreakWhatItsGroupShares()
    {
        LibraryDesk desk;
        desk.project().write("boats/Sail.mesh", 300);
        QTRY_COMPARE(desk.value(2, AssetListModel::SizeTextRole), QVariant("300 B"));

        desk.project().write("boats/Sail.mesh", 7);

        QTRY_COMPARE(desk.value(2, AssetListModel::SizeTextRole), QVariant());
    }

    void theReloadKeyLooksAtTheDiskAtOnce()
    {
        LibraryDesk desk;
        desk.project().write("boats/anchor.mesh", 1);

        desk.press(Qt::Key_F5);

        QCOMPARE(desk.status(), QString("7 assets in 5 groups"));
    }

    void anEmptyProjectSaysSo()
    {
        LibraryDesk desk;
        QDir(desk.project().path()).removeRecursively();

        desk.press(Qt::Key_F5);

        QVERIFY(desk.item("empty").isVisible());
        QCOMPARE(desk.status(), QString("0 assets in 0 groups"));
    }
};

int main(int argc, char** argv)
{
    tst_LibraryPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_library_panel.moc"
