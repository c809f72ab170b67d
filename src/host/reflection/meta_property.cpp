#include <host/reflection/meta_property.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/variant/variant_converter.h>

namespace zarn {
namespace {

std::string nameOf(const qelm::Variant& key)
{
    return qelm::VariantConverter::convertTo<std::string>(key).value_or(std::string());
}

std::string argumentCountText(std::size_t accepted, std::size_t passed)
{
    return "function accepts " + std::to_string(accepted) + " args, but " + std::to_string(passed) + " were passed";
}

} // namespace

GenericFunctionError::GenericFunctionError(std::size_t accepted, std::size_t passed)
    : std::runtime_error(argumentCountText(accepted, passed))
{
}

MetaProperty::MetaProperty(Kind kind, qelm::Variant key, Annotations annotations, const qelm::MetaType* valueType)
    : m_kind(kind), m_valueType(valueType), m_key(std::move(key)), m_name(nameOf(m_key)), m_annotations(std::move(annotations))
{
}

MetaProperty::~MetaProperty() = default;

void MetaProperty::initialize()
{
    m_hasVisibility = m_annotations.contain<Meta::Visible>();
    m_hasStateless = m_annotations.contain<Meta::Stateless>();
}

bool MetaProperty::canHoldObject() const
{
    return m_kind == Kind::Value
        && (!m_valueType || m_valueType->pointee() || m_valueType->typeInfo() == typeid(ReflectedObject));
}

bool MetaProperty::isStateless(const BoundProperty& property) const
{
    if (m_hasStateless) {
        for (const qelm::Variant& annotation : m_annotations.equal_range<Meta::Stateless>()) {
            if (annotation.value<Meta::Stateless>()(property.object()) != 0)
                return true;
        }
    }
    return property.object().isStateless();
}

ryk::Flags<meta_property::VisibilityFlag> MetaProperty::visibility(const BoundProperty& property) const
{
    auto visibility = meta_property::fullyVisible;
    if (m_hasVisibility) {
        for (const qelm::Variant& annotation : m_annotations.equal_range<Meta::Visible>())
            visibility &= annotation.value<Meta::Visible>()(property);
    }
    return visibility;
}

qelm::Variant MetaProperty::get(const BoundProperty&) const
{
    return {};
}

qelm::Variant MetaProperty::converted(const qelm::Variant&) const
{
    return {};
}

bool MetaProperty::set(const BoundProperty&, const qelm::Variant&, ryk::Flags<SetterFlag>) const
{
    return false;
}

qelm::Variant MetaProperty::invoke(const BoundProperty&, std::size_t, const qelm::Variant*) const
{
    return {};
}

void meta_property_details::throwCastError(const MetaObject* metaObject, const char* wanted)
{
    qelm::Variant::castError(metaObject ? metaObject->name().c_str() : "void", wanted);
}

} // namespace zarn
