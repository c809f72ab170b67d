#include <host/jobs/async_manager.h>

#include <host/jobs/job_service.h>

namespace Ozy {

AsyncManager::Job AsyncManager::start(unsigned priority, Task task)
{
    return Job(JobService::instance().start(priority, std::move(task)));
}

AsyncManager::Job AsyncManager::post(bool awaited, Task task)
{
    return Job(JobService::instance().post(awaited, std::move(task)));
}

AsyncManager::Job::State AsyncManager::Job::state() const
{
    return m_record ? m_record->state.load() : Idle;
}

AsyncManager::Job::State AsyncManager::Job::wait() const
{
    return m_record ? JobService::instance().wait(m_record) : Idle;
}

void AsyncManager::Job::cancel(bool wait) const
{
    if (m_record)
        JobService::instance().cancel(m_record, wait);
}

void AsyncManager::Job::operator+=(Job added) const
{
    if (m_record && added.m_record)
        JobService::instance().add(m_record, added.m_record);
}

ryk::Connection AsyncManager::Job::connectStateChanged(std::function<void(State)> watcher) const
{
    return m_record ? JobService::instance().watch(m_record, watcher) : ryk::Connection();
}

} // namespace Ozy
