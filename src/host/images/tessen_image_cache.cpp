#include <host/images/tessen_image_cache.h>

#include <host/base/debug.h>
#include <host/images/image_cache_private.h>
#include <host/images/image_facts.h>
#include <host/images/image_path.h>
#include <host/images/image_revisions.h>
#include <host/images/input_file.h>
#include <host/resources/resource_name.h>

#include <utility>

using Ozy::AsyncManager;
using Ozy::DebugMessageHelper;
namespace Priority = Ozy::Priority;

namespace {

constexpr unsigned priority = 1; // above that of pictures, which take long

/// Null, and a message, for what is no image; a name that nothing stands behind is told as progress only, since views
/// ask for names that are being typed.
std::shared_ptr<const TessenImageCache::ImageInfo> describe(const QString& fileName)
{
    const std::string path = Tessen::imagePath(fileName);
    if (path.empty())
        return nullptr;
    const Tessen::InputFile file(path);
    const Tessen::ImageFacts facts = file.fault().empty() ? Tessen::readImageFacts(file, path)
                                                          : Tessen::ImageFacts::refused(file.fault());
    if (facts.info)
        return std::make_shared<TessenImageCache::ImageInfo>(*facts.info);
    DebugMessageHelper(file.isMissing() ? Priority::progress : Priority::refusal, "images")
        .message("Image '%s' cannot be read: %s.\n", Ozy::FS::readable(path).c_str(),
                 Ozy::FS::readable(facts.fault).c_str());
    return nullptr;
}

} // namespace

TessenImageCache::Private::Private()
    : watch([this](const std::string& path) {
          images.drop(path);
          Tessen::raiseImageRevision(path);
      })
{
}

TessenImageCache::TessenImageCache() : d(std::make_unique<Private>()) {}
TessenImageCache::~TessenImageCache() = default;

AsyncManager::Job TessenImageCache::getImageInfo(const QString& fileName, InfoTask task)
{
    if (!OZY_ASSERT(task))
        return {};
    d->watch.noteInterest(fileName); // before the file is read, so that no change is missed
    return AsyncManager::async(priority, [fileName, task = std::move(task)](const AsyncManager::Job& job) {
        const auto info = describe(fileName);
        // The watcher stays until the job has ended, and keeps the description.
        job.connectStateChanged([info](AsyncManager::Job::State) {});
        return task(job, info.get());
    });
}

void TessenImageCache::registerListener(CacheListener* listener)
{
    d->watch.add(listener);
}

void TessenImageCache::unregisterListener(CacheListener* listener)
{
    d->watch.remove(listener);
}
