#include <host/images/image_revisions.h>

#include <host/images/image_watch.h>

#include <atomic>
#include <mutex>
#include <unordered_map>

namespace Tessen {
namespace {

struct Revisions
{
    std::atomic<bool> isUsed = false; // most programs never change a picture, and make many URLs
    std::mutex mutex;
    std::unordered_map<std::string, unsigned> byPath;
};

Revisions& revisions()
{
    static Revisions* const all = new Revisions; // URLs may be made until the very end
    return *all;
}

} // namespace

unsigned imageRevision(const QString& fileName)
{
    Revisions& all = revisions();
    if (!all.isUsed)
        return 0;
    const std::set<std::string> paths = ImageWatch::pathsOf(fileName);
    const std::lock_guard lock(all.mutex);
    unsigned sum = 0;
    for (const std::string& path : paths) {
        const auto found = all.byPath.find(path);
        sum += found == all.byPath.end() ? 0 : found->second;
    }
    return sum;
}

void raiseImageRevision(const std::string& path)
{
    Revisions& all = revisions();
    const std::lock_guard lock(all.mutex);
    ++all.byPath[path];
    all.isUsed = true;
}

} // namespace Tessen
