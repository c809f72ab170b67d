#include <host/signals/signal.h>

#include <QStringList>
#include <QtTest>

#include <memory>
#include <stdexcept>
#include <type_traits>
#include <vector>

using ryk::Connection;
using ryk::InlineConnection;
using ryk::ScopedConnection;
using IntSignal = ryk::Signal<void(int)>;
using PlainSignal = ryk::Signal<void()>;

static_assert(sizeof(IntSignal) == sizeof(void*));
static_assert(sizeof(Connection) == sizeof(void*));
static_assert(sizeof(ScopedConnection) == sizeof(void*));
static_assert(sizeof(InlineConnection) == sizeof(void*));

static_assert(!std::is_copy_constructible_v<IntSignal> && !std::is_copy_assignable_v<IntSignal>);
static_assert(std::is_nothrow_move_constructible_v<IntSignal> && std::is_move_assignable_v<IntSignal>);
static_assert(std::is_nothrow_copy_constructible_v<Connection> &&
              std::is_nothrow_copy_assignable_v<Connection>);
static_assert(std::is_nothrow_move_constructible_v<Connection> &&
              std::is_nothrow_move_assignable_v<Connection>);
static_assert(!std::is_copy_constructible_v<ScopedConnection> &&
              !std::is_copy_assignable_v<ScopedConnection>);
static_assert(std::is_nothrow_move_constructible_v<ScopedConnection> &&
              std::is_move_assignable_v<ScopedConnection>);
static_assert(!std::is_copy_constructible_v<InlineConnection> &&
              !std::is_move_constructible_v<InlineConnection>);

namespace {

/// Tells in a log when the last copy of it dies.
std::shared_ptr<void> deathNote(QStringList& log, const QString& text)
{
    return {nullptr, [&log, text](void*) { log << text; }};
}

} // namespace

class tst_Signal : public QObject
{
    Q_OBJECT

    QStringList log;

    std::function<void()> logs(const QString& text)
    {
        return [this, text] { log << text; };
    }

private Q_SLOTS:
    void init() { log.clear(); }

    void aSignalWithoutConnectionsDoesNothing()
    {
        const PlainSignal signal;

        signal();

        QVERIFY(log.empty());
    }

    void slotsAreCalledInTheOrderOfTheirConnection()
    {
        const PlainSignal signal;
        signal.connect(logs("first"));
        signal.connect(logs("second"));
        signal.connect(logs("third"));

        signal();

        QCOMPARE(log, (QStringList{"first", "second", "third"}));
    }

    void lowerGroupsComeFirst()
    {
        const PlainSignal signal;
        signal.connect(logs("one"), 1);
        signal.connect(logs("zero"));
        signal.connect(logs("minus"), -1);
        signal.connect(logs("other one"), 1);
        signal.connect(logs("other zero"));

        signal();

        QCOMPARE(log, (QStringList{"minus", "zero", "other zero", "one", "other one"}));
    }

    void argumentsReachEverySlot()
    {
        const ryk::Signal<void(const QString&, std::vector<int>)> signal;
        const auto slot = [this](const QString& text, std::vector<int> numbers) {
            log << text + QString::number(numbers.size());
        };
        signal.connect(slot);
        signal.connect(slot);

        signal("numbers: ", {1, 2, 3});

        QCOMPARE(log, (QStringList{"numbers: 3", "numbers: 3"}));
    }

    void aReferenceCarriesAnAnswerBack()
    {
        const ryk::Signal<void(int&)> signal;
        signal.connect([](int& sum) { sum += 2; });
        signal.connect([](int& sum) { sum += 3; });
        int sum = 0;

        signal(sum);

        QCOMPARE(sum, 5);
    }

    void aDisconnectedSlotIsNotCalled()
    {
        const PlainSignal signal;
        const Connection connection = signal.connect(logs("slot"));

        connection.disconnect();
        signal();

        QVERIFY(log.empty());
        QVERIFY(!connection.isConnected());
    }

    void anyCopyOfAConnectionDisconnectsItsSlot()
    {
        const PlainSignal signal;
        const Connection connection = signal.connect(logs("slot"));
        const Connection copy = connection;

        copy.disconnect();

        QVERIFY(!connection.isConnected());
    }

    void aConnectionThatDiesLeavesItsSlotConnected()
    {
        const PlainSignal signal;
        {
            const Connection connection = signal.connect(logs("slot"));
        }

        signal();

        QCOMPARE(log, (QStringList{"slot"}));
    }

    void disconnectingTwiceDoesNothingFurther()
    {
        const PlainSignal signal;
        const Connection connection = signal.connect(logs("slot"));
        connection.disconnect();
        signal.connect(logs("other"));

        connection.disconnect();
        signal();

        QCOMPARE(log, (QStringList{"other"}));
    }

