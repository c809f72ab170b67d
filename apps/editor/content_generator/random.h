#pragma once

#include <cstdint>
#include <string_view>

namespace generator {

/// Numbers that depend on nothing but the seed's text: the distributions of the standard library may differ between
/// its makers.
class Random
{
public:
    explicit Random(std::string_view seed)
    {
        for (const char c : seed)
            m_state = (m_state ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    }

    std::uint32_t next()
    {
        m_state += 0x9e3779b97f4a7c15u;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return static_cast<std::uint32_t>((z ^ (z >> 31)) >> 32);
    }

    /// From `low` to `high`, both included.
    int between(int low, int high) { return low + static_cast<int>(next() % static_cast<unsigned>(high - low + 1)); }

    template <class List>
    const auto& pick(const List& list)
    {
        return list[next() % static_cast<std::uint32_t>(list.size())];
    }

private:
    std::uint64_t m_state = 0xcbf29ce484222325u;
};

} // namespace generator
