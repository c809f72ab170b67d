#pragma once

#include <host/base/debug.h>
#include <host/base/host_export.h>
#include <host/base/strings.h>
#include <host/variant/variant.h>

#include <boost/range/iterator_range.hpp>

#include <initializer_list>
#include <memory>
#include <vector>

namespace zarn {

/// Metadata of a class or property: values of small structs, in the order in which they were given, looked up by the
/// name of the struct. A struct may occur more than once.
///
/// Copies share their values; a copy costs a reference. Iterators keep what they walk over alive, so that a look-up in a
/// temporary is safe.
class DATAMODELS_HOST_API Annotations
{
    using Items = std::vector<qelm::Variant>;

public:
    /// Walks over the annotations of one name.
    class DATAMODELS_HOST_API untyped_iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = qelm::Variant;
        using difference_type = std::ptrdiff_t;
        using pointer = const qelm::Variant*;
        using reference = const qelm::Variant&;

        untyped_iterator() = default;

        bool isValid() const { return m_items && m_position < m_items->size(); }
        /// Null where the iterator is not valid.
        const qelm::Variant* get() const { return isValid() ? &(*m_items)[m_position] : nullptr; }
        reference operator*() const { return *get(); }
        pointer operator->() const { return get(); }
        untyped_iterator& operator++();
        untyped_iterator operator++(int);
        bool operator==(const untyped_iterator& other) const;

    private:
        friend class Annotations;

        untyped_iterator(std::shared_ptr<const Items> items, std::size_t position);

        std::shared_ptr<const Items> m_items;
        std::size_t m_position = 0;
    };

    Annotations() = default;
    Annotations(std::initializer_list<qelm::Variant> values);

    Annotations& operator+=(qelm::Variant value);
    Annotations& operator+=(const Annotations& others);

    bool empty() const { return !m_items || m_items->empty(); }
    std::size_t size() const { return m_items ? m_items->size() : 0; }
    /// In the order given; `index` must be below `size`.
    const qelm::Variant& at(std::size_t index) const { return (*m_items)[index]; }

    bool contain(Ozy::BasicStringRef<char> typeName) const { return m_items && position(*m_items, typeName, 0) < size(); }
    untyped_iterator find(Ozy::BasicStringRef<char> typeName) const;
    boost::iterator_range<untyped_iterator> equal_range(Ozy::BasicStringRef<char> typeName) const;

    template <class T>
    bool contain() const
    {
        return contain(nameOf<T>());
    }
    template <class T>
    untyped_iterator find() const
    {
        return find(nameOf<T>());
    }
    template <class T>
    boost::iterator_range<untyped_iterator> equal_range() const
    {
        return equal_range(nameOf<T>());
    }
    /// A copy of the first `T`, or a default one.
    template <class T>
    T valueOr(T otherwise = {}) const
    {
        const untyped_iterator found = find<T>();
        const T* value = found.isValid() ? found->template as<T>() : nullptr;
        return value ? *value : otherwise;
    }

private:
    template <class T>
    static const char* nameOf()
    {
        const char* str = qelm::metaType<T>().name();
        OZY_ASSERT_AS("str != 0", str);
        return str;
    }

    /// Of the first of that name from `from` on; past the end if there is none.
    static std::size_t position(const Items& items, Ozy::BasicStringRef<char> typeName, std::size_t from);
    Items& own();

    std::shared_ptr<Items> m_items;
};

} // namespace zarn
