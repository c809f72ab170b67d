#pragma once

#include <host/base/strings.h>

#include <cstddef>

namespace Ozy {

/// The steps of an undo history by name, oldest first, undone ones included.
class UndoRedo
{
public:
    virtual ~UndoRedo() = default;

    virtual std::size_t historySize() const = 0;
    /// The name of a step in UTF-8, valid until the history changes; empty past the end.
    virtual BasicStringRef<char> barrierName(std::size_t step) const = 0;
};

} // namespace Ozy
