#include <host/base/stack_tracker.h>

#include <algorithm>
#include <vector>

namespace Ozy {
namespace {

struct Entry
{
    const char* name;
    const char* file;
    int line;
};

thread_local std::vector<Entry> entries;

} // namespace

void StackTracker::push(const char* name, const char* file, int line)
{
    entries.push_back({name, file, line});
}

void StackTracker::pop()
{
    if (!entries.empty())
        entries.pop_back();
}

std::string StackTracker::describe()
{
    std::string text;
    std::for_each(entries.rbegin(), entries.rend(), [&text](const Entry& entry) {
        text.append("\n  in ").append(entry.name).append(" (").append(entry.file).append(":");
        text.append(std::to_string(entry.line)).append(")");
    });
    return text;
}

} // namespace Ozy
