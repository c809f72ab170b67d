#include "desk.h"

#include <controls/match_text.h>

#include <QtTest>

namespace {

/// A desk with what there is to see of the project's tree.
class ProjectDesk : public Desk
{
public:
    void clickRow(int row) { click(*rows().value(row)); }

    /// The names of the rows as they stand on the screen, from the top.
    QStringList shown() const
    {
        QStringList names;
        for (const QQuickItem* row : rows())
            names << nameOf(*row);
        return names;
    }

    /// The name of the row that is drawn as the current one.
    QString current() const
    {
        for (const QQuickItem* row : rows()) {
            if (row->property("isCurrent").toBool())
                return nameOf(*row);
        }
        return {};
    }

    QList<QQuickItem*> rows() const { return rowItems("tree"); }

private:
    static QString nameOf(const QQuickItem& row) { return matchTextIn(&row)->text(); }

    static const editor::MatchText* matchTextIn(const QQuickItem* parent)
    {
        for (const QQuickItem* child : parent->childItems()) {
            if (const auto* text = qobject_cast<const editor::MatchText*>(child))
                return text;
            if (const auto* found = matchTextIn(child))
                return found;
        }
        return nullptr;
    }
};

} // namespace

class tst_EditorWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheProjectsTopRows()
    {
        const ProjectDesk desk;

        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
        QCOMPARE(desk.status(), QString("10 rows"));
    }

    void typingANameFiltersTheRows()
    {
        ProjectDesk desk;

        desk.click("text");
        desk.type("quay");

        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.status(), QString("5 of 10 rows"));
    }

    void theFindKeyLeadsToTheTextField()
    {
        ProjectDesk desk;

        desk.press(Qt::Key_F, Qt::ControlModifier);
        desk.type("weir");

        QCOMPARE(desk.shown(), (QStringList{"scripts", "weir.lua"}));
    }

    void escapeEmptiesTheField()
    {
        ProjectDesk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Escape);

        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void theSwitchChoosesBetweenAllWordsAndAny()
    {
        ProjectDesk desk;
        desk.click("field");
        desk.type("quay map");
        const QStringList all = desk.shown();

        desk.click("Any");
        const QStringList any = desk.shown();
        desk.click("All");

        QCOMPARE(all, (QStringList{"scripts", "arena_defs", "quay.xml"}));
        QCOMPARE(any, (QStringList{"scripts", "arena_defs", "quay.xml", "textures", "quay.png"}));
        QCOMPARE(desk.shown(), all);
    }

    void theSwitchesForAncestorsAndInversionChangeTheRows()
    {
        ProjectDesk desk;
        desk.click("text");
        desk.type("boats");

        desk.click("ancestors");
        const QStringList below = desk.shown();
        desk.click("invert");

        QCOMPARE(below, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "textures",
                                            "quay.png", "notes.txt"}));
    }

    void aClickOnAKindShowsOnlyThat()
    {
        ProjectDesk desk;

        desk.click("kind-Models");
        const QStringList models = desk.shown();
        desk.click("kind-Everything");

        QCOMPARE(models, (QStringList{"boats", "barge.mesh", "Sail.mesh"}));
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void aClickOnAHeaderSortsAndTheNextTurnsTheOrder()
    {
        ProjectDesk desk;
        desk.click("expandAll");

        desk.click("header-size");
        const QStringList ascending = desk.shown();
        desk.click("header-size");

        QCOMPARE(ascending, (QStringList{"textures", "quay.png", "boats", "Sail.mesh", "barge.mesh",
                                         "scripts", "arena_defs", "quay.xml", "weir.lua", "notes.txt"}));
        QCOMPARE(desk.shown(), (QStringList{"scripts", "arena_defs", "quay.xml", "weir.lua", "boats",
                                            "barge.mesh", "Sail.mesh", "textures", "quay.png", "notes.txt"}));
    }

    void theKeysWalkThroughTheTree()
    {
        ProjectDesk desk;
        desk.clickRow(1);

        desk.press(Qt::Key_Right); // opens scripts
        desk.press(Qt::Key_Right); // to arena_defs
        desk.press(Qt::Key_Down);
        const QString down = desk.current();
        desk.press(Qt::Key_Left);
        const QString left = desk.current();
        desk.press(Qt::Key_End);
        const QString end = desk.current();
        desk.press(Qt::Key_Home);

        QCOMPARE(desk.shown(),
                 (QStringList{"boats", "scripts", "arena_defs", "weir.lua", "textures", "notes.txt"}));
        QCOMPARE(down, QString("weir.lua"));
        QCOMPARE(left, QString("scripts"));
        QCOMPARE(end, QString("notes.txt"));
        QCOMPARE(desk.current(), QString("boats"));
    }

    void downLeadsFromTheFieldToTheRows()
    {
        ProjectDesk desk;
        desk.click("text");
        desk.type("weir");

        desk.press(Qt::Key_Down);
        desk.press(Qt::Key_Down);

        QCOMPARE(desk.current(), QString("scripts"));
    }

    void aDoubleClickOpensABranch()
    {
        ProjectDesk desk;

        desk.doubleClick(*desk.rows().value(0), {200, 10});

        QCOMPARE(desk.shown(),
                 (QStringList{"boats", "barge.mesh", "Sail.mesh", "scripts", "textures", "notes.txt"}));
    }

    void theButtonsOpenAndCloseEveryBranch()
    {
        ProjectDesk desk;

        desk.click("expandAll");
        const QStringList expanded = desk.shown();
        desk.click("collapseAll");

        QCOMPARE(expanded.size(), 10);
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        ProjectDesk desk;
        desk.click("text");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty").isVisible();
        const QStringList during = desk.shown();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QCOMPARE(during, QStringList());
        QVERIFY(!desk.item("empty").isVisible());
        QCOMPARE(desk.shown(), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void whatMatchesIsMarkedInTheNames()
    {
        ProjectDesk desk;
        const QColor mark("#5f5020");
        const int before = desk.pixels(*desk.rows().value(1), mark);

        desk.click("text");
        desk.type("we"); // leaves scripts and, below it, weir.lua

        QCOMPARE(before, 0);
        QCOMPARE(desk.pixels(*desk.rows().value(0), mark), 0);
        QVERIFY(desk.pixels(*desk.rows().value(1), mark) > 50);
    }
};

int main(int argc, char** argv)
{
    tst_EditorWindow test;
    return runAtDesk(test, argc, argv);
}
#include "tst_editor_window.moc"
