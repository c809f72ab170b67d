#include <host/bridge/annotation_values.h>

#include <host/reflection/meta.h>
#include <host/variant/variant_converter.h>

namespace qelm {
namespace {

using Subject = const zarn::BoundProperty*;

/// Null, as QML has it, is an answer: that nothing is said about this property.
const QVariant nothing = QVariant::fromValue(nullptr);

QVariant textOf(const Meta::Detail::PropertyText& text, Subject subject)
{
    if (subject)
        return QString::fromStdString(text(*subject));
    return text.fixed() ? QString::fromStdString(*text.fixed()) : QVariant();
}

QVariant flagOf(const Meta::Detail::PropertyBool& flag, Subject subject)
{
    if (subject)
        return flag(*subject);
    return flag.fixed() ? *flag.fixed() : QVariant();
}

QVariant rangeOf(const Meta::Detail::PropertyRange& limits, Subject subject)
{
    if (!subject)
        return {};
    const auto range = limits.range(*subject);
    return range ? QVariantList{toQVariant(range->first), toQVariant(range->second)} : nothing;
}

QVariant visibilityOf(const Meta::Visible& visible, Subject subject)
{
    return subject ? visible(*subject).value() != 0 : QVariant();
}

QVariant defaultOf(const Meta::DefaultValue& value, Subject subject)
{
    if (!subject)
        return {};
    const QVariant standard = toQVariant(value.value(*subject));
    return standard.isValid() ? standard : nothing;
}

QVariant namesOf(const Meta::Dependent& dependent, Subject)
{
    QStringList names;
    for (const std::string& name : dependent.names)
        names << QString::fromStdString(name);
    return names;
}

QVariant digitsOf(const Meta::Precision& precision, Subject)
{
    return precision.digits;
}

QVariant widthOf(const Meta::Layout::FillWidth& width, Subject)
{
    return width.fills;
}

QVariant patternOf(const Meta::FilesFilter& filter, Subject)
{
    return QString::fromStdString(filter.pattern);
}

QVariant pathOf(const Meta::DialogInitialPath& initial, Subject)
{
    return QString::fromStdWString(initial.path);
}

/// Looks the annotation up among some types.
template <class... Types, class ValueOf>
bool read(QVariant& value, const Variant& annotation, Subject subject, ValueOf valueOf)
{
    const auto readOne = [&](const auto* typed) {
        if (typed)
            value = valueOf(*typed, subject);
        return typed != nullptr;
    };
    return (readOne(annotation.as<Types>()) || ...);
}

} // namespace

QVariant annotationValue(const Variant& annotation, const zarn::BoundProperty* subject)
{
    QVariant value;
    const bool isRead = read<Meta::ToolTip, Meta::Label::Text, Meta::Button::Text>(value, annotation, subject, &textOf)
        || read<Meta::Label::Visible, Meta::SceneItem>(value, annotation, subject, &flagOf)
        || read<Meta::MinMax, Meta::Validator>(value, annotation, subject, &rangeOf)
        || read<Meta::Visible>(value, annotation, subject, &visibilityOf)
        || read<Meta::DefaultValue>(value, annotation, subject, &defaultOf)
        || read<Meta::Dependent>(value, annotation, subject, &namesOf)
        || read<Meta::Precision>(value, annotation, subject, &digitsOf)
        || read<Meta::Layout::FillWidth>(value, annotation, subject, &widthOf)
        || read<Meta::FilesFilter>(value, annotation, subject, &patternOf)
        || read<Meta::DialogInitialPath>(value, annotation, subject, &pathOf);
    if (!isRead)
        value = toQVariant(annotation);
    return value.isValid() ? value : QVariant(true);
}

QVariantMap annotationValues(const zarn::BoundProperty& property)
{
    QVariantMap values;
    const zarn::Annotations annotations = property.annotations();
    for (std::size_t index = 0; index < annotations.size(); ++index) {
        const Variant& annotation = annotations.at(index);
        values.insert(QString::fromLatin1(annotation.type()->name()), annotationValue(annotation, &property));
    }
    return values;
}

} // namespace qelm
