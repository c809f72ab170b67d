#include <datamodels/proxy/tree_item_path_proxy_model.h>

#include <support/log_capture.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using qelm::datamodels::proxy::TreeItemPathProxyModel;

class tst_TreeItemPathProxyModel : public QObject
{
    Q_OBJECT

    ScriptedTree* source = nullptr;

private Q_SLOTS:
    void init() { source = new ScriptedTree({"oak", "elm", "  branch", "    twig", "      leaf", "  root", "ash"}); }
    void cleanup() { delete source; }

    void itShowsTheWayFromTheTopToTheTail()
    {
        TreeItemPathProxyModel path;
        const QAbstractItemModelTester tester(&path, QAbstractItemModelTester::FailureReportingMode::QtTest);
        path.setSourceModel(source);

        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(treeLines(path), (QStringList{"elm", "branch", "twig"}));
        QCOMPARE(path.columnCount(), 1);
    }

    void withTheRootItHasOneRowMoreWithoutAnIndex()
    {
        TreeItemPathProxyModel path(true);
        path.setSourceModel(source);

        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.rowCount(), 4);
        QVERIFY(!path.index(0, 0).isValid());
        QCOMPARE(path.index(1, 0).data(), QVariant("elm"));
        QCOMPARE(path.index(3, 0).data(), QVariant("twig"));
    }

    void anInvalidTailGivesAnEmptyListOrTheRootAlone()
    {
        TreeItemPathProxyModel without;
        TreeItemPathProxyModel with(true);
        without.setSourceModel(source);
        with.setSourceModel(source);

        without.setSourceTailIndex({});
        with.setSourceTailIndex({});

        QCOMPARE(without.rowCount(), 0);
        QCOMPARE(with.rowCount(), 1);
    }

    void theTailIsGivenBack()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        QVERIFY(!path.sourceTailIndex().isValid());

        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.sourceTailIndex(), QPersistentModelIndex(source->find("twig")));
    }

    void theSameTailResetsAgain()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void theSameSourceIsNoReset()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        SignalLog log(path);

        path.setSourceModel(source);

        QCOMPARE(log.take(), QStringList());
    }

    void anotherSourceResetsAndKeepsThePath()
    {
        ScriptedTree other({"pine"});
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("branch"));
        SignalLog log(path);

        path.setSourceModel(&other);

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(path.rowCount(), 2);
    }

    void theFormerSourceIsNotHeardAnyMore()
    {
        ScriptedTree other({"pine"});
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("branch"));
        path.setSourceModel(&other);
        SignalLog log(path);

        source->change(source->find("branch"), "bough");

        QCOMPARE(log.take(), QStringList());
    }

    void rowsMapBothWays()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.mapFromSource(source->find("branch")), path.index(1, 0));
        QCOMPARE(path.mapToSource(path.index(1, 0)), source->find("branch"));
        QCOMPARE(path.index(1, 0).internalId(), quintptr(1));
    }

    void aRowOutsideThePathMapsToNothing()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.mapFromSource(source->find("root")), QModelIndex());
        QCOMPARE(path.mapFromSource(source->find("leaf")), QModelIndex());
    }

    void anIndexFromALongerPathFailsAnAssertion()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        const QModelIndex stale = path.index(2, 0);
        path.setSourceTailIndex(source->find("oak"));
        LogCapture log;

        QCOMPARE(path.mapToSource(stale), QModelIndex());

        QCOMPARE(log.assertions(), QStringList{"row >= 0 && row < mappedIndexes_.size()"});
    }

    void anIndexOfAnotherModelMapsToNothing()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.mapToSource(source->find("elm")), QModelIndex());
    }

    void itIsFlat()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.rowCount(path.index(0, 0)), 0);
        QCOMPARE(path.parent(path.index(2, 0)), QModelIndex());
    }

    void withoutASourceThereIsNothing()
    {
        TreeItemPathProxyModel path;
        path.setSourceTailIndex(source->find("twig"));

        QCOMPARE(path.rowCount(), 0);
        QCOMPARE(path.columnCount(), 0);
        QCOMPARE(path.index(0, 0), QModelIndex());
        QCOMPARE(path.mapFromSource(source->find("twig")), QModelIndex());
        QCOMPARE(path.data({}), QVariant());
    }

    void theEntryOfARemovedRowStaysWithoutAnIndex()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        source->remove(source->find("branch"), 0);

        QCOMPARE(log.take(), QStringList());
        QVERIFY(!path.sourceTailIndex().isValid());
        QCOMPARE(path.rowCount(), 3);
        QVERIFY(!path.index(2, 0).isValid());
    }

    void entriesMoveWithTheirRows()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));

        source->insert({}, 0, {"pine"});
        source->insert(source->find("elm"), 0, {"bud"});

        QCOMPARE(treeLines(path), (QStringList{"elm", "branch", "twig"}));
        QCOMPARE(path.sourceTailIndex(), QPersistentModelIndex(source->find("twig")));
    }

    void aChangeOfARowOfThePathIsToldWithItsRoles()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        source->change(source->find("branch"), "green", ScriptedTree::KindRole);

        QCOMPARE(log.take(), QStringList{"changed /1 roles " + QString::number(ScriptedTree::KindRole)});
    }

    void aChangeOfARangeIsToldForTheRowInThePath()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        source->change(source->find("oak"), source->find("ash"), Qt::DisplayRole, {"a", "b", "c"});

        QCOMPARE(log.take(), QStringList{"changed /0 roles 0"});
    }

    void aChangeBesideThePathIsNotTold()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        source->change(source->find("leaf"), "needle");
        source->change(source->find("root"), "sprout");
        source->change(source->find("ash"), "rowan");

        QCOMPARE(log.take(), QStringList());
    }

    void aChangeOfFurtherColumnsIsNotTold()
    {
        ScriptedTree wide({"oak", "  leaf"}, 3);
        TreeItemPathProxyModel path;
        path.setSourceModel(&wide);
        path.setSourceTailIndex(wide.index(0, 0));
        SignalLog log(path);

        wide.change(wide.index(0, 1), wide.index(0, 2), Qt::DisplayRole, {"a", "b"});

        QCOMPARE(log.take(), QStringList());
    }

    void aChangeBetweenTwoParentsFailsAnAssertion()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);
        LogCapture messages;

        Q_EMIT source->dataChanged(source->find("elm"), source->find("branch"), {});

        QCOMPARE(messages.assertions(), QStringList{"topLeft.parent() == bottomRight.parent()"});
        QCOMPARE(log.take(), QStringList());
    }

    void aChangeOfNoIndexIsNotTold()
    {
        TreeItemPathProxyModel path(true);
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        SignalLog log(path);

        Q_EMIT source->dataChanged({}, {}, {});

        QCOMPARE(log.take(), QStringList());
    }

    void rowsThatHaveBecomeSiblingsAreToldInOneStretchIfAdjacent()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        source->move(source->find("branch"), 0, 1, source->find("elm"), 1);
        SignalLog log(path);

        source->change(source->find("branch"), source->find("twig"), Qt::DisplayRole, {"a", "b"});

        QCOMPARE(log.take(), QStringList{"changed /1 .. /2 roles 0"});
    }

    void rowsThatHaveBecomeSiblingsAreToldApartIfNotAdjacent()
    {
        TreeItemPathProxyModel path;
        path.setSourceModel(source);
        path.setSourceTailIndex(source->find("twig"));
        source->move(source->find("branch"), 0, 1, {}, 2);
        SignalLog log(path);

        source->change(source->find("elm"), source->find("twig"), Qt::DisplayRole, {"a", "b"});

        QCOMPARE(log.take(), (QStringList{"changed /0 roles 0", "changed /2 roles 0"}));
    }

    void aSourceThatDiesLeavesNothing()
    {
        auto dying = std::make_unique<ScriptedTree>(QStringList{"oak", "  leaf"});
        TreeItemPathProxyModel path;
        path.setSourceModel(dying.get());
        path.setSourceTailIndex(dying->find("leaf"));
        QCOMPARE(path.rowCount(), 2);

        dying.reset();

        QCOMPARE(path.rowCount(), 0);
        QVERIFY(!path.sourceTailIndex().isValid());
    }
};

QTEST_GUILESS_MAIN(tst_TreeItemPathProxyModel)
#include "tst_tree_item_path_proxy_model.moc"
