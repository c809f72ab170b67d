#include "asked_predicate.h"

#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/proxy/predicates/or_predicate.h>
#include <datamodels/proxy/predicates/switch_predicate.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QStringListModel>
#include <QtTest>

using namespace qelm::datamodels::proxy;

class tst_MultiPredicates : public QObject
{
    Q_OBJECT

    QStringListModel m_model{QStringList{"row"}};
    QModelIndex row() const { return m_model.index(0, 0); }

private Q_SLOTS:
    void withoutPredicatesEveryRowIsWanted()
    {
        QVERIFY(AndPredicate()(row()));
        QVERIFY(OrPredicate()(row()));
        QVERIFY(SwitchPredicate()(row()));
    }

    void andAsksInOrderUpToTheFirstRefusal()
    {
        QStringList asked;
        const AndPredicate all({new AskedPredicate("a", true, &asked), new AskedPredicate("b", false, &asked),
                                new AskedPredicate("c", true, &asked)});

        QVERIFY(!all(row()));

        QCOMPARE(asked, (QStringList{"a row", "b row"}));
    }

    void andWantsWhatAllWant()
    {
        const AndPredicate all({new AskedPredicate("a", true), new AskedPredicate("b", true)});

        QVERIFY(all(row()));
    }

    void orAsksInOrderUpToTheFirstAgreement()
    {
        QStringList asked;
        const OrPredicate any({new AskedPredicate("a", false, &asked), new AskedPredicate("b", true, &asked),
                               new AskedPredicate("c", true, &asked)});

        QVERIFY(any(row()));

        QCOMPARE(asked, (QStringList{"a row", "b row"}));
    }

    void orRefusesWhatNoneWants()
    {
        const OrPredicate any({new AskedPredicate("a", false), new AskedPredicate("b", false)});

        QVERIFY(!any(row()));
    }

    void switchAsksOnlyTheCurrentPredicate()
    {
        QStringList asked;
        SwitchPredicate choice({new AskedPredicate("a", true, &asked), new AskedPredicate("b", false, &asked)});
        choice.setCurrentIndex(1);

        QVERIFY(!choice(row()));

        QCOMPARE(asked, QStringList{"b row"});
    }

