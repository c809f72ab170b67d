#pragma once

#include "tree_rows.h"

namespace editor {

/// A row that shows. A closed branch has no nodes below it.
struct TreeRows::Node
{
    Node* parent = nullptr;
    std::vector<std::unique_ptr<Node>> children;
    bool isOpen = false;
    int level = -1;

    // Where it was last found among its siblings and among the rows; looked up anew when it is no longer there.
    mutable int position = 0;
    mutable int row = -1;

    int positionInParent() const
    {
        const auto& siblings = parent->children;
        const auto found = static_cast<std::size_t>(position);
        if (found >= siblings.size() || siblings[found].get() != this) {
            for (std::size_t i = 0; i < siblings.size(); ++i)
                siblings[i]->position = static_cast<int>(i);
        }
        return position;
    }
};

} // namespace editor
