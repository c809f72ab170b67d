#pragma once

#include <support/scripted_tree.h>

#include <random>

/// Legal changes of a `ScriptedTree` at random, the same for the same seed on every machine.
///
///     RandomWalk walk(source, 7);
///     for (int step = 0; step < 10000; ++step) {
///         walk.step();
///         QVERIFY2(treeLines(proxy) == freshLines(source), qPrintable(walk.where()));
///     }
///
/// Texts, kinds and sizes come from small sets, so that equal values are common and filters both hit and
/// miss.
class RandomWalk
{
public:
    struct Settings
    {
        // How often each change is made, against each other.
        int insert = 6;
        int remove = 5;
        int move = 5;
        int change = 8;
        int rearrange = 2;
        int reset = 0;
        // Whether changes of other roles than the text are told with their role at times, and layout changes
        // with their parent; otherwise they are told in general.
        bool tellsOtherRoles = true;
        bool tellsParents = true;
    };

    /// At `mostRows` rows nothing is inserted, without rows only that is done.
    RandomWalk(ScriptedTree& tree, unsigned seed, const Settings& settings, int mostRows = 40);
    RandomWalk(ScriptedTree& tree, unsigned seed);

    /// Makes one change.
    void step();

    /// The seed, the number of steps made and the last of them: "seed 7, step 12: move /0 [1..2] to /3 [0]".
    QString where() const;

private:
    struct Range
    {
        QModelIndex parent;
        int row;
        int count;
    };

    int below(int limit);
    bool oneIn(int chances) { return below(chances) == 0; }
    QString randomLine();
    QModelIndex randomRow();
    QModelIndex randomParent();
    Range randomRange();

    void insert();
    void remove();
    void move();
    void change();
    void rearrange();
    void reset();

    ScriptedTree& m_tree;
    std::mt19937 m_random;
    Settings m_settings;
    unsigned m_seed;
    int m_mostRows;
    int m_steps = 0;
    QString m_last;
};
