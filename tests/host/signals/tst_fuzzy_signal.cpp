#include <host/signals/fuzzy_signal.h>

#include <QStringList>
#include <QtTest>

#include <type_traits>

using ryk::Connection;

namespace {

struct Owner
{
    int id = 0;
};

/// Knows an owner by itself, and would give another one by an implicit conversion.
struct Property
{
    QString name;
    Owner owner;
    operator Owner() const { return {-1}; }
};

struct OwnerOfProperty
{
    template <class To>
    requires std::is_same_v<To, Owner>
    static Owner convert(const Property& property) { return property.owner; }
};

using Signal = ryk::FuzzySignal<void(const Property&, int), OwnerOfProperty>;

template <class Functor>
constexpr bool isSlot = std::is_constructible_v<Signal::slot_type, Functor>;

static_assert(isSlot<void (*)()>);
static_assert(isSlot<void (*)(const Property&, int)>);
static_assert(isSlot<void (*)(Connection, Owner, long)>);
static_assert(!isSlot<void (*)(QString)>);
static_assert(!isSlot<void (*)(const Property&, int, int)>);
static_assert(!isSlot<int>);

QStringList calls;

void plainFunction(const Property& property)
{
    calls << "function " + property.name;
}

} // namespace

class tst_FuzzySignal : public QObject
{
    Q_OBJECT

    const Property property{"width", {7}};

private Q_SLOTS:
    void init() { calls.clear(); }

    void aSlotTakesAllArguments()
    {
        const Signal signal;
        signal.connect([](const Property& it, int flags) { calls << it.name + QString::number(flags); });

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"width3"}));
    }

    void aSlotTakesAPrefixOfTheArguments()
    {
        const Signal signal;
        signal.connect([](const Property& it) { calls << it.name; });
        signal.connect(&plainFunction);
        signal.connect([] { calls << "nothing"; });

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"width", "function width", "nothing"}));
    }

    void aSlotTakesTheConnectionInFront()
    {
        const Signal signal;
        signal.connect([](Connection connection, const Property& it, int flags) {
            calls << it.name + QString::number(flags);
            connection.disconnect();
        });
        signal.connect([](const Connection& connection) {
            calls << "connection alone";
            connection.disconnect();
        });

        signal(property, 3);
        signal(property, 4);

        QCOMPARE(calls, (QStringList{"width3", "connection alone"}));
    }

    void theConvertorComesBeforeImplicitConversions()
    {
        const Signal signal;
        signal.connect([](const Owner& owner) { calls << QString::number(owner.id); });
        signal.connect([](Connection, Owner owner, int) { calls << QString::number(owner.id); });

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"7", "7"}));
    }

    void implicitConversionsServeTheRest()
    {
        const Signal signal;
        signal.connect([](const Property&, double flags) { calls << QString::number(flags / 2); });

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"1.5"}));
    }

    void aGenericSlotTakesTheMostItCan()
    {
        const Signal signal;
        signal.connect([](const auto&... arguments) { calls << QString::number(sizeof...(arguments)); });
        signal.connect([](const auto& only) { calls << only.name; });

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"2", "width"}));
    }

    void aSlotMayKeepStateOfItsOwn()
    {
        const Signal signal;
        signal.connect([count = 0]() mutable { calls << QString::number(++count); });

        signal(property, 3);
        signal(property, 3);

        QCOMPARE(calls, (QStringList{"1", "2"}));
    }

    void aFunctionObjectThatIsStoredIsASlot()
    {
        const Signal signal;
        const std::function<void(const Property&)> stored = &plainFunction;
        signal.connect(stored);

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"function width"}));
    }

    void aSignalWithoutArgumentsGivesItsConnection()
    {
        const ryk::FuzzySignal<void()> signal;
        signal.connect([](Connection connection) {
            calls << "once";
            connection.disconnect();
        });

        signal();
        signal();

        QCOMPARE(calls, (QStringList{"once"}));
    }

    void disconnectingDestroysTheFunctor()
    {
        const Signal signal;
        const auto state = std::make_shared<int>();
        const Connection connection = signal.connect([state] {});
        QCOMPARE(state.use_count(), 2L);

        connection.disconnect();

        QCOMPARE(state.use_count(), 1L);
    }

    void lowerGroupsComeFirst()
    {
        const Signal signal;
        signal.connect([] { calls << "one"; }, 1);
        signal.connect([] { calls << "zero"; }, 0);

        signal(property, 3);

        QCOMPARE(calls, (QStringList{"zero", "one"}));
    }
};

QTEST_GUILESS_MAIN(tst_FuzzySignal)
#include "tst_fuzzy_signal.moc"
