#include <host/variant/variant.h>

namespace qelm {

CastError::CastError(const char* from, const char* to)
    : std::runtime_error(std::string("cannot cast \"") + from + "\" to \"" + to + '"')
{
}

void Variant::castError(const char* from, const char* to)
{
    throw CastError(from, to);
}

void Variant::swap(Variant& other) noexcept
{
    Variant taken(std::move(other));
    other.m_type = m_type;
    other.takePayload(*this);
    m_type = taken.m_type;
    takePayload(taken);
}

void* Variant::mutableAddress()
{
    if (m_type && m_type->operations().storage == MetaType::Storage::Box)
        m_type->operations().detach(m_room);
    return const_cast<void*>(address());
}

const void* Variant::pointee() const
{
    return m_type && m_type->operations().pointer ? m_type->operations().pointer->pointee(address())
                                                  : nullptr;
}

bool Variant::operator==(const Variant& other) const
{
    if (m_type != other.m_type)
        return false;
    if (!m_type)
        return true;
    if (const auto equals = m_type->operations().equals)
        return equals(address(), other.address());
    return address() == other.address();
}

Variant Variant::makeDefault(const MetaType& type)
{
    Variant variant;
    if (type.operations().makeDefault) {
        type.operations().makeDefault(variant.m_room);
        variant.m_type = &type;
    }
    return variant;
}

} // namespace qelm
