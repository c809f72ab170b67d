#include <datamodels/proxy/subtree_proxy_model.h>

#include <support/log_capture.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QtTest>

using qelm::datamodels::proxy::SubtreeProxyModel;

// Not under QAbstractItemModelTester: the parent of a first-level row is the root's own index, on purpose.
class tst_SubtreeProxyModel : public QObject
{
    Q_OBJECT

    ScriptedTree* source = nullptr;
    SubtreeProxyModel* proxy = nullptr;

private Q_SLOTS:
    void init()
    {
        source = new ScriptedTree({"oak", "elm", "  leaf | kind=green | size=3", "    vein", "  twig", "ash"});
        proxy = new SubtreeProxyModel(source);
        proxy->setSourceModel(source);
    }
    void cleanup() { delete source; }

    void itShowsTheRowsBelowItsRoot()
    {
        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(treeLines(*proxy), (QStringList{"leaf", "  vein", "twig"}));
        QCOMPARE(proxy->columnCount(), 1);
    }

    void anInvalidRootShowsTheWholeSource()
    {
        proxy->setSourceRoot({});

        QCOMPARE(treeLines(*proxy), treeLines(*source));
    }

    void everyRoleIsTheSources()
    {
        proxy->setSourceRoot(source->find("elm"));
        const QModelIndex leaf = proxy->index(0, 0);

        QCOMPARE(proxy->data(leaf, Qt::DisplayRole), QVariant("leaf"));
        QCOMPARE(proxy->data(leaf, ScriptedTree::KindRole), QVariant("green"));
        QCOMPARE(proxy->data(leaf, ScriptedTree::SizeRole), QVariant(3));
        QCOMPARE(proxy->flags(leaf), source->flags(source->find("leaf")));
    }

    void theInvalidIndexReadsTheRoot()
    {
        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(proxy->data({}), QVariant("elm"));
    }

    void theRootIsGivenBack()
    {
        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(proxy->sourceRoot(), QPersistentModelIndex(source->find("elm")));
        QCOMPARE(proxy->mapToSource({}), source->find("elm"));
    }

