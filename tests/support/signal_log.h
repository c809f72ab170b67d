#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QStringList>

#include <mutex>
#include <type_traits>
#include <vector>

class QAbstractItemModel;

/// Signals of any number of objects in one list, in the order in which they are emitted.
///
/// An emission is written down when it starts, before any slot runs: where a slot emits further signals, the
/// cause stands before its effects, whoever connected first. (What a given listener hears, and when, is a
/// test of its own.) Blocked signals are not emissions. Signals of other threads are logged too.
///
/// The texts of an item model's signals, with paths of rows from the root (see `pathOf`):
///
///     inserting /1 [0..2]          inserted /1 [0..2]          inserting columns / [1..1]   inserted columns
///     / [1..1] removing / [0..0]            removed / [0..0]            removing columns / [1..1]    removed
///     columns / [1..1] moving /0 [1..1] to /2 [0]   moved /0 [1..1] to /2 [0]   moving columns / [1..1] to /
///     [3]   moved columns ... resetting                    reset layout changing              layout changed
///     layout changed /, /0 sorted rows changed /0/1                 changed /0/1 .. /0/2:1 roles 0,257
///     header horizontal [0..1]
///
/// Any other signal is its name with its arguments: `textChanged("abc")`, `progress(3, true)`, `finished()`.
/// With a name given to `add`, the texts of that object begin with it: "proxy: reset".
class SignalLog
{
public:
    SignalLog();
    /// Logs one model from the start.
    explicit SignalLog(const QAbstractItemModel& model, const QString& name = {});
    ~SignalLog();
    Q_DISABLE_COPY_MOVE(SignalLog)

    /// All signals of the item-model interface.
    SignalLog& add(const QAbstractItemModel& model, const QString& name = {});

    /// One signal: `log.add(predicate, &BasePredicate::changed)`.
    template <class Object, class Signal>
    requires std::is_member_function_pointer_v<Signal> SignalLog& add(const Object& object, Signal signal,
                                                                      const QString& name = {})
    {
        return addMethod(object, QMetaMethod::fromSignal(signal), name);
    }

    /// One signal by its text, for objects without a C++ class: `log.addNamed(item, "clicked()")`.
    /// Throws `std::invalid_argument` when the object has no such signal.
    SignalLog& addNamed(const QObject& object, const char* signature, const QString& name = {});

    /// Every signal that the object declares below `QObject`, those of an item model included.
    SignalLog& addAll(const QObject& object, const QString& name = {});

    /// Writes a line of the test's own: a callback, or a step of the test.
    void note(const QString& text);

    /// The lines since the last `take`, which are then forgotten.
    QStringList take();

private:
    struct Watch
    {
        const QObject* object;
        int method;
        QString name;
    };

    struct Hit
    {
        SignalLog* log;
        QString name;
    };

    static void signalBegins(QObject* sender, int signalIndex, void** arguments);
    static std::vector<Hit> hitsOf(const QObject* sender, int method);
    void forget(const QObject* object);
    SignalLog& addMethod(const QObject& object, const QMetaMethod& signal, const QString& name);

    std::mutex m_mutex;
    std::vector<Watch> m_watches;
    QStringList m_lines;
    QObject m_context;
};
