#include "searched_tree.h"

#include <support/signal_log.h>

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>

using qelm::datamodels::proxy::SearchProxyModel;

namespace {

QVariantList by(const QVariant& role, int order)
{
    return {QVariantMap{{"role", role}, {"order", order}}};
}

QVariantMap entry(const QVariant& role, const QVariant& order)
{
    return {{"role", role}, {"order", order}};
}

/// A list whose rows answer to all roles with the given values in turn.
class Values : public QAbstractListModel
{
public:
    explicit Values(QVariantList values) : m_values(std::move(values)) {}

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : m_values.size();
    }
    QVariant data(const QModelIndex& index, int) const override { return m_values[index.row()]; }

private:
    QVariantList m_values;
};

QStringList numbers(int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(QString::number(i));
    return texts;
}

/// The same in another order; `count` must not be a multiple of 1009.
QStringList shuffledNumbers(int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(QString::number((i * 1009) % count));
    return texts;
}

QList<int> rowsSorted(const QVariantList& values, int order)
{
    Values source(values);
    SearchProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.sort(by(int(Qt::DisplayRole), order));
    bool ended = false;
    proxy.search({}, {}, false, [&ended] { ended = true; });
    while (!ended)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QList<int> rows;
    for (int row = 0; row < proxy.rowCount(); ++row)
        rows.append(proxy.mapToSource(proxy.index(row, 0)).row());
    return rows;
}

} // namespace