    void theSameRootResetsAgain()
    {
        proxy->setSourceRoot(source->find("elm"));
        SignalLog log(*proxy);

        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void theParentOfAFirstLevelRowIsTheIndexOfTheRoot()
    {
        proxy->setSourceRoot(source->find("elm"));

        const QModelIndex root = proxy->index(0, 0).parent();

        QVERIFY(root.isValid());
        QCOMPARE(root.row(), 1);
        QCOMPARE(proxy->mapToSource(root), source->find("elm"));
        QCOMPARE(treeLines(*proxy, Qt::DisplayRole, root), treeLines(*proxy));
    }

    void belowAnInvalidRootThatParentHasNoRow()
    {
        proxy->setSourceRoot({});

        const QModelIndex root = proxy->index(0, 0).parent();

        QVERIFY(!root.isValid());
        QVERIFY(root != QModelIndex());
        QCOMPARE(proxy->mapToSource(root), QModelIndex());
    }

    void aDeeperRowKnowsItsParent()
    {
        proxy->setSourceRoot(source->find("elm"));
        const QModelIndex leaf = proxy->index(0, 0);

        QCOMPARE(proxy->index(0, 0, leaf).parent(), leaf);
    }

    void anIndexIsTheSameEachTime()
    {
        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(proxy->index(1, 0), proxy->index(1, 0));
        QCOMPARE(proxy->mapFromSource(source->find("twig")), proxy->index(1, 0));
    }

    void aRowWhoseParentHasNotBeenMappedFailsAnAssertion()
    {
        proxy->setSourceRoot(source->find("elm"));
        LogCapture log;

        const QModelIndex vein = proxy->mapFromSource(source->find("vein"));

        QVERIFY(!vein.isValid());
        QCOMPARE(log.assertions(), QStringList{"parentIt != itemsMap_.cend()"});
    }

    void beforeTheRootIsSetCountsAreTheSourcesButIndexesFail()
    {
        LogCapture log;

        QCOMPARE(proxy->rowCount(), 3);
        QVERIFY(!proxy->index(0, 0).isValid());
        QCOMPARE(log.assertions(), QStringList{"parentIt != itemsMap_.cend()"});
    }

    void withoutASourceThereIsNothing()
    {
        SubtreeProxyModel empty;
        empty.setSourceRoot({});

        QCOMPARE(empty.rowCount(), 0);
        QCOMPARE(empty.columnCount(), 0);
        QCOMPARE(empty.index(0, 0), QModelIndex());
        QCOMPARE(empty.mapToSource({}), QModelIndex());
        QCOMPARE(empty.mapFromSource(source->index(0, 0)), QModelIndex());
        QCOMPARE(empty.data({}), QVariant());
        QVERIFY(empty.roleNames().isEmpty());
    }

    void roleNamesAreReadFromTheSourceEachTime()
    {
        QCOMPARE(proxy->roleNames(), source->roleNames());
    }

    void changesOfTheSourceAreNotForwarded()
    {
        proxy->setSourceRoot(source->find("elm"));
        proxy->index(1, 0);
        SignalLog log(*proxy);

        source->change(source->find("twig"), "branch");
        source->insert(source->find("elm"), 0, {"bud"});
        source->remove(source->find("elm"), 2);

        QCOMPARE(log.take(), QStringList());
    }

    void settingTheRootAgainTakesChangesIn()
    {
        proxy->setSourceRoot(source->find("elm"));
        QCOMPARE(proxy->rowCount(), 2);
        source->move(source->find("elm"), 0, 1, {}, 0);
        source->insert(source->find("elm"), 1, {"bud"});

        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(treeLines(*proxy), (QStringList{"twig", "bud"}));
    }

    void rowsThatMovedCanStillBeAskedFor()
    {
        proxy->setSourceRoot(source->find("elm"));
        proxy->index(0, 0);
        proxy->index(1, 0);

        source->insert(source->find("elm"), 0, {"bud"});

        QCOMPARE(proxy->index(0, 0).data(), QVariant("bud"));
        QCOMPARE(proxy->index(2, 0).data(), QVariant("twig"));
    }

    void aRemovedRowHasNoValueAndNoSourceIndex()
    {
        proxy->setSourceRoot(source->find("elm"));
        const QModelIndex twig = proxy->index(1, 0);

        source->remove(source->find("elm"), 1);

        QCOMPARE(proxy->mapToSource(twig), QModelIndex());
        QCOMPARE(proxy->data(twig), QVariant());
    }

    void withTheRootGoneCountsAreTheWholeSourcesButIndexesFail()
    {
        proxy->setSourceRoot(source->find("elm"));
        source->remove({}, 1);
        LogCapture log;

        QVERIFY(!proxy->sourceRoot().isValid());
        QCOMPARE(proxy->rowCount(), 2);
        QVERIFY(!proxy->index(0, 0).isValid());
        QCOMPARE(log.assertions(), QStringList{"parentIt != itemsMap_.cend()"});
    }

    void anotherSourceIsShownFromTheNextRootOn()
    {
        ScriptedTree other({"pine", "  cone"});
        proxy->setSourceRoot(source->find("elm"));

        proxy->setSourceModel(&other);
        proxy->setSourceRoot(other.find("pine"));

        QCOMPARE(treeLines(*proxy), QStringList{"cone"});
    }

    void anIndexOfAnotherModelMapsToNothing()
    {
        proxy->setSourceRoot(source->find("elm"));

        QCOMPARE(proxy->mapToSource(source->find("leaf")), QModelIndex());
        QCOMPARE(proxy->data(source->find("leaf")), QVariant());
    }

    void anIndexOfAnotherSourceFailsAnAssertion()
    {
        ScriptedTree other({"pine", "  cone"});
        proxy->setSourceRoot(source->find("elm"));
        LogCapture log;

        QVERIFY(!proxy->mapFromSource(other.find("cone")).isValid());

        QCOMPARE(log.assertions(), QStringList{"parentIt != itemsMap_.cend()"});
    }

    void aSourceThatDiesLeavesNothing()
    {
        SubtreeProxyModel survivor;
        auto dying = std::make_unique<ScriptedTree>(QStringList{"oak", "  leaf"});
        survivor.setSourceModel(dying.get());
        survivor.setSourceRoot(dying->find("oak"));
        QCOMPARE(survivor.rowCount(), 1);

        dying.reset();

        QCOMPARE(survivor.rowCount(), 0);
        QVERIFY(!survivor.sourceRoot().isValid());
        QCOMPARE(survivor.index(0, 0), QModelIndex());
    }
};

QTEST_GUILESS_MAIN(tst_SubtreeProxyModel)
#include "tst_subtree_proxy_model.moc"
