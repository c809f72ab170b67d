#include <support/signal_log.h>

#include <support/signal_text.h>

#include <QAbstractItemModel>
#include <private/qmetaobject_p.h>
#include <private/qobject_p.h>

#include <algorithm>
#include <stdexcept>

namespace {

/// The logs that are alive. Qt has one place for a listener to all emissions; it is theirs while there is a
/// log.
struct Logs
{
    std::mutex mutex;
    std::vector<SignalLog*> alive;
    QSignalSpyCallbackSet* before = nullptr;
};

Logs& logs()
{
    static Logs instance;
    return instance;
}

bool isAlive(const SignalLog* log)
{
    return std::find(logs().alive.begin(), logs().alive.end(), log) != logs().alive.end();
}

} // namespace

SignalLog::SignalLog()
{
    static QSignalSpyCallbackSet callbacks{&SignalLog::signalBegins, nullptr, nullptr, nullptr};

    const std::lock_guard lock(logs().mutex);
    if (logs().alive.empty()) {
        logs().before = qt_signal_spy_callback_set.loadAcquire();
        qt_register_signal_spy_callbacks(&callbacks);
    }
    logs().alive.push_back(this);
}

SignalLog::SignalLog(const QAbstractItemModel& model, const QString& name) : SignalLog()
{
    add(model, name);
}

SignalLog::~SignalLog()
{
    const std::lock_guard lock(logs().mutex);
    auto& alive = logs().alive;
    alive.erase(std::remove(alive.begin(), alive.end(), this), alive.end());
    if (alive.empty())
        qt_register_signal_spy_callbacks(logs().before);
}

SignalLog& SignalLog::add(const QAbstractItemModel& model, const QString& name)
{
    const QMetaObject& interface = QAbstractItemModel::staticMetaObject;
    for (int i = interface.methodOffset(); i < interface.methodCount(); ++i) {
        if (interface.method(i).methodType() == QMetaMethod::Signal)
            addMethod(model, interface.method(i), name);
    }
    return *this;
}

SignalLog& SignalLog::addNamed(const QObject& object, const char* signature, const QString& name)
{
    const QMetaObject* type = object.metaObject();
    const int index = type->indexOfSignal(QMetaObject::normalizedSignature(signature));
    if (index < 0)
        throw std::invalid_argument(std::string(type->className()) + " has no signal " + signature);
    return addMethod(object, type->method(index), name);
}

SignalLog& SignalLog::addAll(const QObject& object, const QString& name)
{
    const QMetaObject* type = object.metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < type->methodCount(); ++i) {
        if (type->method(i).methodType() == QMetaMethod::Signal)
            addMethod(object, type->method(i), name);
    }
    return *this;
}

SignalLog& SignalLog::addMethod(const QObject& object, const QMetaMethod& signal, const QString& name)
{
    if (signal.methodType() != QMetaMethod::Signal)
        throw std::invalid_argument("not a signal of " + std::string(object.metaObject()->className()));
    {
        const std::lock_guard lock(m_mutex);
        m_watches.push_back({&object, signal.methodIndex(), name});
    }
    // Another object may be made at the address of a dead one.
    QObject::disconnect(&object, &QObject::destroyed, &m_context, nullptr);
    QObject::connect(
        &object, &QObject::destroyed, &m_context, [this](const QObject* dead) { forget(dead); },
        Qt::DirectConnection);
    return *this;
}

void SignalLog::note(const QString& text)
{
    const std::lock_guard lock(m_mutex);
    m_lines.append(text);
}

QStringList SignalLog::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_lines, {});
}

std::vector<SignalLog::Hit> SignalLog::hitsOf(const QObject* sender, int method)
{
    std::vector<Hit> hits;
    const std::lock_guard lock(logs().mutex);
    for (SignalLog* log : logs().alive) {
        const std::lock_guard logLock(log->m_mutex);
        for (const Watch& watch : log->m_watches) {
            if (watch.object == sender && watch.method == method)
                hits.push_back({log, watch.name});
        }
    }
    return hits;
}

void SignalLog::forget(const QObject* object)
{
    const auto isOfObject = [object](const Watch& watch) { return watch.object == object; };

    const std::lock_guard lock(m_mutex);
    m_watches.erase(std::remove_if(m_watches.begin(), m_watches.end(), isOfObject), m_watches.end());
}

void SignalLog::signalBegins(QObject* sender, int signalIndex, void** arguments)
{
    const QMetaMethod signal = QMetaObjectPrivate::signal(sender->metaObject(), signalIndex);
    const std::vector<Hit> hits = hitsOf(sender, signal.methodIndex());
    if (!hits.empty()) {
        // Asks the model for parents, so no lock may be held.
        const QString text = signalText(signal, arguments);
        const std::lock_guard lock(logs().mutex);
        for (const Hit& hit : hits) {
            if (isAlive(hit.log))
                hit.log->note(hit.name.isEmpty() ? text : hit.name + QStringLiteral(": ") + text);
        }
    }
}
