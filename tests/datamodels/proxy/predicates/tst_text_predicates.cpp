#include <datamodels/proxy/predicates/text_predicate.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QStandardItemModel>
#include <QtTest>

#include <random>

using namespace qelm::datamodels::proxy;

namespace {

constexpr int noteRole = Qt::UserRole + 1;

QString randomText(std::mt19937& random, const std::u16string& letters, int longest)
{
    QString text;
    for (int length = static_cast<int>(random() % static_cast<unsigned>(longest + 1)); length > 0; --length)
        text += QChar(letters[random() % letters.size()]);
    return text;
}

} // namespace

class tst_TextPredicates : public QObject
{
    Q_OBJECT

    QStandardItemModel m_model;

    QModelIndex row(const QVariant& value, const QVariant& note = {})
    {
        m_model.clear();
        m_model.appendRow(new QStandardItem);
        m_model.item(0)->setData(value, Qt::DisplayRole);
        m_model.item(0)->setData(note, noteRole);
        return m_model.index(0, 0);
    }

private Q_SLOTS:
    void aTextIsFoundWhateverTheCase()
    {
        TextPredicate predicate;
        predicate.setText("tRee");

        QVERIFY(predicate(row("Old_TREE_07")));
        QVERIFY(!predicate(row("Old_TRE_07")));
    }

    void anEmptyTextWantsEveryRowEvenWithoutRoles()
    {
        QVERIFY(TextPredicate()(row("anything")));
        QVERIFY(TextPredicate(std::unordered_set<int>{})(row("anything")));
    }

    void aTextWithoutRolesWantsNoRow()
    {
        TextPredicate predicate(std::unordered_set<int>{});
        predicate.setText("a");

        QVERIFY(!predicate(row("a")));
    }

    void anyRoleSuffices()
    {
        TextPredicate predicate({Qt::DisplayRole, noteRole});
        predicate.setText("moss");

        QVERIFY(predicate(row("stone", "with moss")));
        QVERIFY(predicate(row("moss", "dry")));
        QVERIFY(!predicate(row("stone", "dry")));
    }

    void aNumberMatchesByItsDecimalText()
    {
        TextPredicate predicate;
        predicate.setText("23");

        QVERIFY(predicate(row(1234)));
        QVERIFY(!predicate(row(1324)));
    }

    void aValueWithoutTextNeverMatches()
    {
        TextPredicate predicate;
        predicate.setText("1");

        QVERIFY(!predicate(row(QVariant())));
        QVERIFY(!predicate(row(QVariant::fromValue(QRect(1, 1, 1, 1)))));
    }

    void anInvalidIndexMatchesOnlyTheEmptyText()
    {
        TextPredicate predicate;
        QVERIFY(predicate(QModelIndex()));

        predicate.setText("a");

        QVERIFY(!predicate(QModelIndex()));
    }

    void aNewTextNotifiesItsPropertyFirst()
    {
        TextPredicate predicate;
        SignalLog log;
        log.add(predicate, &TextPredicate::textChanged).add(predicate, &BasePredicate::changed);

        predicate.setText("a");
        predicate.setText("a");

        QCOMPARE(log.take(), (QStringList{"textChanged()", "changed()"}));
    }

