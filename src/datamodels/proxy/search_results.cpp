#include <datamodels/proxy/search_results.h>

#include <algorithm>
#include <bit>
#include <utility>

namespace qelm::datamodels::proxy {
namespace {

constexpr std::size_t fullChunk = 512;

} // namespace

void SearchResults::clear()
{
    m_chunks.clear();
    m_sums.clear();
    m_items.clear();
    m_byIndex.clear();
    m_isHashed = false;
    m_isRanked = true;
}

std::size_t SearchResults::place(const SearchItem& item)
{
    if (m_roles.empty())
        return size();
    m_newKeys = fetchKeys(item.index);
    const qlonglong rank = rankOf(m_newKeys);
    const auto isAhead = [this, rank](const Entry& existing) { return isAheadOrEqual(existing, rank); };
    const auto chunk = std::partition_point(m_chunks.begin(), m_chunks.end(),
                                            [&](const auto& each) { return isAhead(each->entries.back()); });
    if (chunk == m_chunks.end())
        return size();
    const auto& entries = (*chunk)->entries;
    const auto first = std::partition_point(entries.begin(), entries.end(), isAhead);
    return firstRow((*chunk)->number) + static_cast<std::size_t>(first - entries.begin());
}

void SearchResults::insert(std::size_t row, SearchItem item)
{
    Item& added = m_items.emplace_back();
    static_cast<SearchItem&>(added) = std::move(item);
    added.keys = std::exchange(m_newKeys, {});
    const Entry entry{&added, rankOf(added.keys)};
    if (m_isHashed)
        m_byIndex.emplace(added.index, &added);

    if (m_chunks.empty()) {
        m_chunks.push_back(std::make_unique<Chunk>());
        m_sums.push_back(0);
    }
    const Place place =
        row + 1 < size() ? placeOf(row) : Place{m_chunks.size() - 1, m_chunks.back()->entries.size()};
    Chunk& chunk = *m_chunks[place.chunk];
    added.chunk = &chunk;
    chunk.entries.insert(chunk.entries.begin() + static_cast<std::ptrdiff_t>(place.offset), entry);
    count(place.chunk);
    if (chunk.entries.size() > fullChunk)
        split(place.chunk);
}

/// The last chunk is cut at its end, since what arrives in order fills it there; others in the middle.
void SearchResults::split(std::size_t number)
{
    Chunk& left = *m_chunks[number];
    const bool isLast = number + 1 == m_chunks.size();
    const std::size_t kept = isLast ? fullChunk : fullChunk / 2;
    auto right = std::make_unique<Chunk>();
    right->entries.reserve(fullChunk + 1);
    right->entries.assign(left.entries.begin() + static_cast<std::ptrdiff_t>(kept), left.entries.end());
    left.entries.resize(kept);
    for (const Entry& entry : right->entries)
        entry.item->chunk = right.get();
    m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(number) + 1, std::move(right));
    countAnew();
}

void SearchResults::sort(const std::vector<SortRole>& roles)
{
    m_roles = roles;
    std::vector<Item*> items;
    items.reserve(size());
    for (const auto& chunk : m_chunks)
        for (const Entry& entry : chunk->entries)
            items.push_back(entry.item);
    for (Item* item : items)
        item->keys.clear();
    m_isRanked = true;
    std::stable_sort(items.begin(), items.end(),
                     [this](Item* left, Item* right) { return compare(keysOf(*left), keysOf(*right)) < 0; });
    fill(items);
}

void SearchResults::fill(const std::vector<Item*>& items)
{
    m_chunks.clear();
    for (Item* item : items) {
        if (m_chunks.empty() || m_chunks.back()->entries.size() == fullChunk / 2)
            m_chunks.push_back(std::make_unique<Chunk>());
        m_chunks.back()->entries.push_back({item, rankOf(keysOf(*item))});
        item->chunk = m_chunks.back().get();
    }
    countAnew();
}

