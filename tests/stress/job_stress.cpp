// Jobs of every kind, started by the GUI thread and by two others, tied, waited for, cancelled at random
// moments from outside and from inside their own tasks, and left behind when the application goes. Meant for
// the thread and address sanitizers; what it checks by itself: no task of a job runs after `cancel(true)`,
// every job ends, and nothing that a task or a watcher holds is left at the end.
#include <host/base/debug.h>
#include <host/jobs/async_manager.h>

#include <QCoreApplication>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

using Ozy::AsyncManager;
using Job = AsyncManager::Job;

namespace {

constexpr int jobsPerThread = 5000;
constexpr std::size_t jobsKept = 8;

std::atomic<long> faults{0};
std::atomic<long> tasksRun{0};
std::atomic<long> tasksHeld{0};
std::atomic<long> cancelled{0};
std::atomic<long> thrown{0};
std::atomic<long> statesTold{0};

/// What all tasks of one job share.
struct Family
{
    std::atomic<bool> isStopped{false}; ///< `cancel(true)` has returned, outside of its tasks
    std::atomic<int> depth{0};
};
using FamilyPointer = std::shared_ptr<Family>;

/// Counts the tasks that exist, and looks for such as run too late.
class Held
{
public:
    explicit Held(FamilyPointer family) : m_family(std::move(family)) { ++tasksHeld; }
    Held(const Held& other) : m_family(other.m_family) { ++tasksHeld; }
    ~Held() { --tasksHeld; }
    Held& operator=(const Held&) = delete;

    void check() const
    {
        if (m_family->isStopped)
            ++faults;
    }
    const FamilyPointer& family() const { return m_family; }

private:
    FamilyPointer m_family;
};

unsigned random(unsigned end)
{
    thread_local std::minstd_rand engine(
        static_cast<unsigned>(std::hash<std::thread::id>()(std::this_thread::get_id())));
    return static_cast<unsigned>(engine() % end);
}

void linger()
{
    if (random(4) == 0)
        std::this_thread::sleep_for(std::chrono::microseconds(random(100)));
}

bool runGuiTask(const Job& job, const Held& held)
{
    held.check();
    ++tasksRun;
    linger();
    if (random(16) == 0)
        job.cancel(true);
    if (random(16) == 0) {
        ++thrown;
        throw std::runtime_error("gui task");
    }
    held.check();
    return true;
}

bool runTask(const Job& job, const Held& held)
{
    held.check();
    ++tasksRun;
    for (unsigned steps = random(4); steps > 0; --steps) {
        linger();
        const Held inner(held.family());
        switch (random(7)) {
        case 0:
            job += AsyncManager::sync(false, [inner](const Job& own) { return runGuiTask(own, inner); });
            break;
        case 1:
            AsyncManager::sync(true, [inner](const Job& own) { return runGuiTask(own, inner); }).wait();
            break;
        case 2: {
            const Job task =
                AsyncManager::sync(false, [inner](const Job& own) { return runGuiTask(own, inner); });
            job += task;
            task.wait();
            break;
        }
        case 3:
            if (held.family()->depth.fetch_add(1) < 4)
                job +=
                    AsyncManager::async(random(2), [inner](const Job& own) { return runTask(own, inner); });
            break;
        case 4:
            while (random(200) != 0 && job.state() != Job::Cancelled)
                std::this_thread::yield();
            break;
        case 5:
            if (random(8) == 0)
                job.cancel(true);
            break;
        default:
            if (random(8) == 0) {
                ++thrown;
                throw std::runtime_error("task");
            }
        }
        if (job.state() == Job::Cancelled)
            break;
    }
    held.check();
    return true;
}

struct Started
{
    Job job;
    FamilyPointer family;
};

Started startOne()
{
    const auto family = std::make_shared<Family>();
    const Held held(family);
    const Job job = random(4) == 0
                        ? AsyncManager::sync(false, [held](const Job& own) { return runGuiTask(own, held); })
                        : AsyncManager::async(0, [held](const Job& own) { return runTask(own, held); });
    if (random(3) == 0)
        job.connectStateChanged([held](Job::State) { ++statesTold; });
    return {job, family};
}

void stop(const Started& started)
{
    started.job.cancel(true);
    started.family->isStopped = true;
    ++cancelled;
    if (started.job.state() != Job::Ended)
        ++faults;
}

/// What a thread does that is in no task.
void run(const std::function<void()>& between)
{
    std::vector<Started> kept;
    for (int i = 0; i < jobsPerThread; ++i) {
        kept.push_back(startOne());
        between();
        if (kept.size() < jobsKept && random(3) != 0)
            continue;
        const std::size_t chosen = random(static_cast<unsigned>(kept.size()));
        switch (random(4)) {
        case 0:
            break; // nobody holds it any more
        case 1:
            if (kept[chosen].job.wait() != Job::Ended)
                ++faults;
            break;
        default:
            stop(kept[chosen]);
        }
        kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(chosen));
    }
}

} // namespace

int main(int argc, char** argv)
{
    Ozy::DebugMessageHelper::setSink([](const Ozy::DebugMessageHelper::Record&) {});
    std::optional<QCoreApplication> application;
    application.emplace(argc, argv);

    std::atomic<int> othersRunning{2};
    const auto runOther = [&othersRunning] {
        run(linger);
        --othersRunning;
    };
    std::thread first(runOther);
    std::thread second(runOther);
    run([] { QCoreApplication::processEvents(); });
    while (othersRunning > 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    first.join();
    second.join();

    std::vector<Started> left;
    for (int i = 0; i < 200; ++i)
        left.push_back(startOne());
    application.reset();
    for (const Started& started : left) {
        if (started.job.state() != Job::Ended)
            ++faults;
    }
    left.clear();

    std::printf("%ld tasks, %ld jobs cancelled, %ld exceptions, %ld states told\n", tasksRun.load(),
                cancelled.load(), thrown.load(), statesTold.load());
    std::printf("faults %ld, held at the end %ld\n", faults.load(), tasksHeld.load());
    const bool passed =
        faults == 0 && tasksHeld == 0 && tasksRun > 0 && cancelled > 0 && thrown > 0 && statesTold > 0;
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
}
