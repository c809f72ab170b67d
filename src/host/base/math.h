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

} // namespace Ozy