    void anEmptyConnectionIsDead()
    {
        const Connection connection;

        connection.disconnect();

        QVERIFY(!connection.isConnected());
    }

    void disconnectingDestroysTheFunctorAtOnce()
    {
        const PlainSignal signal;
        const Connection connection = signal.connect([note = deathNote(log, "functor gone")] {});

        connection.disconnect();

        QCOMPARE(log, (QStringList{"functor gone"}));
    }

    void aSlotThatDisconnectsItselfKeepsItsStateUntilItReturns()
    {
        const PlainSignal signal;
        Connection connection;
        connection = signal.connect([this, &connection, note = deathNote(log, "functor gone")] {
            connection.disconnect();
            log << "still here";
        });

        signal();
        signal();

        QCOMPARE(log, (QStringList{"still here", "functor gone"}));
    }

    void aSlotConnectedDuringAnEmissionWaitsForTheNext()
    {
        const PlainSignal signal;
        Connection connection;
        connection = signal.connect([&] {
            log << "connecting";
            connection.disconnect();
            signal.connect(logs("new"));
        });

        signal();
        QCOMPARE(log, (QStringList{"connecting"}));
        signal();

        QCOMPARE(log, (QStringList{"connecting", "new"}));
    }

    void aSlotDisconnectedDuringAnEmissionIsNotCalledAnyMore()
    {
        const PlainSignal signal;
        Connection later;
        signal.connect([&later] { later.disconnect(); });
        later = signal.connect(logs("later"));
        signal.connect(logs("last"));

        signal();

        QCOMPARE(log, (QStringList{"last"}));
    }

    void aSlotDisconnectedByTheDeathOfTheOneBeforeIsNotCalled()
    {
        const PlainSignal signal;
        Connection first;
        Connection later;
        const std::shared_ptr<void> note(nullptr, [&later](void*) { later.disconnect(); });
        first = signal.connect([&first, note] { first.disconnect(); });
        const_cast<std::shared_ptr<void>&>(note).reset();
        later = signal.connect(logs("later"));

        signal();

        QVERIFY(log.empty());
    }

    void anEmissionGoesOnAfterItsNeighboursAreGone()
    {
        const PlainSignal signal;
        Connection before;
        Connection self;
        Connection after;
        before = signal.connect(logs("before"));
        self = signal.connect([&] {
            before.disconnect();
            self.disconnect();
            after.disconnect();
        });
        after = signal.connect(logs("after"));
        signal.connect(logs("last"));

        signal();

        QCOMPARE(log, (QStringList{"before", "last"}));
    }

    void aNestedEmissionCallsAllSlotsAnew()
    {
        const IntSignal signal;
        signal.connect([&](int depth) {
            log << QString("first %1").arg(depth);
            if (depth == 0)
                signal(1);
        });
        signal.connect([&](int depth) { log << QString("second %1").arg(depth); });

        signal(0);

        QCOMPARE(log, (QStringList{"first 0", "first 1", "second 1", "second 0"}));
    }

    // It carries the number of the inner emission, so only that one skips it.
    void aSlotConnectedInANestedEmissionIsCalledByTheOuterOne()
    {
        const IntSignal signal;
        signal.connect([&](int depth) {
            if (depth == 0)
                signal(1);
            else
                signal.connect([&](int seen) { log << QString("new %1").arg(seen); });
        });

        signal(0);

        QCOMPARE(log, (QStringList{"new 0"}));
    }

    void aSlotMayDisconnectItselfInANestedEmission()
    {
        const IntSignal signal;
        Connection connection;
        connection = signal.connect([&](int depth) {
            log << QString("slot %1").arg(depth);
            if (depth == 0)
                signal(1);
            else
                connection.disconnect();
            log << QString("end %1").arg(depth);
        });

        signal(0);
        signal(0);

        QCOMPARE(log, (QStringList{"slot 0", "slot 1", "end 1", "end 0"}));
    }

    void aConnectionOutlivesItsSignal()
    {
        auto signal = std::make_unique<PlainSignal>();
        const Connection connection = signal->connect([note = deathNote(log, "functor gone")] {});

        signal.reset();
        QCOMPARE(log, (QStringList{"functor gone"}));
        QVERIFY(!connection.isConnected());
        connection.disconnect();

        QCOMPARE(log.size(), 1);
    }

    void aSlotMayDestroyTheSignal()
    {
        auto signal = std::make_unique<PlainSignal>();
        signal->connect([&, note = deathNote(log, "functor gone")] {
            signal.reset();
            log << "signal gone";
        });
        signal->connect(logs("later"));

        (*signal)();

        QCOMPARE(log, (QStringList{"signal gone", "functor gone"}));
    }

