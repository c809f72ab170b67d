#include <host/jobs/job_service.h>

#include <host/base/debug.h>
#include <host/jobs/gui_receiver.h>

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

namespace Ozy {
namespace {

thread_local bool isWorker = false;

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

void JobService::Lock::unlock()
{
    const auto changed = std::exchange(m_service.m_changed, {});
    unique_lock::unlock();
    notify(changed); // whose records may die here
}

void JobService::Lock::wait(std::condition_variable& condition)
{
    notify(std::exchange(m_service.m_changed, {}));
    condition.wait(*this);
}

void JobService::Lock::notify(const std::vector<Pointer>& changed)
{
    for (const Pointer& job : changed)
        job->changed.notify_all();
    if (!changed.empty())
        m_service.m_guiCondition.notify_all();
}

/// Waits for a change of the job's family until `isOver`. A worker gives its place away meanwhile; the GUI
/// thread runs what the job needs of it.
void JobService::block(JobRecord& job, Lock& lock, const std::function<bool()>& isOver)
{
    if (isOver())
        return;
    const JobRecord* const caller = JobRecord::current();
    if (caller)
        job.waiting.push_back(caller);

    if (isGuiThread()) {
        while (!isOver()) {
            if (const Pointer needed = takeNeeded(job))
                run(needed, lock);
            else
                lock.wait(m_guiCondition);
        }
    } else {
        m_guiCondition.notify_all(); // it may have to run what this thread waits for
        if (isWorker) {
            --m_active;
            employWorker();
        }
        while (!isOver())
            lock.wait(job.changed);
        if (isWorker)
            ++m_active;
    }

    if (caller)
        job.waiting.erase(std::find(job.waiting.begin(), job.waiting.end(), caller));
}

bool JobService::canWork() const
{
    return !m_queued.empty() && m_active < m_mostActive;
}

void JobService::employWorker()
{
    if (!canWork())
        return;
    if (m_idle > 0)
        m_workerCondition.notify_one();
    else
        m_workers.emplace_back([this] { work(); });
}

void JobService::work()
{
    isWorker = true;
    Pointer job; // outlives the lock
    Lock lock(*this);
    while (!m_isClosed) {
        job = canWork() ? takeFirstQueued() : nullptr;
        if (job) {
            ++m_active;
            employWorker(); // two notifications may have met the same one
            run(job, lock);
            job = nullptr;
            --m_active;
        } else {
            ++m_idle;
            lock.wait(m_workerCondition);
            --m_idle;
        }
    }
}

void JobService::runOnGuiThread()
{
    GuiEntry entry; // outlives the lock
    Lock lock(*this);
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
        return !entry.isNews && entry.job->isPending() && job.needs(*entry.job);
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

    job->outer = std::exchange(JobRecord::current(), job.get());
    lock.unlock();
    guarded("a task", [&] { task(AsyncManager::Job(job)); });
    task = nullptr; // what it holds is gone before the job ends
    lock.lock();

    JobRecord::current() = job->outer;
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
    return !isWorker && m_receiver && m_receiver->isCurrentThread();
}

} // namespace Ozy
