#pragma once

#include <host/images/decode_image.h>
#include <host/images/input_file.h>

#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

namespace Tessen {

/// Decoded images that are kept as long as there is room, those used least recently given up first.
///
/// An image belongs to one content of its file: when the file changes, it is decoded anew, and what was kept goes. Several
/// who ask for the same at once get one decoding. Threads: any; no lock is held while decoding or handing over.
class DecodedImages
{
public:
    struct Counters
    {
        std::int64_t hits = 0;      ///< asked for and kept, or being decoded for somebody else
        std::int64_t misses = 0;    ///< decoded
        std::int64_t evictions = 0; ///< given up for want of room
        std::int64_t bytes = 0;     ///< kept now
    };
    using Taker = std::function<void(const Decoded&)>;

    explicit DecodedImages(std::int64_t capacity) : m_capacity(capacity) {}

    /// Hands an image to `take`, before the call ends or, when another thread is decoding the same, from that thread. It
    /// is decoded on the calling thread. When `isWanted` of all who ask gives false, decoding ends with a fault; it is
    /// called under a lock.
    void request(const std::string& path, int image, int mip, IsWanted isWanted, Taker take);

    /// Gives up what is kept of a file.
    void drop(const std::string& path);
    /// In bytes; what is too much goes at once. An image that is larger by itself is not kept.
    void setCapacity(std::int64_t bytes);
    Counters counters() const;

private:
    struct Key
    {
        std::string path;
        int image;
        int mip;

        bool operator<(const Key& other) const
        {
            return std::tie(path, image, mip) < std::tie(other.path, other.image, other.mip);
        }
    };
    struct Kept
    {
        FileStamp stamp;
        std::shared_ptr<const DecodedImage> image;
        std::list<const Key*>::iterator use;
    };
    struct Asker
    {
        IsWanted isWanted;
        Taker take;
    };
    /// A decoding that goes on.
    struct Decoding
    {
        FileStamp stamp;
        std::vector<Asker> askers;
        bool isAbandoned = false; ///< it is ending without a result
    };
    using KeptImages = std::map<Key, Kept>;

    std::shared_ptr<const DecodedImage> findKept(const Key& key, const FileStamp& stamp);
    std::shared_ptr<Decoding> join(const Key& key, const FileStamp& stamp, Asker asker);
    bool isWantedByAny(Decoding& decoding) const;
    void keep(const Key& key, const FileStamp& stamp, std::shared_ptr<const DecodedImage> image);
    KeptImages::iterator giveUp(KeptImages::iterator kept);
    void makeRoom(std::int64_t bytes);

    mutable std::mutex m_mutex;
    std::int64_t m_capacity;
    Counters m_counters;
    KeptImages m_kept;
    std::list<const Key*> m_uses; ///< the latest first
    std::map<Key, std::shared_ptr<Decoding>> m_decodings;
};

} // namespace Tessen
