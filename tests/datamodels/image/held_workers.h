#pragma once

#include <host/jobs/async_manager.h>

#include <support/gate.h>

#include <vector>

/// Keeps all workers of the job service busy, so that what is asked meanwhile is answered only after `release`.
class HeldWorkers
{
public:
    HeldWorkers()
    {
        for (int task = 0; task < moreThanWorkers; ++task)
            m_tasks.push_back(Ozy::AsyncManager::async(aheadOfAll, [this] { m_gate.pass(); }));
    }
    ~HeldWorkers() { release(); }

    void release()
    {
        m_gate.open();
        for (const Ozy::AsyncManager::Job& task : m_tasks)
            task.wait();
        m_tasks.clear();
    }

private:
    static constexpr int moreThanWorkers = 256;
    static constexpr unsigned aheadOfAll = 1000;

    Gate m_gate;
    std::vector<Ozy::AsyncManager::Job> m_tasks;
};
