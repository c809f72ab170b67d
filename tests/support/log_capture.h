#pragma once

#include <host/base/debug.h>

#include <QStringList>

#include <memory>
#include <vector>

/// Everything that is logged while it lives: the records of `Ozy::DebugMessageHelper` and Qt's own messages,
/// of all threads. Nothing of it reaches the outer log meanwhile, `QTest::ignoreMessage` included.
///
///     LogCapture log;
///     datamodels::hostService<IMonitor>();
///     QCOMPARE(log.assertions(), QStringList{"ptr"});
///
/// What a test has not read is shown when the test fails. With `FailOnRest` it fails the test, but for messages of
/// priority 1, which tell progress.
/// Captures nest: the innermost gets the messages. Destroy them in the reverse order.
class LogCapture
{
public:
    enum Rest
    {
        IgnoreRest,
        FailOnRest
    };

    explicit LogCapture(Rest rest = IgnoreRest);
    ~LogCapture();
    Q_DISABLE_COPY_MOVE(LogCapture)

    /// The conditions of the failed assertions so far, with their extra text in brackets: "index.isValid()",
    /// "false (unknown type)". Reading them takes note of them.
    QStringList assertions();

    /// The plain records so far with their priority: "5 tile is outside the branch". Reading takes note of
    /// them.
    QStringList messages();

    /// Qt's own messages so far with their kind: "debug loaded", "warning QObject::connect: ...".
    /// Reading takes note of them.
    QStringList qtMessages();

    /// The records of `Ozy::DebugMessageHelper`, assertions included, with place, category and untrimmed
    /// text.
    std::vector<Ozy::DebugMessageHelper::Record> records();

    /// Forgets everything so far.
    void clear();

private:
    struct State;
    struct QtHandler;

    std::shared_ptr<State> m_state;
    Ozy::DebugMessageHelper::Sink m_sinkBefore;
    Rest m_rest;
};
