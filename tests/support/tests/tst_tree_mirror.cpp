#include <support/scripted_tree.h>
#include <support/tree_lines.h>
#include <support/tree_mirror.h>

#include <QtTest>

namespace {

/// Tells of changes that were not made.
class LyingTree : public ScriptedTree
{
public:
    using ScriptedTree::ScriptedTree;

    void claimRemoval(int row)
    {
        beginRemoveRows({}, row, row);
        endRemoveRows();
    }
    void changeUnannounced(const QStringList& lines)
    {
        const QSignalBlocker silence(this);
        reset(lines);
    }
};

} // namespace

class tst_TreeMirror : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsWhatTheModelShows()
    {
        const ScriptedTree tree({"a", "  x", "    y", "b"});

        QCOMPARE(TreeMirror(tree).lines(), (QStringList{"a", "  x", "    y", "b"}));
    }

    void followsEveryAnnouncedChange()
    {
        ScriptedTree tree({"a", "  x", "b"});
        const TreeMirror mirror(tree);

        tree.insert(tree.find("a"), 0, {"v", "  w"});
        QCOMPARE(mirror.lines(), (QStringList{"a", "  v", "    w", "  x", "b"}));
        tree.remove(tree.find("a"), 0);
        QCOMPARE(mirror.lines(), (QStringList{"a", "  x", "b"}));
        tree.move({}, 1, 1, {}, 0);
        QCOMPARE(mirror.lines(), (QStringList{"b", "a", "  x"}));
        tree.rearrange({}, {1, 0});
        QCOMPARE(mirror.lines(), (QStringList{"a", "  x", "b"}));
        tree.reset({"c"});
        QCOMPARE(mirror.lines(), QStringList{"c"});
        QCOMPARE(mirror.faults(), QStringList());
    }

    void doesNotSeeWhatIsNotAnnounced()
    {
        LyingTree tree({"a", "b"});
        const TreeMirror mirror(tree);

        tree.changeUnannounced({"c"});

        QCOMPARE(mirror.lines(), (QStringList{"a", "b"}));
    }

    void noticesSignalsThatDoNotFit()
    {
        LyingTree tree({"a"});
        const TreeMirror mirror(tree);

        tree.claimRemoval(0);
        tree.claimRemoval(0);

        QCOMPARE(mirror.faults(), QStringList{"removed / [0..0]: there are 0 rows"});
    }
};

QTEST_GUILESS_MAIN(tst_TreeMirror)
#include "tst_tree_mirror.moc"
