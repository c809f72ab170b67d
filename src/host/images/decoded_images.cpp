#include <host/images/decoded_images.h>

#include <algorithm>
#include <utility>

namespace Tessen {

void DecodedImages::request(const std::string& path, int image, int mip, IsWanted isWanted, Taker take)
{
    const InputFile file(path);
    if (!file.fault().empty()) {
        take(Decoded::refused(file.fault()));
        return;
    }
    const Key key{path, image, mip};
    if (const auto kept = findKept(key, file.stamp())) {
        take({kept, {}});
        return;
    }
    const std::shared_ptr<Decoding> decoding = join(key, file.stamp(), {std::move(isWanted), std::move(take)});
    if (!decoding)
        return;

    const Decoded decoded = decodeImage(path, image, mip, [this, &decoding] { return isWantedByAny(*decoding); });
    std::vector<Asker> askers;
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_decodings.find(key);
        if (found != m_decodings.end() && found->second == decoding)
            m_decodings.erase(found);
        if (decoded.image)
            keep(key, decoding->stamp, decoded.image);
        askers = std::exchange(decoding->askers, {});
    }
    for (const Asker& asker : askers)
        asker.take(decoded);
}

std::shared_ptr<const DecodedImage> DecodedImages::findKept(const Key& key, const FileStamp& stamp)
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_kept.find(key);
    if (found == m_kept.end())
        return nullptr;
    if (found->second.stamp != stamp) {
        giveUp(found);
        return nullptr;
    }
    ++m_counters.hits;
    m_uses.splice(m_uses.begin(), m_uses, found->second.use);
    return found->second.image;
}

/// The decoding that the caller is to do, or null when somebody does it already.
std::shared_ptr<DecodedImages::Decoding> DecodedImages::join(const Key& key, const FileStamp& stamp, Asker asker)
{
    const std::lock_guard lock(m_mutex);
    std::shared_ptr<Decoding>& decoding = m_decodings[key];
    if (decoding && decoding->stamp == stamp && !decoding->isAbandoned) {
        ++m_counters.hits;
        decoding->askers.push_back(std::move(asker));
        return nullptr;
    }
    ++m_counters.misses;
    decoding = std::make_shared<Decoding>();
    decoding->stamp = stamp;
    decoding->askers.push_back(std::move(asker));
    return decoding;
}

bool DecodedImages::isWantedByAny(Decoding& decoding) const
{
    const std::lock_guard lock(m_mutex);
    // Once the decoder has heard it, nobody may join any more.
    decoding.isAbandoned =
        decoding.isAbandoned
        || std::ranges::none_of(decoding.askers, [](const Asker& asker) { return asker.isWanted(); });
    return !decoding.isAbandoned;
}

void DecodedImages::keep(const Key& key, const FileStamp& stamp, std::shared_ptr<const DecodedImage> image)
{
    const auto bytes = static_cast<std::int64_t>(image->byteCount());
    if (const auto old = m_kept.find(key); old != m_kept.end())
        giveUp(old);
    if (bytes > m_capacity)
        return;
    makeRoom(bytes);
    const auto kept = m_kept.try_emplace(key).first;
    m_uses.push_front(&kept->first);
    kept->second = {stamp, std::move(image), m_uses.begin()};
    m_counters.bytes += bytes;
}

DecodedImages::KeptImages::iterator DecodedImages::giveUp(KeptImages::iterator kept)
{
    m_counters.bytes -= static_cast<std::int64_t>(kept->second.image->byteCount());
    m_uses.erase(kept->second.use);
    return m_kept.erase(kept);
}

void DecodedImages::makeRoom(std::int64_t bytes)
{
    while (!m_uses.empty() && m_counters.bytes + bytes > m_capacity) {
        giveUp(m_kept.find(*m_uses.back()));
        ++m_counters.evictions;
    }
}

void DecodedImages::drop(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    for (auto kept = m_kept.lower_bound({path, 0, 0}); kept != m_kept.end() && kept->first.path == path;)
        kept = giveUp(kept);
}

void DecodedImages::setCapacity(std::int64_t bytes)
{
    const std::lock_guard lock(m_mutex);
    m_capacity = std::max<std::int64_t>(bytes, 0);
    makeRoom(0);
}

DecodedImages::Counters DecodedImages::counters() const
{
    const std::lock_guard lock(m_mutex);
    return m_counters;
}

} // namespace Tessen
