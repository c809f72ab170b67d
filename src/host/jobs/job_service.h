#pragma once

#include <host/jobs/job_record.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Ozy {

class GuiReceiver;

/// The job service as the stand-alone host does it: worker threads that are made as they are needed and kept
/// until the application goes, and one event of the GUI thread for each of its tasks.
///
/// One mutex guards it all; it is never held while a task, a watcher or the destructor of either runs. A
/// worker that waits for a job does not count among those that may run at a time.
class JobService
{
public:
    using Pointer = JobRecord::Pointer;
    using Task = AsyncManager::Task;
    using State = JobRecord::State;

    static JobService& instance();

    Pointer start(unsigned priority, Task task);
    Pointer post(bool awaited, Task task);
    State wait(const Pointer& job);
    void cancel(const Pointer& job, bool wait);
    void add(const Pointer& parent, const Pointer& added);
    ryk::Connection watch(const Pointer& job, const std::function<void(State)>& watcher);

    /// Begins to serve the GUI thread of the present application.
    void open();
    /// Cancels everything, waits for the workers and drops what is posted.
    void close();
    /// Runs the next task of the GUI thread, or tells states of a job.
    void runOnGuiThread();

private:
    /// Wakes those who wait for changed jobs when it lets go, so that they do not run into it.
    class Lock : public std::unique_lock<std::mutex>
    {
    public:
        explicit Lock(JobService& service) : unique_lock(service.m_mutex), m_service(service) {}
        ~Lock()
        {
            if (owns_lock())
                unlock();
        }
        Q_DISABLE_COPY_MOVE(Lock)

        void unlock();
        void wait(std::condition_variable& condition);

    private:
        void notify(const std::vector<Pointer>& changed);

        JobService& m_service;
    };
    using Tasks = std::vector<Task>;

    /// Either the task of a job, or news of its states.
    struct GuiEntry
    {
        Pointer job;
        bool isNews = false;
    };

    class Stopping;

    JobService();

    void employWorker();
    void work();
    bool canWork() const;
    Pointer takeFirstQueued();
    GuiEntry takeFirstPosted();
    Pointer takeNeeded(JobRecord& job);
    void run(const Pointer& job, Lock& lock);
    void tellStates(const Pointer& job, Lock& lock);
    void block(JobRecord& job, Lock& lock, const std::function<bool()>& isOver);

    bool isGuiThread() const;
    void enqueueOnGuiThread(GuiEntry entry);
    void enter(JobRecord& job, State state);
    void postNews(JobRecord& job);
    void cancelFamily(JobRecord& job, Tasks& dropped);
    void cancelWithParents(JobRecord& job, Tasks& dropped);
    void settle(JobRecord& job);

    std::mutex m_mutex;
    bool m_isClosed = false;
    std::map<unsigned, std::deque<Pointer>, std::greater<>> m_queued;
    std::deque<GuiEntry> m_guiQueue;
    bool m_isWakePosted = false;
    std::vector<JobRecord*> m_running;
    std::vector<Pointer> m_changed;                             ///< whose waiters are still to be woken
    std::vector<std::shared_ptr<JobRecord::Watcher>> m_unheard; ///< of jobs that ended while closed
    std::unique_ptr<GuiReceiver> m_receiver;
    std::condition_variable m_guiCondition; ///< for the GUI thread while it waits for a job

    const int m_mostActive;
    int m_active = 0; ///< workers that run a task and do not wait
    int m_idle = 0;
    std::vector<std::thread> m_workers;
    std::condition_variable m_workerCondition;
};

} // namespace Ozy
