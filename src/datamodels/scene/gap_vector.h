#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// A vector whose spare room lies where the last edit was: edits that follow one another through a long list cost a
/// move of the elements between them, not of all that come behind.
///
/// `T` is default constructible and movable. Positions are not checked.
template <class T>
class GapVector
{
public:
    std::size_t size() const { return m_slots.size() - m_gapSize; }
    bool empty() const { return size() == 0; }

    T& operator[](std::size_t position) { return m_slots[slotOf(position)]; }
    const T& operator[](std::size_t position) const { return m_slots[slotOf(position)]; }

    /// Makes room for so many more at once.
    void reserve(std::size_t count)
    {
        if (count > m_gapSize)
            grow(count);
    }

    void insert(std::size_t position, T value)
    {
        if (m_gapSize == 0)
            grow(1);
        moveGapTo(position);
        m_slots[m_gap] = std::move(value);
        ++m_gap;
        --m_gapSize;
    }

    /// The elements are destroyed after they have left.
    void erase(std::size_t position, std::size_t count = 1)
    {
        moveGapTo(position);
        for (; count > 0; --count) {
            [[maybe_unused]] const T erased = std::exchange(m_slots[m_gap + m_gapSize], T());
            ++m_gapSize;
        }
    }

private:
    std::size_t slotOf(std::size_t position) const { return position < m_gap ? position : position + m_gapSize; }

    /// By half, by four, or to a gap of what is wanted.
    void grow(std::size_t wanted)
    {
        if (m_gapSize > 0)
            moveGapTo(size());
        else
            m_gap = size();
        const std::size_t added = std::max({std::size_t(4), m_slots.size() / 2, wanted - m_gapSize});
        m_slots.resize(m_slots.size() + added);
        m_gapSize += added;
    }

    void moveGapTo(std::size_t position)
    {
        const auto slot = [this](std::size_t index) { return m_slots.begin() + static_cast<std::ptrdiff_t>(index); };
        if (position < m_gap)
            std::move_backward(slot(position), slot(m_gap), slot(m_gap + m_gapSize));
        else
            std::move(slot(m_gap + m_gapSize), slot(position + m_gapSize), slot(m_gap));
        m_gap = position;
    }

    std::vector<T> m_slots;
    std::size_t m_gap = 0;
    std::size_t m_gapSize = 0;
};
