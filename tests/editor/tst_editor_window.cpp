#include "desk.h"

#include <QtTest>

class tst_EditorWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheProjectsTopRows()
    {
        const Desk desk;

        QCOMPARE(desk.treeNames(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
        QCOMPARE(desk.status(), QString("10 rows"));
    }

    void typingANameFiltersTheRows()
    {
        Desk desk;

        desk.click("text");
        desk.type("quay");

        QCOMPARE(desk.treeNames(),
                 (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.status(), QString("5 of 10 rows"));
    }

    void theFindKeyLeadsToTheTextField()
    {
        Desk desk;

        desk.press(Qt::Key_F, Qt::ControlModifier);
        desk.type("weir");

        QCOMPARE(desk.treeNames(), (QStringList{"scripts", "weir.lua"}));
    }

    void escapeEmptiesTheField()
    {
        Desk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Escape);

        QCOMPARE(desk.treeNames(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void theSwitchChoosesBetweenAllWordsAndAny()
    {
        Desk desk;
        desk.click("field");
        desk.type("quay map");
        const QStringList all = desk.treeNames();

        desk.click("Any");
        const QStringList any = desk.treeNames();
        desk.click("All");

        QCOMPARE(all, (QStringList{"scripts", "arena_defs", "quay.xml"}));
        QCOMPARE(any, (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.treeNames(), all);
    }

    void theSwitchesForAncestorsAndInversionChangeTheRows()
    {
        Desk desk;
        desk.click("text");
        desk.type("boats");

        desk.click("ancestors");
        const QStringList below = desk.treeNames();
        desk.click("invert");

        QCOMPARE(below, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.treeNames(), (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "textures",
                                                "quay.png", "notes.txt"}));
    }

    void aClickOnAKindShowsOnlyThat()
    {
        Desk desk;

        desk.click("kind-Models");
        const QStringList models = desk.treeNames();
        desk.click("kind-Everything");

        QCOMPARE(models, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.treeNames(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void aClickOnAHeaderSortsAndTheNextTurnsTheOrder()
    {
        Desk desk;
        desk.click("expandAll");

        desk.click("header-size");
        const QStringList ascending = desk.treeNames();
        desk.click("header-size");

        QCOMPARE(ascending, (QStringList{"textures", "quay.png", "boats", "Sail.mesh", "barge.mesh",
                                         "scripts", "arena_defs", "quay.xml", "weir.lua", "notes.txt"}));
        QCOMPARE(desk.treeNames(),
                 (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "boats", "barge.mesh",
                              "Sail.mesh", "textures", "quay.png", "notes.txt"}));
    }

    void theKeysWalkThroughTheTree()
    {
        Desk desk;
        desk.clickTreeRow(1);

        desk.press(Qt::Key_Right); // opens scripts
        desk.press(Qt::Key_Right); // to arena_defs
        desk.press(Qt::Key_Down);
        const QString down = desk.currentTreeName();
        desk.press(Qt::Key_Left);
        const QString left = desk.currentTreeName();
        desk.press(Qt::Key_End);
        const QString end = desk.currentTreeName();
        desk.press(Qt::Key_Home);

        QCOMPARE(desk.treeNames(),
                 (QStringList{"boats", "scripts", "arena_defs", "weir.lua", "textures", "notes.txt"}));
        QCOMPARE(down, QString("weir.lua"));
        QCOMPARE(left, QString("scripts"));
        QCOMPARE(end, QString("notes.txt"));
        QCOMPARE(desk.currentTreeName(), QString("boats"));
    }

    void downLeadsFromTheFieldToTheRows()
    {
        Desk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Down);
        desk.press(Qt::Key_Down);

        QCOMPARE(desk.currentTreeName(), QString("scripts"));
    }

    void aDoubleClickOpensABranch()
    {
        Desk desk;

        desk.doubleClick(*desk.rowItems("tree").value(0), {200, 10});

        QCOMPARE(desk.treeNames(),
                 (QStringList{"boats", "barge.mesh", "Sail.mesh", "scripts", "textures", "notes.txt"}));
    }

    void theButtonsOpenAndCloseEveryBranch()
    {
        Desk desk;

        desk.click("expandAll");
        const QStringList expanded = desk.treeNames();
        desk.click("collapseAll");

        QCOMPARE(expanded.size(), 10);
        QCOMPARE(desk.treeNames(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        Desk desk;
        desk.click("text");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty").isVisible();
        const QStringList during = desk.treeNames();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QCOMPARE(during, QStringList());
        QVERIFY(!desk.item("empty").isVisible());
        QCOMPARE(desk.treeNames(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void whatMatchesIsMarkedInTheNames()
    {
        Desk desk;
        const QColor mark("#5f5020");
        const int before = desk.pixels(*desk.rowItems("tree").value(1), mark);

        desk.click("text");
        desk.type("we"); // leaves scripts and, below it, weir.lua

        QCOMPARE(before, 0);
        QCOMPARE(desk.pixels(*desk.rowItems("tree").value(0), mark), 0);
        QVERIFY(desk.pixels(*desk.rowItems("tree").value(1), mark) > 50);
    }
};

int main(int argc, char** argv)
{
    tst_EditorWindow test;
    return runAtDesk(test, argc, argv);
}
#include "tst_editor_window.moc"
