#include <host/base/debug.h>
#include <host/base/stack_tracker.h>

#include <support/log_capture.h>

#include <QtTest>

using Ozy::DebugMessageHelper;

class tst_Debug : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFailedAssertionIsOneCriticalRecordWithItsConditionAndPlace()
    {
        LogCapture log;

        const int line = __LINE__ + 1;
        OZY_ASSERT(1 + 1 == 3);

        QCOMPARE(log.records().size(), std::size_t(1));
        QCOMPARE(log.records()[0].text, std::string("ASSERTION FAILED: 1 + 1 == 3\r\n"));
        QCOMPARE(log.records()[0].priority, 6);
        QCOMPARE(log.records()[0].line, line);
        QVERIFY(QByteArray(log.records()[0].file).endsWith("tst_debug.cpp"));
    }

    void anAssertionHasTheValueOfItsCondition()
    {
        LogCapture log;

        QCOMPARE(OZY_ASSERT(true), true);
        QCOMPARE(OZY_ASSERT(false), false);
    }

    void anAssertionThatHoldsLogsNothing()
    {
        LogCapture log;

        OZY_ASSERT(true);

        QVERIFY(log.records().empty());
    }

    void aConditionWithACommaIsOneCondition()
    {
        LogCapture log;

        OZY_ASSERT(std::is_same_v<int, long>);

        QCOMPARE(log.records()[0].text, std::string("ASSERTION FAILED: std::is_same_v<int, long>\r\n"));
    }

    void anAssertionCarriesItsExtraTextBesideTheCondition()
    {
        LogCapture log;

        OZY_ASSERT_DETAIL("unknown type", false);

        QCOMPARE(log.records()[0].text, std::string("ASSERTION FAILED: false\r\n"));
        QCOMPARE(log.records()[0].detail, std::string("unknown type"));
    }

    void aMessageEndsInExactlyOneLineBreak()
    {
        LogCapture log;

        DebugMessageHelper(4, "datamodels").message("%d rows", 3);
        DebugMessageHelper(4, "datamodels").message("%d rows\n", 3);

        QCOMPARE(log.records()[0].text, std::string("3 rows\n"));
        QCOMPARE(log.records()[1].text, std::string("3 rows\n"));
    }

    void criticalMessagesReachQtsLogWithTheEntriesOfTheThread()
    {
        const Ozy::StackTracker::Scope outer("Editor::open");
        const Ozy::StackTracker::Scope inner("Model::reset");
        QTest::ignoreMessage(QtCriticalMsg,
                             QRegularExpression("broken\n.*\n  in Model::reset .*\n  in Editor::open .*"));

        DebugMessageHelper(6, "datamodels").message("broken");
    }

    void warningsReachQtsLogAsWarnings()
    {
        QTest::ignoreMessage(QtWarningMsg, "refused");

        DebugMessageHelper(5, "datamodels").message("refused\n");
    }
};

QTEST_GUILESS_MAIN(tst_Debug)
#include "tst_debug.moc"
