// Signals against boost::signals2, a Qt signal and a bare loop over functions: emission and connection.
#include <support/comparison.h>

#include <host/signals/signal.h>

#include <QObject>

#include <boost/signals2.hpp>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace bench;

namespace {

class Emitter : public QObject
{
    Q_OBJECT

public:
    void fire(int value) { Q_EMIT fired(value); }

Q_SIGNALS:
    void fired(int value);
};

long long sum = 0;
const auto slot = [](int value) { sum += value; };

struct FunctionList
{
    using Connection = int;

    int connect()
    {
        functions.emplace_back(slot);
        return 0;
    }
    void disconnect(int) { functions.pop_back(); }
    void emitValue(int value) const
    {
        for (const auto& function : functions)
            function(value);
    }

    std::vector<std::function<void(int)>> functions;
};

struct BoostSignal
{
    using Connection = boost::signals2::connection;

    Connection connect() { return signal.connect(slot); }
    void disconnect(const Connection& connection) { connection.disconnect(); }
    void emitValue(int value) { signal(value); }

    boost::signals2::signal<void(int)> signal;
};

struct QtSignal
{
    using Connection = QMetaObject::Connection;

    Connection connect() { return QObject::connect(&emitter, &Emitter::fired, &context, slot); }
    void disconnect(const Connection& connection) { QObject::disconnect(connection); }
    void emitValue(int value) { emitter.fire(value); }

    Emitter emitter;
    QObject context;
};

struct RykSignal
{
    using Connection = ryk::Connection;

    Connection connect() { return signal.connect(slot); }
    void disconnect(const Connection& connection) { connection.disconnect(); }
    void emitValue(int value) const { signal(value); }

    ryk::Signal<void(int)> signal;
};

template <class Signal>
auto emission(int slots)
{
    return [slots] {
        auto signal = std::make_shared<Signal>();
        for (int i = 0; i < slots; ++i)
            signal->connect();
        return [signal, emissions = 2000000 / (slots + 1)] {
            for (int i = 0; i < emissions; ++i)
                signal->emitValue(i);
            keep(sum);
        };
    };
}

template <class Signal>
auto connection(int slots)
{
    return [slots] {
        auto signal = std::make_shared<Signal>();
        auto connections = std::make_shared<std::vector<typename Signal::Connection>>();
        connections->reserve(static_cast<std::size_t>(slots));
        return [=, rounds = 200000 / slots] {
            for (int round = 0; round < rounds; ++round) {
                for (int i = 0; i < slots; ++i)
                    connections->push_back(signal->connect());
                for (const auto& made : *connections)
                    signal->disconnect(made);
                connections->clear();
            }
        };
    };
}

void compareEmissions(int slots)
{
    const std::string job = "emit to " + std::to_string(slots) + " slots, against ";
    Comparison(job + "boost::signals2")
        .add("boost::signals2", emission<BoostSignal>(slots))
        .add("loop over vector<std::function>", emission<FunctionList>(slots))
        .add("ryk::Signal", emission<RykSignal>(slots));
    Comparison(job + "Qt")
        .add("Qt signal, functor, direct", emission<QtSignal>(slots))
        .add("ryk::Signal", emission<RykSignal>(slots));
}

void compareConnections(int slots)
{
    const std::string job = "connect and disconnect " + std::to_string(slots) + " slots, against ";
    Comparison(job + "boost::signals2")
        .add("boost::signals2", connection<BoostSignal>(slots))
        .add("ryk::Signal", connection<RykSignal>(slots));
    Comparison(job + "Qt")
        .add("Qt connect, disconnect", connection<QtSignal>(slots))
        .add("ryk::Signal", connection<RykSignal>(slots));
}

} // namespace

int main(int argc, char** argv)
{
    // From the first thread on, the libraries' locks and counts are the ones of a program with threads.
    std::thread([] {}).join();

    for (const int slots : {0, 1, 10, 100})
        compareEmissions(slots);
    for (const int slots : {10, 100000})
        compareConnections(slots);
    Comparison("connect and disconnect 200000 times, by population")
        .add("ryk::Signal, 10 slots", connection<RykSignal>(10))
        .add("ryk::Signal, 100000 slots", connection<RykSignal>(100000));

    return runAll(argc, argv);
}

#include "signals.moc"
