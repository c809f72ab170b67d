#include <host/base/string_utils.h>

#include <QtTest>

#include <algorithm>
#include <string>
#include <vector>

Q_DECLARE_METATYPE(std::string)

using Ozy::StringUtils::NumericStringCompare;

class tst_StringUtils : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digitsCompareByValue()
    {
        std::vector<std::string> names{"a10", "a2", "a1", "b", "a", "a2b"};

        std::sort(names.begin(), names.end(), NumericStringCompare);

        QCOMPARE(names, (std::vector<std::string>{"a", "a1", "a2", "a2b", "a10", "b"}));
    }

    void oneStandsBeforeTheOther_data()
    {
        QTest::addColumn<std::string>("first");
        QTest::addColumn<std::string>("second");

        QTest::newRow("empty") << std::string() << std::string("a");
        QTest::newRow("number longer than any integer")
            << std::string("a99999999999999999998") << std::string("a99999999999999999999");
        QTest::newRow("more leading zeros first") << std::string("a01") << std::string("a1");
        QTest::newRow("zeros only") << std::string("a0") << std::string("a00b");
        QTest::newRow("case does not count") << std::string("Alder") << std::string("birch");
        QTest::newRow("unless nothing else differs") << std::string("Oak") << std::string("oak");
        QTest::newRow("bytes beyond ASCII last") << std::string("z") << std::string("\xc3\xa4");
        QTest::newRow("the next number decides") << std::string("1.9") << std::string("1.10");
    }

    void oneStandsBeforeTheOther()
    {
        QFETCH(std::string, first);
        QFETCH(std::string, second);

        QVERIFY(NumericStringCompare(first, second));
        QVERIFY(!NumericStringCompare(second, first));
        QVERIFY(!NumericStringCompare(first, first));
    }

    void everyOccurrenceIsReplaced()
    {
        std::string text = "AMBER/oak_AM.png";

        Ozy::StringUtils::replace(text, "AM", "GBMT");

        QCOMPARE(text, std::string("GBMTBER/oak_GBMT.png"));
    }

    void replacedTextIsNotSearchedAgain()
    {
        std::string text = "aaa";

        Ozy::StringUtils::replace(text, "a", "aa");

        QCOMPARE(text, std::string("aaaaaa"));
    }

    void replacingNothingDoesNothing()
    {
        std::string text = "oak";

        Ozy::StringUtils::replace(text, "", "x");

        QCOMPARE(text, std::string("oak"));
    }
};

QTEST_APPLESS_MAIN(tst_StringUtils)
#include "tst_string_utils.moc"
