#include <host/reflection/annotations.h>

namespace zarn {

Annotations::untyped_iterator::untyped_iterator(std::shared_ptr<const Items> items, Ozy::BasicStringRef<char> name)
    : m_items(std::move(items)), m_name(name)
{
    settle();
}

Annotations::untyped_iterator& Annotations::untyped_iterator::operator++()
{
    ++m_position;
    settle();
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

void Annotations::untyped_iterator::settle()
{
    while (isValid() && m_name != (*m_items)[m_position].type()->name())
        ++m_position;
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
    return {m_items, typeName};
}

boost::iterator_range<Annotations::untyped_iterator> Annotations::equal_range(Ozy::BasicStringRef<char> typeName) const
{
    return {find(typeName), untyped_iterator()};
}

Annotations::Items& Annotations::own()
{
    if (!m_items || m_items.use_count() > 1)
        m_items = m_items ? std::make_shared<Items>(*m_items) : std::make_shared<Items>();
    return *m_items;
}

} // namespace zarn
