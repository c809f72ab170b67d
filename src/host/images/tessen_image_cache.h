#pragma once

#include <host/base/host_export.h>
#include <host/jobs/async_manager.h>

#include <QString>

#include <functional>
#include <memory>

/// Describes image files and tells when they change. What models need of images besides the pictures themselves, which
/// views load by the URLs of `TessenImageRequestDesc`.
///
/// There is one, `TessenImageProvider::imageCache()`; it lives as long as the program.
class DATAMODELS_HOST_API TessenImageCache
{
public:
    struct ImageInfo;
    struct CacheListener;
    using InfoTask = std::function<bool(const Ozy::AsyncManager::Job&, const ImageInfo*)>;

    /// Reads the description of a file, an absolute path or the name of a resource, from its header on a worker, and
    /// calls `task` there once. The pointer is null when the file is missing, damaged or no image; the log says why.
    ///
    /// The description lives until the job has ended and with it all jobs that were added to it: a task that hands the
    /// pointer on adds that job to the one it was given. Threads: any. Cost of PNG and DDS: opening the file.
    Ozy::AsyncManager::Job getImageInfo(const QString& fileName, InfoTask task);

    /// From now on the listener hears of changes of its file on the disk, once for each burst of them. Both belong to the
    /// GUI thread, as do the calls; null and a second registration do nothing. A listener may take itself or others
    /// away inside of a call, and does so before it dies.
    void registerListener(CacheListener* listener);
    void unregisterListener(CacheListener* listener);

    TessenImageCache(const TessenImageCache&) = delete;
    TessenImageCache& operator=(const TessenImageCache&) = delete;

private:
    friend class TessenImageProvider;
    struct Private;

    TessenImageCache();
    ~TessenImageCache();

    std::unique_ptr<Private> d;
};

/// What is known of an image file.
struct TessenImageCache::ImageInfo
{
    int width = 0;  ///< pixels of one image in full size; of one side of a cube map
    int height = 0; ///< the same
    int depth = 1;  ///< slices of a volume, otherwise 1
    int bytesPerPixel = 0;   ///< once decoded
    int bytesPerChannel = 0; ///< once decoded
    unsigned channelCount = 0;
    unsigned mipCount = 1; ///< levels with the full size; at least 1
    int imageCount = 1;    ///< 6 for a cube map
    QString compression;   ///< "None", "BC7", "Deflate" ...
    QString format;        ///< the pixels, "RGBA8", "RGB16F" ...
    float fileSize = 0;    ///< megabytes, of 2^20 bytes
    bool isCubeMap = false;
    bool isAtlas = false;
    unsigned lodMode = 0; ///< 0 for the full size alone, 1 with all mip levels down to one pixel, 2 with some of them
};

/// Hears when the file changes that it is interested in.
struct TessenImageCache::CacheListener
{
    /// The file of interest now, as it was given to `getImageInfo`; it may differ from call to call.
    virtual const QString& fileName() const = 0;
    /// The file has changed, come or gone. Thread: GUI, from the event loop.
    virtual void onImageChanged() = 0;

protected:
    ~CacheListener() = default;
};