int SearchResults::rowOf(const QModelIndex& source)
{
    if (!source.isValid())
        return -1;
    if (!std::exchange(m_isHashed, true)) {
        for (const Item& item : m_items)
            m_byIndex.emplace(item.index, &item);
    }
    // The same index gives the same record in the source's table, so this finds it whatever row it has by
    // now.
    const auto [first, last] = m_byIndex.equal_range(QPersistentModelIndex(source));
    int row = -1;
    for (auto found = first; found != last; ++found) {
        const int candidate = static_cast<int>(rowOfItem(*found->second));
        row = row < 0 ? candidate : std::min(row, candidate);
    }
    return row;
}

void SearchResults::forgetKeys(std::size_t row)
{
    itemAt(row).keys.clear();
    m_isRanked = false;
}

SearchResults::Item& SearchResults::itemAt(std::size_t row) const
{
    const Place place = placeOf(row);
    return *m_chunks[place.chunk]->entries[place.offset].item;
}

/// Walks down the tree of sums to the chunk that the row is in.
SearchResults::Place SearchResults::placeOf(std::size_t row) const
{
    std::size_t chunk = 0;
    for (std::size_t step = std::bit_floor(m_sums.size()); step > 0; step /= 2) {
        if (chunk + step <= m_sums.size() && m_sums[chunk + step - 1] <= row) {
            chunk += step;
            row -= m_sums[chunk - 1];
        }
    }
    return {chunk, row};
}

std::size_t SearchResults::firstRow(std::size_t chunk) const
{
    std::size_t row = 0;
    for (; chunk > 0; chunk &= chunk - 1)
        row += m_sums[chunk - 1];
    return row;
}

std::size_t SearchResults::rowOfItem(const Item& item) const
{
    const auto& entries = item.chunk->entries;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&item](const Entry& entry) { return entry.item == &item; });
    return firstRow(item.chunk->number) + static_cast<std::size_t>(found - entries.begin());
}

void SearchResults::count(std::size_t chunk)
{
    for (std::size_t place = chunk + 1; place <= m_sums.size(); place += place & (~place + 1))
        ++m_sums[place - 1];
}

void SearchResults::countAnew()
{
    m_sums.assign(m_chunks.size(), 0);
    for (std::size_t number = 0; number < m_chunks.size(); ++number) {
        m_chunks[number]->number = number;
        const std::size_t place = number + 1;
        m_sums[place - 1] += m_chunks[number]->entries.size();
        const std::size_t parent = place + (place & (~place + 1));
        if (parent <= m_sums.size())
            m_sums[parent - 1] += m_sums[place - 1];
    }
}

std::vector<SearchKey> SearchResults::fetchKeys(const QModelIndex& index) const
{
    std::vector<SearchKey> keys;
    keys.reserve(m_roles.size());
    for (const SortRole& role : m_roles)
        keys.emplace_back(index.data(role.role));
    return keys;
}

const std::vector<SearchKey>& SearchResults::keysOf(Item& item) const
{
    if (item.keys.size() != m_roles.size())
        item.keys = fetchKeys(item.index);
    return item.keys;
}

bool SearchResults::isAheadOrEqual(const Entry& entry, qlonglong rank) const
{
    if (m_isRanked && entry.rank != rank)
        return (entry.rank < rank) == (m_roles.front().order == Qt::AscendingOrder);
    return compare(keysOf(*entry.item), m_newKeys) <= 0;
}

qlonglong SearchResults::rankOf(const std::vector<SearchKey>& keys)
{
    const std::optional<qlonglong> rank = keys.empty() ? std::nullopt : keys.front().rank();
    m_isRanked = m_isRanked && (keys.empty() || rank);
    return rank.value_or(0);
}

int SearchResults::compare(const std::vector<SearchKey>& left, const std::vector<SearchKey>& right) const
{
    for (std::size_t i = 0; i < m_roles.size(); ++i) {
        const bool isAscending = m_roles[i].order == Qt::AscendingOrder;
        const int order = isAscending ? left[i].compare(right[i]) : right[i].compare(left[i]);
        if (order != 0)
            return order;
    }
    return 0;
}

} // namespace qelm::datamodels::proxy
