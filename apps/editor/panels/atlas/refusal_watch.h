#pragma once

#include <host/base/debug.h>

#include <QString>

#include <functional>

namespace editor {

/// Hears what the library's atlas code and the engine refuse while it lives, and passes on everything that is logged.
///
/// Watches end in the reverse order of their beginning. Thread: GUI; what other threads log is only passed on.
class RefusalWatch
{
public:
    using Heard = std::function<void(const QString& reason)>;

    explicit RefusalWatch(Heard heard);
    ~RefusalWatch();
    Q_DISABLE_COPY_MOVE(RefusalWatch)

private:
    Heard m_heard;
    Ozy::DebugMessageHelper::Sink m_before;
};

} // namespace editor
