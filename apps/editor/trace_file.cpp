#include "trace_file.h"

#include <host/base/profiler.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <cstdio>
#include <mutex>
#include <vector>

namespace editor {
namespace {

struct Event
{
    const char* name; // null at the end of a scope
    std::chrono::steady_clock::time_point time;
    int thread;
};

// The hooks are plain functions, so what they fill has to be found without an object.
struct Recording
{
    std::mutex mutex;
    std::vector<Event> events;
    int threads = 0;
};

Recording& recording()
{
    static Recording instance;
    return instance;
}

int threadNumber()
{
    thread_local const int number = [] {
        const std::lock_guard lock(recording().mutex);
        return ++recording().threads;
    }();
    return number;
}

void record(const char* name)
{
    const int thread = threadNumber();
    const std::lock_guard lock(recording().mutex);
    recording().events.push_back({name, std::chrono::steady_clock::now(), thread});
}

void begin(const char* name)
{
    record(name);
}

void end()
{
    record(nullptr);
}

QJsonObject traceEvent(const Event& event, std::chrono::steady_clock::time_point start)
{
    QJsonObject object{{QStringLiteral("ph"), event.name ? QStringLiteral("B") : QStringLiteral("E")},
                       {QStringLiteral("pid"), 1},
                       {QStringLiteral("tid"), event.thread},
                       {QStringLiteral("ts"), std::chrono::duration<double, std::micro>(event.time - start).count()}};
    if (event.name)
        object.insert(QStringLiteral("name"), QString::fromUtf8(event.name));
    return object;
}

} // namespace

TraceFile::TraceFile(const QString& path) : m_file(path)
{
    if (path.isEmpty())
        return;
    if (!m_file.open(QIODevice::WriteOnly)) {
        m_error = m_file.errorString();
        return;
    }
    recording().events.clear();
    RYK::Profiler::g_hooks = {&begin, &end};
}

TraceFile::~TraceFile()
{
    if (!m_file.isOpen())
        return;
    RYK::Profiler::g_hooks = {};
    write();
}

void TraceFile::write()
{
    const std::lock_guard lock(recording().mutex);
    const std::vector<Event>& events = recording().events;
    QJsonArray list;
    for (const Event& event : events)
        list << traceEvent(event, events.front().time);

    const QJsonDocument document(QJsonObject{{QStringLiteral("traceEvents"), list}});
    const QByteArray json = document.toJson(QJsonDocument::Compact);
    if (m_file.write(json) != json.size() || !m_file.flush())
        std::fprintf(stderr, "datamodels-editor: %s: %s\n", qUtf8Printable(m_file.fileName()),
                     qUtf8Printable(m_file.errorString()));
}

} // namespace editor
