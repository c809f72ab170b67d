#pragma once

#include <QPersistentModelIndex>

#include <cstddef>

/// What a hash table keyed by persistent indexes needs. Indexes of rows that have gone are all equal, but for their hash,
/// which is that of their identity: so each finds itself only.
struct PersistentIndexHash
{
    std::size_t operator()(const QPersistentModelIndex& index) const noexcept { return qHash(index); }
};

struct SamePersistentIndex
{
    bool operator()(const QPersistentModelIndex& left, const QPersistentModelIndex& right) const
    {
        return qHash(left) == qHash(right) && left == right;
    }
};
