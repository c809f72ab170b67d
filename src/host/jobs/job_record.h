#pragma once

#include <host/jobs/async_manager.h>
#include <host/signals/signal.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <thread>
#include <vector>

namespace Ozy {

/// What the handles of one job share. But for the state all of it is guarded by the mutex of the job service.
struct JobRecord : std::enable_shared_from_this<JobRecord>
{
    using Pointer = std::shared_ptr<JobRecord>;
    using State = AsyncManager::Job::State;

    /// Somebody who hears of the states, and how many he has heard of.
    struct Watcher
    {
        ryk::Signal<void(State)> signal;
        std::size_t told = 0;
    };

    explicit JobRecord(AsyncManager::Task todo) : task(std::move(todo)) {}

    /// Its family are the job itself and the jobs that are added to it or to others of the family.
    bool familyHas(const JobRecord& job) const;
    /// Whether this job cannot end without that one: it is of the family, or a task of the family waits for
    /// it.
    bool needs(const JobRecord& job) const;
    /// Whether this job cannot end before a task that the calling thread is in.
    bool needsMe() const;
    /// Whether a task of the family waits until tasks that the calling thread is in have stopped.
    bool isStoppingMe() const;
    /// Whether none of the family's tasks is left, but for those that the calling thread is in, and for those
    /// that wait for such to stop.
    bool isQuiet() const;
    /// Whether the task still waits to be run.
    bool isPending() const { return hasTask && !isRunning; }
    bool runsHere() const { return isRunning && thread == std::this_thread::get_id(); }

    /// Whose tasks the calling thread is in, the innermost first.
    static JobRecord*& current();

    std::atomic<State> state{State::Queued};
    std::array<State, 3> states{}; ///< those since the start, in order
    std::size_t statesCount = 0;
    bool isCancelled = false;

    AsyncManager::Task task; ///< empty from when it runs
    bool hasTask = true;     ///< it runs, or is going to
    bool isRunning = false;
    std::thread::id thread;                ///< that runs it
    JobRecord* outer = nullptr;            ///< whose task the same thread was in
    const JobRecord* stopping = nullptr;   ///< the job that the task has cancelled and waits for
    std::vector<const JobRecord*> waiting; ///< the jobs whose tasks wait for this one

    std::vector<Pointer> added;   ///< that have not ended
    std::vector<Pointer> parents; ///< that this one is added to, until it ends
    std::vector<std::shared_ptr<Watcher>> watchers;
    bool isNewsPosted = false;
    std::condition_variable changed; ///< something of the family has
};

} // namespace Ozy