    void aSwitchWithAnIndexOutsideTheListWantsEveryRow_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("as at the start") << -1;
        QTest::newRow("far below") << -7;
        QTest::newRow("just past the end") << 1;
        QTest::newRow("far past the end") << 100;
    }
    void aSwitchWithAnIndexOutsideTheListWantsEveryRow()
    {
        QFETCH(int, index);
        SwitchPredicate choice({new AskedPredicate("a", false)});

        choice.setCurrentIndex(index);

        QVERIFY(choice(row()));
    }

    void aSwitchStartsWithoutAnIndex()
    {
        QCOMPARE(SwitchPredicate().currentIndex(), -1);
    }

    void aNewSwitchIndexNotifiesItsPropertyFirst()
    {
        SwitchPredicate choice;
        SignalLog log;
        log.add(choice, &SwitchPredicate::currentIndexChanged).add(choice, &BasePredicate::changed);

        choice.setCurrentIndex(2);
        choice.setCurrentIndex(2);

        QCOMPARE(log.take(), (QStringList{"currentIndexChanged()", "changed()"}));
    }

    void theConstructorAdoptsTheList()
    {
        auto* first = new AskedPredicate("a", true);
        auto* second = new AskedPredicate("b", true);

        const AndPredicate all(std::vector<BasePredicate*>{first, second});

        QCOMPARE(all.getPredicates(), (std::vector<BasePredicate*>{first, second}));
        QCOMPARE(first->parent(), &all);
        QCOMPARE(second->parent(), &all);
    }

    void aNullInTheListIsReportedAndLeftOut()
    {
        auto* only = new AskedPredicate("a", true);
        LogCapture log;

        const AndPredicate all(std::vector<BasePredicate*>{nullptr, only});

        QCOMPARE(log.assertions(), QStringList{"predicate"});
        QCOMPARE(all.getPredicates(), std::vector<BasePredicate*>{only});
    }

    void aListOfOneIsAListAndNotTheParent()
    {
        auto* only = new AskedPredicate("a", false);

        const AndPredicate all({only});

        QCOMPARE(all.getPredicates(), std::vector<BasePredicate*>{only});
        QCOMPARE(all.parent(), nullptr);
    }

    void addingAppendsAdoptsAndNotifies()
    {
        AndPredicate all;
        auto* added = new AskedPredicate("a", false);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        all.addPredicate(added);

        QCOMPARE(all.getPredicates(), std::vector<BasePredicate*>{added});
        QCOMPARE(added->parent(), &all);
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void aChangeOfAChildTravelsUp()
    {
        auto* child = new SwitchPredicate;
        auto* inner = new OrPredicate({child});
        AndPredicate outer({inner});
        SignalLog log;
        log.add(outer, &BasePredicate::changed, "outer").add(*inner, &BasePredicate::changed, "inner");

        child->setCurrentIndex(0);

        QCOMPARE(log.take(), (QStringList{"inner: changed()", "outer: changed()"}));
    }

    void aPredicateAddedTwiceIsInTheListTwice()
    {
        auto* child = new SwitchPredicate;
        AndPredicate all;
        all.addPredicate(child);
        all.addPredicate(child);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        child->setCurrentIndex(0);

        QCOMPARE(all.getPredicates(), (std::vector<BasePredicate*>{child, child}));
        QCOMPARE(log.take(), (QStringList{"changed()", "changed()"}));
    }

    void nullIsReportedAndRefused()
    {
        AndPredicate all;
        SignalLog signalLog;
        signalLog.add(all, &BasePredicate::changed);
        LogCapture log;

        all.addPredicate(nullptr);
        all.removePredicate(nullptr);

        QCOMPARE(log.assertions(), (QStringList{"predicate", "predicate"}));
        QVERIFY(all.getPredicates().empty());
        QCOMPARE(signalLog.take(), QStringList());
    }

    void removingTakesEveryOccurrenceOutAndKeepsTheOrder()
    {
        auto* a = new AskedPredicate("a", true);
        auto* b = new AskedPredicate("b", true);
        auto* c = new AskedPredicate("c", true);
        AndPredicate all({a, b, a, c});

        all.removePredicate(a);

        QCOMPARE(all.getPredicates(), (std::vector<BasePredicate*>{b, c}));
        QCOMPARE(a->parent(), &all);
    }

    void whoHearsOfARemovalSeesTheListWithoutThePredicate()
    {
        auto* only = new AskedPredicate("a", false);
        AndPredicate all({only});
        bool isWantedInside = false;
        connect(&all, &BasePredicate::changed, this, [&] { isWantedInside = all(row()); });

        all.removePredicate(only);

        QVERIFY(isWantedInside);
    }

    void removingWhatIsNotInTheListIsSilent()
    {
        AskedPredicate stranger("s", true);
        AndPredicate all({new AskedPredicate("a", true)});
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        all.removePredicate(&stranger);

        QCOMPARE(log.take(), QStringList());
    }

    void removingTheLastDisconnectsIt()
    {
        auto* first = new SwitchPredicate;
        auto* last = new SwitchPredicate;
        AndPredicate all({first, last});
        all.removePredicate(last);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        last->setCurrentIndex(0);
        QCOMPARE(log.take(), QStringList());

        first->setCurrentIndex(0);
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    // Intended: the connection that is cut is that of the object left at the new end of the list.
    void removingAnotherDisconnectsTheOldLastInstead()
    {
        auto* first = new SwitchPredicate;
        auto* last = new SwitchPredicate;
        AndPredicate all({first, last});
        all.removePredicate(first);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        last->setCurrentIndex(0);
        QCOMPARE(log.take(), QStringList());

        first->setCurrentIndex(0);
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void aPredicateAddedAgainIsConnectedAgain()
    {
        auto* first = new SwitchPredicate;
        auto* last = new SwitchPredicate;
        AndPredicate all({first, last});
        all.removePredicate(last);
        all.addPredicate(last);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        last->setCurrentIndex(0);

        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void clearingNotifiesOnceAlsoWhenEmpty()
    {
        AndPredicate all({new AskedPredicate("a", true), new AskedPredicate("b", true)});
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        all.clear(true);
        QCOMPARE(log.take(), QStringList{"changed()"});

        all.clear(true);
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void clearingDeletesOnlyWhenAskedTo()
    {
        QPointer<AskedPredicate> kept = new AskedPredicate("a", true);
        QPointer<AskedPredicate> deleted = new AskedPredicate("b", true);
        AndPredicate keeping({kept.data()});
        AndPredicate deleting({deleted.data()});

        keeping.clear(false);
        deleting.clear(true);

        QVERIFY(kept);
        QVERIFY(!deleted);
        QVERIFY(keeping.getPredicates().empty());
        QVERIFY(deleting.getPredicates().empty());
    }

    void clearingDisconnectsWhatItKeeps()
    {
        auto* kept = new SwitchPredicate;
        AndPredicate all({kept});
        all.clear(false);
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        kept->setCurrentIndex(0);

        QCOMPARE(log.take(), QStringList());
    }

    void aPredicateThatIsInTheListTwiceIsDeletedOnce()
    {
        auto* twice = new AskedPredicate("a", true);
        AndPredicate all({twice, twice});

        all.clear(true);

        QVERIFY(all.getPredicates().empty());
    }

    void aDeletedPredicateLeavesTheListAndTheListNotifies()
    {
        auto* kept = new AskedPredicate("a", true);
        auto* deleted = new AskedPredicate("b", false);
        AndPredicate all({kept, deleted});
        SignalLog log;
        log.add(all, &BasePredicate::changed);

        delete deleted;

        QCOMPARE(all.getPredicates(), std::vector<BasePredicate*>{kept});
        QCOMPARE(log.take(), QStringList{"changed()"});
        QVERIFY(all(row()));
    }

    void alsoAPredicateThatLostItsConnectionLeavesTheListWhenDeleted()
    {
        auto* first = new AskedPredicate("a", true);
        auto* last = new AskedPredicate("b", false);
        AndPredicate all({first, last});
        all.removePredicate(first);

        delete last;

        QVERIFY(all.getPredicates().empty());
    }

    void onlyTheSwitchHasAMetaObjectOfItsOwn()
    {
        QCOMPARE(AndPredicate().metaObject(), &BasePredicate::staticMetaObject);
        QCOMPARE(OrPredicate().metaObject(), &BasePredicate::staticMetaObject);
        QCOMPARE(SwitchPredicate().metaObject(), &SwitchPredicate::staticMetaObject);
    }
};

QTEST_GUILESS_MAIN(tst_MultiPredicates)
#include "tst_multi_predicates.moc"
