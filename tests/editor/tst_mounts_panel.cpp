#include "desk.h"

#include <panels/mounts/mounts_panel.h>

#include <QtTest>

using editor::MountsPanel;

namespace {

class MountsDesk : public Desk
{
public:
    MountsDesk() : Desk("mounts") {}

    SampleProject& project() { return m_project; }
    MountsPanel& mounts() const { return panel<MountsPanel>(); }
    QStringList left() const { return names("whole-rows"); }
    QStringList right() const { return names("found-rows"); }
    QString selectedLeft() const { return selected("whole-rows"); }
    QString selectedRight() const { return selected("found-rows"); }
    QString currentRight() const { return currentName("found-rows"); }
    /// The entries of the way to the current row.
    QString path() const
    {
        QStringList entries;
        for (int row = 0; row < mounts().path()->rowCount(); ++row)
            entries << mounts().path()->index(row, 0).data().toString();
        return entries.join(" > ");
    }

    void clickLeft(const QString& name, Qt::KeyboardModifiers modifiers = {})
    {
        clickIn("whole-rows", name, modifiers);
    }
    void clickRight(const QString& name, Qt::KeyboardModifiers modifiers = {})
    {
        clickIn("found-rows", name, modifiers);
    }
    /// Opens a row of the left tree.
    void open(const QString& name)
    {
        doubleClick(*rowItems("whole-rows").value(left().indexOf(name)), {200, 10});
    }

private:
    void clickIn(const QString& tree, const QString& name, Qt::KeyboardModifiers modifiers)
    {
        click(*rowItems(tree).value(names(tree).indexOf(name)), modifiers);
    }
    QString selected(const QString& tree) const
    {
        QStringList found;
        for (int row = 0; row < names(tree).size(); ++row) {
            if (rowItems(tree).at(row)->property("isSelected").toBool())
                found << names(tree).at(row);
        }
        return found.join(' ');
    }
};

} // namespace

