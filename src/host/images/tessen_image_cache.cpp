#include <host/images/tessen_image_cache.h>

#include <host/images/image_file.h>

#include <algorithm>
#include <utility>
#include <vector>

using Ozy::AsyncManager;

struct TessenImageCache::Private
{
    std::vector<CacheListener*> listeners;
};

TessenImageCache::TessenImageCache() : d(std::make_unique<Private>()) {}
TessenImageCache::~TessenImageCache() = default;

AsyncManager::Job TessenImageCache::getImageInfo(const QString& fileName, InfoTask task)
{
    return AsyncManager::async(0, [fileName, task = std::move(task)](const AsyncManager::Job& job) {
        const Tessen::ImageInfoPointer info = Tessen::readImageInfo(Tessen::imagePath(fileName));
        // The watcher stays until the job has ended, and keeps the description.
        job.connectStateChanged([info](AsyncManager::Job::State) {});
        return task(job, info.get());
    });
}

void TessenImageCache::registerListener(CacheListener* listener)
{
    if (listener && std::find(d->listeners.begin(), d->listeners.end(), listener) == d->listeners.end())
        d->listeners.push_back(listener);
}

void TessenImageCache::unregisterListener(CacheListener* listener)
{
    std::erase(d->listeners, listener);
}
