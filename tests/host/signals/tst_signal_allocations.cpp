#include "../allocation_count.h"

#include <host/signals/fuzzy_signal.h>

#include <QtTest>

#include <optional>
#include <string>

/// A program of its own, since it counts what the whole of it allocates.
class tst_SignalAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCountSeesAnAllocation()
    {
        const AllocationCount count;

        ::operator delete(::operator new(16));

        QCOMPARE(count.taken(), 1);
    }

    void anUnconnectedSignalAllocatesNothing()
    {
        const AllocationCount count;

        std::optional<ryk::Signal<void(int)>> signal(std::in_place);
        (*signal)(1);
        signal.reset();

        QCOMPARE(count.taken(), 0);
    }

    void anEmissionAllocatesNothing()
    {
        const ryk::Signal<void(int, const std::string&)> signal;
        int sum = 0;
        signal.connect([&sum](int number, const std::string&) { sum += number; });
        signal.connect([&sum](int number, const std::string&) { sum += number; });
        const std::string text(100, 'x');
        const AllocationCount count;

        signal(1, text);

        QCOMPARE(count.taken(), 0);
        QCOMPARE(sum, 2);
    }

    void aNestedEmissionThatDisconnectsAllocatesNothing()
    {
        const ryk::Signal<void(int)> signal;
        ryk::Connection later;
        signal.connect([&](int depth) {
            if (depth == 0)
                signal(1);
            later.disconnect();
        });
        later = signal.connect([](int) {});
        const AllocationCount count;

        signal(0);

        QCOMPARE(count.taken(), 0);
    }

    void aFuzzyEmissionAllocatesNothing()
    {
        const ryk::FuzzySignal<void(const std::string&, int)> signal;
        std::size_t length = 0;
        signal.connect([&length](const std::string& text) { length += text.size(); });
        signal.connect([&length](ryk::Connection, const std::string& text, int) { length += text.size(); });
        const std::string text(100, 'x');
        const AllocationCount count;

        signal(text, 1);

        QCOMPARE(count.taken(), 0);
        QCOMPARE(length, std::size_t(200));
    }

    void aConnectionAllocatesItsSlotAndNothingElse()
    {
        const ryk::Signal<void(int)> signal;
        signal.connect([](int) {});
        const AllocationCount count;

        const ryk::ScopedConnection connection = signal.connect([](int) {});

        QCOMPARE(count.taken(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_SignalAllocations)
#include "tst_signal_allocations.moc"
