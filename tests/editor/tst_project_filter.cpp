#include "sample_project.h"

#include <panels/project/project_filter.h>
#include <panels/project/project_tree_model.h>
#include <support/tree_lines.h>

#include <QSignalSpy>
#include <QtTest>

using editor::FileKind;
using editor::ProjectFilter;
using editor::ProjectTreeModel;

namespace {

struct Stack
{
    Stack()
    {
        tree.load(project.path());
        filter.setSourceModel(&tree);
    }

    QStringList lines() const { return treeLines(filter); }

    SampleProject project;
    ProjectTreeModel tree;
    ProjectFilter filter;
};

} // namespace

class tst_ProjectFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingShowsSortedByNameWithTheFoldersFirst()
    {
        const Stack stack;

        QCOMPARE(stack.lines(), (QStringList{"boats", "  barge.mesh", "  Sail.mesh", "scripts", "  arena_defs",
                                             "    quay.xml", "  weir.lua", "textures", "  quay.png", "notes.txt"}));
        QVERIFY(!stack.filter.isActive());
    }

    void aTextShowsWhatHasItInItsNameAndWhatLeadsThere()
    {
        Stack stack;

        stack.filter.text()->setText("QUAY");

        QCOMPARE(stack.lines(), (QStringList{"scripts", "  arena_defs", "    quay.xml", "textures", "  quay.png"}));
    }

    void allWordsMustBeInNamePathOrKind()
    {
        Stack stack;

        stack.filter.words()->setText("quay  map");

        QCOMPARE(stack.lines(), (QStringList{"scripts", "  arena_defs", "    quay.xml"}));
    }

    void anyWordIsEnoughWhenAskedFor()
    {
        Stack stack;
        stack.filter.words()->setText("sail weir");

        stack.filter.setWordsType(1);

        QCOMPARE(stack.lines(), (QStringList{"boats", "  Sail.mesh", "scripts", "  weir.lua"}));
    }

    void textAndWordsMustBothMatch()
    {
        Stack stack;

        stack.filter.text()->setText("quay");
        stack.filter.words()->setText("texture");

        QCOMPARE(stack.lines(), (QStringList{"textures", "  quay.png"}));
    }

    void withAncestorsShowsEverythingInAFolderThatMatches()
    {
        Stack stack;
        stack.filter.text()->setText("boats");
        const QStringList alone = stack.lines();

        stack.filter.setWithAncestors(true);

        QCOMPARE(alone, QStringList{"boats"});
        QCOMPARE(stack.lines(), (QStringList{"boats", "  barge.mesh", "  Sail.mesh"}));
    }

    void invertedShowsWhatDoesNotMatch()
    {
        Stack stack;
        stack.filter.words()->setText("boats textures notes");
        stack.filter.setWordsType(1);

        stack.filter.setInverted(true);

        QCOMPARE(stack.lines(), (QStringList{"scripts", "  arena_defs", "    quay.xml", "  weir.lua"}));
    }

    void invertedWithAncestorsHidesWholeBranches()
    {
        Stack stack;
        stack.filter.text()->setText("scripts");
        stack.filter.setInverted(true);

        stack.filter.setWithAncestors(true);

        QCOMPARE(stack.lines(), (QStringList{"boats", "  barge.mesh", "  Sail.mesh", "textures", "  quay.png",
                                             "notes.txt"}));
    }

    void aKindShowsOnlyItsOwnAndIsNotInverted()
    {
        Stack stack;
        stack.filter.text()->setText("barge");
        stack.filter.setInverted(true);

        stack.filter.kind()->setCurrentIndex(static_cast<int>(FileKind::Model));

        QCOMPARE(stack.lines(), (QStringList{"boats", "  Sail.mesh"}));
    }

    void theControlsStillWorkAfterTheyWereRecomposed()
    {
        Stack stack;
        stack.filter.setInverted(true);
        stack.filter.setWithAncestors(true);
        stack.filter.setInverted(false);
        stack.filter.setWithAncestors(false);

        stack.filter.text()->setText("weir");
        const QStringList byText = stack.lines();
        stack.filter.text()->setText("");
        stack.filter.words()->setText("notes");
        const QStringList byWords = stack.lines();
        stack.filter.words()->setText("");
        stack.filter.kind()->setCurrentIndex(static_cast<int>(FileKind::Texture));

        QCOMPARE(byText, (QStringList{"scripts", "  weir.lua"}));
        QCOMPARE(byWords, QStringList{"notes.txt"});
        QCOMPARE(stack.lines(), (QStringList{"textures", "  quay.png"}));
    }

    void clearEndsEveryFilterAndKeepsTheSorting()
    {
        Stack stack;
        stack.filter.sortOrTurn("size");
        stack.filter.text()->setText("a");
        stack.filter.words()->setText("b");
        stack.filter.setWordsType(1);
        stack.filter.setWithAncestors(true);
        stack.filter.setInverted(true);
        stack.filter.kind()->setCurrentIndex(2);

        stack.filter.clear();

        QCOMPARE(stack.filter.text()->text(), QString());
        QCOMPARE(stack.filter.words()->text(), QString());
        QCOMPARE(stack.filter.wordsType(), 0);
        QVERIFY(!stack.filter.withAncestors());
        QVERIFY(!stack.filter.isInverted());
        QCOMPARE(stack.filter.kind()->currentIndex(), -1);
        QVERIFY(!stack.filter.isActive());
        QCOMPARE(stack.filter.sortedBy(), QString("size"));
        QCOMPARE(stack.lines().size(), 10);
    }

    void aHeaderSortsAndAtTheSecondClickTurnsTheOrder()
    {
        Stack stack;
        QSignalSpy sorted(&stack.filter, &ProjectFilter::sortingChanged);

        stack.filter.sortOrTurn("size");
        const QStringList ascending = stack.lines();
        stack.filter.sortOrTurn("size");

        QCOMPARE(ascending, (QStringList{"textures", "  quay.png", "boats", "  Sail.mesh", "  barge.mesh", "scripts",
                                         "  arena_defs", "    quay.xml", "  weir.lua", "notes.txt"}));
        QCOMPARE(stack.lines(), (QStringList{"scripts", "  arena_defs", "    quay.xml", "  weir.lua", "boats",
                                             "  barge.mesh", "  Sail.mesh", "textures", "  quay.png", "notes.txt"}));
        QCOMPARE(sorted.size(), 2);
        QVERIFY(stack.filter.isDescending());
    }

    void anotherHeaderSortsUpwardsAgain()
    {
        Stack stack;
        stack.filter.sortOrTurn("size");
        stack.filter.sortOrTurn("size");

        stack.filter.sortOrTurn("kind");

        QCOMPARE(stack.filter.sortedBy(), QString("kind"));
        QVERIFY(!stack.filter.isDescending());
    }

    void anUnknownRoleSortsNothing()
    {
        Stack stack;
        QSignalSpy sorted(&stack.filter, &ProjectFilter::sortingChanged);

        stack.filter.sortOrTurn("colour");

        QCOMPARE(stack.filter.sortedBy(), QString("name"));
        QCOMPARE(sorted.size(), 0);
    }

    void needlesAreTheWordsAndTheText()
    {
        Stack stack;

        stack.filter.text()->setText("a b");
        stack.filter.words()->setText(" c  d ");

        QCOMPARE(stack.filter.needles(), (QStringList{"c", "d", "a b"}));
    }

    void nothingIsMarkedWhileTheFilterIsInverted()
    {
        Stack stack;
        stack.filter.text()->setText("a");

        stack.filter.setInverted(true);

        QCOMPARE(stack.filter.needles(), QStringList());
    }

    void itIsActiveWhileAControlRestrictsTheRows_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("words");
        QTest::addColumn<bool>("inverted");
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("active");

        QTest::newRow("nothing") << "" << "" << false << -1 << false;
        QTest::newRow("text") << "a" << "" << false << -1 << true;
        QTest::newRow("words") << "" << "a" << false << -1 << true;
        QTest::newRow("spaces are no words") << "" << "  " << false << -1 << false;
        QTest::newRow("a space is a text") << " " << "" << false << -1 << true;
        QTest::newRow("inverted") << "" << "" << true << -1 << true;
        QTest::newRow("kind") << "" << "" << false << 0 << true;
    }
    void itIsActiveWhileAControlRestrictsTheRows()
    {
        QFETCH(QString, text);
        QFETCH(QString, words);
        QFETCH(bool, inverted);
        QFETCH(int, kind);
        Stack stack;

        stack.filter.text()->setText(text);
        stack.filter.words()->setText(words);
        stack.filter.setInverted(inverted);
        stack.filter.kind()->setCurrentIndex(kind);

        QTEST(stack.filter.isActive(), "active");
    }
};

QTEST_GUILESS_MAIN(tst_ProjectFilter)
#include "tst_project_filter.moc"
