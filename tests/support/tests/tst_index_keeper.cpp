#include <support/index_keeper.h>
#include <support/scripted_tree.h>

#include <QtTest>

namespace {

/// Exchanges its rows without telling its persistent indexes.
class ForgetfulModel : public ScriptedTree
{
public:
    using ScriptedTree::ScriptedTree;

    void swapTexts()
    {
        const QSignalBlocker blocker(this);
        change(index(0, 0), index(1, 0), Qt::DisplayRole, {"b", "a"});
    }
};

} // namespace

class tst_IndexKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCellIsKept()
    {
        const ScriptedTree tree({"a", "  x", "b"}, 2);

        QCOMPARE(IndexKeeper(tree).count(), 6);
    }

    void indexesThatAreFollowedAreFine()
    {
        ScriptedTree tree({"a", "  x", "b"});
        const IndexKeeper keeper(tree);

        tree.move({}, 1, 1, {}, 0);
        tree.rearrange({}, {1, 0});

        QCOMPARE(keeper.strayed(), QStringList());
        QCOMPARE(keeper.lost(), QStringList());
    }

    void anIndexThatShowsSomethingElseHasStrayed()
    {
        ForgetfulModel tree({"a", "b"});
        const IndexKeeper keeper(tree);

        tree.swapTexts();

        QCOMPARE(keeper.strayed(), (QStringList{"/0 shows b, not a", "/1 shows a, not b"}));
    }

    void aRemovedRowIsLost()
    {
        ScriptedTree tree({"a", "  x", "b"});
        const IndexKeeper keeper(tree);

        tree.remove({}, 0);

        QCOMPARE(keeper.lost(), (QStringList{"a", "x"}));
        QCOMPARE(keeper.strayed(), QStringList());
    }

    void anotherRoleCanBeTheDatum()
    {
        ScriptedTree tree({"a"});
        const IndexKeeper byId(tree, ScriptedTree::IdRole);
        const IndexKeeper byText(tree);

        tree.change(tree.index(0, 0), "b");

        QCOMPARE(byId.strayed(), QStringList());
        QCOMPARE(byText.strayed(), QStringList{"/0 shows b, not a"});
    }

    void keepAllBeginsAgain()
    {
        ScriptedTree tree({"a", "b"});
        IndexKeeper keeper(tree);
        tree.remove({}, 0);
        tree.change(tree.index(0, 0), "c");

        keeper.keepAll();

        QCOMPARE(keeper.count(), 1);
        QCOMPARE(keeper.strayed(), QStringList());
        QCOMPARE(keeper.lost(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_IndexKeeper)
#include "tst_index_keeper.moc"
