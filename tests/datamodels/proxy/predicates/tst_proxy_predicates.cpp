#include "asked_predicate.h"

#include <datamodels/proxy/predicates/hierarchy_predicate.h>
#include <datamodels/proxy/predicates/invert_predicate.h>
#include <datamodels/proxy/predicates/switch_predicate.h>
#include <datamodels/proxy/predicates/text_predicate.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QStandardItemModel>
#include <QtTest>

using namespace qelm::datamodels::proxy;

class tst_ProxyPredicates : public QObject
{
    Q_OBJECT

    QStandardItemModel m_model;
    QModelIndex m_top;
    QModelIndex m_middle;
    QModelIndex m_leaf;

private Q_SLOTS:
    void initTestCase()
    {
        auto* top = new QStandardItem("top");
        auto* middle = new QStandardItem("middle");
        auto* leaf = new QStandardItem("leaf");
        middle->appendRow(leaf);
        top->appendRow(middle);
        m_model.appendRow(top);
        m_top = top->index();
        m_middle = middle->index();
        m_leaf = leaf->index();
    }

    void invertTurnsTheAnswerRound()
    {
        QVERIFY(!InvertPredicate(new AskedPredicate("s", true))(m_leaf));
        QVERIFY(InvertPredicate(new AskedPredicate("s", false))(m_leaf));
    }

    void withoutASourceInvertWantsNothingAndSaysSoForEveryRow()
    {
        const InvertPredicate invert;
        LogCapture log;

        QVERIFY(!invert(m_leaf));
        QVERIFY(!invert(m_top));

        QCOMPARE(log.messages(), (QStringList{"4 InvertPredicate(): filtering without predicate",
                                              "4 InvertPredicate(): filtering without predicate"}));
    }

    void withoutASourceHierarchyWantsNothingAndSaysSoForEveryRow()
    {
        const HierarchyPredicate hierarchy;
        LogCapture log;

        QVERIFY(!hierarchy(m_leaf));
        QVERIFY(!hierarchy(m_top));

        QCOMPARE(log.messages(), (QStringList{"4 HierarchyPredicate(): filtering without predicate",
                                              "4 HierarchyPredicate(): filtering without predicate"}));
    }

    void hierarchyAsksTheNearestAncestorFirstAndTheRowLast()
    {
        QStringList asked;
        const HierarchyPredicate hierarchy(new AskedPredicate("s", true, &asked));

        QVERIFY(hierarchy(m_leaf));

        QCOMPARE(asked, (QStringList{"s middle", "s top", "s leaf"}));
    }

    void allStopsAtTheFirstRefusal()
    {
        QStringList asked;
        const HierarchyPredicate hierarchy(new AskedPredicate("s", false, &asked));

        QVERIFY(!hierarchy(m_leaf));

        QCOMPARE(asked, QStringList{"s middle"});
    }

    void anyStopsAtTheFirstAgreement()
    {
        QStringList asked;
        HierarchyPredicate hierarchy(new AskedPredicate("s", true, &asked));
        hierarchy.setMode(HierarchyPredicate::Mode::Any);

        QVERIFY(hierarchy(m_leaf));

        QCOMPARE(asked, QStringList{"s middle"});
    }

    void anyAsksUpToTheRowItself()
    {
        QStringList asked;
        HierarchyPredicate hierarchy(new AskedPredicate("s", false, &asked));
        hierarchy.setMode(HierarchyPredicate::Mode::Any);

        QVERIFY(!hierarchy(m_leaf));

        QCOMPARE(asked, (QStringList{"s middle", "s top", "s leaf"}));
    }

    void aTopLevelRowIsAskedAboutAlone()
    {
        QStringList asked;
        const HierarchyPredicate hierarchy(new AskedPredicate("s", true, &asked));

        QVERIFY(hierarchy(m_top));

        QCOMPARE(asked, QStringList{"s top"});
    }

    void theInvalidIndexIsNeverWanted()
    {
        QStringList asked;
        const HierarchyPredicate hierarchy(new AskedPredicate("s", true, &asked));

        QVERIFY(!hierarchy(QModelIndex()));

        QCOMPARE(asked, QStringList());
    }

    void anyShowsTheDescendantsOfAMatch()
    {
        auto* text = new TextPredicate;
        text->setText("middle");
        HierarchyPredicate hierarchy(text);
        hierarchy.setMode(HierarchyPredicate::Mode::Any);

        QVERIFY(!hierarchy(m_top));
        QVERIFY(hierarchy(m_middle));
        QVERIFY(hierarchy(m_leaf));
    }

    void aNewModeNotifiesOnce()
    {
        HierarchyPredicate hierarchy;
        SignalLog log;
        log.add(hierarchy, &BasePredicate::changed);

        hierarchy.setMode(HierarchyPredicate::Mode::Any);
        hierarchy.setMode(HierarchyPredicate::Mode::Any);

        QCOMPARE(log.take(), QStringList{"changed()"});
        QCOMPARE(hierarchy.mode(), HierarchyPredicate::Mode::Any);
    }

    void aSourceIsAdoptedAndItsChangesTravelUp()
    {
        auto* source = new SwitchPredicate;
        InvertPredicate invert(source);
        SignalLog log;
        log.add(invert, &BasePredicate::changed);

        source->setCurrentIndex(0);

        QCOMPARE(source->parent(), &invert);
        QCOMPARE(invert.source(), source);
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void aNewSourceNotifiesAndNullDoesToo()
    {
        InvertPredicate invert(new AskedPredicate("a", true));
        SignalLog log;
        log.add(invert, &BasePredicate::changed);

        invert.setSource(new AskedPredicate("b", true));
        QCOMPARE(log.take(), QStringList{"changed()"});

        invert.setSource(nullptr);
        QCOMPARE(log.take(), QStringList{"changed()"});

        invert.setSource(nullptr);
        QCOMPARE(log.take(), QStringList());
    }

    void theOldSourceIsDisconnectedButKeptAlive()
    {
        QPointer<SwitchPredicate> old = new SwitchPredicate;
        InvertPredicate invert(old);
        invert.setSource(new AskedPredicate("b", true));
        SignalLog log;
        log.add(invert, &BasePredicate::changed);

        QVERIFY(old);
        old->setCurrentIndex(0);

        QCOMPARE(old->parent(), &invert);
        QCOMPARE(log.take(), QStringList());
    }

    void aDeletedSourceIsASourceLostAndNotifies()
    {
        auto* source = new AskedPredicate("a", true);
        const InvertPredicate invert(source);
        SignalLog signalLog;
        signalLog.add(invert, &BasePredicate::changed);
        LogCapture log;

        delete source;

        QCOMPARE(signalLog.take(), QStringList{"changed()"});
        QCOMPARE(invert.source(), nullptr);
        QVERIFY(!invert(m_leaf));
        QCOMPARE(log.messages(), QStringList{"4 InvertPredicate(): filtering without predicate"});
    }

    void theyShowTheMetaObjectOfTheirBase()
    {
        QCOMPARE(InvertPredicate().metaObject(), &BasePredicate::staticMetaObject);
        QCOMPARE(HierarchyPredicate().metaObject(), &BasePredicate::staticMetaObject);
    }
};

QTEST_GUILESS_MAIN(tst_ProxyPredicates)
#include "tst_proxy_predicates.moc"
