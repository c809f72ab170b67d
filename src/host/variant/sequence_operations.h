#pragma once

#include <host/variant/variant.h>

#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace qelm {
namespace Detail {

template <class T>
struct SequenceValueOperations
{
    using Element = typename T::value_type;

    static const MetaType& element() { return metaType<Element>(); }
    static std::size_t size(const void* value) { return static_cast<const T*>(value)->size(); }
    static Variant at(const void* value, std::size_t index)
    {
        return Variant(Element((*static_cast<const T*>(value))[index]));
    }
    static Variant make(const std::vector<Variant>& elements)
    {
        T sequence;
        sequence.reserve(elements.size());
        for (const Variant& one : elements) {
            if constexpr (std::is_same_v<Element, Variant>)
                sequence.push_back(one);
            else
                sequence.push_back(one.value<Element>());
        }
        return Variant(std::move(sequence));
    }
    static constexpr MetaType::SequenceOperations table{&element, &size, &at, &make};
};

} // namespace Detail
} // namespace qelm
