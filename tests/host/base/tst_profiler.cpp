#include <host/base/profiler.h>

#include <QtTest>

namespace {

QStringList calls;

void begin(const char* name)
{
    calls.append(QStringLiteral("begin %1").arg(name));
}
void end()
{
    calls.append("end");
}
void otherEnd()
{
    calls.append("other end");
}

} // namespace

using RYK::Profiler::g_hooks;
using RYK::Profiler::Scope;

class tst_Profiler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { calls.clear(); }
    void cleanup() { g_hooks = {}; }

    void atFirstNoHookIsInstalled()
    {
        QVERIFY(!g_hooks.begin);
        QVERIFY(!g_hooks.end);
    }

    void withoutHooksAScopeDoesNothing()
    {
        {
            const Scope scope("sort");
        }

        QCOMPARE(calls, QStringList());
    }

    void aScopeReportsItsBeginAndItsEnd()
    {
        g_hooks = {begin, end};

        {
            const Scope outer("filter");
            const Scope inner("sort");
        }

        QCOMPARE(calls, (QStringList{"begin filter", "begin sort", "end", "end"}));
    }

    void eitherHookMayBeMissing()
    {
        g_hooks = {begin, nullptr};
        {
            const Scope scope("filter");
        }
        g_hooks = {nullptr, end};
        {
            const Scope scope("sort");
        }

        QCOMPARE(calls, (QStringList{"begin filter", "end"}));
    }

    void aBlockEndsWithTheHookThatItBeganWith()
    {
        g_hooks = {begin, end};
        {
            const Scope scope("filter");
            g_hooks = {begin, otherEnd};
        }

        QCOMPARE(calls, (QStringList{"begin filter", "end"}));
    }

    void aBlockThatBeganWithoutHooksEndsWithoutThem()
    {
        {
            const Scope scope("filter");
            g_hooks = {begin, end};
        }

        QCOMPARE(calls, QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_Profiler)
#include "tst_profiler.moc"