    void aTextInOtherCaseIsAnotherText()
    {
        TextPredicate predicate;
        predicate.setText("a");
        SignalLog log;
        log.add(predicate, &BasePredicate::changed);

        predicate.setText("A");

        QCOMPARE(predicate.text(), QString("A"));
        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void newRolesNotifyTheirSignalFirst()
    {
        TextPredicate predicate({1, 2});
        SignalLog log;
        log.add(predicate, &TextPredicate::rolesChanged).add(predicate, &BasePredicate::changed);

        predicate.setRoles({2, 1});
        QCOMPARE(log.take(), QStringList());

        predicate.setRoles({1, 3});
        QCOMPARE(log.take(), (QStringList{"rolesChanged()", "changed()"}));
        QCOMPARE(predicate.roles(), (std::unordered_set<int>{1, 3}));
    }

    void theTextIsAPropertyForQml()
    {
        TextPredicate predicate;

        QVERIFY(predicate.setProperty("text", "word"));

        QCOMPARE(predicate.text(), QString("word"));
        QVERIFY(predicate.metaObject()->property(predicate.metaObject()->indexOfProperty("text")).hasNotifySignal());
    }

    void allTokensMustMatch()
    {
        TokensPredicate predicate;
        predicate.setText("a b");

        QVERIFY(predicate(row("B-a")));
        QVERIFY(!predicate(row("a")));
    }

    void oneTokenSufficesForAny()
    {
        TokensPredicate predicate;
        predicate.setText("a b");
        predicate.setType(TokensPredicate::Type::Any);

        QVERIFY(predicate(row("a")));
        QVERIFY(!predicate(row("c")));
    }

    void theTokensOfOneRowMayStandInDifferentRoles()
    {
        TokensPredicate predicate({Qt::DisplayRole, noteRole});
        predicate.setText("stone moss");

        QVERIFY(predicate(row("a stone", "with moss")));
    }

    void onlySpacesPartTokens()
    {
        TokensPredicate predicate;
        predicate.setText("a\tb");

        QVERIFY(!predicate(row("b a")));
        QVERIFY(predicate(row("a\tb")));
    }

    void aTextOfSpacesWantsEveryRow()
    {
        TokensPredicate predicate;
        predicate.setText("   ");

        QVERIFY(predicate(row("anything")));
    }

    void emptyingTheTextWantsEveryRowAgain()
    {
        TokensPredicate predicate;
        predicate.setText("a");
        QVERIFY(!predicate(row("b")));

        predicate.setText("");

        QVERIFY(predicate(row("b")));
    }

    void aChangeOfTypeAppliesToTheTokensThere()
    {
        TokensPredicate predicate;
        predicate.setText("a b");

        predicate.setType(TokensPredicate::Type::Any);
        QVERIFY(predicate(row("b")));

        predicate.setType(TokensPredicate::Type::All);
        QVERIFY(!predicate(row("b")));
    }

    void aChangeOfTypeWithoutTokensWantsEveryRow()
    {
        TokensPredicate predicate;
        predicate.setText("a");
        predicate.setText("");

        predicate.setType(TokensPredicate::Type::Any);

        QVERIFY(predicate(row("b")));
    }

    void anUnknownTypeIsReportedWhenThereIsSomethingToMatch()
    {
        TokensPredicate predicate;
        predicate.setType(static_cast<TokensPredicate::Type>(7));
        LogCapture log;

        predicate.setText("a");

        QCOMPARE(log.assertions(), QStringList{"false (unknown type)"});
        QVERIFY(predicate(row("b")));
    }

    void newTokensNotifyInTheOrderOfAText()
    {
        TokensPredicate predicate;
        SignalLog log;
        log.add(predicate, &TextPredicate::textChanged).add(predicate, &BasePredicate::changed);

        predicate.setText("a b c");

        QCOMPARE(log.take(), (QStringList{"textChanged()", "changed()"}));
    }

    void aNewTypeNotifiesOnce()
    {
        TokensPredicate predicate;
        SignalLog log;
        log.add(predicate, &BasePredicate::changed);

        predicate.setType(TokensPredicate::Type::Any);
        predicate.setType(TokensPredicate::Type::Any);

        QCOMPARE(log.take(), QStringList{"changed()"});
    }

    void newRolesApplyToTheTokensThere()
    {
        TokensPredicate predicate;
        predicate.setText("moss");

        predicate.setRoles({noteRole});

        QVERIFY(predicate(row("stone", "with moss")));
        QVERIFY(!predicate(row("moss", "dry")));
    }

    void newRolesOfTokensNotifyInTheOrderOfAText()
    {
        TokensPredicate predicate;
        predicate.setText("a b");
        SignalLog log;
        log.add(predicate, &TextPredicate::rolesChanged).add(predicate, &BasePredicate::changed);

        predicate.setRoles({noteRole});

        QCOMPARE(log.take(), (QStringList{"rolesChanged()", "changed()"}));
    }

    void tokensShowTheMetaObjectOfText()
    {
        QCOMPARE(TokensPredicate().metaObject(), &TextPredicate::staticMetaObject);
    }

    void theMatcherAgreesWithQtOnRandomTexts_data()
    {
        QTest::addColumn<QString>("letters");
        QTest::newRow("ascii") << "abAB_ 1";
        QTest::newRow("ascii and what folds onto it") << QString::fromUtf16(u"skSKab\u017F\u212A");
        QTest::newRow("letters that expand when folded fully") << QString::fromUtf16(u"sSfi\u00DF\u1E9E\uFB01\u0130\u0131");
        QTest::newRow("greek and cyrillic") << QString::fromUtf16(u"\u03A3\u03C3\u03C2aS\u0416\u0436");
        QTest::newRow("surrogates, paired and alone") << QString::fromUtf16(u"aA\xD801\xDC00\xDC28\xD83A");
    }
    void theMatcherAgreesWithQtOnRandomTexts()
    {
        QFETCH(QString, letters);
        const std::u16string alphabet = letters.toStdU16String();
        std::mt19937 random(20);
        QStringList disagreements;

        for (int round = 0; round < 40000; ++round) {
            const QString needle = randomText(random, alphabet, 4);
            const QString haystack = randomText(random, alphabet, 40);
            TextMatcher matcher;
            matcher.setText(needle);
            if (matcher.matches(haystack) != haystack.contains(needle, Qt::CaseInsensitive))
                disagreements << needle + " in " + haystack;
        }

        QCOMPARE(disagreements, QStringList());
    }

    void theMatcherFindsItsTextAtEveryPlace()
    {
        TextMatcher matcher;
        matcher.setText("needle");
        QStringList missed;

        for (int before = 0; before < 40; ++before) {
            for (int after = 0; after < 20; ++after) {
                const QString haystack = QString(before, 'n') + "NeEdLe" + QString(after, 'e');
                if (!matcher.matches(haystack))
                    missed << haystack;
            }
        }

        QCOMPARE(missed, QStringList());
    }

    void theMatcherLooksNoFurtherThanTheText()
    {
        TextMatcher matcher;
        matcher.setText("needle");
        const QString longer = "0123456789needle";

        QVERIFY(!matcher.matches(QString::fromRawData(longer.constData(), longer.size() - 1)));
        QVERIFY(!matcher.matches(QString()));
    }
};

QTEST_GUILESS_MAIN(tst_TextPredicates)
#include "tst_text_predicates.moc"
