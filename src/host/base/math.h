#pragma once

namespace Ozy {

/// A point or a direction in the engine's space.
struct Vector3
{
    float x = 0;
    float y = 0;
    float z = 0;

    bool operator==(const Vector3&) const = default;
};

/// A rectangle; right and bottom lie outside of it.
template <class T>
struct RectT
{
    T left{};
    T right{};
    T top{};
    T bottom{};

    bool operator==(const RectT&) const = default;
};

} // namespace Ozy
