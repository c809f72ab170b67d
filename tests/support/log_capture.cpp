#include <support/log_capture.h>

#include <QtTest>

#include <cstdio>
#include <mutex>
#include <utility>

using Record = Ozy::DebugMessageHelper::Record;

namespace {

const QString assertionPrefix = QStringLiteral("ASSERTION FAILED: ");

enum class Kind
{
    assertion,
    message,
    qt
};

struct Line
{
    Kind kind;
    QString text;
    bool read = false;
};

Line lineOf(const Record& record)
{
    const QString text = QString::fromStdString(record.text).trimmed();
    const QString detail = record.detail.empty()
                               ? QString()
                               : QStringLiteral(" (%1)").arg(QString::fromStdString(record.detail));
    if (text.startsWith(assertionPrefix))
        return {Kind::assertion, text.mid(assertionPrefix.size()) + detail};
    const bool isProgress = record.priority == Ozy::Priority::progress;
    return {Kind::message, QStringLiteral("%1 %2%3").arg(record.priority).arg(text, detail), isProgress};
}

QString kindOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("debug");
    case QtInfoMsg:
        return QStringLiteral("info");
    case QtWarningMsg:
        return QStringLiteral("warning");
    case QtCriticalMsg:
        return QStringLiteral("critical");
    case QtFatalMsg:
        return QStringLiteral("fatal");
    }
    return QStringLiteral("unknown");
}

} // namespace

// A worker may still be inside the sink when the capture ends, so the sink shares what it writes to.
struct LogCapture::State
{
    std::mutex mutex;
    std::vector<Line> lines;
    std::vector<Record> records;
    std::shared_ptr<State> outer;
    QtMessageHandler qtHandlerBefore = nullptr;

    void add(Line line)
    {
        const std::lock_guard lock(mutex);
        lines.push_back(std::move(line));
    }

    QStringList read(Kind kind)
    {
        const std::lock_guard lock(mutex);
        QStringList texts;
        for (Line& line : lines) {
            if (line.kind != kind)
                continue;
            line.read = true;
            texts.append(line.text);
        }
        return texts;
    }

    QStringList unread()
    {
        const std::lock_guard lock(mutex);
        QStringList texts;
        for (const Line& line : lines) {
            if (!line.read)
                texts.append(line.kind == Kind::assertion ? assertionPrefix + line.text : line.text);
        }
        return texts;
    }
};

/// Qt's handler is a plain function, so the innermost capture is found through a global.
struct LogCapture::QtHandler
{
    inline static std::mutex mutex;
    inline static std::shared_ptr<State> innermost;

    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        // The program ends with this one, and nobody would read it.
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));

        std::shared_ptr<State> state;
        {
            const std::lock_guard lock(mutex);
            state = innermost;
        }
        if (state)
            state->add({Kind::qt, kindOf(type) + ' ' + text});
    }
};

LogCapture::LogCapture(Rest rest) : m_state(std::make_shared<State>()), m_rest(rest)
{
    {
        const std::lock_guard lock(QtHandler::mutex);
        m_state->outer = std::exchange(QtHandler::innermost, m_state);
    }
    m_state->qtHandlerBefore = qInstallMessageHandler(&QtHandler::handle);
    m_sinkBefore = Ozy::DebugMessageHelper::setSink([state = m_state](const Record& record) {
        const std::lock_guard lock(state->mutex);
        state->lines.push_back(lineOf(record));
        state->records.push_back(record);
    });
}

LogCapture::~LogCapture()
{
    Ozy::DebugMessageHelper::setSink(m_sinkBefore);
    qInstallMessageHandler(m_state->qtHandlerBefore);
    {
        const std::lock_guard lock(QtHandler::mutex);
        QtHandler::innermost = m_state->outer;
    }

    const QStringList unread = m_state->unread();
    if (unread.isEmpty())
        return;
    if (m_rest == FailOnRest)
        // Unlike a plain failure, a failed comparison can be expected by QEXPECT_FAIL.
        QTest::qVerify(false, "everything logged was read by the test",
                       qPrintable("unread:\n  " + unread.join("\n  ")), __FILE__, __LINE__);
    else if (QTest::currentTestFailed())
        qWarning("logged meanwhile:\n  %s", qUtf8Printable(unread.join("\n  ")));
}

QStringList LogCapture::assertions()
{
    return m_state->read(Kind::assertion);
}

QStringList LogCapture::messages()
{
    return m_state->read(Kind::message);
}

QStringList LogCapture::qtMessages()
{
    return m_state->read(Kind::qt);
}

std::vector<Record> LogCapture::records()
{
    m_state->read(Kind::assertion);
    m_state->read(Kind::message);
    const std::lock_guard lock(m_state->mutex);
    return m_state->records;
}

void LogCapture::clear()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->lines.clear();
    m_state->records.clear();
}
