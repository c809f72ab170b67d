#include "searched_tree.h"

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <stdexcept>
#include <thread>

using qelm::datamodels::proxy::SearchProxyModel;

class tst_SearchProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewProxyIsEmptyAndDoesNotSearch()
    {
        const SearchedTree tree;

        QCOMPARE(tree.proxy.isSeraching(), false);
        QCOMPARE(tree.proxy.getCount(), 0);
        QCOMPARE(tree.proxy.property("searching"), QVariant(false));
        QCOMPARE(tree.proxy.property("count"), QVariant(0));
        QCOMPARE(tree.proxy.columnCount(), 1);
    }

    void withoutAPredicateEveryRowIsAResultParentsFirst()
    {
        SearchedTree tree;

        tree.searchAll();

        QCOMPARE(tree.texts(), (QStringList{"oak", "leaf", "acorn", "elm", "leaf 2"}));
        QCOMPARE(tree.proxy.getCount(), 5);
    }

    void aSearchThatIsNotRecursiveLooksAtDirectChildrenOnly()
    {
        SearchedTree tree;

        tree.proxy.search(tree.source->find("oak"));

        QTRY_VERIFY(!tree.proxy.isSeraching());
        QCOMPARE(tree.texts(), (QStringList{"leaf", "acorn"}));
    }

    void aSearchLooksBelowItsRoot()
    {
        SearchedTree tree({"oak", "  leaf", "    vein", "elm"});

        tree.searchAll({}, tree.source->find("oak"));

        QCOMPARE(tree.texts(), (QStringList{"leaf", "vein"}));
    }

    void whatIsBelowARowThatIsNoResultIsSearchedToo()
    {
        SearchedTree tree;

        tree.searchAll(
            [](const QModelIndex& index, QVariant&) { return index.data().toString().contains("leaf"); });

        QCOMPARE(tree.texts(), (QStringList{"leaf", "leaf 2"}));
    }

    void thePredicateRunsOnAWorkerAndTheCallbackOnTheGuiThread()
    {
        SearchedTree tree({"oak"});
        std::thread::id worker;
        std::thread::id caller;

        tree.proxy.search(
            {},
            [&worker](const QModelIndex&, QVariant&) {
                worker = std::this_thread::get_id();
                return true;
            },
            false, [&caller] { caller = std::this_thread::get_id(); });

        QTRY_COMPARE(caller, std::this_thread::get_id());
        QVERIFY(worker != caller);
    }

    void whatThePredicateWritesIsARoleOfTheRow()
    {
        SearchedTree tree;

        tree.searchAll([](const QModelIndex& index, QVariant& info) {
            info = index.data().toString().size();
            return true;
        });

        QCOMPARE(tree.proxy.roleNames().value(Qt::UserRole + 1001), QByteArray("searchInfo"));
        QCOMPARE(tree.proxy.index(0, 0).data(Qt::UserRole + 1001), QVariant(3));
        QCOMPARE(tree.proxy.index(4, 0).data(Qt::UserRole + 1001), QVariant(6));
    }

    void theRolesOfTheSourceAreKept()
    {
        SearchedTree tree({"oak | kind=tree"});

        tree.searchAll();

        QCOMPARE(tree.proxy.roleNames().value(ScriptedTree::KindRole), QByteArray("kind"));
        QCOMPARE(tree.proxy.index(0, 0).data(ScriptedTree::KindRole), QVariant("tree"));
    }

    void anEmptyRootEndsTheSearchWithoutRows()
    {
        SearchedTree tree({"oak"});
        SignalLog log(tree.proxy);
        log.add(tree.proxy, &SearchProxyModel::countChanged);

        tree.searchAll({}, tree.source->find("oak"));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(tree.proxy.getCount(), 0);
    }

    void eachResultIsToldAloneAndTheCountOncePerHandOver()
    {
        SearchedTree tree({"oak", "elm", "ash"});
        tree.proxy.setSearchBufferSize(1);
        SignalLog log(tree.proxy);
        log.add(tree.proxy, &SearchProxyModel::countChanged);

        tree.searchAll();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset", "inserting / [0..0]", "inserted / [0..0]",
                                          "inserting / [1..1]", "inserted / [1..1]", "countChanged()",
                                          "inserting / [2..2]", "inserted / [2..2]", "countChanged()"}));
    }

    void withoutABufferEveryResultIsHandedOverAtOnce()
    {
        SearchedTree tree({"oak", "elm"});
        SignalLog log;
        log.add(tree.proxy, &SearchProxyModel::countChanged);

        tree.searchAll();

        QCOMPARE(log.take(), (QStringList{"countChanged()", "countChanged()"}));
    }

    void aNewSearchDropsTheRowsOfTheOneBefore()
    {
        SearchedTree tree({"oak", "elm"});
        tree.searchAll();
        tree.proxy.setSearchBufferSize(10);
        SignalLog log(tree.proxy);
        log.add(tree.proxy, &SearchProxyModel::countChanged);

        tree.searchAll();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset", "countChanged()", "inserting / [0..0]",
                                          "inserted / [0..0]", "inserting / [1..1]", "inserted / [1..1]",
                                          "countChanged()"}));
    }

    void theStatesOfASearchAreToldAndTheCallbackComesAfterTheLastRow()
    {
        SearchedTree tree({"oak", "elm"});
        tree.proxy.setSearchBufferSize(10);
        SignalLog log;
        log.add(tree.proxy, &SearchProxyModel::countChanged);
        bool wasSearching = false;
        connect(&tree.proxy, &SearchProxyModel::searchingChanged, &tree.proxy,
                [&] { wasSearching = tree.proxy.isSeraching(); });

        bool ended = false;

        tree.proxy.search({}, {}, false, [&] {
            log.note(QString("callback %1").arg(tree.proxy.getCount()));
            ended = true;
        });
        QVERIFY(tree.proxy.isSeraching());

        QTRY_VERIFY(ended);
        QCOMPARE(log.take(), (QStringList{"countChanged()", "callback 2"}));
        QVERIFY(!tree.proxy.isSeraching());
        QVERIFY(!wasSearching);
    }

    void theMetaObjectIsInItsOrder()
    {
        const QMetaObject& meta = SearchProxyModel::staticMetaObject;
        const auto signature = [&meta](int i) {
            return meta.method(meta.methodOffset() + i).methodSignature();
        };

        QCOMPARE(signature(0), QByteArray("searchingChanged()"));
        QCOMPARE(signature(1), QByteArray("countChanged()"));
        QCOMPARE(signature(2), QByteArray("search(QModelIndex,Predicate,bool,std::function<void()>)"));
        QCOMPARE(signature(5), QByteArray("search(QModelIndex)"));
        QCOMPARE(signature(6), QByteArray("sort(QVariantList)"));
        QCOMPARE(signature(7), QByteArray("indexOf(QString)"));
        QCOMPARE(meta.methodCount(), meta.methodOffset() + 8);
        QCOMPARE(meta.property(meta.propertyOffset()).name(), "searching");
        QCOMPARE(meta.property(meta.propertyOffset() + 1).name(), "count");
    }

    void rowsMapToTheirSourceAndBack()
    {
        SearchedTree tree;
        tree.searchAll();

        QCOMPARE(tree.proxy.mapToSource(tree.proxy.index(1, 0)), tree.source->find("leaf"));
        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("leaf 2")), tree.proxy.index(4, 0));
        QCOMPARE(tree.proxy.mapToSource({}), QModelIndex());
        QCOMPARE(tree.proxy.mapFromSource({}), QModelIndex());
    }

    void mappingFollowsRowsThatArriveLater()
    {
        SearchedTree tree({"oak", "elm"});
        tree.searchAll({}, tree.source->find("oak"));
        QVERIFY(!tree.proxy.mapFromSource(tree.source->find("elm")).isValid());

        tree.searchAll();

        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("elm")), tree.proxy.index(1, 0));
    }

    void aRowThatIsNoResultMapsToNothing()
    {
        SearchedTree tree;
        tree.searchAll({}, tree.source->find("oak"));

        QVERIFY(!tree.proxy.mapFromSource(tree.source->find("elm")).isValid());
    }

    void cellsOfOtherColumnsAreNoResults()
    {
        ScriptedTree source({"oak", "elm"}, 2);
        SearchProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.search({});

        QTRY_COMPARE(proxy.getCount(), 2);
        QCOMPARE(proxy.columnCount(), 1);
        QVERIFY(!proxy.mapFromSource(source.index(0, 1)).isValid());
    }

    void rowsHaveNoChildren()
    {
        SearchedTree tree;
        tree.searchAll();
        const QModelIndex oak = tree.proxy.index(0, 0);

        QCOMPARE(tree.proxy.rowCount(oak), 0);
        QVERIFY(!tree.proxy.index(0, 0, oak).isValid());
        QVERIFY(!tree.proxy.parent(oak).isValid());
        QVERIFY(!tree.proxy.index(5, 0).isValid());
        QVERIFY(!tree.proxy.index(0, 1).isValid());
    }

    void aRowIsFoundByItsText()
    {
        SearchedTree tree({"oak", "elm", "  elm"});
        tree.searchAll();

        QCOMPARE(tree.proxy.indexOf("elm"), 1);
        QCOMPARE(tree.proxy.indexOf("ash"), -1);
    }

    void changesOfResultsAreToldInJoinedRanges()
    {
        SearchedTree tree({"a", "b", "c", "d", "e"});
        tree.searchAll([](const QModelIndex& index, QVariant&) { return index.data().toString() != "c"; });
        SignalLog log(tree.proxy);

        tree.source->change(tree.source->index(0, 0), tree.source->index(4, 0), ScriptedTree::KindRole,
                            {1, 2, 3, 4, 5});

        QCOMPARE(log.take(), QStringList{"changed /0 .. /3 roles 257"});
    }

    void rangesWithGapsAreToldOneByOne()
    {
        SearchedTree tree({"a", "b", "c", "d", "e"});
        tree.searchAll();
        tree.proxy.sort({QVariantMap{{"role", "display"}, {"order", 1}}});
        tree.searchAll([](const QModelIndex& index, QVariant&) { return index.data().toString() != "z"; });
        SignalLog log(tree.proxy);

        tree.source->change(tree.source->index(1, 0), tree.source->index(2, 0), ScriptedTree::KindRole,
                            {1, 2});

        QCOMPARE(log.take(), QStringList{"changed /2 .. /3 roles 257"});
    }

    void distantRowsAreToldSeparately()
    {
        SearchedTree tree({"a | size=1", "b | size=3", "c | size=2"});
        tree.proxy.sort({QVariantMap{{"role", "size"}, {"order", 0}}});
        tree.searchAll();
        SignalLog log(tree.proxy);

        tree.source->change(tree.source->index(0, 0), tree.source->index(1, 0), ScriptedTree::KindRole,
                            {1, 2});

        QCOMPARE(log.take(), (QStringList{"changed /0 roles 257", "changed /2 roles 257"}));
    }

    void changesOfOtherRowsAreNotTold()
    {
        SearchedTree tree;
        tree.searchAll({}, tree.source->find("oak"));
        SignalLog log(tree.proxy);
        LogCapture messages(LogCapture::FailOnRest);

        tree.source->change(tree.source->find("elm"), "beech");
        tree.source->change(tree.source->find("leaf 2"), 1, ScriptedTree::SizeRole);

        QCOMPARE(log.take(), QStringList());
    }

    void aChangeNeitherMovesNorRemovesARow()
    {
        SearchedTree tree({"a", "b"});
        tree.proxy.sort({QVariantMap{{"role", "display"}, {"order", 0}}});
        tree.searchAll([](const QModelIndex& index, QVariant&) { return index.data().toString() < "c"; });

        tree.source->change(tree.source->find("a"), "z");

        QCOMPARE(tree.texts(), (QStringList{"z", "b"}));
    }

    void aRemovedRowStaysWithItsInfoAlone()
    {
        SearchedTree tree({"oak", "elm"});
        tree.searchAll([](const QModelIndex&, QVariant& info) {
            info = "found";
            return true;
        });
        SignalLog log(tree.proxy);

        tree.source->remove({}, 0);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(tree.proxy.getCount(), 2);
        QVERIFY(!tree.proxy.index(0, 0).data().isValid());
        QVERIFY(!tree.proxy.mapToSource(tree.proxy.index(0, 0)).isValid());
        QCOMPARE(tree.proxy.index(0, 0).data(Qt::UserRole + 1001), QVariant("found"));
        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("elm")), tree.proxy.index(1, 0));
    }

    void anInsertedRowIsFoundByTheNextSearch()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();

        tree.source->insert({}, 0, {"elm"});
        QCOMPARE(tree.texts(), QStringList{"oak"});

        tree.searchAll();
        QCOMPARE(tree.texts(), (QStringList{"elm", "oak"}));
    }

    void aResetLeavesTheRowsWithoutValues()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();

        tree.source->reset({"elm"});

        QCOMPARE(tree.texts(), QStringList{"(invalid)"});
    }

    void anotherSourceIsToldAsAResetAndKeepsTheRows()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();
        ScriptedTree other({"elm"});
        SignalLog log(tree.proxy);

        tree.proxy.setSourceModel(&other);

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(tree.texts(), QStringList{"oak"});
    }

    void theSameSourceAgainChangesNothing()
    {
        SearchedTree tree({"oak"});
        SignalLog log(tree.proxy);

        tree.proxy.setSourceModel(tree.source.get());

        QCOMPARE(log.take(), QStringList());
    }

    void theFormerSourceIsNotHeardAnyMore()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();
        ScriptedTree other({"elm"});
        tree.proxy.setSourceModel(&other);
        SignalLog log(tree.proxy);

        tree.source->change(tree.source->find("oak"), "ash");

        QCOMPARE(log.take(), QStringList());
    }

    void withoutASourceASearchEndsEmpty()
    {
        SearchProxyModel proxy;
        bool ended = false;

        proxy.search({}, {}, true, [&ended] { ended = true; });

        QTRY_VERIFY(ended);
        QCOMPARE(proxy.getCount(), 0);
    }

    void askingWithoutASourceFailsAnAssertion()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();
        const QModelIndex oak = tree.proxy.index(0, 0);
        tree.tester.reset(); // it asks on each signal
        tree.proxy.setSourceModel(nullptr);
        LogCapture log;

        QVERIFY(!tree.proxy.data(oak).isValid());
        QVERIFY(!tree.proxy.mapToSource(oak).isValid());
        QVERIFY(!tree.proxy.mapFromSource(tree.source->find("oak")).isValid());

        QCOMPARE(log.assertions(), (QStringList{"sourceModel()", "sourceModel()", "sourceModel()"}));
    }

    void anIndexFromBeforeFailsAnAssertion()
    {
        SearchedTree tree({"oak"});
        tree.searchAll();
        const QModelIndex stale = tree.proxy.index(0, 0);
        tree.searchAll({}, tree.source->find("oak"));
        LogCapture log;

        QVERIFY(!tree.proxy.mapToSource(stale).isValid());

        QCOMPARE(log.assertions(), QStringList{"row >= 0 && row < m_items.size()"});
        QVERIFY_EXCEPTION_THROWN(tree.proxy.data(stale, Qt::UserRole + 1001), std::out_of_range);
    }
};

QTEST_GUILESS_MAIN(tst_SearchProxyModel)

#include "tst_search_proxy_model.moc"
