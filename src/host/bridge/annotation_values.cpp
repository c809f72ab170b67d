#include <host/bridge/annotation_values.h>

#include <host/reflection/meta.h>
#include <host/variant/variant_converter.h>

namespace qelm {
namespace {

QVariant asQVariant(const Variant& annotation, const zarn::BoundProperty& property)
{
    if (const auto* text = annotation.as<Meta::ToolTip>())
        return QString::fromStdString((*text)(property));
    if (const auto* text = annotation.as<Meta::Label::Text>())
        return QString::fromStdString((*text)(property));
    if (const auto* label = annotation.as<Meta::Label::Visible>())
        return (*label)(property);
    if (const auto* visible = annotation.as<Meta::Visible>())
        return (*visible)(property).value() != 0;
    if (const auto* precision = annotation.as<Meta::Precision>())
        return precision->digits;
    if (const auto* limits = annotation.as<Meta::MinMax>()) {
        const Meta::MinMax::Range range = limits->range(property);
        return range ? QVariantList{toQVariant(range->first), toQVariant(range->second)} : QVariant();
    }
    const QVariant plain = toQVariant(annotation);
    return plain.isValid() ? plain : QVariant(true);
}

} // namespace

QVariantMap annotationValues(const zarn::BoundProperty& property)
{
    QVariantMap values;
    const zarn::Annotations annotations = property.annotations();
    for (std::size_t index = 0; index < annotations.size(); ++index) {
        const Variant& annotation = annotations.at(index);
        values.insert(QString::fromLatin1(annotation.type()->name()), asQVariant(annotation, property));
    }
    return values;
}

} // namespace qelm