class tst_MountsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheMountsAndTheirPaths()
    {
        const MountsDesk desk;

        QCOMPARE(desk.left(), (QStringList{"project", "library", "content"}));
        QCOMPARE(desk.right(), (QStringList{"project", "library", "content"}));
        QCOMPARE(desk.status(),
                 QString("31 rows")); // 3 mounts and a path, 10 files and folders, 5 groups, 2 times 6 assets
    }

    void eachMountShowsItsModel()
    {
        MountsDesk desk;

        desk.open("content");
        desk.open("files");
        desk.open("library");
        desk.open("Model");
        desk.open("project");

        QCOMPARE(desk.left(),
                 (QStringList{"project",  "boats",     "notes.txt",  "scripts",   "textures",   "library",
                              "Model",    "Sail.mesh", "barge.mesh", "Document",  "Map",        "Script",
                              "Texture",  "content",   "files",      "Sail.mesh", "barge.mesh", "notes.txt",
                              "quay.xml", "weir.lua",  "quay.png"}));
    }

    void valuesOfAllModelsAreBoundByTheSameNames()
    {
        MountsDesk desk;
        desk.open("library");
        desk.open("project");

        QCOMPARE(desk.reads(*desk.rowItems("whole-rows").value(1)), QString("boats Folder 320 B"));
        QCOMPARE(desk.reads(*desk.rowItems("whole-rows").value(6)), QString("Model Model 2"));
        QCOMPARE(desk.mounts().whole()->rows()->index(6, 0).data(editor::ContentMounts::IconRole),
                 QVariant("model"));
        QCOMPARE(desk.mounts().whole()->rows()->index(0, 0).data(editor::ContentMounts::IconRole),
                 QVariant("folder-tree"));
    }

    void theWayToTheCurrentRowIsShown()
    {
        MountsDesk desk;
        desk.open("project");
        desk.open("scripts");

        desk.clickLeft("weir.lua");

        QCOMPARE(desk.path(), QString("project > scripts > weir.lua"));
        QVERIFY(desk.has("crumb-weir.lua"));
    }

    void aClickOnAnEntryOfTheWayGoesThere()
    {
        MountsDesk desk;
        desk.open("project");
        desk.open("scripts");
        desk.clickLeft("weir.lua");

        desk.click("crumb-scripts");

        QCOMPARE(desk.selectedLeft(), QString("scripts"));
        QCOMPARE(desk.path(), QString("project > scripts"));
    }

    void wordsFilterAllMounts()
    {
        MountsDesk desk;
        desk.click("words");

        desk.type("quay map");

        QCOMPARE(desk.right(), (QStringList{"project", "scripts", "arena_defs", "quay.xml", "library", "Map",
                                            "quay.xml", "content", "files", "quay.xml"}));
        QCOMPARE(desk.left(), (QStringList{"project", "library", "content"}));
        QCOMPARE(desk.status(), QString("10 of 31 rows pass"));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        MountsDesk desk;
        desk.click("words");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty").isVisible();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QVERIFY(!desk.item("empty").isVisible());
        QCOMPARE(desk.right(), (QStringList{"project", "library", "content"}));
    }

    void whatIsSelectedAmongTheFoundIsSelectedInTheWhole()
    {
        MountsDesk desk;
        desk.click("words");
        desk.type("weir");

        desk.clickRight("weir.lua");

        QCOMPARE(desk.left(), (QStringList{"project", "boats", "notes.txt", "scripts", "arena_defs",
                                           "weir.lua", "textures", "library", "content"}));
        QCOMPARE(desk.selectedLeft(), QString("weir.lua"));
        QCOMPARE(desk.selectedRight(), QString("weir.lua"));
        QCOMPARE(desk.path(), QString("project > scripts > weir.lua"));
    }

    void whatIsSelectedInTheWholeIsSelectedAmongTheFound()
    {
        MountsDesk desk;
        desk.open("project");
        desk.open("boats");
        desk.click("words");
        desk.type("boats");

        desk.clickLeft("barge.mesh");

        QCOMPARE(desk.selectedRight(), QString("barge.mesh"));
        QCOMPARE(desk.currentRight(), QString("barge.mesh"));
    }

    void aSelectionOfSeveralIsLinkedBothWays()
    {
        MountsDesk desk;
        desk.open("project");
        desk.open("boats");
        desk.click("words");
        desk.type("boats");
        desk.clickLeft("barge.mesh");

        desk.clickRight("Sail.mesh", Qt::ControlModifier);
        const QString both = desk.selectedLeft();
        desk.clickLeft("barge.mesh", Qt::ControlModifier);

        QCOMPARE(both, QString("Sail.mesh barge.mesh"));
        QCOMPARE(desk.selectedLeft(), QString("Sail.mesh"));
        QCOMPARE(desk.selectedRight(), QString("Sail.mesh"));
        QCOMPARE(desk.status(), QString("12 of 31 rows pass, 1 selected"));
    }

    void whatTheFilterHidesStaysSelectedInTheWhole()
    {
        MountsDesk desk;
        desk.open("project");
        desk.clickLeft("notes.txt");

        desk.click("words");
        desk.type("weir");
        const QString during = desk.selectedLeft() + '|' + desk.selectedRight() + '|' + desk.path();
        desk.press(Qt::Key_Escape);

        QCOMPARE(during, QString("notes.txt||project > notes.txt"));
        QCOMPARE(desk.selectedLeft(), QString("notes.txt"));
    }

    void oneBranchCanBeShownAlone()
    {
        MountsDesk desk;
        const bool before = desk.item("branchOnly").isEnabled();
        desk.open("project");
        desk.clickLeft("scripts");

        desk.click("branchOnly");
        const QStringList branch = desk.left();
        desk.open("arena_defs");
        const QStringList opened = desk.left();
        desk.click("branchOnly");

        QVERIFY(!before);
        QCOMPARE(branch, (QStringList{"arena_defs", "weir.lua"}));
        QCOMPARE(opened, (QStringList{"arena_defs", "quay.xml", "weir.lua"}));
        QCOMPARE(desk.left(), (QStringList{"project", "boats", "notes.txt", "scripts", "arena_defs",
                                           "weir.lua", "textures", "library", "content"}));
        QCOMPARE(desk.selectedLeft(), QString("arena_defs"));
    }

    void theBranchHasTheSelectionOfTheWhole()
    {
        MountsDesk desk;
        desk.open("project");
        desk.clickLeft("scripts");
        desk.click("branchOnly");
        desk.click("words");
        desk.type("weir");

        desk.clickLeft("weir.lua");
        const QString found = desk.selectedRight();
        const QString path = desk.path();
        desk.clickRight("scripts");
        desk.clickRight("weir.lua");

        QCOMPARE(found, QString("weir.lua"));
        QCOMPARE(path, QString("project > scripts > weir.lua"));
        QCOMPARE(desk.selectedLeft(), QString("weir.lua"));
    }

    void theEntriesOfTheWayLeadToOtherBranches()
    {
        MountsDesk desk;
        desk.open("project");
        desk.clickLeft("scripts");
        desk.click("branchOnly");

        desk.click("crumb-project");
        const QStringList up = desk.left();
        desk.click("crumb-top");

        QCOMPARE(up, (QStringList{"boats", "notes.txt", "scripts", "textures"}));
        QCOMPARE(desk.left().first(), QString("project"));
        QVERIFY(!desk.item("branchOnly").property("checked").toBool());
    }

    void theKeysWalkThroughTheTrees()
    {
        MountsDesk desk;
        desk.clickLeft("project");

        desk.press(Qt::Key_Right);
        desk.press(Qt::Key_Down);
        desk.press(Qt::Key_Right);
        desk.press(Qt::Key_Down);

        QCOMPARE(desk.selectedLeft(), QString("Sail.mesh"));
        QCOMPARE(desk.path(), QString("project > boats > Sail.mesh"));
    }

    void theMountsFollowTheDisk()
    {
        MountsDesk desk;
        desk.open("library");
        desk.open("Model");
        desk.open("content");
        desk.open("files");

        desk.project().write("boats/anchor.mesh", 1);
        QTRY_COMPARE(desk.status(), QString("33 rows, 1 selected")); // in the library and in the list
        QFile::remove(desk.project().filePath("boats/Sail.mesh"));
        QFile::remove(desk.project().filePath("notes.txt"));
        QTRY_COMPARE(desk.status(), QString("28 rows, 1 selected")); // with the group of documents
        desk.settle();

        QCOMPARE(desk.left(), (QStringList{"project", "library", "Model", "barge.mesh", "anchor.mesh", "Map",
                                           "Script", "Texture", "content", "files", "anchor.mesh",
                                           "barge.mesh", "quay.xml", "weir.lua", "quay.png"}));
    }

    void theReloadKeyReadsTheTreeAnew()
    {
        MountsDesk desk;
        desk.open("project");
        desk.project().write("scripts/tide.lua", 1);

        desk.press(Qt::Key_F5);
        desk.open("scripts");

        QCOMPARE(desk.left().mid(3, 4), (QStringList{"scripts", "arena_defs", "tide.lua", "weir.lua"}));
        QCOMPARE(desk.status(), QString("34 rows, 1 selected"));
    }

    void aBranchThatGoesEndsItsBeingAlone()
    {
        MountsDesk desk;
        desk.open("project");
        desk.clickLeft("boats");
        desk.click("branchOnly");
        QDir(desk.project().filePath("boats")).removeRecursively();

        desk.press(Qt::Key_F5);
        desk.settle();

        QVERIFY(!desk.mounts().isBranchOnly());
        QCOMPARE(desk.left().first(), QString("project"));
    }
};

int main(int argc, char** argv)
{
    tst_MountsPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_mounts_panel.moc"
