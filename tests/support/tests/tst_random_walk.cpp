#include <support/random_walk.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using Reporting = QAbstractItemModelTester::FailureReportingMode;

namespace {

void walkOn(RandomWalk& walk, int steps)
{
    for (int i = 0; i < steps; ++i)
        walk.step();
}

QSet<QString> firstWords(const QStringList& lines)
{
    QSet<QString> words;
    for (const QString& line : lines)
        words.insert(line.section(' ', 0, 0));
    return words;
}

} // namespace

class tst_RandomWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itKeepsTheRulesOfAnItemModel()
    {
        ScriptedTree tree(2);
        const QAbstractItemModelTester tester(&tree, Reporting::QtTest);
        RandomWalk walk(tree, 1, {6, 5, 5, 8, 2, 1});

        walkOn(walk, 500);

        QVERIFY(tree.size() <= 50);
    }

    void theSameSeedWalksTheSameWay()
    {
        ScriptedTree first;
        ScriptedTree second;
        RandomWalk firstWalk(first, 7);
        RandomWalk secondWalk(second, 7);

        walkOn(firstWalk, 200);
        walkOn(secondWalk, 200);

        QCOMPARE(treeLines(first), treeLines(second));
        QCOMPARE(firstWalk.where(), secondWalk.where());
    }

    void anotherSeedWalksAnotherWay()
    {
        ScriptedTree first;
        ScriptedTree second;
        RandomWalk firstWalk(first, 7);
        RandomWalk secondWalk(second, 8);

        walkOn(firstWalk, 200);
        walkOn(secondWalk, 200);

        QVERIFY(treeLines(first) != treeLines(second));
    }

    void itTellsWhereItIs()
    {
        ScriptedTree tree;
        RandomWalk walk(tree, 7);

        walkOn(walk, 3);

        QVERIFY2(walk.where().startsWith("seed 7, step 3: "), qPrintable(walk.where()));
    }

    void itMakesEveryKindOfChange()
    {
        ScriptedTree tree;
        RandomWalk walk(tree, 3, {6, 5, 5, 8, 2, 1});
        SignalLog log(tree);

        walkOn(walk, 300);

        QCOMPARE(firstWords(log.take()),
                 (QSet<QString>{"inserting", "inserted", "removing", "removed", "moving", "moved", "changed",
                                "layout", "resetting", "reset"}));
    }

    void aChangeWithoutWeightIsNotMade()
    {
        ScriptedTree tree({"a", "b"});
        RandomWalk walk(tree, 3, {0, 0, 0, 1, 0, 0});
        SignalLog log(tree);

        walkOn(walk, 100);

        QCOMPARE(firstWords(log.take()), QSet<QString>{"changed"});
    }

    void itDoesNotGrowBeyondItsLimit()
    {
        ScriptedTree tree;
        RandomWalk walk(tree, 3, {1, 0, 0, 0, 0, 0}, 10);

        walkOn(walk, 100);

        QVERIFY(tree.size() >= 10);
        QVERIFY(tree.size() <= 10 + 5);
    }
};

QTEST_GUILESS_MAIN(tst_RandomWalk)
#include "tst_random_walk.moc"
