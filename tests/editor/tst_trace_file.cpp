#include <trace_file.h>

#include <host/base/profiler.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>

using editor::TraceFile;
using RYK::Profiler::Scope;

namespace {

QJsonArray eventsIn(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object().value("traceEvents").toArray();
}

/// "B load", "E" and so on, of one thread or of all.
QStringList phases(const QJsonArray& events, int thread = 0)
{
    QStringList texts;
    for (const QJsonValue& event : events) {
        if (thread == 0 || event["tid"].toInt() == thread)
            texts << (event["ph"].toString() + ' ' + event["name"].toString()).trimmed();
    }
    return texts;
}

} // namespace

class tst_TraceFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scopesAreWrittenAsBeginningsAndEndsInTheirOrder()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("trace.json");

        {
            const TraceFile trace(path);
            const Scope outer("load");
            const Scope inner("sort \"names\"");
        }

        QCOMPARE(phases(eventsIn(path)), (QStringList{"B load", "B sort \"names\"", "E", "E"}));
    }

    void timesAreMicrosecondsFromTheFirstEventOn()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("trace.json");

        {
            const TraceFile trace(path);
            const Scope scope("wait");
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }

        const QJsonArray events = eventsIn(path);
        QCOMPARE(events[0]["ts"].toDouble(), 0.0);
        QVERIFY(events[1]["ts"].toDouble() >= 2000.0);
    }

    void eachThreadHasALineOfItsOwn()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("trace.json");

        {
            const TraceFile trace(path);
            const Scope here("gui");
            std::thread([] { const Scope there("worker"); }).join();
        }

        const QJsonArray events = eventsIn(path);
        QCOMPARE(phases(events), (QStringList{"B gui", "B worker", "E", "E"}));
        QCOMPARE(phases(events, events[0]["tid"].toInt()), (QStringList{"B gui", "E"}));
        QCOMPARE(phases(events, events[1]["tid"].toInt()), (QStringList{"B worker", "E"}));
    }

    void nothingIsRecordedAfterItsEnd()
    {
        QTemporaryDir folder;
        {
            const TraceFile trace(folder.filePath("first.json"));
        }

        {
            const Scope late("late");
        }
        {
            const TraceFile trace(folder.filePath("second.json"));
        }

        QCOMPARE(eventsIn(folder.filePath("second.json")), QJsonArray());
    }

    void anEmptyPathRecordsNothing()
    {
        const TraceFile trace{QString()};

        QCOMPARE(trace.error(), QString());
        QVERIFY(!RYK::Profiler::g_hooks.begin);
    }

    void aFileThatCannotBeOpenedIsToldAtOnce()
    {
        const TraceFile trace("/nowhere/trace.json");

        QCOMPARE(trace.error(), QString("No such file or directory"));
        QVERIFY(!RYK::Profiler::g_hooks.begin);
    }
};

QTEST_GUILESS_MAIN(tst_TraceFile)
#include "tst_trace_file.moc"
