#include <host/variant/variant_converter.h>

#include <host/variant/conversions.h>

#include <map>
#include <mutex>
#include <shared_mutex>
#include <typeindex>
#include <utility>
#include <vector>

namespace qelm {
namespace {

struct AddedConversions
{
    std::shared_mutex mutex;
    std::map<std::pair<const MetaType*, const MetaType*>, VariantConverter::Conversion> byTypes;
};

struct Bases
{
    std::shared_mutex mutex;
    std::map<std::type_index, std::map<std::type_index, VariantConverter::AddressCast>> ofClass;
};

// Filled by load-time objects of other libraries, so made at their first need.
AddedConversions& conversions()
{
    static AddedConversions instance;
    return instance;
}

Bases& bases()
{
    static Bases instance;
    return instance;
}

bool climb(const Bases& known, const void*& address, std::type_index from, std::type_index to)
{
    const auto ofClass = known.ofClass.find(from);
    if (ofClass == known.ofClass.end())
        return false;
    for (const auto& [base, cast] : ofClass->second) {
        const void* asBase = address ? cast(address) : nullptr;
        if (base == to || climb(known, asBase, base, to)) {
            address = asBase;
            return true;
        }
    }
    return false;
}

} // namespace

namespace Conversions {
namespace {

bool isBasic(Kind kind)
{
    return isNumber(kind) || isText(kind);
}

} // namespace

bool castAddress(const void*& address, const std::type_info& from, const std::type_info& to)
{
    const std::shared_lock lock(bases().mutex);
    return climb(bases(), address, from, to);
}

bool added(Variant& target, const Variant& source)
{
    VariantConverter::Conversion conversion;
    {
        const std::shared_lock lock(conversions().mutex);
        const auto found = conversions().byTypes.find({source.type(), target.type()});
        if (found == conversions().byTypes.end())
            return false;
        conversion = found->second;
    }
    return conversion(target, source);
}

bool convertElement(Variant& element, const MetaType& type)
{
    if (element.type() == &type || &type == &metaType<Variant>())
        return true;
    Variant converted = Variant::makeDefault(type);
    if (!VariantConverter::convert(converted, element))
        return false;
    element = std::move(converted);
    return true;
}

} // namespace Conversions

bool VariantConverter::convert(Variant& target, const Variant& source)
{
    using namespace Conversions;
    if (target.isVoid() || source.isVoid())
        return false;
    if (target.type() == source.type()) {
        target = source;
        return true;
    }

    const Kind from = source.type()->kind();
    const Kind to = target.type()->kind();
    if (isBasic(from) && isBasic(to))
        return basicToBasic(*target.type(), target.mutableAddress(), source);
    if (added(target, source))
        return true;
    if (to == Kind::QtVariant)
        return toQt(target, source);
    if (from == Kind::QtVariant)
        return fromQt(target, source);
    if (from == Kind::Pointer && to == Kind::Pointer)
        return pointerToPointer(target, source);
    return from == Kind::Sequence && to == Kind::Sequence && sequenceToSequence(target, source);
}

bool VariantConverter::convertBasic(const MetaType& type, void* value, const Variant& source)
{
    using namespace Conversions;
    return !source.isVoid() && isBasic(source.type()->kind()) && basicToBasic(type, value, source);
}

void VariantConverter::addConversion(const MetaType& from, const MetaType& to, Conversion conversion)
{
    const std::unique_lock lock(conversions().mutex);
    conversions().byTypes.insert_or_assign({&from, &to}, std::move(conversion));
}

void VariantConverter::addAddressCast(const std::type_info& from, const std::type_info& to, AddressCast cast)
{
    const std::unique_lock lock(bases().mutex);
    bases().ofClass[from].insert_or_assign(to, cast);
}

} // namespace qelm
