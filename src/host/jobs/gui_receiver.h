#pragma once

#include <QObject>

#include <atomic>

namespace Ozy {

class JobService;

/// Brings the job service onto the GUI thread: each wake-up is one event of the application's thread, and
/// runs one task there.
class GuiReceiver : public QObject
{
public:
    explicit GuiReceiver(JobService& service);

    bool isCurrentThread() const;
    /// From any thread.
    void wake();

protected:
    bool event(QEvent* event) override;

private:
    JobService& m_service;
    std::atomic<unsigned> m_wakes{0};
};

} // namespace Ozy
