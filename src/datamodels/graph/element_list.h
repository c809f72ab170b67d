#pragma once

#include <QList>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace datamodels {

/// A list of distinct elements, not owned, that finds an element's row without walking the list.
///
/// Each element has a row hint, which changes before it leave behind. A look-up verifies the hint, searches
/// outward from it, and mends it: exact always, and as cheap as the element has drifted since it was looked
/// up last.
template <class T>
class ElementList
{
public:
    const QList<T*>& elements() const { return m_elements; }
    int size() const { return m_elements.size(); }
    bool empty() const { return m_elements.empty(); }
    bool contains(T* element) const { return m_hints.count(element) != 0; }

    /// The element at a row, null outside the list.
    T* value(int row) const { return m_elements.value(row); }

    /// The row of an element, -1 if it is not in the list.
    int rowOf(T* element) const
    {
        const auto hint = m_hints.find(element);
        if (hint == m_hints.end())
            return -1;

        const int start = std::min(hint->second, m_elements.size()); // the list may have become shorter
        for (int distance = 0; distance <= m_elements.size(); ++distance) {
            for (const int row : {start - distance, start + distance}) {
                if (m_elements.value(row) == element)
                    return hint->second = row;
            }
        }
        return -1;
    }

    void insert(int row, T* element)
    {
        m_elements.insert(row, element);
        m_hints[element] = row;
    }

    void removeAt(int row)
    {
        m_hints.erase(m_elements.at(row));
        m_elements.removeAt(row);
    }

    void move(int from, int to) { m_elements.move(from, to); }

    void assign(QList<T*> elements)
    {
        m_elements = std::move(elements);
        m_hints.clear();
        m_hints.reserve(static_cast<std::size_t>(m_elements.size()));
        for (int row = 0; row < m_elements.size(); ++row)
            m_hints[m_elements.at(row)] = row;
    }

private:
    QList<T*> m_elements;
    mutable std::unordered_map<T*, int> m_hints;
};

} // namespace datamodels
