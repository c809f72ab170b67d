#include "form_annotations.h"
#include "property_rows.h"

#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/variant/variant_converter.h>

namespace editor {
namespace {

enum Role
{
    PathRole = Qt::UserRole + 1,
    LabelRole,
    EditorRole,
    LevelRole,
    TipRole,
    UnitRole,
    ValueRole,
    MixedRole,
    ReadOnlyRole,
    DigitsRole,
    LeastRole,
    MostRole,
    ChoicesRole,
    PatternRole,
    FolderRole,
    LinesRole,
    FieldsRole,
    OpenRole,
    CanAddRole,
    CanRemoveRole,
};

QVariant plain(const qelm::Variant& value)
{
    const bool isChoice = !value.isVoid() && value.type()->kind() == qelm::Kind::Enumeration;
    return isChoice ? QVariant(qelm::VariantConverter::convertTo<QString>(value).value_or(QString()))
                    : qelm::toQVariant(value);
}

QVariant boundOf(const zarn::BoundProperty& property, bool isMost)
{
    const auto range = property.annotations().valueOr<Meta::MinMax>().range(property);
    return range ? qelm::toQVariant(isMost ? range->second : range->first) : QVariant();
}

int digitsOf(const zarn::BoundProperty& property, const zarn::BoundProperty& sample)
{
    const qelm::Variant value = sample.get();
    const bool isReal = !value.isVoid() && value.type()->kind() == qelm::Kind::Real;
    return property.annotations().valueOr(Meta::Precision{isReal ? 3 : 0}).digits;
}

QVariantList fieldsOf(const PropertyRow& row)
{
    QVariantList fields;
    for (const zarn::BoundProperty& field : row.fields) {
        fields << QVariantMap{{"name", QString::fromStdString(field.name())},
                              {"label", labelOf(field)},
                              {"tip", QString::fromStdString(field.annotations().valueOr<Meta::ToolTip>()(field))},
                              {"value", field.isMethod() ? QVariant() : plain(field.get())},
                              {"isMixed", zarn::MultiSelection::isMixed(field)},
                              {"digits", digitsOf(field, field)},
                              {"least", boundOf(field, false)},
                              {"most", boundOf(field, true)}};
    }
    return fields;
}

QStringList choicesOf(const PropertyRow& row)
{
    QStringList choices;
    if (!row.collections.empty()) {
        const auto classes = row.collections.front().annotations().find<ElementClasses>();
        if (classes.isValid()) {
            for (const zarn::MetaObject* metaObject : classes->value<ElementClasses>().list())
                choices << QString::fromStdString(metaObject->name()).section(QLatin1Char(':'), -1);
        }
        return choices;
    }
    const qelm::Variant value = row.sample.get();
    if (!value.isVoid() && value.type()->operations().enumerators) {
        for (const qelm::MetaType::Enumerator& enumerator : value.type()->operations().enumerators())
            choices << QString::fromStdString(enumerator.name);
    }
    return choices;
}

/// How many elements; nothing if the collections differ.
QVariant countOf(const PropertyRow& row)
{
    if (row.isElement)
        return {};
    for (const zarn::ReflectedObject& collection : row.collections) {
        if (collection.propertyCount() != row.collections.front().propertyCount())
            return {};
    }
    return row.collections.empty() ? QVariant() : QVariant(int(row.collections.front().propertyCount()));
}

template <class Marker>
bool isOffered(const PropertyRow& row)
{
    for (const zarn::ReflectedObject& collection : row.collections) {
        const auto [fewest, most] = sizeBounds(collection);
        const bool hasRoom = row.isElement ? collection.propertyCount() > fewest : collection.propertyCount() < most;
        if (!hasRoom || !collection.annotations().contain<Marker>())
            return false;
    }
    return !row.collections.empty();
}

} // namespace

QVariant PropertyRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const PropertyRow& row = *at(index.row());
    const zarn::Annotations notes = row.property.annotations();
    const bool isHeading = row.editor == "heading";
    switch (role) {
    case PathRole: return row.path;
    case Qt::DisplayRole:
    case LabelRole: return row.label;
    case EditorRole: return QString::fromLatin1(row.editor);
    case LevelRole: return row.level;
    case TipRole: return QString::fromStdString(notes.valueOr<Meta::ToolTip>()(row.property));
    case UnitRole: return QString::fromStdString(notes.valueOr<Unit>().text);
    case ValueRole: return isHeading ? countOf(row) : row.editor == "vector" ? QVariant() : plain(row.property.get());
    case MixedRole:
        return isHeading ? !row.collections.empty() && !row.isElement && !countOf(row).isValid()
                         : zarn::MultiSelection::isMixed(row.property);
    case ReadOnlyRole: return !isWritable(row);
    case DigitsRole: return digitsOf(row.property, row.sample);
    case LeastRole: return boundOf(row.sample, false);
    case MostRole: return boundOf(row.sample, true);
    case ChoicesRole: return choicesOf(row);
    case PatternRole: return QString::fromStdString(notes.valueOr<Meta::FilesFilter>().pattern);
    case FolderRole: return QString::fromStdWString(notes.valueOr<Meta::DialogInitialPath>().path);
    case LinesRole: return notes.valueOr<Lines>().shown;
    case FieldsRole: return fieldsOf(row);
    case OpenRole: return row.isOpen;
    case CanAddRole: return isHeading && !row.isElement && !m_isReadOnly && isOffered<Meta::CollectionInsert>(row);
    case CanRemoveRole: return row.isElement && !m_isReadOnly && isOffered<Meta::CollectionRemove>(row);
    default: return {};
    }
}

QHash<int, QByteArray> PropertyRows::roleNames() const
{
    return {{PathRole, "path"},       {LabelRole, "label"},   {EditorRole, "editor"},     {LevelRole, "level"},
            {TipRole, "tip"},         {UnitRole, "unit"},     {ValueRole, "value"},       {MixedRole, "isMixed"},
            {ReadOnlyRole, "isReadOnly"}, {DigitsRole, "digits"}, {LeastRole, "least"},   {MostRole, "most"},
            {ChoicesRole, "choices"}, {PatternRole, "pattern"}, {FolderRole, "folder"},   {LinesRole, "lines"},
            {FieldsRole, "fields"},   {OpenRole, "isOpen"},   {CanAddRole, "canAdd"},     {CanRemoveRole, "canRemove"}};
}

bool PropertyRows::isWritable(const PropertyRow& row) const
{
    if (m_isReadOnly && !row.property.annotations().contain<Meta::IconButton>())
        return false;
    return row.editor == "vector" || row.editor == "methods" || !row.property.isReadOnly();
}

} // namespace editor
