#pragma once

#include <host/base/host_export.h>

#include <cstddef>
#include <functional>
#include <string>

namespace Ozy {

/// Log priorities that the library uses. The host's sink maps them to Qt's levels: below 4 debug, 4 and 5 warning,
/// 6 and above critical.
namespace Priority {
inline constexpr int progress = 1;
inline constexpr int predicate = 4;
inline constexpr int refusal = 5;
inline constexpr int structural = 6;
} // namespace Priority

/// The one road of every message of the library into the host's log.
///
/// A helper is made where the message arises, with the place it speaks of, and formats like printf. A message ends in
/// exactly one line break: a missing one is added, so that records can be joined as they come.
///
/// Threads: any. The sink runs on the thread of the message, without a lock held, and must not wait for another.
class DATAMODELS_HOST_API DebugMessageHelper
{
public:
    /// One message as the sink gets it. `file` and `category` live as long as the program.
    struct Record
    {
        int priority = 0;
        const char* category = "";
        const char* file = "";
        int line = 0;
        std::string text;   ///< formatted, with its line break
        std::string detail; ///< what an assertion adds to its condition; mostly empty
    };
    using Sink = std::function<void(const Record&)>;

    DebugMessageHelper(int priority, const char* category, const char* file = __builtin_FILE(),
                       int line = __builtin_LINE());

    [[gnu::format(printf, 2, 3)]] void message(const char* format, ...);

    /// Adds what the fixed text of an assertion has no place for; call before `message`.
    DebugMessageHelper& detail(std::string text);

    /// Replaces the sink for all threads and returns the one before; an empty function means the default, which writes
    /// to Qt's log under the record's category and adds the stack tracker's entries to critical messages.
    static Sink setSink(Sink sink);

private:
    Record m_record;
};

namespace Detail {

template <class Condition>
constexpr bool assertionValue(const Condition& condition)
{
    return static_cast<bool>(condition);
}
// A text literal is always true: such an assertion could never fail, and was meant to be a message.
template <std::size_t N>
bool assertionValue(const char (&)[N]) = delete;

DATAMODELS_HOST_API bool assertionFailed(const char* condition, const char* detail, const char* file, int line);

} // namespace Detail
} // namespace Ozy

/// Logs "ASSERTION FAILED: <condition>\r\n" as a critical message when the condition is false, and goes on. Its value is
/// that of the condition, so that a caller can guard what follows: `if (!OZY_ASSERT(node)) return {};`
#define OZY_ASSERT(...)                                                                                                \
    (::Ozy::Detail::assertionValue(__VA_ARGS__)                                                                        \
     || ::Ozy::Detail::assertionFailed(#__VA_ARGS__, "", __FILE__, __LINE__))

/// The same with a text beside the condition, carried in the record's `detail`.
#define OZY_ASSERT_DETAIL(text, ...)                                                                                   \
    (::Ozy::Detail::assertionValue(__VA_ARGS__)                                                                        \
     || ::Ozy::Detail::assertionFailed(#__VA_ARGS__, text, __FILE__, __LINE__))

/// For a condition that has to be tested in another way than it reads, so as to be safe for any input.
#define OZY_ASSERT_AS(condition, ...)                                                                                  \
    (::Ozy::Detail::assertionValue(__VA_ARGS__)                                                                        \
     || ::Ozy::Detail::assertionFailed(condition, "", __FILE__, __LINE__))
