#pragma once

#include <QFile>
#include <QString>

namespace editor {

/// Records the profiler's scopes of all threads while it lives, and writes them as JSON that trace viewers of the
/// Chrome kind open. One at a time; the threads that report scopes must have ended before it dies.
///
/// Cost: 32 bytes of memory and about a tenth of a microsecond for each beginning and end.
class TraceFile
{
public:
    /// Opens the file at once, so that a bad path is known before the work begins. An empty path records nothing.
    explicit TraceFile(const QString& path);
    ~TraceFile();
    Q_DISABLE_COPY_MOVE(TraceFile)

    /// Why the file could not be opened; empty if it could.
    QString error() const { return m_error; }

private:
    void write();

    QFile m_file;
    QString m_error;
};

} // namespace editor
