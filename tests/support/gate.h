#pragma once

#include <condition_variable>
#include <mutex>

/// A point that threads wait at until somebody opens it.
class Gate
{
public:
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_condition.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_condition.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_isOpen = false;
};