    void aSlotMayDestroyTheSignalInANestedEmission()
    {
        auto signal = std::make_unique<IntSignal>();
        signal->connect([&](int depth) {
            if (depth == 0)
                (*signal)(1);
            else
                signal.reset();
            log << QString("end %1").arg(depth);
        });
        signal->connect([&](int depth) { log << QString("later %1").arg(depth); });

        (*signal)(0);

        QCOMPARE(log, (QStringList{"end 1", "end 0"}));
    }

    void aFunctorMayUseTheSignalWhileItDies()
    {
        const PlainSignal signal;
        const std::shared_ptr<void> reconnect(nullptr,
                                              [&](void*) { signal.connect(logs("from the grave")); });
        const Connection connection = signal.connect([reconnect] {});
        const_cast<std::shared_ptr<void>&>(reconnect).reset();

        connection.disconnect();
        signal();

        QCOMPARE(log, (QStringList{"from the grave"}));
    }

    void aFunctorMayDestroyTheSignalWhileItDies()
    {
        auto signal = std::make_unique<PlainSignal>();
        std::shared_ptr<void> destroys(nullptr, [&](void*) { signal.reset(); });
        const Connection connection = signal->connect([destroys] {});
        destroys.reset();

        connection.disconnect();

        QVERIFY(!signal);
    }

    void aFunctorMayOwnItsOwnConnection()
    {
        const PlainSignal signal;
        auto own = std::make_shared<ScopedConnection>();
        *own = signal.connect([own, note = deathNote(log, "functor gone")] {});
        ScopedConnection* alias = own.get();
        own.reset();

        alias->disconnect();

        QCOMPARE(log, (QStringList{"functor gone"}));
    }

    void anExceptionOfASlotReachesTheEmitterAndLeavesTheSignalInOrder()
    {
        const PlainSignal signal;
        Connection connection;
        connection = signal.connect([&] {
            connection.disconnect();
            throw std::runtime_error("slot");
        });
        signal.connect(logs("later"));

        QVERIFY_EXCEPTION_THROWN(signal(), std::runtime_error);
        signal();

        QCOMPARE(log, (QStringList{"later"}));
        QVERIFY(!connection.isConnected());
    }

    void aMovedSignalTakesItsSlotsAlong()
    {
        PlainSignal from;
        const Connection connection = from.connect(logs("slot"));

        const PlainSignal to = std::move(from);
        to();

        QCOMPARE(log, (QStringList{"slot"}));
        QVERIFY(connection.isConnected());
    }

    void aSignalThatIsAssignedToLetsItsSlotsGo()
    {
        PlainSignal from;
        PlainSignal to;
        const Connection kept = from.connect(logs("kept"));
        const Connection dropped = to.connect(logs("dropped"));

        to = std::move(from);
        to();

        QCOMPARE(log, (QStringList{"kept"}));
        QVERIFY(kept.isConnected());
        QVERIFY(!dropped.isConnected());
    }

    void aScopedConnectionEndsWithItsScope()
    {
        const PlainSignal signal;
        {
            const ScopedConnection connection = signal.connect(logs("slot"));
            signal();
        }

        signal();

        QCOMPARE(log, (QStringList{"slot"}));
    }

    void aScopedConnectionFirstDisconnectsWhatItHad()
    {
        const PlainSignal signal;
        ScopedConnection connection = signal.connect(logs("old"));

        connection = signal.connect(logs("new"));
        signal();

        QCOMPARE(log, (QStringList{"new"}));
    }

    void aScopedConnectionMovesItsSlot()
    {
        const PlainSignal signal;
        ScopedConnection from = signal.connect(logs("slot"));
        ScopedConnection to = std::move(from);
        ScopedConnection& same = to;

        to = std::move(same);
        signal();

        QCOMPARE(log, (QStringList{"slot"}));
        QVERIFY(to.isConnected());
    }

    void connectionsAreKeptInAVector()
    {
        const PlainSignal signal;
        std::vector<ScopedConnection> connections;
        connections.push_back(signal.connect(logs("first")));
        connections.push_back(signal.connect(logs("second")));

        connections.erase(connections.begin());
        signal();

        QCOMPARE(log, (QStringList{"second"}));
    }

    void anInlineConnectionIsGivenOneSlotAfterAnother()
    {
        const PlainSignal signal;
        {
            InlineConnection connection;
            connection = signal.connect(logs("old"));
            connection = signal.connect(logs("new"));
            signal();
        }
        signal();

        QCOMPARE(log, (QStringList{"new"}));
    }
};

QTEST_GUILESS_MAIN(tst_Signal)
#include "tst_signal.moc"
