#include <controls/text_matches.h>

#include <QtTest>

using editor::textMatches;
using editor::TextRange;
using Ranges = QVector<TextRange>;

Q_DECLARE_METATYPE(editor::TextRange)

class tst_TextMatches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangesOfTheNeedlesInTheText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("needles");
        QTest::addColumn<Ranges>("ranges");

        QTest::newRow("no needle") << "lock_gate" << QStringList() << Ranges();
        QTest::newRow("empty needle") << "lock_gate" << QStringList{""} << Ranges();
        QTest::newRow("no match") << "lock_gate" << QStringList{"weir"} << Ranges();
        QTest::newRow("one match") << "lock_gate" << QStringList{"gate"} << Ranges{{5, 4}};
        QTest::newRow("every match") << "salt_salt" << QStringList{"sal"} << Ranges{{0, 3}, {5, 3}};
        QTest::newRow("in the order of the text")
            << "lock_gate" << QStringList{"gate", "lock"} << Ranges{{0, 4}, {5, 4}};
        QTest::newRow("matches that touch are one") << "lock_gate" << QStringList{"lock", "_gate"} << Ranges{{0, 9}};
        QTest::newRow("matches that overlap are one") << "banana" << QStringList{"ana"} << Ranges{{1, 5}};
        QTest::newRow("a match in another is one") << "lock_gate" << QStringList{"gate", "at"} << Ranges{{5, 4}};
        QTest::newRow("ignoring case") << "Lock_GATE" << QStringList{"lOCK", "gate"} << Ranges{{0, 4}, {5, 4}};
        QTest::newRow("accented letters fold") << "\u00dcbergang" << QStringList{"\u00fcber"} << Ranges{{0, 4}};
        QTest::newRow("all sigmas are one letter") << "\u03a3\u03c3\u03c2" << QStringList{"\u03c3"} << Ranges{{0, 3}};
        QTest::newRow("long s is an s") << "wa\u017f\u017fer" << QStringList{"ss"} << Ranges{{2, 2}};
        QTest::newRow("Kelvin is a k") << "5 \u212aelvin" << QStringList{"kel"} << Ranges{{2, 3}};
        QTest::newRow("sharp s is not two") << "stra\u00dfe" << QStringList{"ss"} << Ranges();
        QTest::newRow("letters of two units") << "a\U00010400b" << QStringList{"\U00010428"} << Ranges{{1, 2}};
    }
    void rangesOfTheNeedlesInTheText()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, needles);

        QTEST(textMatches(text, needles), "ranges");
    }
};

QTEST_GUILESS_MAIN(tst_TextMatches)
#include "tst_text_matches.moc"
