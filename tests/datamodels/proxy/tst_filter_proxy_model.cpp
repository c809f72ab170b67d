#include "predicates/asked_predicate.h"

#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/and_predicate.h>
#include <datamodels/proxy/predicates/invert_predicate.h>
#include <datamodels/proxy/predicates/switch_predicate.h>
#include <datamodels/proxy/predicates/text_predicate.h>

#include <support/log_capture.h>
#include <support/proxy_laws.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

using namespace qelm::datamodels::proxy;

namespace {

TextPredicate* textPredicate(const QString& text)
{
    auto* predicate = new TextPredicate;
    predicate->setText(text);
    return predicate;
}

/// Knows when it is given a proxy and when it is taken away.
class AwarePredicate : public BasePredicate
{
public:
    bool evaluate(const QModelIndex&) const override { return true; }
    FilterProxyModel* proxy() const { return model(); }
    int changes = 0;

private:
    void modelChanged() override { ++changes; }
};

} // namespace

class tst_FilterProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatThePredicateWants()
    {
        ScriptedTree source({"oak", "elm", "Oak park"});
        FilterProxyModel proxy(textPredicate("oak"));

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "Oak park"}));
    }

    void aParentThatFailsIsShownWhenAChildPasses()
    {
        ScriptedTree source({"wood", "  oak", "  elm", "field"});
        FilterProxyModel proxy(textPredicate("oak"));

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
    }

    void theModeStaysFlatThoughDescendantsCount()
    {
        const FilterProxyModel proxy;

        QCOMPARE(proxy.filteringMode(), BaseFilterProxyModel::Flat);
        QVERIFY(proxy.isRecursiveFilteringEnabled());
    }

    void thePredicateIsAskedAboutColumnZeroOfTheSource()
    {
        ScriptedTree source({"a"}, 2);
        QStringList asked;
        FilterProxyModel proxy(new AskedPredicate("p", true, &asked));
        proxy.setSourceModel(&source);

        proxy.rowCount();

        QCOMPARE(asked, QStringList{"p a"});
    }

    void aChangeInsideTheTreeOfPredicatesFiltersAgain()
    {
        ScriptedTree source({"oak", "elm", "fir"});
        auto* text = textPredicate("");
        FilterProxyModel proxy(new AndPredicate({new InvertPredicate(text)}));
        proxy.setSourceModel(&source);
        QCOMPARE(treeLines(proxy), QStringList());
        SignalLog log(proxy);

        text->setText("l");

        QCOMPARE(log.take(), (QStringList{"inserting / [0..1]", "inserted / [0..1]"}));
        QCOMPARE(treeLines(proxy), (QStringList{"oak", "fir"}));
    }

    void thePropertyChangeIsNotifiedBeforeTheRowsFollow()
    {
        ScriptedTree source({"oak", "elm"});
        auto* text = textPredicate("");
        FilterProxyModel proxy(text);
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);
        log.add(*text, &TextPredicate::textChanged).add(*text, &BasePredicate::changed);

        text->setText("oak");

        QCOMPARE(log.take(), (QStringList{"textChanged()", "changed()", "removing / [1..1]", "removed / [1..1]"}));
    }

    void aNewPredicateFiltersFirstAndNotifiesThen()
    {
        ScriptedTree source({"oak", "elm"});
        FilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);
        log.add(proxy, &FilterProxyModel::predicateChanged);

        auto* predicate = textPredicate("elm");
        proxy.setPredicate(predicate);
        proxy.setPredicate(predicate);

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]", "predicateChanged()"}));
    }

    void thePredicateBelongsToTheProxyAndKnowsIt()
    {
        auto* predicate = new AwarePredicate;

        FilterProxyModel proxy(predicate);

        QCOMPARE(predicate->parent(), &proxy);
        QCOMPARE(predicate->proxy(), &proxy);
        QCOMPARE(predicate->changes, 1);
    }

    void innerPredicatesKnowNoProxy()
    {
        auto* inner = new AwarePredicate;

        const FilterProxyModel proxy(new AndPredicate({inner}));

        QCOMPARE(inner->proxy(), nullptr);
        QCOMPARE(inner->changes, 0);
    }

    void aReplacedPredicateIsReleasedButNotDeleted()
    {
        ScriptedTree source({"oak", "elm"});
        QPointer<AwarePredicate> old = new AwarePredicate;
        FilterProxyModel proxy(old);
        proxy.setSourceModel(&source);

        proxy.setPredicate(textPredicate("oak"));
        QVERIFY(old);
        QCOMPARE(old->proxy(), nullptr);
        QCOMPARE(old->parent(), &proxy);

        SignalLog log(proxy);
        Q_EMIT old->changed();
        QCOMPARE(log.take(), QStringList());
    }

    void withoutAPredicateTheBaseDecides()
    {
        ScriptedTree source({"oak", "elm"});
        FilterProxyModel proxy(textPredicate("oak"));
        proxy.setSourceModel(&source);

        proxy.setPredicate(nullptr);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "elm"}));
        proxy.setFilterFixedString("elm");
        QCOMPARE(treeLines(proxy), QStringList{"elm"});
    }

    void aDeletedPredicateIsAPredicateLost()
    {
        ScriptedTree source({"oak", "elm"});
        auto* predicate = textPredicate("oak");
        FilterProxyModel proxy(predicate);
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 1);
        SignalLog log(proxy);
        log.add(proxy, &FilterProxyModel::predicateChanged);

        delete predicate;

        QCOMPARE(proxy.predicate(), nullptr);
        QCOMPARE(log.take(), (QStringList{"inserting / [1..1]", "inserted / [1..1]", "predicateChanged()"}));
    }

    void aPredicateDeletedInsideTheTreeFiltersAgain()
    {
        ScriptedTree source({"oak", "elm"});
        auto* inner = textPredicate("oak");
        FilterProxyModel proxy(new AndPredicate({inner, textPredicate("")}));
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 1);

        delete inner;

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "elm"}));
    }

    void aPredicateGivenAwayOutlivesItsProxy()
    {
        AwarePredicate predicate;
        {
            FilterProxyModel proxy(&predicate);
            predicate.setParent(nullptr);
        }

        QCOMPARE(predicate.proxy(), nullptr);
    }

    void theModeThatItHasSwitchesNothingOff()
    {
        ScriptedTree source({"wood", "  oak"});
        FilterProxyModel proxy(textPredicate("oak"));
        LogCapture log;

        proxy.setFilteringMode(BaseFilterProxyModel::Flat);
        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
        QCOMPARE(log.assertions(), QStringList());
    }

    void withoutASourceThePredicateIsNotAsked()
    {
        auto source = std::make_unique<ScriptedTree>(QStringList{"oak"});
        QStringList asked;
        FilterProxyModel proxy(new AskedPredicate("p", true, &asked));
        proxy.setSourceModel(source.get());
        QCOMPARE(proxy.rowCount(), 1);
        asked.clear();

        source.reset();
        Q_EMIT proxy.predicate()->changed();
        proxy.setSourceModel(nullptr);

        QCOMPARE(proxy.rowCount(), 0);
        QCOMPARE(asked, QStringList());
    }

    // Intended: a mode switches the recursion off, which every filtered row then reports.
    void settingAModeBreaksTheAssertionButStillFilters()
    {
        ScriptedTree source({"oak", "elm"});
        FilterProxyModel proxy(textPredicate("oak"));
        proxy.setFilteringMode(BaseFilterProxyModel::Hierarchical);
        LogCapture log;

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), QStringList{"oak"});
        QCOMPARE(log.assertions(), (QStringList{"isRecursiveFilteringEnabled()", "isRecursiveFilteringEnabled()"}));
    }

    void followsTheSourceWithAncestorsComingAndGoing()
    {
        ScriptedTree source({"wood", "  elm"});
        FilterProxyModel proxy(textPredicate("oak"));
        proxy.setSourceModel(&source);
        QCOMPARE(treeLines(proxy), QStringList());

        source.insert(source.find("wood"), 0, {"oak"});
        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));

        source.remove(source.find("wood"), 0);
        QCOMPARE(treeLines(proxy), QStringList());
    }

    void aPredicateThatResetsTheSourceIsSurvived()
    {
        struct Resetting : BasePredicate
        {
            explicit Resetting(ScriptedTree& source) : m_source(source) {}
            bool evaluate(const QModelIndex& index) const override
            {
                if (index.data() == "trigger")
                    m_source.reset({"after"});
                return true;
            }
            ScriptedTree& m_source;
        };
        ScriptedTree source({"a", "trigger", "b", "c"});
        FilterProxyModel proxy(new Resetting(source));
        proxy.setSourceModel(&source);

        proxy.rowCount();
        QCoreApplication::processEvents();

        QCOMPARE(treeLines(proxy), QStringList{"after"});
    }

    void qmlBindsAndWritesThePredicate()
    {
        QQmlEngine engine;
        ScriptedTree source({"oak", "elm"});
        FilterProxyModel proxy;
        proxy.setSourceModel(&source);
        auto* text = textPredicate("elm");
        text->setParent(&proxy);
        engine.rootContext()->setContextProperty("proxy", &proxy);
        engine.rootContext()->setContextProperty("words", text);
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\n"
                          "QtObject { Component.onCompleted: { proxy.predicate = words; words.text = 'oak';"
                          "           proxy.sortByRole('display', Qt.DescendingOrder) }\n"
                          "           property string shown: proxy.predicate.text }", QUrl());

        const std::unique_ptr<QObject> object(component.create());

        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("shown").toString(), QString("oak"));
        QCOMPARE(treeLines(proxy), QStringList{"oak"});
        QCOMPARE(proxy.sortOrder(), Qt::DescendingOrder);
    }

    void followsQtsContract()
    {
        ScriptedTree source({"wood", "  oak", "  elm", "field", "  grass", "oak park", "  pond"});
        auto* text = textPredicate("oak");
        FilterProxyModel proxy(text);
        proxy.setSourceModel(&source);
        const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);

        text->setText("e");
        source.insert({}, 1, {"elm alley", "  oak"});
        source.change(source.find("grass"), "elms");
        source.move({}, 0, 1, {}, 3);
        text->setText("");
        proxy.sort(0, Qt::DescendingOrder);
        source.reset({"oak", "  leaf"});

        QCOMPARE(checkProxyLaws(proxy), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_FilterProxyModel)
#include "tst_filter_proxy_model.moc"
