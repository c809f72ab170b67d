#pragma once

#include <host/images/decoded_images.h>
#include <host/images/image_watch.h>

/// The service as the stand-alone host does it.
struct TessenImageCache::Private
{
    static constexpr std::int64_t capacity = std::int64_t(256) << 20;

    Private();

    Tessen::DecodedImages images{capacity};
    Tessen::ImageWatch watch;
};
