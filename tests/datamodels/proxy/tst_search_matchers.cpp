#include "searched_tree.h"

#include <datamodels/library_frame.h>
#include <datamodels/proxy/search_matcher.h>

#include <support/signal_log.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

using namespace qelm::datamodels::proxy;

namespace {

/// A match as text, "75 0+3 7+3": the score and the ranges; "-" for none.
QString matchOf(SearchMatcher& matcher, const QString& words, const QString& text)
{
    ScriptedTree source({text});
    matcher.setText(words);
    QVariant info;
    if (!matcher.predicate()(source.index(0, 0), info))
        return "-";
    const auto match = info.value<SearchMatch>();
    QString result = QString::number(match.score);
    for (const SearchRange& range : match.ranges)
        result += QString(" %1+%2").arg(range.start).arg(range.length);
    return result;
}

} // namespace

class tst_SearchMatchers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { datamodels::registerSearchQml(); }

    void wordsAreFoundAsTheyAreWritten_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("match");
        QTest::newRow("the whole text") << "oak"
                                        << "Oak"
                                        << "100 0+3";
        QTest::newRow("its beginning") << "oak"
                                       << "oak_leaf"
                                       << "75 0+3";
        QTest::newRow("the beginning of a word") << "leaf"
                                                 << "oak_leaf"
                                                 << "50 4+4";
        QTest::newRow("a capital begins a word") << "leaf"
                                                 << "oakLeaf"
                                                 << "50 3+4";
        QTest::newRow("elsewhere") << "eaf"
                                   << "oak_leaf"
                                   << "25 5+3";
        QTest::newRow("the best of several places") << "a"
                                                    << "bab_a"
                                                    << "50 1+1 4+1";
        QTest::newRow("all words, in any order") << "leaf oak"
                                                 << "oak_leaf"
                                                 << "62 0+3 4+4";
        QTest::newRow("a word is missing") << "oak elm"
                                           << "oak_leaf"
                                           << "-";
        QTest::newRow("ranges that touch are joined") << "oak leaf"
                                                      << "oakleaf"
                                                      << "50 0+7";
        QTest::newRow("occurrences that overlap") << "aa"
                                                  << "aaaa"
                                                  << "75 0+4";
        QTest::newRow("no words") << "  "
                                  << "oak"
                                  << "0";
        QTest::newRow("no text") << "oak"
                                 << ""
                                 << "-";
        QTest::newRow("beyond ASCII") << QString::fromUtf8("ÄHRE") << QString::fromUtf8("ähre") << "100 0+4";
        QTest::newRow("digits are letters like others") << "7"
                                                        << "tile70"
                                                        << "25 4+1";
    }
    void wordsAreFoundAsTheyAreWritten()
    {
        QFETCH(QString, words);
        QFETCH(QString, text);
        TextSearchMatcher matcher;

        QTEST(matchOf(matcher, words, text), "match");
    }

    void numbersGoByTheirValue_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("match");
        QTest::newRow("zeros in front do not count") << "tile7"
                                                     << "tile007"
                                                     << "100 0+7";
        QTest::newRow("nor in the word") << "Tile007"
                                         << "tile7"
                                         << "100 0+5";
        QTest::newRow("another number") << "tile7"
                                        << "tile70"
                                        << "-";
        QTest::newRow("the end of another number") << "7"
                                                   << "tile17"
                                                   << "-";
        QTest::newRow("a number alone") << "7"
                                        << "tile_07_b"
                                        << "50 5+2";
        QTest::newRow("zero") << "0"
                              << "a000"
                              << "25 1+3";
        QTest::newRow("text behind a number") << "7b"
                                              << "07bc"
                                              << "75 0+3";
        QTest::newRow("text is found as it is written") << "ile"
                                                        << "Tile"
                                                        << "25 1+3";
        QTest::newRow("numbers of any length") << "99999999999999999999"
                                               << "x0099999999999999999999"
                                               << "25 1+22";
        QTest::newRow("no words") << ""
                                  << "7"
                                  << "0";
    }
    void numbersGoByTheirValue()
    {
        QFETCH(QString, words);
        QFETCH(QString, text);
        NaturalSearchMatcher matcher;

        QTEST(matchOf(matcher, words, text), "match");
    }

    void aMatcherReadsItsRole()
    {
        SearchedTree tree({"a | kind=tree", "tree | kind=b"});
        TextSearchMatcher matcher;
        matcher.setText("tree");
        matcher.setRole(ScriptedTree::KindRole);

        tree.searchAll(matcher.predicate());

        QCOMPARE(tree.texts(), QStringList{"a"});
    }

    void aSearchKeepsTheTextThatItStartedWith()
    {
        SearchedTree tree({"oak", "elm"});
        auto matcher = std::make_unique<TextSearchMatcher>();
        matcher->setText("oak");
        tree.start(matcher->predicate());

        matcher->setText("elm");
        matcher.reset();

        tree.finish();
        QCOMPARE(tree.texts(), QStringList{"oak"});
    }

    void settersTellChangesOnly()
    {
        NaturalSearchMatcher matcher;
        SignalLog log;
        log.add(matcher, &SearchMatcher::textChanged).add(matcher, &SearchMatcher::roleChanged);

        matcher.setText("a");
        matcher.setText("a");
        matcher.setRole(5);
        matcher.setRole(5);

        QCOMPARE(log.take(), (QStringList{"textChanged()", "roleChanged()"}));
    }

    void withoutAModelNothingIsSearched()
    {
        const TextSearchMatcher matcher;

        matcher.search(nullptr, {});
    }

    void qmlSearchesAndReadsTheMatches()
    {
        SearchedTree tree({"oak", "  oak leaf", "elm"});
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("results", &tree.proxy);
        engine.rootContext()->setContextProperty("source", tree.source.get());
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\n"
                          "import QtQml.Models 2.15\n"
                          "import QelmTools.Misc 1.0\n"
                          "Instantiator {\n"
                          "    property var matcher: TextSearchMatcher { text: 'leaf' }\n"
                          "    model: results\n"
                          "    delegate: QtObject {\n"
                          "        property string text: display + ' ' + searchInfo.score + ' '\n"
                          "            + searchInfo.ranges[0].start + '+' + searchInfo.ranges[0].length\n"
                          "    }\n"
                          "    Component.onCompleted: matcher.search(results, source.index(-1, -1))\n"
                          "}",
                          QUrl());

        const std::unique_ptr<QObject> view(component.create());
        QVERIFY2(view, qPrintable(component.errorString()));

        QTRY_COMPARE(view->property("count"), QVariant(1));
        QCOMPARE(view->property("object").value<QObject*>()->property("text"), QVariant("oak leaf 50 4+4"));
    }
};

QTEST_GUILESS_MAIN(tst_SearchMatchers)

#include "tst_search_matchers.moc"
