#include <support/comparison.h>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <limits>
#include <map>
#include <vector>

namespace bench {
namespace {

constexpr char separator = '|';

// As added: the runs themselves come in random order.
std::vector<std::string>& caseNames()
{
    static std::vector<std::string> names;
    return names;
}

/// Best round of each case, and its ratio to the first case of its job.
class RatioReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            const std::string& name = run.run_name.function_name;
            const auto best = m_best.try_emplace(name, std::numeric_limits<double>::max()).first;
            best->second = std::min(best->second, run.real_accumulated_time / static_cast<double>(run.iterations));
        }
    }

    void Finalize() override
    {
        std::string job;
        double peer = 0;
        for (const std::string& name : caseNames()) {
            if (m_best.count(name) == 0)
                continue; // filtered out on the command line
            const std::string itsJob = name.substr(0, name.find(separator));
            if (itsJob != job) {
                job = itsJob;
                peer = m_best[name];
                std::printf("\n%s\n", job.c_str());
            }
            std::printf("  %8.3f  %s\n", m_best[name] / peer, name.substr(job.size() + 1).c_str());
        }
    }

private:
    std::map<std::string, double> m_best;
};

} // namespace

Comparison& Comparison::add(const std::string& name, std::function<Timed()> prepare)
{
    return addQuantity(name, [prepare = std::move(prepare)] {
        const Timed timed = prepare();
        const auto start = std::chrono::steady_clock::now();
        timed();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    });
}

Comparison& Comparison::addPlain(const std::string& name, Timed timed)
{
    return add(name, [timed = std::move(timed)] { return timed; });
}

Comparison& Comparison::addQuantity(const std::string& name, std::function<double()> measure)
{
    const std::string fullName = m_job + separator + name;
    caseNames().push_back(fullName);
    benchmark::RegisterBenchmark(fullName.c_str(), [measure = std::move(measure)](benchmark::State& state) {
        for (auto _ : state)
            state.SetIterationTime(measure());
    })->UseManualTime()->Iterations(1);
    return *this;
}

int runAll(int argc, char** argv)
{
    // The registry runs its cases round by round only with this flag; what the caller gives comes later and wins.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::string repetitions = "--benchmark_repetitions=5";
    std::vector<char*> arguments{argv[0], interleave.data(), repetitions.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

void keep(long long value)
{
    benchmark::DoNotOptimize(value);
}

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

} // namespace bench
