#pragma once

#include <host/images/tessen_image_cache.h>
#include <host/images/tessen_image_provider.h>
#include <host/jobs/async_manager.h>

#include <QString>

#include <utility>

namespace datamodels {

/// What the image cache says of a file, while a model takes it in. Without `info` there is no description of the file.
struct ImageAnswer
{
    const TessenImageCache::ImageInfo* info;
    const Ozy::AsyncManager::Job& job;

    /// Whether a slot that heard of this answer has asked anew meanwhile: the rest of it is not wanted.
    bool isSuperseded() const { return job.state() == Ozy::AsyncManager::Job::Cancelled; }
};

/// Asks the image cache about a file on behalf of `model`, whose `update` gets the answer on the GUI thread, unless `job`
/// is cancelled or asked anew before. `job` is the one query that the model has at a time.
///
/// Waits for the former query to stop; may be called from a slot that its answer reached. The model cancels `job`, and
/// waits, before it dies.
template <class Model>
void queryImage(Ozy::AsyncManager::Job& job, const QString& fileName, Model* model)
{
    using Job = Ozy::AsyncManager::Job;

    // Runs on a thread of the cache, so it only carries the model's address on.
    const auto hand = [model](const Job& query, const TessenImageCache::ImageInfo* info) {
        query += Ozy::AsyncManager::sync(false, [model, info](const Job& answer) {
            model->update(ImageAnswer{info, answer});
            return true;
        });
        return true;
    };
    // The new query comes first: a cache that has the file at hand need not forget it in between.
    Job query = TessenImageProvider::imageCache().getImageInfo(fileName, hand);
    job.cancel(true);
    job = std::move(query);
}

} // namespace datamodels
