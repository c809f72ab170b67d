#include <host/base/date_time.h>

#include <QVariant>
#include <QtTest>

using Ozy::DateTimeUtils::DateTime;

class tst_DateTime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void byDefaultAllFieldsAreZero() { QCOMPARE(DateTime(), (DateTime{0, 0, 0, 0, 0, 0})); }

    void theFieldsHaveTheirWidths()
    {
        QCOMPARE(sizeof(DateTime::year), std::size_t(2));
        QCOMPARE(sizeof(DateTime::month), std::size_t(1));
        QCOMPARE(sizeof(DateTime::day), std::size_t(1));
        QCOMPARE(sizeof(DateTime::hour), std::size_t(1));
        QCOMPARE(sizeof(DateTime::minute), std::size_t(1));
        QCOMPARE(sizeof(DateTime::second), std::size_t(1));
    }

    void everyFieldCountsInAComparison_data()
    {
        QTest::addColumn<DateTime>("other");

        QTest::newRow("year") << DateTime{2020, 2, 3, 4, 5, 6};
        QTest::newRow("month") << DateTime{2021, 1, 3, 4, 5, 6};
        QTest::newRow("day") << DateTime{2021, 2, 1, 4, 5, 6};
        QTest::newRow("hour") << DateTime{2021, 2, 3, 1, 5, 6};
        QTest::newRow("minute") << DateTime{2021, 2, 3, 4, 1, 6};
        QTest::newRow("second") << DateTime{2021, 2, 3, 4, 5, 1};
    }

    void everyFieldCountsInAComparison()
    {
        QFETCH(DateTime, other);

        QVERIFY(!(other == DateTime{2021, 2, 3, 4, 5, 6}));
    }

    void aVariantCarriesIt()
    {
        const QVariant value = QVariant::fromValue(DateTime{2021, 2, 3, 4, 5, 6});

        QCOMPARE(value.typeName(), "Ozy::DateTimeUtils::DateTime");
        QCOMPARE(value.value<DateTime>(), (DateTime{2021, 2, 3, 4, 5, 6}));
    }
};

QTEST_GUILESS_MAIN(tst_DateTime)
#include "tst_date_time.moc"
