#include <host/reflection/annotations.h>

namespace zarn {

Annotations::untyped_iterator::untyped_iterator(std::shared_ptr<const Items> items, std::size_t position)
    : m_items(std::move(items)), m_position(position)
{
}

Annotations::untyped_iterator& Annotations::untyped_iterator::operator++()
{
    m_position = position(*m_items, get()->type()->name(), m_position + 1);
    return *this;
}

Annotations::untyped_iterator Annotations::untyped_iterator::operator++(int)
{
    untyped_iterator before = *this;
    ++*this;
    return before;
}

bool Annotations::untyped_iterator::operator==(const untyped_iterator& other) const
{
    return isValid() == other.isValid() && (!isValid() || get() == other.get());
}

Annotations::Annotations(std::initializer_list<qelm::Variant> values)
{
    for (const qelm::Variant& value : values)
        *this += value;
}

Annotations& Annotations::operator+=(qelm::Variant value)
{
    if (!value.isVoid())
        own().push_back(std::move(value));
    return *this;
}

Annotations& Annotations::operator+=(const Annotations& others)
{
    if (others.empty())
        return *this;
    if (empty()) {
        m_items = others.m_items;
        return *this;
    }
    const auto added = others.m_items;
    Items& items = own();
    items.insert(items.end(), added->begin(), added->end());
    return *this;
}

Annotations::untyped_iterator Annotations::find(Ozy::BasicStringRef<char> typeName) const
{
    return m_items ? untyped_iterator(m_items, position(*m_items, typeName, 0)) : untyped_iterator();
}

boost::iterator_range<Annotations::untyped_iterator> Annotations::equal_range(Ozy::BasicStringRef<char> typeName) const
{
    return {find(typeName), untyped_iterator()};
}

std::size_t Annotations::position(const Items& items, Ozy::BasicStringRef<char> typeName, std::size_t from)
{
    while (from < items.size() && items[from].type()->name() != typeName)
        ++from;
    return from;
}

Annotations::Items& Annotations::own()
{
    if (!m_items || m_items.use_count() > 1)
        m_items = m_items ? std::make_shared<Items>(*m_items) : std::make_shared<Items>();
    return *m_items;
}

} // namespace zarn
