#include <host/registry/static_registrar.h>

#include <QtTest>

#include <stdexcept>
#include <thread>

using StaticRegistrar::RegistrarInternals;

namespace {

QStringList calls;

void addCall(const char* name)
{
    RegistrarInternals::addDeferredRegistration([name] { calls.append(name); });
}

} // namespace

class tst_StaticRegistrar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { calls.clear(); }

    void aFunctionWaitsUntilTheQueueIsRun()
    {
        addCall("a");
        QCOMPARE(calls, QStringList());

        RegistrarInternals::runDeferred();
        QCOMPARE(calls, QStringList{"a"});
    }

    void functionsRunInTheOrderInWhichTheyCame()
    {
        addCall("a");
        addCall("b");
        addCall("c");

        RegistrarInternals::runDeferred();

        QCOMPARE(calls, (QStringList{"a", "b", "c"}));
    }

    void aFunctionRunsOnce()
    {
        addCall("a");
        RegistrarInternals::runDeferred();

        RegistrarInternals::runDeferred();

        QCOMPARE(calls, QStringList{"a"});
    }

    void whatAFunctionAddsRunsBehindTheOthers()
    {
        RegistrarInternals::addDeferredRegistration([] { addCall("added"); });
        addCall("b");

        RegistrarInternals::runDeferred();

        QCOMPARE(calls, (QStringList{"b", "added"}));
    }

    void anEmptyFunctionIsDropped()
    {
        RegistrarInternals::addDeferredRegistration({});
        addCall("a");

        RegistrarInternals::runDeferred();

        QCOMPARE(calls, QStringList{"a"});
    }

    void anExceptionLeavesTheLaterFunctionsWaiting()
    {
        addCall("a");
        RegistrarInternals::addDeferredRegistration([] { throw std::runtime_error("broken"); });
        addCall("b");
        QVERIFY_EXCEPTION_THROWN(RegistrarInternals::runDeferred(), std::runtime_error);
        QCOMPARE(calls, QStringList{"a"});

        RegistrarInternals::runDeferred();
        QCOMPARE(calls, (QStringList{"a", "b"}));
    }

    void functionsOfSeveralThreadsAreAllKept()
    {
        const auto addMany = [] {
            for (int i = 0; i < 500; ++i)
                addCall("a");
        };
        std::thread first(addMany);
        std::thread second(addMany);
        first.join();
        second.join();

        RegistrarInternals::runDeferred();

        QCOMPARE(calls.size(), 1000);
    }
};

QTEST_GUILESS_MAIN(tst_StaticRegistrar)
#include "tst_static_registrar.moc"
