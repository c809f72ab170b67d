#include <host/jobs/gui_receiver.h>

#include <host/jobs/job_service.h>

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

namespace Ozy {
namespace {

QEvent::Type wakeUp()
{
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace

GuiReceiver::GuiReceiver(JobService& service) : m_service(service)
{
    // The host may be loaded by another thread than the application's.
    moveToThread(QCoreApplication::instance()->thread());
}

bool GuiReceiver::isCurrentThread() const
{
    return thread() == QThread::currentThread();
}

void GuiReceiver::wake()
{
    auto* const event = new QEvent(wakeUp());
    m_wakes.fetch_add(1, std::memory_order_release);
    QCoreApplication::postEvent(this, event);
}

bool GuiReceiver::event(QEvent* event)
{
    // Qt hands the event over; this tells the thread sanitizer, which does not see into Qt.
    m_wakes.load(std::memory_order_acquire);
    if (event->type() != wakeUp())
        return QObject::event(event);
    m_service.runOnGuiThread();
    return true;
}

} // namespace Ozy
