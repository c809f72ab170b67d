#include <datamodels/proxy/base_filter_proxy_model.h>
#include <host/base/date_time.h>

#include <support/scripted_tree.h>
#include <support/tree_lines.h>

#include <QDateTime>
#include <QStandardItemModel>
#include <QtTest>

#include <ctime>
#include <random>

using Ozy::DateTimeUtils::DateTime;
using qelm::datamodels::proxy::BaseFilterProxyModel;

namespace {

/// Compares two values as a proxy does, outside of a sort.
class Comparison : public BaseFilterProxyModel
{
public:
    Comparison()
    {
        m_values.appendRow(new QStandardItem);
        m_values.appendRow(new QStandardItem);
        setSourceModel(&m_values);
        setSortRole(Qt::UserRole);
    }
    bool isLess(const QVariant& left, const QVariant& right)
    {
        m_values.item(0)->setData(left, Qt::UserRole);
        m_values.item(1)->setData(right, Qt::UserRole);
        return lessThan(m_values.index(0, 0), m_values.index(1, 0));
    }

private:
    QStandardItemModel m_values;
};

/// The same order with the values fetched at every comparison.
class Unkeyed : public BaseFilterProxyModel
{
public:
    void sort(int column, Qt::SortOrder order) override { QSortFilterProxyModel::sort(column, order); }
};

DateTime time(int hour, int minute, int second)
{
    return {2021, 5, 17, std::uint8_t(hour), std::uint8_t(minute), std::uint8_t(second)};
}

QVariant engineTime(const DateTime& value)
{
    return QVariant::fromValue(value);
}

QVariant randomValue(std::mt19937& random, int kind)
{
    const int number = int(random() % 50) - 10;
    const QString letters = QString::fromUtf16(u"aAbB\u00DF\u0130\u017FsS\u03A3\u03C3\u1E9E\xD801\xDC00\xDC28");
    QString text;
    for (unsigned length = random() % 4; length > 0; --length)
        text += letters[int(random() % unsigned(letters.size()))];
    switch (kind) {
    case 0: return number;
    case 1: return uint(number + 10);
    case 2: return qlonglong(number) << 33;
    case 3: return qulonglong(number + 10) << 60;
    case 4: return number / 3.0;
    case 5: return QVariant(float(number) / 3);
    case 6: return text;
    case 7: return QDate(2020, 1, 1).addDays(number);
    case 8: return engineTime(time(int(random() % 3), int(random() % 3), 0));
    case 9: return bool(random() % 2);
    case 10: return QChar(u'a' + number);
    default: return random() % 3 ? randomValue(random, int(random() % 11)) : QVariant();
    }
}

} // namespace

