#pragma once

#include <host/reflection/object.h>

#include <utility>

namespace zarn {

/// A value as an object of the reflection; a vector becomes a collection by a `SequentialCollectionMetaObject` of its
/// wrapper. A copy has the same value and no listeners.
template <class V>
class ReflectionWrapper : public Object
{
public:
    ReflectionWrapper() = default;
    explicit ReflectionWrapper(V value) : m_value(std::move(value)) {}

    V& operator*() { return m_value; }
    const V& operator*() const { return m_value; }
    V* operator->() { return &m_value; }
    const V* operator->() const { return &m_value; }

private:
    V m_value{};
};

} // namespace zarn
