#include <host/jobs/job_service.h>

#include <host/base/debug.h>
#include <host/jobs/cpu_info.h>
#include <host/jobs/gui_receiver.h>

#include <QCoreApplication>

#include <algorithm>
#include <exception>
#include <utility>

namespace Ozy {
namespace {

// A few more than there are processors: one long walk must not hold up the short questions of others.
constexpr int fewestWorkers = 4;

/// What the thread is in.
struct Here
{
    JobRecord* job = nullptr;
    bool isWorker = false;
};
thread_local Here here;

void openWithApplication();
Q_COREAPP_STARTUP_FUNCTION(openWithApplication)

void openWithApplication()
{
    JobService::instance().open();
    qAddPostRoutine([] { JobService::instance().close(); });
}

template <class Function>
void guarded(const char* what, Function function)
{
    std::string reason;
    try {
        function();
        return;
    } catch (const std::exception& exception) {
        reason = exception.what();
    } catch (...) {
        reason = "of unknown type";
    }
    DebugMessageHelper(Priority::structural, "datamodels")
        .message("Ozy::AsyncManager: exception in %s: %s\n", what, reason.c_str());
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

JobService::JobService()
{
    m_pool.setMaxThreadCount(std::max(fewestWorkers, CpuInfo::instance().processorCount()));
}

JobService::Pointer JobService::start(unsigned priority, Task task)
{
    auto job = std::make_shared<JobRecord>(std::move(task));
    Tasks dropped;
    const Lock lock(m_mutex);
    if (m_isClosed) {
        cancelFamily(*job, dropped);
    } else {
        m_queued[priority].push_back(job);
        m_pool.start(&m_worker);
    }
    return job;
}

JobService::Pointer JobService::post(bool awaited, Task task)
{
    auto job = std::make_shared<JobRecord>(std::move(task));
    JobRecord* const caller = awaited ? here.job : nullptr;
    Tasks dropped;
    const Lock lock(m_mutex);
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
    Lock lock(m_mutex);
    if (!isNeededHere(*job))
        block(*job, lock, [&] { return job->state == State::Ended || job->isReleased; });
    return job->state;
}

void JobService::cancel(const Pointer& job, bool wait)
{
    Tasks dropped;
    Lock lock(m_mutex);
    cancelFamily(*job, dropped);
    if (wait)
        releaseThoseWaitingForMe(*job);

    lock.unlock();
    dropped.clear();
    if (!wait)
        return;

    lock.lock();
    JobRecord* const caller = here.job;
    const JobRecord* const outer = caller ? std::exchange(caller->stopping, job.get()) : nullptr;
    if (caller)
        settle(*caller); // it counts as quiet now for those that it waits for
    block(*job, lock, [&] { return job->isQuiet(); });
    if (caller)
        caller->stopping = outer;
}

/// Whether the job cannot end before a task that the calling thread is in has ended.
bool JobService::isNeededHere(const JobRecord& job)
{
    for (const JobRecord* mine = here.job; mine; mine = mine->outer) {
        if (mine->isNeededBy(job))
            return true;
    }
    return false;
}

/// Tasks that the calling thread is in go on only when it has done waiting for the job, so the job's own
/// tasks must not wait for them.
void JobService::releaseThoseWaitingForMe(const JobRecord& job)
{
    for (JobRecord* mine = here.job; mine; mine = mine->outer) {
        if (!mine->isNeededBy(job))
            continue;
        mine->isReleased = true;
        settle(*mine);
    }
}

void JobService::add(const Pointer& parent, const Pointer& added)
{
    Tasks dropped;
    Lock lock(m_mutex);
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
    const Lock lock(m_mutex);
    if (m_isClosed)
        return {};
    job->watchers.push_back(watch);
    if (job->statesCount > 0)
        postNews(*job);
    return connection;
}

/// Waits for a change of the job's family until `isOver`. A worker gives its place away meanwhile; the GUI
/// thread runs what the job needs of it.
template <class Condition>
void JobService::block(JobRecord& job, Lock& lock, Condition isOver)
{
    if (isOver())
        return;
    const JobRecord* const caller = here.job;
    if (caller)
        job.waiting.push_back(caller);

    if (isGuiThread()) {
        while (!isOver()) {
            if (const Pointer needed = takeNeeded(job))
                run(needed, lock);
            else
                m_guiCondition.wait(lock);
        }
    } else {
        m_guiCondition.notify_all(); // it may have to run what this thread waits for
        if (here.isWorker)
            m_pool.releaseThread();
        job.changed.wait(lock, isOver);
        if (here.isWorker)
            m_pool.reserveThread();
    }

    if (caller)
        job.waiting.erase(std::find(job.waiting.begin(), job.waiting.end(), caller));
}

void JobService::runOnWorker()
{
    here.isWorker = true;
    Pointer job; // outlives the lock
    Lock lock(m_mutex);
    job = takeFirstQueued();
    if (job)
        run(job, lock);
}

void JobService::runOnGuiThread()
{
    GuiEntry entry; // outlives the lock
    Lock lock(m_mutex);
    m_isWakePosted = false;
    entry = takeFirstPosted();
    if (!m_guiQueue.empty() && m_receiver) {
        m_isWakePosted = true;
        m_receiver->wake();
    }
    if (entry.isNews)
        tellStates(entry.job, lock);
    else if (entry.job)
        run(entry.job, lock);
}

/// Takes tasks that have been cancelled out of the queue as well.
JobService::Pointer JobService::takeFirstQueued()
{
    while (!m_queued.empty()) {
        auto& [priority, jobs] = *m_queued.begin();
        const Pointer job = std::move(jobs.front());
        jobs.pop_front();
        if (jobs.empty())
            m_queued.erase(m_queued.begin());
        if (job->isPending())
            return job;
    }
    return nullptr;
}

JobService::GuiEntry JobService::takeFirstPosted()
{
    while (!m_guiQueue.empty()) {
        const GuiEntry entry = std::move(m_guiQueue.front());
        m_guiQueue.pop_front();
        if (entry.isNews || entry.job->isPending())
            return entry;
    }
    return {};
}

JobService::Pointer JobService::takeNeeded(JobRecord& job)
{
    const auto found = std::find_if(m_guiQueue.begin(), m_guiQueue.end(), [&job](const GuiEntry& entry) {
        return !entry.isNews && entry.job->isPending() && entry.job->isNeededBy(job);
    });
    if (found == m_guiQueue.end())
        return nullptr;
    const Pointer needed = std::move(found->job);
    m_guiQueue.erase(found);
    return needed;
}

void JobService::run(const Pointer& job, Lock& lock)
{
    Task task = std::exchange(job->task, nullptr);
    job->isRunning = true;
    job->thread = std::this_thread::get_id();
    m_running.push_back(job.get());
    enter(*job, State::Running);

    job->outer = std::exchange(here.job, job.get());
    lock.unlock();
    guarded("a task", [&] { task(AsyncManager::Job(job)); });
    task = nullptr; // what it holds is gone before the job ends
    lock.lock();

    here.job = job->outer;
    m_running.erase(std::find(m_running.begin(), m_running.end(), job.get()));
    job->isRunning = false;
    job->hasTask = false;
    settle(*job);
}

void JobService::tellStates(const Pointer& job, Lock& lock)
{
    job->isNewsPosted = false;
    auto& watchers = job->watchers;
    const auto isBehind = [](const auto& left, const auto& right) { return left->told < right->told; };
    for (;;) {
        const auto next = std::min_element(watchers.begin(), watchers.end(), isBehind);
        if (next == watchers.end() || (*next)->told == job->statesCount)
            break;
        const auto watcher = *next;
        const State state = job->states[watcher->told++];
        lock.unlock();
        guarded("a watcher of states", [&] { watcher->signal(state); });
        lock.lock();
    }
    if (job->state != State::Ended)
        return;
    const auto done = std::exchange(watchers, {});
    lock.unlock(); // their destructors may come back here
}

bool JobService::isGuiThread() const
{
    return m_receiver && m_receiver->isCurrentThread();
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
    job.changed.notify_all();
    m_guiCondition.notify_all();
}

void JobService::open()
{
    const Lock lock(m_mutex);
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
    Lock lock(m_mutex);
    m_isClosed = true;
    std::vector<Pointer> jobs;
    for (JobRecord* job : m_running)
        jobs.push_back(job->shared_from_this());
    for (const auto& [priority, queued] : m_queued)
        jobs.insert(jobs.end(), queued.begin(), queued.end());
    for (const GuiEntry& entry : m_guiQueue)
        jobs.push_back(entry.job);
    Tasks dropped;
    for (const Pointer& job : jobs)
        cancelWithParents(*job, dropped);
    lock.unlock();

    dropped.clear();
    m_pool.waitForDone();

    lock.lock();
    const auto posted = std::exchange(m_guiQueue, {});
    const auto unheard = std::exchange(m_unheard, {});
    const auto receiver = std::move(m_receiver);
    lock.unlock();
}

} // namespace Ozy
