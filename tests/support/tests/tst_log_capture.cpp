#include <support/log_capture.h>

#include <QtTest>

#include <thread>

using Ozy::DebugMessageHelper;

using Act = std::function<void()>;
Q_DECLARE_METATYPE(Act)

class tst_LogCapture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void assertionsAreTheirConditions()
    {
        LogCapture log;

        OZY_ASSERT(1 > 2);
        OZY_ASSERT_DETAIL("unknown type", false);

        QCOMPARE(log.assertions(), (QStringList{"1 > 2", "false (unknown type)"}));
    }

    void messagesStandWithTheirPriority()
    {
        LogCapture log;

        DebugMessageHelper(5, "datamodels").message("refused %s\n", "tile");
        DebugMessageHelper(1, "datamodels").message("done");

        QCOMPARE(log.messages(), (QStringList{"5 refused tile", "1 done"}));
    }

    void assertionsAndMessagesAreApart()
    {
        LogCapture log;

        OZY_ASSERT(false);
        DebugMessageHelper(6, "datamodels").message("broken");

        QCOMPARE(log.assertions(), QStringList{"false"});
        QCOMPARE(log.messages(), QStringList{"6 broken"});
    }

    void qtsMessagesStandWithTheirKind()
    {
        LogCapture log;

        qDebug("loaded");
        qWarning("odd");
        qCritical("broken");

        QCOMPARE(log.qtMessages(), (QStringList{"debug loaded", "warning odd", "critical broken"}));
    }

    void recordsHaveThePlaceAndTheExactText()
    {
        LogCapture log;

        DebugMessageHelper(4, "datamodels", "a.cpp", 12).message("no predicate");

        QCOMPARE(log.records().size(), std::size_t(1));
        QCOMPARE(log.records()[0].text, std::string("no predicate\n"));
        QCOMPARE(log.records()[0].file, "a.cpp");
        QCOMPARE(log.records()[0].line, 12);
    }

    void clearForgets()
    {
        LogCapture log;
        OZY_ASSERT(false);
        qWarning("odd");

        log.clear();

        QCOMPARE(log.assertions(), QStringList());
        QCOMPARE(log.qtMessages(), QStringList());
        QVERIFY(log.records().empty());
    }

    void messagesOfManyThreadsAreAllThere()
    {
        LogCapture log;
        const auto work = [] {
            for (int i = 0; i < 500; ++i) {
                DebugMessageHelper(1, "datamodels").message("step");
                qDebug("step");
            }
        };

        std::thread first(work);
        std::thread second(work);
        first.join();
        second.join();

        QCOMPARE(log.messages().size(), 1000);
        QCOMPARE(log.qtMessages().size(), 1000);
    }

    void theInnermostCaptureGetsTheMessages()
    {
        LogCapture outer;
        {
            LogCapture inner;
            OZY_ASSERT(1 == 2);
            QCOMPARE(inner.assertions(), QStringList{"1 == 2"});
        }
        OZY_ASSERT(3 == 4);
        qWarning("outer");

        QCOMPARE(outer.assertions(), QStringList{"3 == 4"});
        QCOMPARE(outer.qtMessages(), QStringList{"warning outer"});
    }

    void afterwardsTheLogIsTheOldOne()
    {
        {
            LogCapture log;
        }
        QTest::ignoreMessage(QtWarningMsg, "refused");
        QTest::ignoreMessage(QtWarningMsg, "odd");

        DebugMessageHelper(5, "datamodels").message("refused");
        qWarning("odd");
    }

    void whatIsNotReadFailsTheTestThatAskedForIt_data()
    {
        QTest::addColumn<Act>("act");

        QTest::newRow("assertion") << Act([] { OZY_ASSERT(false); });
        QTest::newRow("message") << Act([] { DebugMessageHelper(4, "datamodels").message("no predicate"); });
        QTest::newRow("Qt") << Act([] { qWarning("odd"); });
    }

    void whatIsNotReadFailsTheTestThatAskedForIt()
    {
        QFETCH(Act, act);

        // An expected failure that does not come is a failure itself.
        QEXPECT_FAIL("", "logged, and not read", Continue);
        LogCapture log(LogCapture::FailOnRest);
        act();
    }

    void whatWasReadDoesNotFailTheTest()
    {
        LogCapture log(LogCapture::FailOnRest);
        OZY_ASSERT(false);
        DebugMessageHelper(4, "datamodels").message("no predicate");
        qWarning("odd");

        QCOMPARE(log.assertions(), QStringList{"false"});
        QCOMPARE(log.messages(), QStringList{"4 no predicate"});
        QCOMPARE(log.qtMessages(), QStringList{"warning odd"});
    }

    void progressNeedNotBeRead()
    {
        LogCapture log(LogCapture::FailOnRest);

        DebugMessageHelper(1, "datamodels").message("reading");
    }

    void readingOneKindDoesNotExcuseAnother()
    {
        LogCapture log(LogCapture::FailOnRest);
        OZY_ASSERT(false);

        QCOMPARE(log.messages(), QStringList());
        QEXPECT_FAIL("", "logged, and not read", Continue);
    }
};

QTEST_GUILESS_MAIN(tst_LogCapture)
#include "tst_log_capture.moc"
