// Four threads connect, disconnect, emit and destroy a handful of shared signals, from outside and from
// inside slots. Meant for the thread and address sanitizers; what it checks by itself: no functor is called
// after its destruction, all are destroyed, and the connections that are left at the end are called once
// each.
#include <host/signals/signal.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <latch>
#include <memory>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr int threadCount = 4;
constexpr int signalCount = 3;
constexpr int operationsPerThread = 250000;
constexpr int maximalDepth = 2;
constexpr std::size_t connectionsPerThread = 12;

using Signal = ryk::Signal<void(int)>;

std::atomic<long> faults{0};
std::atomic<long> functorsAlive{0};
std::atomic<long> calls{0};
std::atomic<long> destroyedSignals{0};

class Worker;
thread_local Worker* current = nullptr;

/// The signals that all threads share. A place gets a new signal when somebody throws the old one out.
class Board
{
public:
    std::shared_ptr<Signal> signal(int place)
    {
        const std::lock_guard lock(m_mutex);
        return m_signals[static_cast<std::size_t>(place)];
    }
    void renew(int place)
    {
        auto made = newSignal();
        const std::lock_guard lock(m_mutex);
        m_signals[static_cast<std::size_t>(place)].swap(made);
    }

private:
    static std::shared_ptr<Signal> newSignal()
    {
        return {new Signal, [](Signal* signal) {
                    ++destroyedSignals;
                    delete signal;
                }};
    }

    std::mutex m_mutex;
    std::array<std::shared_ptr<Signal>, signalCount> m_signals{newSignal(), newSignal(), newSignal()};
};

Board board;

/// A functor that knows whether it is alive.
class Slot
{
public:
    Slot() { ++functorsAlive; }
    Slot(const Slot& other) : m_life(other.m_life) { ++functorsAlive; }
    ~Slot()
    {
        m_life = 0;
        --functorsAlive;
    }
    Slot& operator=(const Slot&) = delete;

    void operator()(int depth) const;

private:
    static constexpr unsigned alive = 0x51075107;
    unsigned m_life = alive;
};

class Worker
{
public:
    explicit Worker(unsigned seed) : m_random(seed) {}

    void run()
    {
        current = this;
        for (m_left = operationsPerThread; m_left > 0;)
            operate(0);
        current = nullptr;
    }

    /// One random operation; inside a slot, with the depth of its emission.
    void operate(int depth)
    {
        if (--m_left < 0)
            return;
        const unsigned kind = random(1000);
        if (kind < 340)
            connect();
        else if (kind < 660)
            disconnect();
        else if (kind < 995)
            emit(depth);
        else
            board.renew(place());
    }

    /// What a slot does: goes on from inside, and now and then lets its own signal die under the running
    /// emission.
    void called(int depth)
    {
        const unsigned kind = random(8);
        if (kind == 0 && depth < maximalDepth)
            operate(depth + 1);
        else if (kind == 1 && m_emitted)
            m_emitted->reset();
    }

    std::vector<ryk::Connection>& connections() { return m_connections; }

private:
    unsigned random(unsigned end) { return static_cast<unsigned>(m_random() % end); }
    int place() { return static_cast<int>(random(signalCount)); }

    void connect()
    {
        if (m_connections.size() >= connectionsPerThread)
            disconnect();
        m_connections.push_back(board.signal(place())->connect(Slot(), static_cast<int>(random(2))));
    }

    void disconnect()
    {
        if (m_connections.empty())
            return;
        const std::size_t chosen = random(static_cast<unsigned>(m_connections.size()));
        const ryk::Connection connection = m_connections[chosen];
        m_connections[chosen] = m_connections.back();
        m_connections.pop_back();
        connection.disconnect();
        if (connection.isConnected())
            ++faults;
    }

    void emit(int depth)
    {
        std::shared_ptr<Signal> signal = board.signal(place());
        std::shared_ptr<Signal>* const outer = std::exchange(m_emitted, &signal);
        (*signal)(depth);
        m_emitted = outer;
    }

    std::minstd_rand m_random;
    int m_left = 0;
    std::vector<ryk::Connection> m_connections;
    std::shared_ptr<Signal>* m_emitted = nullptr;
};

void Slot::operator()(int depth) const
{
    ++calls;
    if (m_life != alive)
        ++faults;
    if (current)
        current->called(depth);
    if (m_life != alive)
        ++faults;
}

} // namespace

int main()
{
    std::vector<std::unique_ptr<Worker>> workers;
    std::vector<std::thread> threads;
    std::latch start(threadCount);
    for (unsigned i = 0; i < threadCount; ++i) {
        workers.push_back(std::make_unique<Worker>(i + 1));
        threads.emplace_back([&start, worker = workers.back().get()] {
            start.arrive_and_wait();
            worker->run();
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    long connected = 0;
    for (const auto& worker : workers) {
        for (const ryk::Connection& connection : worker->connections())
            connected += connection.isConnected() ? 1 : 0;
    }
    const long before = calls;
    for (int place = 0; place < signalCount; ++place)
        (*board.signal(place))(0);
    const long calledAtTheEnd = calls - before;
    const long destroyed = destroyedSignals;
    for (int place = 0; place < signalCount; ++place)
        board.renew(place);

    std::printf("%d operations, %ld calls, %ld signals destroyed, %ld slots connected at the end\n",
                threadCount * operationsPerThread, before, destroyed, connected);
    std::printf("faults %ld, called at the end %ld, functors left %ld\n", faults.load(), calledAtTheEnd,
                functorsAlive.load());
    const bool passed =
        faults == 0 && calledAtTheEnd == connected && functorsAlive == 0 && before > 0 && destroyed > 0;
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
}
