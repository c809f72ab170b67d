#include <host/jobs/job_service.h>

#include <host/base/debug.h>
#include <host/jobs/cpu_info.h>
#include <host/jobs/gui_receiver.h>

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace Ozy {
namespace {

// A few more than there are processors: one long walk must not hold up the short questions of others.
constexpr int fewestWorkers = 4;

void openWithApplication();
Q_COREAPP_STARTUP_FUNCTION(openWithApplication)

void openWithApplication()
{
    JobService::instance().open();
    qAddPostRoutine([] { JobService::instance().close(); });
}

} // namespace

JobService& JobService::instance()
{
    // Never destroyed, since workers and late handles may still ask for it; what has to end is ended.
    static JobService* const service = new JobService;
    static const struct Closing
    {
        ~Closing() { service->close(); }
    } closing;
    return *service;
}

JobService::JobService() : m_mostActive(std::max(fewestWorkers, CpuInfo::instance().processorCount())) {}

JobService::Pointer JobService::start(unsigned priority, Task task)
{
    auto job = std::make_shared<JobRecord>(std::move(task));
    Tasks dropped;
    const Lock lock(*this);
    if (m_isClosed) {
        cancelFamily(*job, dropped);
    } else {
        m_queued[priority].push_back(job);
        employWorker();
    }
    return job;
}

JobService::Pointer JobService::post(bool awaited, Task task)
{
    auto job = std::make_shared<JobRecord>(std::move(task));
    JobRecord* const caller = awaited ? JobRecord::current() : nullptr;
    Tasks dropped;
    const Lock lock(*this);
    if (m_isClosed || (caller && caller->isCancelled)) {
        cancelFamily(*job, dropped);
        return job;
    }
    if (caller) {
        caller->added.push_back(job);
        job->parents.push_back(caller->shared_from_this());
    }
    enqueueOnGuiThread({job});
    return job;
}

JobService::State JobService::wait(const Pointer& job)
{
    if (job->state == State::Ended)
        return State::Ended;
    Lock lock(*this);
    if (!job->needsMe())
        block(*job, lock, [&] { return job->state == State::Ended || job->isStoppingMe(); });
    return job->state;
}

/// Says of the tasks that the calling thread is in that they wait until a job has stopped, so that its tasks
/// do not wait for them.
class JobService::Stopping
{
public:
    Stopping(JobService& service, const JobRecord& job)
    {
        for (JobRecord* mine = JobRecord::current(); mine; mine = mine->outer) {
            m_before.emplace_back(mine, std::exchange(mine->stopping, &job));
            service.settle(*mine);
        }
    }
    ~Stopping()
    {
        for (const auto& [mine, before] : m_before)
            mine->stopping = before;
    }
    Q_DISABLE_COPY_MOVE(Stopping)

private:
    std::vector<std::pair<JobRecord*, const JobRecord*>> m_before;
};

void JobService::cancel(const Pointer& job, bool wait)
{
    Tasks dropped;
    Lock lock(*this);
    cancelFamily(*job, dropped);
    lock.unlock();
    dropped.clear();
    if (!wait)
        return;

    lock.lock();
    const Stopping stopping(*this, *job);
    block(*job, lock, [&] { return job->isQuiet(); });
}

void JobService::add(const Pointer& parent, const Pointer& added)
{
    Tasks dropped;
    Lock lock(*this);
    if (added->familyHas(*parent)) {
        lock.unlock();
        DebugMessageHelper(Priority::refusal, "datamodels")
            .message("Ozy::AsyncManager: a job cannot be added to itself\n");
        return;
    }
    if (parent->isCancelled)
        cancelFamily(*added, dropped);
    const auto& parents = added->parents;
    const bool isKnown = std::find(parents.begin(), parents.end(), parent) != parents.end();
    if (!isKnown && parent->state != State::Ended && added->state != State::Ended) {
        parent->added.push_back(added);
        added->parents.push_back(parent);
    }
    lock.unlock();
}

ryk::Connection JobService::watch(const Pointer& job, const std::function<void(State)>& watcher)
{
    const auto watch = std::make_shared<JobRecord::Watcher>();
    const ryk::Connection connection = watch->signal.connect(watcher);
    const Lock lock(*this);
    if (m_isClosed)
        return {};
    job->watchers.push_back(watch);
    if (job->statesCount > 0)
        postNews(*job);
    return connection;
}

void JobService::enqueueOnGuiThread(GuiEntry entry)
{
    m_guiQueue.push_back(std::move(entry));
    if (m_receiver && !std::exchange(m_isWakePosted, true))
        m_receiver->wake();
    m_guiCondition.notify_all();
}

void JobService::enter(JobRecord& job, State state)
{
    job.state = state;
    job.states[job.statesCount++] = state;
    if (!job.watchers.empty())
        postNews(job);
}

void JobService::postNews(JobRecord& job)
{
    if (m_isClosed) {
        m_unheard.insert(m_unheard.end(), job.watchers.begin(), job.watchers.end());
        job.watchers.clear();
    } else if (!std::exchange(job.isNewsPosted, true)) {
        enqueueOnGuiThread({job.shared_from_this(), true});
    }
}

/// The dropped tasks are for the caller to destroy without the lock.
void JobService::cancelFamily(JobRecord& job, Tasks& dropped)
{
    if (job.state == State::Ended)
        return;
    if (!std::exchange(job.isCancelled, true))
        enter(job, State::Cancelled);
    if (job.isPending()) {
        dropped.push_back(std::exchange(job.task, nullptr));
        job.hasTask = false;
    }
    const auto added = job.added; // each leaves the list when it ends
    for (const Pointer& each : added)
        cancelFamily(*each, dropped);
    settle(job);
}

void JobService::cancelWithParents(JobRecord& job, Tasks& dropped)
{
    const auto parents = job.parents;
    for (const Pointer& parent : parents)
        cancelWithParents(*parent, dropped);
    cancelFamily(job, dropped);
}

/// Ends the job if nothing of it is left, and tells all who wait for it or for what it is added to.
void JobService::settle(JobRecord& job)
{
    const bool hasEnded = !job.hasTask && job.added.empty() && job.state != State::Ended;
    if (hasEnded)
        enter(job, State::Ended);
    const auto parents = hasEnded ? std::exchange(job.parents, {}) : job.parents;
    for (const Pointer& parent : parents) {
        if (hasEnded)
            parent->added.erase(
                std::find(parent->added.begin(), parent->added.end(), job.shared_from_this()));
        settle(*parent);
    }
    m_changed.push_back(job.shared_from_this());
}

void JobService::open()
{
    const Lock lock(*this);
    m_isClosed = false;
    if (m_receiver)
        return;
    m_receiver = std::make_unique<GuiReceiver>(*this);
    m_isWakePosted = !m_guiQueue.empty();
    if (m_isWakePosted)
        m_receiver->wake();
}

void JobService::close()
{
    Lock lock(*this);
    m_isClosed = true;
    std::vector<Pointer> jobs;
    for (JobRecord* job : m_running)
        jobs.push_back(job->shared_from_this());
    for (const auto& [priority, queued] : m_queued)
        jobs.insert(jobs.end(), queued.begin(), queued.end());
    for (const GuiEntry& entry : m_guiQueue)
        jobs.push_back(entry.job);
    m_queued.clear();
    Tasks dropped;
    for (const Pointer& job : jobs)
        cancelWithParents(*job, dropped);
    auto workers = std::exchange(m_workers, {});
    m_workerCondition.notify_all();
    lock.unlock();

    dropped.clear();
    for (std::thread& worker : workers) {
        if (worker.get_id() == std::this_thread::get_id())
            worker.detach(); // a task has ended the program
        else
            worker.join();
    }

    lock.lock();
    const auto posted = std::exchange(m_guiQueue, {});
    const auto unheard = std::exchange(m_unheard, {});
    const auto receiver = std::move(m_receiver);
    lock.unlock();
}

} // namespace Ozy
