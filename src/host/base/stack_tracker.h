#pragma once

#include <host/base/host_export.h>

#include <QtGlobal>

#include <string>

namespace Ozy {

/// The named entries that the running thread is inside of, innermost last; printed with each critical message.
///
/// Each thread has a stack of its own. The texts must be literals: they are kept as pointers.
/// Cost: a few nanoseconds a push and pop, no allocation up to the deepest stack seen.
class DATAMODELS_HOST_API StackTracker
{
public:
    static void push(const char* name, const char* file, int line);
    static void pop();

    /// The entries of the calling thread, innermost first, one a line after a line break; empty without entries.
    static std::string describe();

    /// An entry for the length of a block.
    class Scope
    {
    public:
        explicit Scope(const char* name, const char* file = __builtin_FILE(), int line = __builtin_LINE())
        {
            push(name, file, line);
        }
        ~Scope() { pop(); }
        Q_DISABLE_COPY_MOVE(Scope)
    };
};

} // namespace Ozy
