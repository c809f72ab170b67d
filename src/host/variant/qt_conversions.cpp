#include <host/variant/conversions.h>
#include <host/variant/variant_converter.h>

#include <QByteArray>
#include <QVariantList>

#include <optional>

namespace qelm {
namespace Conversions {
namespace {

QVariant ofNumber(const Variant& source)
{
    const MetaType& type = *source.type();
    if (type.kind() == Kind::Bool)
        return *static_cast<const bool*>(source.address());
    if (type.kind() == Kind::Real)
        return type.size() == sizeof(float) ? QVariant(*static_cast<const float*>(source.address()))
                                            : QVariant(*static_cast<const double*>(source.address()));
    if (const auto small = VariantConverter::convertTo<int>(source); small && type.size() <= sizeof(int))
        return *small;
    if (type.kind() == Kind::Signed || type.is(MetaType::IsSignedEnumeration))
        return *VariantConverter::convertTo<qlonglong>(source);
    return type.size() <= sizeof(uint) ? QVariant(*VariantConverter::convertTo<uint>(source))
                                       : QVariant(*VariantConverter::convertTo<qulonglong>(source));
}

std::optional<QVariant> ofSequence(const Variant& source)
{
    const auto& sequence = *source.type()->operations().sequence;
    QVariantList list;
    for (std::size_t i = 0, count = sequence.size(source.address()); i < count; ++i) {
        Variant element{QVariant()};
        if (!VariantConverter::convert(element, sequence.at(source.address(), i)))
            return {};
        list << element.value<QVariant>();
    }
    return list;
}

std::optional<QVariant> ofPointer(const Variant& source)
{
    const MetaType& type = *source.type();
    const bool readable = MetaType::qualifiersMatch(type.pointerQualifiers(), MetaType::Qualifier::Const);
    if (*type.pointee() == typeid(QVariant) && readable && source.pointee())
        return *static_cast<const QVariant*>(source.pointee());
    return {};
}

std::optional<QVariant> ofAnything(const Variant& source)
{
    const MetaType& type = *source.type();
    if (isNumber(type.kind()))
        return ofNumber(source);
    if (isText(type.kind()))
        return *VariantConverter::convertTo<QString>(source);
    if (type.kind() == Kind::Sequence)
        return ofSequence(source);
    if (type.kind() == Kind::Pointer) {
        if (auto pointed = ofPointer(source))
            return pointed;
    }
    if (type.operations().qt)
        return QVariant(type.operations().qt->id(), source.address());
    return {};
}

template <class T>
Variant contentAs(const QVariant& value)
{
    return Variant(*static_cast<const T*>(value.constData()));
}

// What the rules for numbers and texts can go on with; void for all else.
Variant basicContent(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool:
        return contentAs<bool>(value);
    case QMetaType::Int:
        return contentAs<int>(value);
    case QMetaType::UInt:
        return contentAs<uint>(value);
    case QMetaType::LongLong:
        return contentAs<qlonglong>(value);
    case QMetaType::ULongLong:
        return contentAs<qulonglong>(value);
    case QMetaType::Long:
        return contentAs<long>(value);
    case QMetaType::ULong:
        return contentAs<ulong>(value);
    case QMetaType::Short:
        return contentAs<short>(value);
    case QMetaType::UShort:
        return contentAs<ushort>(value);
    case QMetaType::Char:
        return contentAs<char>(value);
    case QMetaType::SChar:
        return contentAs<signed char>(value);
    case QMetaType::UChar:
        return contentAs<uchar>(value);
    case QMetaType::Float:
        return contentAs<float>(value);
    case QMetaType::Double:
        return contentAs<double>(value);
    case QMetaType::QString:
        return contentAs<QString>(value);
    case QMetaType::QByteArray:
        return Variant(static_cast<const QByteArray*>(value.constData())->toStdString());
    default:
        if (QMetaType::typeFlags(value.userType()) & QMetaType::IsEnumeration)
            return Variant(value.toLongLong());
        return Variant();
    }
}

bool listToSequence(Variant& target, const QVariant& value)
{
    const auto& sequence = *target.type()->operations().sequence;
    std::vector<Variant> elements;
    for (const QVariant& one : value.toList()) {
        Variant element(one);
        if (!convertElement(element, sequence.element()))
            return false;
        elements.push_back(std::move(element));
    }
    target = sequence.make(elements);
    return true;
}

bool byQtsRules(Variant& target, QVariant value)
{
    const auto* qt = target.type()->operations().qt;
    if (!qt || !value.canConvert(qt->id()) || !value.convert(qt->id()))
        return false;
    qt->assign(target.mutableAddress(), value.constData());
    return true;
}

} // namespace

bool toQt(Variant& target, const Variant& source)
{
    std::optional<QVariant> value = ofAnything(source);
    if (value)
        target = Variant(*std::move(value));
    return value.has_value();
}

bool fromQt(Variant& target, const Variant& source)
{
    const auto& value = *static_cast<const QVariant*>(source.address());
    const MetaType& type = *target.type();
    if (const auto* qt = type.operations().qt; qt && qt->id() == value.userType()) {
        qt->assign(target.mutableAddress(), value.constData());
        return true;
    }
    if (value.userType() == qMetaTypeId<Variant>())
        return VariantConverter::convert(target, *static_cast<const Variant*>(value.constData()));
    if (const Variant basic = basicContent(value);
        !basic.isVoid() && VariantConverter::convert(target, basic))
        return true;
    if (type.kind() == Kind::Sequence && value.canConvert<QVariantList>() && !value.canConvert<QString>())
        return listToSequence(target, value);
    if (type.kind() == Kind::Sequence && value.userType() == QMetaType::QStringList)
        return listToSequence(target, value);
    if (isNumber(type.kind()))
        return false; // Qt would cut a number to size
    if (type.kind() == Kind::String && value.canConvert<QString>())
        return VariantConverter::convert(target, Variant(value.toString()));
    return byQtsRules(target, value);
}

} // namespace Conversions

QVariant toQVariant(const Variant& value)
{
    if (const QVariant* held = value.as<QVariant>())
        return *held;
    Variant converted{QVariant()};
    return VariantConverter::convert(converted, value) ? converted.value<QVariant>() : QVariant();
}

} // namespace qelm
