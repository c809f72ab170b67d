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
    QCoreApplication::postEvent(this, new QEvent(wakeUp()));
}

bool GuiReceiver::event(QEvent* event)
{
    if (event->type() != wakeUp())
        return QObject::event(event);
    m_service.runOnGuiThread();
    return true;
}

} // namespace Ozy
