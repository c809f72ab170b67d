#include <host/variant/conversions.h>

namespace qelm::Conversions {

bool pointerToPointer(Variant& target, const Variant& source)
{
    const MetaType& from = *source.type();
    const MetaType& to = *target.type();
    if (!MetaType::qualifiersMatch(from.pointerQualifiers(), to.pointerQualifiers()))
        return false;
    if (to.is(MetaType::IsSharedPointer) && !from.is(MetaType::IsSharedPointer))
        return false;

    const void* address = source.pointee();
    const bool related = *from.pointee() == *to.pointee() || *to.pointee() == typeid(void) ||
                         castAddress(address, *from.pointee(), *to.pointee());
    if (!related)
        return false;
    to.operations().pointer->assign(target.mutableAddress(),
                                    from.operations().pointer->owner(source.address()), address);
    return true;
}

} // namespace qelm::Conversions
