#include <host/base/debug.h>

#include <host/base/stack_tracker.h>

#include <QLoggingCategory>
#include <QString>

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <utility>

namespace Ozy {
namespace {

void writeToQtLog(const DebugMessageHelper::Record& record)
{
    QString text = QString::fromStdString(record.text).trimmed();
    if (!record.detail.empty())
        text += QStringLiteral(" (%1)").arg(QString::fromStdString(record.detail));

    const QMessageLogger log(record.file, record.line, nullptr, record.category);
    const QLoggingCategory category(record.category);
    if (record.priority < Priority::predicate)
        log.debug(category, "%s", qUtf8Printable(text));
    else if (record.priority < Priority::structural)
        log.warning("%s", qUtf8Printable(text));
    else
        log.critical("%s\n  at %s:%d%s", qUtf8Printable(text), record.file, record.line,
                     StackTracker::describe().c_str());
}

struct SinkSlot
{
    std::mutex mutex;
    DebugMessageHelper::Sink sink = writeToQtLog;
};

// Load-time objects of other libraries may log before this file's own statics would exist.
SinkSlot& sinkSlot()
{
    static SinkSlot slot;
    return slot;
}

std::string formatted(const char* format, std::va_list arguments)
{
    std::va_list measuring;
    va_copy(measuring, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measuring);
    va_end(measuring);
    if (length < 0)
        return format;

    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, arguments);
    text.pop_back();
    if (text.empty() || text.back() != '\n')
        text.push_back('\n');
    return text;
}

} // namespace

DebugMessageHelper::DebugMessageHelper(int priority, const char* category, const char* file, int line)
    : m_record{priority, category, file, line, {}, {}}
{
}

DebugMessageHelper& DebugMessageHelper::detail(std::string text)
{
    m_record.detail = std::move(text);
    return *this;
}

void DebugMessageHelper::message(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    m_record.text = formatted(format, arguments);
    va_end(arguments);

    Sink sink;
    {
        SinkSlot& slot = sinkSlot();
        const std::lock_guard lock(slot.mutex);
        sink = slot.sink;
    }
    sink(m_record);
}

DebugMessageHelper::Sink DebugMessageHelper::setSink(Sink sink)
{
    SinkSlot& slot = sinkSlot();
    const std::lock_guard lock(slot.mutex);
    return std::exchange(slot.sink, sink ? std::move(sink) : Sink(writeToQtLog));
}

bool Detail::assertionFailed(const char* condition, const char* detail, const char* file, int line)
{
    DebugMessageHelper(Priority::structural, "datamodels", file, line)
        .detail(detail)
        .message("ASSERTION FAILED: %s\r\n", condition);
    return false;
}

} // namespace Ozy
