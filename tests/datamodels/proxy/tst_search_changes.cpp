#include "searched_tree.h"

#include <support/gate.h>
#include <support/log_capture.h>
#include <support/signal_log.h>

#include <atomic>
#include <stdexcept>

using qelm::datamodels::proxy::SearchProxyModel;

namespace {

/// A predicate that holds the worker at one row, once, until the test lets it go on.
class Stop
{
public:
    explicit Stop(const QString& text) : m_text(text) {}

    SearchProxyModel::Predicate predicate()
    {
        return [this](const QModelIndex& index, QVariant& info) {
            const QString text = index.data().toString();
            m_asked.append(text);
            if (text == m_text && !m_hasStopped.exchange(true)) {
                m_reached.open();
                m_proceed.pass();
            }
            info = text;
            return true;
        };
    }

    void waitUntilReached() { m_reached.pass(); }
    void proceed() { m_proceed.open(); }
    const QStringList& asked() const { return m_asked; }

private:
    QString m_text;
    std::atomic<bool> m_hasStopped{false};
    Gate m_reached;
    Gate m_proceed;
    QStringList m_asked;
};

} // namespace

/// What a search does while its source changes or goes. The source changes only while the worker stands
/// inside the predicate, so that every run is the same.
class tst_SearchChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resultsInTheBufferFollowTheirRows()
    {
        SearchedTree tree({"a", "b", "c", "d"});
        tree.proxy.setSearchBufferSize(100);
        Stop atC("c");
        tree.start(atC.predicate());
        atC.waitUntilReached();

        tree.source->insert({}, 0, {"new"});
        tree.source->move({}, 1, 1, {}, 5);
        atC.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c", "d"}));
        QCOMPARE(tree.proxy.index(0, 0).data(Qt::UserRole + 1001), QVariant("a"));
        QCOMPARE(tree.proxy.mapToSource(tree.proxy.index(0, 0)).row(), 4);
    }

    void aResultThatIsRemovedBeforeItIsShownHasItsInfoAlone()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        Stop atC("c");
        tree.start(atC.predicate());
        atC.waitUntilReached();

        tree.source->remove({}, 0);
        atC.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"(invalid)", "b", "c"}));
        QCOMPARE(tree.proxy.index(0, 0).data(Qt::UserRole + 1001), QVariant("a"));
    }

    void aRowThatIsLookedAtDuringAChangeIsLookedAtAgain()
    {
        SearchedTree tree({"a", "b", "c"});
        Stop atB("b");
        tree.proxy.setSearchBufferSize(100);
        tree.start(atB.predicate());
        atB.waitUntilReached();

        tree.source->insert({}, 0, {"new"});
        atB.proceed();
        tree.finish();

        QCOMPARE(atB.asked(), (QStringList{"a", "b", "b", "c"}));
        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c"}));
    }

    void aRowThatIsRemovedWhileItIsLookedAtIsNoResult()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        tree.start(atB.predicate());
        atB.waitUntilReached();

        tree.source->remove({}, 1);
        atB.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"a", "c"}));
    }

    void aBranchThatIsRemovedIsNotSearchedFurther()
    {
        SearchedTree tree({"a", "  b", "    c", "    d", "  e", "f"});
        tree.proxy.setSearchBufferSize(100);
        Stop atC("c");
        tree.start(atC.predicate());
        atC.waitUntilReached();

        tree.source->remove(tree.source->find("a"), 0);
        atC.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"a", "(invalid)", "e", "f"}));
        QCOMPARE(tree.source->staleQuestions(), 0);
    }

    void aSearchEndsWhenItsRootIsRemoved()
    {
        SearchedTree tree({"a", "  b", "  c", "d"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        tree.start(atB.predicate(), tree.source->find("a"));
        atB.waitUntilReached();

        tree.source->remove({}, 0);
        atB.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), QStringList());
        QCOMPARE(atB.asked(), QStringList{"b"});
    }

    void rowsThatComeOrGoElsewhereAreNotMissedNorFoundTwice()
    {
        SearchedTree tree({"a", "  b", "  c", "d", "e"});
        tree.proxy.setSearchBufferSize(100);
        Stop atC("c");
        tree.start(atC.predicate());
        atC.waitUntilReached();

        tree.source->insert(tree.source->find("a"), 0, {"behind"});
        tree.source->insert({}, 2, {"ahead"});
        tree.source->remove({}, tree.source->find("d").row());
        atC.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c", "ahead", "e"}));
    }

    void aLayoutChangeDuringASearchShowsNoWrongRow()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        tree.start(atB.predicate());
        atB.waitUntilReached();

        tree.source->rearrange({}, {0, 2, 1});
        atB.proceed();
        tree.finish();

        QCOMPARE(tree.texts().mid(0, 2), (QStringList{"a", "c"}));
        QCOMPARE(tree.proxy.index(1, 0).data(Qt::UserRole + 1001), QVariant("c"));
    }

    void aResetStopsTheSearch()
    {
        SearchedTree tree({"a", "b", "c"});
        Stop atB("b");
        tree.proxy.setSearchBufferSize(100);
        tree.start(atB.predicate());
        atB.waitUntilReached();
        // The reset waits for the worker.
        std::thread opening([&atB] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            atB.proceed();
        });

        tree.source->reset({"x"});

        opening.join();
        QVERIFY(!tree.proxy.isSeraching());
        QCOMPARE(atB.asked(), (QStringList{"a", "b"}));
        QCoreApplication::processEvents();
        QCOMPARE(tree.proxy.getCount(), 0);
        QVERIFY(!tree.ended);
    }

    void aSourceThatResetsBeforeItDiesIsNotReadAgain()
    {
        SearchedTree tree({"a", "b", "c"});
        std::atomic<bool> isOver{false};
        std::atomic<bool> hasStarted{false};
        std::atomic<bool> wasReadLate{false};
        tree.start([&](const QModelIndex&, QVariant&) {
            hasStarted = true;
            wasReadLate = wasReadLate || isOver;
            return false;
        });
        while (!hasStarted)
            std::this_thread::yield();

        tree.source->reset({});
        isOver = true;
        tree.tester.reset();
        tree.source.reset();

        QVERIFY(!tree.proxy.isSeraching());
        QVERIFY(!wasReadLate);
        QVERIFY(!tree.proxy.sourceModel());
    }

    void aSourceThatDiesLeavesRowsWithoutValues()
    {
        SearchedTree tree({"a"});
        tree.searchAll();
        tree.tester.reset();

        tree.source.reset();

        QCOMPARE(tree.proxy.getCount(), 1);
        LogCapture log;
        QVERIFY(!tree.proxy.index(0, 0).data().isValid());
        QCOMPARE(log.assertions(), QStringList{"sourceModel()"});
    }

    void anotherSourceDoesNotStopTheSearchThroughTheFormer()
    {
        SearchedTree tree({"a", "b"});
        ScriptedTree other({"x"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        tree.start(atB.predicate());
        atB.waitUntilReached();

        tree.proxy.setSourceModel(&other);
        QVERIFY(tree.proxy.isSeraching());
        tree.source->insert({}, 0, {"new"});
        atB.proceed();
        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"a", "b"}));
    }

    void aNewSearchEndsTheOneBeforeWithoutItsCallback()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        bool oldEnded = false;
        tree.proxy.search({}, atB.predicate(), true, [&oldEnded] { oldEnded = true; });
        atB.waitUntilReached();
        std::thread opening([&atB] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            atB.proceed();
        });

        tree.searchAll([](const QModelIndex& index, QVariant&) { return index.data() == "c"; });

        opening.join();
        QCoreApplication::processEvents();
        QCOMPARE(tree.texts(), QStringList{"c"});
        QVERIFY(!oldEnded);
    }

    void aNewSearchReleasesAWorkerThatWaitsForTheGuiThread()
    {
        SearchedTree tree({"a", "b", "c"});
        Gate found;
        tree.start([&found](const QModelIndex& index, QVariant&) {
            if (index.data() == "a")
                found.open();
            return true;
        });
        found.pass();

        tree.searchAll([](const QModelIndex& index, QVariant&) { return index.data() == "c"; });

        QCOMPARE(tree.texts(), QStringList{"c"});
    }

    void theStatesOfASupersededSearchLeaveTheNewOneAlone()
    {
        SearchedTree tree({"a"});
        tree.start();
        tree.start();
        tree.start();

        tree.finish();

        QVERIFY(!tree.proxy.isSeraching());
        QCOMPARE(tree.texts(), QStringList{"a"});
    }

    void aSearchMayBeStartedWhenTheCountHasChanged()
    {
        SearchedTree tree({"a", "b"});
        bool isSecond = false;
        bool secondEnded = false;
        connect(&tree.proxy, &SearchProxyModel::countChanged, &tree.proxy, [&] {
            if (!std::exchange(isSecond, true))
                tree.proxy.search(
                    {}, [](const QModelIndex& index, QVariant&) { return index.data() == "b"; }, false,
                    [&secondEnded] { secondEnded = true; });
        });

        tree.start();

        QTRY_VERIFY(secondEnded);
        QCOMPARE(tree.texts(), QStringList{"b"});
        QVERIFY(!tree.ended);
    }

    void aSearchMayBeStartedWhenAResultHasArrived()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        bool isSecond = false;
        bool secondEnded = false;
        connect(&tree.proxy, &QAbstractItemModel::rowsInserted, &tree.proxy, [&] {
            if (!std::exchange(isSecond, true))
                tree.proxy.search(
                    {}, [](const QModelIndex& index, QVariant&) { return index.data() == "b"; }, false,
                    [&secondEnded] { secondEnded = true; });
        });

        tree.start();

        QTRY_VERIFY(secondEnded);
        QCOMPARE(tree.texts(), QStringList{"b"});
    }

    void aProxyMayDieDuringASearch()
    {
        auto tree = std::make_unique<SearchedTree>(QStringList{"a", "b"});
        Gate found;
        bool ended = false;
        int states = 0;
        connect(&tree->proxy, &SearchProxyModel::searchingChanged, this, [&states] { ++states; });
        tree->proxy.search(
            {},
            [&found](const QModelIndex&, QVariant&) {
                found.open();
                return true;
            },
            false, [&ended] { ended = true; });
        found.pass();

        tree.reset();

        QCoreApplication::processEvents();
        QVERIFY(!ended);
        QCOMPARE(states, 0);
    }

    void statesThatArriveAfterTheProxyHasGoneAreDropped()
    {
        auto tree = std::make_unique<SearchedTree>(QStringList{});
        bool ended = false;
        tree->proxy.search({}, {}, false, [&ended] { ended = true; });
        while (tree->proxy.isSeraching())
            QCoreApplication::sendPostedEvents(); // the state comes with a later event

        tree.reset();

        QCoreApplication::processEvents();
        QVERIFY(!ended);
    }

    void aPredicateThatThrowsEndsTheSearchAndIsLogged()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        LogCapture log(LogCapture::FailOnRest);

        tree.searchAll([](const QModelIndex& index, QVariant&) {
            if (index.data() == "b")
                throw std::runtime_error("bad pattern");
            return true;
        });

        QCOMPARE(tree.texts(), QStringList{"a"});
        QVERIFY(!tree.proxy.isSeraching());
        QCOMPARE(log.messages(), QStringList{"6 Ozy::AsyncManager: exception in a task: bad pattern"});
    }

    void aSlotOfAResultMayChangeTheSource()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(1);
        connect(&tree.proxy, &QAbstractItemModel::rowsInserted, &tree.proxy, [&tree] {
            if (tree.source->rowCount() == 3)
                tree.source->insert({}, 0, {"new"});
        });

        tree.searchAll();

        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c"}));
    }

    void aSlotOfAResultMayResetTheSource()
    {
        SearchedTree tree({"a", "b", "c"});
        tree.proxy.setSearchBufferSize(100);
        connect(&tree.proxy, &QAbstractItemModel::rowsInserted, &tree.proxy,
                [&tree] { tree.source->reset({"x"}); });

        tree.start();

        QTRY_COMPARE(tree.texts(), QStringList{"(invalid)"});
        QVERIFY(!tree.proxy.isSeraching());
    }

    void theBufferMayBeSetDuringASearch()
    {
        SearchedTree tree({"a", "b", "c", "d"});
        tree.proxy.setSearchBufferSize(100);
        Stop atB("b");
        SignalLog log;
        log.add(tree.proxy, &SearchProxyModel::countChanged);
        tree.start(atB.predicate());
        atB.waitUntilReached();

        tree.proxy.setSearchBufferSize(2);
        atB.proceed();
        tree.finish();

        QCOMPARE(log.take(), (QStringList{"countChanged()", "countChanged()"}));
        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c", "d"}));
    }

    void aVeryDeepTreeIsSearched()
    {
        QStringList lines;
        for (int depth = 0; depth < 1000; ++depth)
            lines.append(QString(2 * depth, ' ') + QString::number(depth));
        SearchedTree tree(lines);
        tree.tester.reset();
        tree.proxy.setSearchBufferSize(100);

        tree.searchAll();

        QCOMPARE(tree.proxy.getCount(), 1000);
        QCOMPARE(tree.proxy.index(999, 0).data(), QVariant("999"));
    }
};

QTEST_GUILESS_MAIN(tst_SearchChanges)

#include "tst_search_changes.moc"
