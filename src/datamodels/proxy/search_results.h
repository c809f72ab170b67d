#pragma once

#include <datamodels/persistent_index_key.h>
#include <datamodels/proxy/search_key.h>

#include <QPersistentModelIndex>
#include <QVariant>

#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

namespace qelm::datamodels::proxy {

/// A role to sort by, and the value of `Qt::SortOrder`; any but 0 means descending.
struct SortRole
{
    int role;
    int order;
};

/// A result of a search: a row of the source, and what the predicate said of it.
struct SearchItem
{
    QPersistentModelIndex index;
    QVariant info;
};

/// The results of a search in the order of their rows, made for very many that arrive one by one.
///
/// They stand in chunks of a few hundred, whose counts are summed up in a tree: finding a row, the row of a
/// result and the place of a new one take logarithmic time, and an insertion moves one chunk. What a result
/// is sorted by is fetched once and kept.
class SearchResults
{
public:
    std::size_t size() const { return m_items.size(); }
    /// `row` below `size()`.
    const SearchItem& at(std::size_t row) const { return itemAt(row); }

    void clear();

    /// Where a new result belongs: behind all that sort ahead of it or are equal to it, at the end without
    /// sort roles. The next `insert` is to be with that row.
    std::size_t place(const SearchItem& item);
    void insert(std::size_t row, SearchItem item);

    /// Sorts by roles from now on, results that are here and such as come; equal ones stay in their order.
    void sort(const std::vector<SortRole>& roles);

    /// The first row with this source index, or -1. The first call costs a pass over all.
    int rowOf(const QModelIndex& source);
    /// Has what the row is sorted by fetched again when it is next compared.
    void forgetKeys(std::size_t row);

private:
    struct Chunk;
    struct Item : SearchItem
    {
        Chunk* chunk = nullptr;
        std::vector<SearchKey> keys; ///< one a sort role, or none yet
    };
    /// An item in a chunk, with its rank by the first sort role beside it, which a search for a place reads
    /// first: the items themselves are all over the memory.
    struct Entry
    {
        Item* item;
        qlonglong rank;
    };
    struct Chunk
    {
        std::size_t number = 0;
        std::vector<Entry> entries;
    };
    struct Place
    {
        std::size_t chunk;
        std::size_t offset;
    };

    Item& itemAt(std::size_t row) const;
    Place placeOf(std::size_t row) const;
    std::size_t firstRow(std::size_t chunk) const;
    std::size_t rowOfItem(const Item& item) const;
    const std::vector<SearchKey>& keysOf(Item& item) const;
    bool isAheadOrEqual(const Entry& entry, qlonglong rank) const;
    qlonglong rankOf(const std::vector<SearchKey>& keys);
    int compare(const std::vector<SearchKey>& left, const std::vector<SearchKey>& right) const;
    std::vector<SearchKey> fetchKeys(const QModelIndex& index) const;
    void fill(const std::vector<Item*>& items);
    void split(std::size_t number);
    void count(std::size_t chunk);
    void countAnew();

    std::deque<Item> m_items; ///< in the order of their arrival
    std::vector<std::unique_ptr<Chunk>> m_chunks;
    std::vector<std::size_t> m_sums; ///< a Fenwick tree over the sizes of the chunks
    std::vector<SortRole> m_roles;
    std::vector<SearchKey> m_newKeys; ///< of the item that was last placed
    bool m_isRanked = true;           ///< all values of the first sort role have ranks
    bool m_isHashed = false;
    std::unordered_multimap<QPersistentModelIndex, const Item*, PersistentIndexHash> m_byIndex;
};

} // namespace qelm::datamodels::proxy