class tst_SearchSorting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resultsArriveAtTheirPlace()
    {
        SearchedTree tree({"c", "a", "b"});
        tree.proxy.sort(by("display", 0));
        SignalLog log(tree.proxy);

        tree.searchAll();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset", "inserting / [0..0]", "inserted / [0..0]",
                                          "inserting / [0..0]", "inserted / [0..0]", "inserting / [1..1]",
                                          "inserted / [1..1]"}));
        QCOMPARE(tree.texts(), (QStringList{"a", "b", "c"}));
    }

    void rowsThatAreHereAreSorted()
    {
        SearchedTree tree({"c", "a", "b"});
        tree.searchAll();
        SignalLog log(tree.proxy);

        tree.proxy.sort(by("display", 1));

        QCOMPARE(tree.texts(), (QStringList{"c", "b", "a"}));
        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));
    }

    void severalRolesDecideInTheirOrder()
    {
        SearchedTree tree(
            {"a | kind=x | size=1", "b | kind=y | size=2", "c | kind=x | size=3", "d | kind=y | size=1"});

        tree.proxy.sort({entry("kind", 1), entry("size", 0)});
        tree.searchAll();

        QCOMPARE(tree.texts(), (QStringList{"d", "b", "a", "c"}));
    }

    void equalRowsStayInTheOrderOfTheirArrival_data()
    {
        QTest::addColumn<int>("order");
        QTest::newRow("ascending") << 0;
        QTest::newRow("descending") << 1;
    }
    void equalRowsStayInTheOrderOfTheirArrival()
    {
        QFETCH(int, order);
        SearchedTree tree({"d | kind=x", "b | kind=x", "c | kind=x", "a | kind=x"});
        tree.proxy.sort(by("kind", order));
        tree.searchAll();
        QCOMPARE(tree.texts(), (QStringList{"d", "b", "c", "a"}));

        tree.proxy.sort(by("kind", order));

        QCOMPARE(tree.texts(), (QStringList{"d", "b", "c", "a"}));
    }

    void manyResultsAreInOrder()
    {
        SearchedTree tree(shuffledNumbers(3000));
        tree.tester.reset();
        tree.proxy.setSearchBufferSize(100);
        tree.proxy.sort(by("display", 0));

        tree.searchAll();

        QCOMPARE(tree.texts(), numbers(3000));
    }

    void manyResultsAreFoundByTheirSource()
    {
        SearchedTree tree(shuffledNumbers(3000));
        tree.tester.reset(); // it reads all rows at each arrival
        tree.proxy.setSearchBufferSize(100);
        QVERIFY(!tree.proxy.mapFromSource(tree.source->index(0, 0)).isValid());
        tree.proxy.sort(by("display", 0));

        tree.searchAll();

        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("0")).row(), 0);
        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("1234")).row(), 1234);
        QCOMPARE(tree.proxy.mapFromSource(tree.source->find("2999")).row(), 2999);
        QCOMPARE(tree.proxy.mapToSource(tree.proxy.index(1717, 0)), tree.source->find("1717"));
    }

    void valuesCompareByTheirType_data()
    {
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<QList<int>>("ascending");
        const QDate day(2026, 3, 1);

        QTest::newRow("booleans") << QVariantList{true, false} << QList<int>{1, 0};
        QTest::newRow("integers") << QVariantList{10, -2, 9} << QList<int>{1, 2, 0};
        QTest::newRow("naturals") << QVariantList{10u, 2u, 4000000000u} << QList<int>{1, 0, 2};
        QTest::newRow("long") << QVariantList{qlonglong(1) << 40, qlonglong(-1) << 40} << QList<int>{1, 0};
        QTest::newRow("long naturals") << QVariantList{qulonglong(-1), qulonglong(1)} << QList<int>{1, 0};
        QTest::newRow("doubles") << QVariantList{0.5, -0.5, 0.25} << QList<int>{1, 2, 0};
        QTest::newRow("floats") << QVariantList{0.5f, -0.5f} << QList<int>{1, 0};
        QTest::newRow("characters") << QVariantList{QChar('b'), QChar('a')} << QList<int>{1, 0};
        QTest::newRow("dates") << QVariantList{day.addDays(1), day} << QList<int>{1, 0};
        QTest::newRow("times") << QVariantList{QTime(10, 0), QTime(9, 59)} << QList<int>{1, 0};
        QTest::newRow("dates with times")
            << QVariantList{QDateTime(day, QTime(1, 0)), QDateTime(day, QTime(0, 59))} << QList<int>{1, 0};
        QTest::newRow("texts, digits by value")
            << QVariantList{"item10", "item9", "Item1"} << QList<int>{2, 1, 0};
        QTest::newRow("the left type decides") << QVariantList{10, "9"} << QList<int>{1, 0};
        QTest::newRow("invalid values last")
            << QVariantList{QVariant(), "b", QVariant(), "a"} << QList<int>{3, 1, 0, 2};
    }
    void valuesCompareByTheirType()
    {
        QFETCH(QVariantList, values);

        QTEST(rowsSorted(values, 0), "ascending");
    }

    void descendingOrderIsTheReverse()
    {
        QCOMPARE(rowsSorted({"a", QVariant(), "c", "b"}, 1), (QList<int>{1, 2, 3, 0}));
    }

    void anyOrderButZeroIsDescending() { QCOMPARE(rowsSorted({1, 3, 2}, 7), (QList<int>{1, 2, 0})); }

    void entriesThatLackAKeyAreSkipped()
    {
        SearchedTree tree({"a | size=2", "b | size=1"});
        tree.searchAll();

        tree.proxy.sort({QVariantMap{{"role", "display"}}, QVariantMap{{"order", 1}}, entry("display", "1"),
                         entry(2.5, 1), QVariant("display"), entry(QByteArray("size"), 0)});

        QCOMPARE(tree.texts(), (QStringList{"b", "a"}));
    }

    void anUnknownRoleMakesNoDifference()
    {
        SearchedTree tree({"b", "a"});
        tree.searchAll();

        tree.proxy.sort({entry("colour", 1), entry("display", 0)});

        QCOMPARE(tree.texts(), (QStringList{"a", "b"}));
    }

    void withoutRolesResultsStandInTheOrderOfTheirArrival()
    {
        SearchedTree tree({"b", "a"});
        tree.proxy.sort(by("display", 0));

        tree.proxy.sort(QVariantList());
        tree.searchAll();

        QCOMPARE(tree.texts(), (QStringList{"b", "a"}));
    }

    void sortingMovesOnePersistentIndexOnly()
    {
        SearchedTree tree({"c", "a", "b"});
        tree.searchAll();
        const QPersistentModelIndex first = tree.proxy.index(0, 0);
        const QPersistentModelIndex second = tree.proxy.index(1, 0);

        tree.proxy.sort(by("display", 0));

        QCOMPARE(first.row(), 2);
        QCOMPARE(second.row(), 1);
    }

    void sortingNothingIsToldAsWell()
    {
        SearchedTree tree;
        SignalLog log(tree.proxy);

        tree.proxy.sort(QVariantList());

        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));
    }

    void rowsThatArriveAfterSortingGoToTheirNewPlace()
    {
        SearchedTree tree({"a", "c", "b", "d"});
        tree.start();
        tree.proxy.sort(by("display", 1));

        tree.finish();

        QCOMPARE(tree.texts(), (QStringList{"d", "c", "b", "a"}));
    }

    void aChangedValueCountsForRowsThatArriveLater()
    {
        SearchedTree tree({"a", "c", "b"});
        tree.proxy.sort(by("display", 0));
        tree.searchAll();
        tree.source->change(tree.source->find("a"), "z");

        tree.proxy.sort(by("display", 0));

        QCOMPARE(tree.texts(), (QStringList{"b", "c", "z"}));
    }

    void removedRowsAreLastWhenTheRestIsSortedAgain()
    {
        SearchedTree tree({"a", "c", "b"});
        tree.searchAll();
        tree.source->remove({}, 0);

        tree.proxy.sort(by("display", 0));

        QCOMPARE(tree.texts(), (QStringList{"b", "c", "(invalid)"}));
    }

    void qmlGivesTheRolesAsAListOfObjects()
    {
        SearchedTree tree({"a | size=1", "b | size=2"});
        tree.searchAll();
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("results", &tree.proxy);
        QQmlExpression sorting(engine.rootContext(), nullptr,
                               "results.sort([{role: 'size', order: Qt.DescendingOrder}]); results.count");

        QCOMPARE(sorting.evaluate(), QVariant(2));
        QCOMPARE(tree.texts(), (QStringList{"b", "a"}));
    }
};

QTEST_GUILESS_MAIN(tst_SearchSorting)

#include "tst_search_sorting.moc"
