#pragma once

#include <host/base/host_export.h>
#include <host/signals/connection.h>

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace Ozy {

class JobService;
struct JobRecord;

/// The job service: work on worker threads, and tasks that these hand to the GUI thread.
///
/// The GUI thread is that of the application object. Its tasks run one an event, in the order in which they
/// were posted; they may be posted from any thread and before `exec()`, and wait while there is no
/// application. A task that throws ends its job and is logged. When the application goes, all jobs are
/// cancelled and the workers waited for; jobs that are started between then and the next application are
/// cancelled from the start.
class DATAMODELS_HOST_API AsyncManager
{
public:
    /// A handle on a job; copies refer to the same one, and without any the job goes on. Threads: any, but
    /// one object belongs to one thread at a time.
    ///
    /// A job ends when its task and all the jobs added to it have ended. A cancelled one is in state 3 until
    /// then: a task that runs is to look at `state()` and return, one that does not run yet is dropped. A
    /// task that waits for a job holds no worker meanwhile.
    class DATAMODELS_HOST_API Job
    {
    public:
        enum State
        {
            Idle = 0, ///< no job at all
            Queued = 1,
            Running = 2, ///< also while only added jobs run
            Cancelled = 3,
            Ended = 4
        };

        /// No job: idle for good, and all operations do nothing.
        Job() = default;

        /// At once, from any thread; costs a load.
        State state() const;
        static bool isFinalState(State state) { return state == Idle || state == Ended; }

        /// Blocks until the job has ended and gives its state. On the GUI thread those GUI tasks run
        /// meanwhile which the job cannot end without. Gives the state at once inside a task that the job
        /// cannot end without, and as soon as such a task starts to wait here for the caller's job to stop.
        State wait() const;

        /// Drops the tasks of the job, and of the jobs added to it, that do not run yet, and asks the others
        /// to stop; nothing when it has ended. With `wait` none of them runs after the call, but for tasks
        /// that the calling thread is in. May be called on the GUI thread while a worker waits for it, and
        /// from inside a task of the job.
        void cancel(bool wait) const;

        /// Adds a job: this one ends only when that has ended, and cancelling covers it. It is cancelled at
        /// once when this one is or was. Refused with a message when that would close a circle.
        void operator+=(Job added) const;

        /// Calls `watcher` on the GUI thread, from its event loop, with each state that the job gets, in
        /// order: those that it has already been in as well, so that none goes unheard. The watcher is
        /// dropped with the connection, after state 4, and with the application.
        ryk::Connection connectStateChanged(std::function<void(State)> watcher) const;

    private:
        friend class AsyncManager;
        friend class JobService;

        explicit Job(std::shared_ptr<JobRecord> record) : m_record(std::move(record)) {}

        std::shared_ptr<JobRecord> m_record;
    };

    using Task = std::function<bool(const Job&)>;

    /// Starts a task on a worker; of those that wait for one, the highest `priority` goes first. Tasks take
    /// the job or nothing; what they return tells nothing.
    template <class Function>
    static Job async(unsigned priority, Function task)
    {
        return start(priority, adapted(std::move(task)));
    }

    /// Posts a task to the GUI thread. `awaited` says that the calling task is going to wait for it: then it
    /// belongs to the caller's job from the start, so that cancelling that one releases the wait.
    template <class Function>
    static Job sync(bool awaited, Function task)
    {
        return post(awaited, adapted(std::move(task)));
    }

private:
    static Job start(unsigned priority, Task task);
    static Job post(bool awaited, Task task);

    template <class Function>
    static Task adapted(Function function)
    {
        return [function = std::move(function)](const Job& job) mutable {
            const auto call = [&] {
                if constexpr (std::is_invocable_v<Function&, const Job&>)
                    return function(job);
                else
                    return function();
            };
            if constexpr (std::is_void_v<decltype(call())>) {
                call();
                return true;
            } else {
                return static_cast<bool>(call());
            }
        };
    }
};

} // namespace Ozy
