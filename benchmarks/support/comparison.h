#pragma once

#include <functional>
#include <string>

namespace bench {

/// Several ways to do one job, measured in turn in one process; the first one added is the peer that the others are
/// compared with. `runAll` prints a table of ratios, since bare times say more about the machine than about the code.
class Comparison
{
public:
    using Timed = std::function<void()>;

    explicit Comparison(std::string job) : m_job(std::move(job)) {}

    /// `prepare` makes what is timed, anew for each round; neither it nor the destruction of what it made counts.
    Comparison& add(const std::string& name, std::function<Timed()> prepare);
    /// For a job without preparation.
    Comparison& addPlain(const std::string& name, Timed timed);
    /// For a quantity other than time, for instance bytes.
    Comparison& addQuantity(const std::string& name, std::function<double()> measure);

private:
    std::string m_job;
};

/// Runs what was added, best of five interleaved rounds unless the command line says otherwise, and prints the ratios.
int runAll(int argc, char** argv);

/// Keeps the compiler from dropping a computation.
void keep(long long value);

/// Bytes of the heap in use.
double heapBytes();

} // namespace bench