class tst_Sorting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valuesCompareByTheTypeOfTheLeftOne_data()
    {
        QTest::addColumn<QVariant>("less");
        QTest::addColumn<QVariant>("greater");
        QTest::newRow("int") << QVariant(9) << QVariant(10);
        QTest::newRow("uint") << QVariant(9U) << QVariant(4000000000U);
        QTest::newRow("qlonglong") << QVariant(qlonglong(-5)) << QVariant(qlonglong(1) << 40);
        QTest::newRow("qulonglong") << QVariant(qulonglong(1)) << QVariant(~qulonglong(0));
        QTest::newRow("double") << QVariant(0.25) << QVariant(0.5);
        QTest::newRow("float") << QVariant(0.25F) << QVariant(0.5F);
        QTest::newRow("QChar") << QVariant(QChar('B')) << QVariant(QChar('a'));
        QTest::newRow("QDate") << QVariant(QDate(2020, 12, 31)) << QVariant(QDate(2021, 1, 1));
        QTest::newRow("QTime") << QVariant(QTime(9, 59)) << QVariant(QTime(10, 0));
        QTest::newRow("QDateTime") << QVariant(QDateTime({2020, 1, 1}, {1, 0})) << QVariant(QDateTime({2020, 1, 1}, {2, 0}));
        QTest::newRow("text, whatever the case") << QVariant("apple") << QVariant("Banana");
        QTest::newRow("text, digits by character") << QVariant("item10") << QVariant("item9");
        QTest::newRow("bool by its text") << QVariant(false) << QVariant(true);
        QTest::newRow("a text converted to the number on the left") << QVariant(9) << QVariant("10");
        QTest::newRow("a number as text against the text on the left") << QVariant("10") << QVariant(9);
        QTest::newRow("invalid first") << QVariant() << QVariant(0);
    }
    void valuesCompareByTheTypeOfTheLeftOne()
    {
        QFETCH(QVariant, less);
        QFETCH(QVariant, greater);
        Comparison comparison;

        QVERIFY(comparison.isLess(less, greater));
        QVERIFY(!comparison.isLess(greater, less) || less.userType() != greater.userType());
    }

    void twoInvalidValuesAreEqual()
    {
        Comparison comparison;

        QVERIFY(!comparison.isLess(QVariant(), QVariant()));
    }

    void textsCompareByCaseWhenToldTo()
    {
        Comparison comparison;
        comparison.setSortCaseSensitivity(Qt::CaseSensitive);

        QVERIFY(comparison.isLess("Banana", "apple"));
    }

    void textsCompareInTheLocaleWhenToldTo()
    {
        Comparison comparison;
        comparison.setSortLocaleAware(true);

        QCOMPARE(comparison.isLess("a", "B"), QString::localeAwareCompare("a", "B") < 0);
        QCOMPARE(comparison.isLess("B", "a"), QString::localeAwareCompare("B", "a") < 0);
    }

    void engineDatesCompareByTheirFields_data()
    {
        QTest::addColumn<DateTime>("left");
        QTest::addColumn<DateTime>("right");
        QTest::addColumn<bool>("isLess");
        QTest::newRow("earlier year") << DateTime{2020, 9, 9, 9, 9, 9} << DateTime{2021, 1, 1, 0, 0, 0} << true;
        QTest::newRow("later year") << DateTime{2021, 1, 1, 0, 0, 0} << DateTime{2020, 9, 9, 9, 9, 9} << false;
        QTest::newRow("earlier month") << DateTime{2021, 1, 9, 9, 9, 9} << DateTime{2021, 2, 1, 0, 0, 0} << true;
        QTest::newRow("later month") << DateTime{2021, 3, 1, 0, 0, 0} << DateTime{2021, 2, 9, 9, 9, 9} << false;
        QTest::newRow("earlier day") << DateTime{2021, 1, 1, 9, 9, 9} << DateTime{2021, 1, 2, 0, 0, 0} << true;
        QTest::newRow("later day") << DateTime{2021, 1, 3, 0, 0, 0} << DateTime{2021, 1, 2, 9, 9, 9} << false;
        QTest::newRow("later hour") << time(11, 0, 0) << time(10, 59, 0) << false;
        QTest::newRow("earlier hour leaves it to the minute: greater") << time(10, 59, 0) << time(11, 0, 0) << false;
        QTest::newRow("earlier hour leaves it to the minute: less") << time(10, 0, 0) << time(11, 1, 0) << true;
        QTest::newRow("earlier hour, the rest equal") << time(10, 0, 0) << time(11, 0, 0) << false;
        QTest::newRow("earlier minute") << time(10, 1, 9) << time(10, 2, 0) << true;
        QTest::newRow("later minute") << time(10, 3, 0) << time(10, 2, 9) << false;
        QTest::newRow("earlier second") << time(10, 1, 1) << time(10, 1, 2) << true;
        QTest::newRow("equal") << time(10, 1, 1) << time(10, 1, 1) << false;
    }
    void engineDatesCompareByTheirFields()
    {
        QFETCH(DateTime, left);
        QFETCH(DateTime, right);
        QFETCH(bool, isLess);
        Comparison comparison;

        QCOMPARE(comparison.isLess(engineTime(left), engineTime(right)), isLess);
    }

    void whatIsNoDateComparesAsTheEpochInLocalTime()
    {
        const std::time_t epoch = 0;
        std::tm local{};
        localtime_r(&epoch, &local);
        const auto year = std::uint16_t(local.tm_year + 1900);
        Comparison comparison;

        QVERIFY(comparison.isLess(engineTime({std::uint16_t(year - 1), 12, 31, 23, 59, 59}), "no date"));
        QVERIFY(!comparison.isLess(engineTime({std::uint16_t(year + 1), 1, 1, 0, 0, 0}), "no date"));
    }

    void whatConvertsToTheEngineDateComparesAsThat()
    {
        QMetaType::registerConverter<QDate, DateTime>([](const QDate& date) {
            return DateTime{std::uint16_t(date.year()), std::uint8_t(date.month()), std::uint8_t(date.day()), 0, 0, 0};
        });
        Comparison comparison;

        QVERIFY(comparison.isLess(engineTime({2021, 5, 16, 9, 0, 0}), QDate(2021, 5, 17)));
        QVERIFY(!comparison.isLess(engineTime({2021, 5, 18, 0, 0, 0}), QDate(2021, 5, 17)));
    }

    void aSortPlacesEveryRowAsComparingTheValuesThemselvesDoes_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("isCaseSensitive");
        QTest::newRow("int") << 0 << false;
        QTest::newRow("uint") << 1 << false;
        QTest::newRow("qlonglong") << 2 << false;
        QTest::newRow("qulonglong") << 3 << false;
        QTest::newRow("double") << 4 << false;
        QTest::newRow("float") << 5 << false;
        QTest::newRow("text") << 6 << false;
        QTest::newRow("text by case") << 6 << true;
        QTest::newRow("QDate") << 7 << false;
        QTest::newRow("engine date") << 8 << false;
        QTest::newRow("bool") << 9 << false;
        QTest::newRow("QChar") << 10 << false;
        QTest::newRow("mixed, with invalid ones") << 11 << false;
    }
    void aSortPlacesEveryRowAsComparingTheValuesThemselvesDoes()
    {
        QFETCH(int, kind);
        QFETCH(bool, isCaseSensitive);
        std::mt19937 random(3);
        QStandardItemModel source;
        for (int i = 0; i < 30; ++i) {
            auto* parent = new QStandardItem(QString::number(i));
            parent->setData(randomValue(random, kind), Qt::UserRole);
            for (int j = 0; j < 30; ++j) {
                auto* child = new QStandardItem(QString("%1 %2").arg(i).arg(j));
                child->setData(randomValue(random, kind), Qt::UserRole);
                parent->appendRow(child);
            }
            source.appendRow(parent);
        }
        BaseFilterProxyModel keyed;
        Unkeyed unkeyed;

        for (BaseFilterProxyModel* proxy : {&keyed, static_cast<BaseFilterProxyModel*>(&unkeyed)}) {
            proxy->setSortCaseSensitivity(isCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
            proxy->setSortRole(Qt::UserRole);
            proxy->setSourceModel(&source);
            treeLines(*proxy);
            proxy->sort(0, Qt::AscendingOrder);
        }

        QCOMPARE(treeLines(keyed), treeLines(unkeyed));
    }
};

QTEST_GUILESS_MAIN(tst_Sorting)
#include "tst_sorting.moc"
