#include <datamodels/proxy/token_filter_proxy_model.h>

#include <host/base/stack_tracker.h>

#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using qelm::datamodels::proxy::TokenFilterProxyModel;

class tst_TokenFilterProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyTextAcceptsEveryRow()
    {
        ScriptedTree source({"oak", "elm"});
        TokenFilterProxyModel proxy;

        proxy.setSourceModel(&source);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "elm"}));
    }

    void aTextOfSpacesIsNoChange()
    {
        TokenFilterProxyModel proxy;
        SignalLog log;
        log.addAll(proxy);

        proxy.setFilterTokens("   ");

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(proxy.filterTokens(), QString());
    }

    void spacesAtTheEndsAreNoChange()
    {
        TokenFilterProxyModel proxy;
        proxy.setFilterTokens("oak");
        SignalLog log;
        log.addAll(proxy);

        proxy.setFilterTokens("  oak ");

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(proxy.filterTokens(), QString("oak"));
    }

    void allTokensMustStandInTheValueWhateverTheCase()
    {
        ScriptedTree source({"cdxAB", "abc"});
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setFilterTokens("ab cd");

        QCOMPARE(treeLines(proxy), QStringList{"cdxAB"});
    }

    void spacesBetweenTokensAreKeptInTheTextAndNoTokens()
    {
        ScriptedTree source({"ba", "a"});
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setFilterTokens("a  b");

        QCOMPARE(proxy.filterTokens(), QString("a  b"));
        QCOMPARE(treeLines(proxy), QStringList{"ba"});
    }

    void onlySpacesPartTokens()
    {
        ScriptedTree source({"b a"});
        source.change(source.index(0, 0), "a\tb", ScriptedTree::KindRole);
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);

        proxy.setFilterTokens("a\tb");
        QCOMPARE(proxy.rowCount(), 0);

        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.setFilterTokens("A\tB");
        QCOMPARE(proxy.rowCount(), 1);
    }

    void allTokensMustStandInOneRole()
    {
        ScriptedTree source({"stone | kind=with moss", "mossy stone | kind=rock", "pebble | kind=stone, moss"});
        TokenFilterProxyModel proxy;
        proxy.addFilterRole(ScriptedTree::KindRole);
        proxy.setSourceModel(&source);

        proxy.setFilterTokens("stone moss");

        QCOMPARE(treeLines(proxy), (QStringList{"mossy stone", "pebble"}));
    }

    void aValueWithoutTextRejectsEveryToken()
    {
        ScriptedTree source({"a"});
        source.change(source.index(0, 0), QRect(1, 2, 3, 4), ScriptedTree::KindRole);
        TokenFilterProxyModel proxy;
        proxy.setFilterRole(ScriptedTree::KindRole);
        proxy.setSourceModel(&source);
        QCOMPARE(proxy.rowCount(), 1);

        proxy.setFilterTokens("1");

        QCOMPARE(proxy.rowCount(), 0);
    }

    void aChangeIsAnnouncedThenFilteredThenNotified()
    {
        ScriptedTree source({"oak", "elm"});
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log(proxy);
        log.add(proxy, &TokenFilterProxyModel::filterTokensAboutToBeChanged)
            .add(proxy, &TokenFilterProxyModel::filterTokensChanged);

        proxy.setFilterTokens(" oak ");

        QCOMPARE(log.take(), (QStringList{"filterTokensAboutToBeChanged()", "removing / [1..1]", "removed / [1..1]",
                                          "filterTokensChanged()"}));
    }

    void theAnnouncementComesWithTheOldText()
    {
        TokenFilterProxyModel proxy;
        proxy.setFilterTokens("old");
        QString heard;
        connect(&proxy, &TokenFilterProxyModel::filterTokensAboutToBeChanged, this, [&] { heard = proxy.filterTokens(); });

        proxy.setFilterTokens("new");

        QCOMPARE(heard, QString("old"));
    }

    void theTextIsAPropertyForQml()
    {
        TokenFilterProxyModel proxy;
        const QMetaObject& meta = TokenFilterProxyModel::staticMetaObject;
        const QMetaProperty tokens = meta.property(meta.indexOfProperty("filterTokens"));

        QVERIFY(tokens.write(&proxy, " oak "));

        QCOMPARE(tokens.read(&proxy).toString(), QString("oak"));
        QCOMPARE(tokens.notifySignal().name(), QByteArray("filterTokensChanged"));
        QVERIFY(tokens.isFinal());
    }

    void whoIsToldFindsTheSetterAmongTheStackEntries()
    {
        TokenFilterProxyModel proxy;
        std::string entries;
        connect(&proxy, &TokenFilterProxyModel::filterTokensChanged, this, [&] { entries = Ozy::StackTracker::describe(); });

        proxy.setFilterTokens("oak");

        QVERIFY(entries.starts_with("\n  in qelm::datamodels::proxy::TokenFilterProxyModel::setFilterTokens ("));
        QCOMPARE(Ozy::StackTracker::describe(), std::string());
    }

    void theModeIsFlatUntilItIsSet()
    {
        ScriptedTree source({"wood", "  oak"});
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.setFilterTokens("oak");
        QCOMPARE(proxy.rowCount(), 0);

        proxy.setFilteringMode(TokenFilterProxyModel::Recursive);

        QCOMPARE(treeLines(proxy), (QStringList{"wood", "  oak"}));
    }

    void followsQtsContract()
    {
        ScriptedTree source({"oak", "elm", "  oak"});
        TokenFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);

        proxy.setFilterTokens("oak");
        source.insert({}, 0, {"an oak"});
        proxy.setFilterTokens("");
        source.remove({}, 0);

        QCOMPARE(treeLines(proxy), (QStringList{"oak", "elm", "  oak"}));
    }
};

QTEST_GUILESS_MAIN(tst_TokenFilterProxyModel)
#include "tst_token_filter_proxy_model.moc"
