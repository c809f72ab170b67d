#pragma once

#include <host/jobs/job_record.h>

#include <QRunnable>
#include <QThreadPool>

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace Ozy {

class GuiReceiver;

/// The job service as the stand-alone host does it: queues of its own, workers from a `QThreadPool`, and one
/// event of the GUI thread for each of its tasks.
///
/// One mutex guards it all; it is never held while a task, a watcher or the destructor of either runs. The
/// queues are not left to Qt so that tasks can be taken out of them, and so that the thread sanitizer sees
/// how they are handed over.
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
    using Lock = std::unique_lock<std::mutex>;
    using Tasks = std::vector<Task>;

    struct Worker : QRunnable
    {
        Worker() { setAutoDelete(false); }
        void run() override { JobService::instance().runOnWorker(); }
    };

    /// Either the task of a job, or news of its states.
    struct GuiEntry
    {
        Pointer job;
        bool isNews = false;
    };

    JobService();

    void runOnWorker();
    Pointer takeFirstQueued();
    GuiEntry takeFirstPosted();
    Pointer takeNeeded(JobRecord& job);
    void run(const Pointer& job, Lock& lock);
    void tellStates(const Pointer& job, Lock& lock);
    template <class Condition>
    void block(JobRecord& job, Lock& lock, Condition isOver);

    bool isGuiThread() const;
    void enqueueOnGuiThread(GuiEntry entry);
    void enter(JobRecord& job, State state);
    void postNews(JobRecord& job);
    static bool isNeededHere(const JobRecord& job);
    void releaseThoseWaitingForMe(const JobRecord& job);
    void cancelFamily(JobRecord& job, Tasks& dropped);
    void cancelWithParents(JobRecord& job, Tasks& dropped);
    void settle(JobRecord& job);

    std::mutex m_mutex;
    bool m_isClosed = false;
    std::map<unsigned, std::deque<Pointer>, std::greater<>> m_queued;
    std::deque<GuiEntry> m_guiQueue;
    bool m_isWakePosted = false;
    std::vector<JobRecord*> m_running;
    std::vector<std::shared_ptr<JobRecord::Watcher>> m_unheard; ///< of jobs that ended while closed
    std::unique_ptr<GuiReceiver> m_receiver;
    std::condition_variable m_guiCondition; ///< for the GUI thread while it waits for a job
    Worker m_worker;
    QThreadPool m_pool;
};

} // namespace Ozy
