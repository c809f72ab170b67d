#include "property_row.h"

#include "form_annotations.h"

#include <host/reflection/cast.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>

#include <algorithm>
#include <limits>

namespace editor {
namespace {

using Objects = std::vector<zarn::ReflectedObject>;

QByteArray editorFor(const zarn::BoundProperty& property)
{
    using qelm::Kind;
    const qelm::Variant value = property.get();
    switch (value.isVoid() ? Kind::Other : value.type()->kind()) {
    case Kind::Bool: return "check";
    case Kind::Signed:
    case Kind::Unsigned:
    case Kind::Real: return "number";
    case Kind::Enumeration: return "choice";
    case Kind::String:
    case Kind::QtString: break;
    default: return {};
    }
    const zarn::Annotations notes = property.annotations();
    return notes.contain<Colour>()           ? "colour"
         : notes.contain<Meta::FilesFilter>() ? "file"
         : notes.contain<Lines>()             ? "lines"
                                              : "text";
}

/// What an object tells of itself to lists and icons is no value to edit, unless it has a label.
bool isShown(const zarn::BoundProperty& property)
{
    if (property.name().front() == '_' && !property.annotations().contain<Meta::Label::Text>())
        return false;
    return (property.visibility() & zarn::meta_property::VisibilityFlag::Panel).value() != 0;
}

/// Whether the objects are of one class, so that they can be shown as one.
bool areAlike(const Objects& objects)
{
    return std::all_of(objects.begin(), objects.end(), [&objects](const zarn::ReflectedObject& object) {
        return object.isValid() && object.metaObject() == objects.front().metaObject();
    });
}

QString classLabel(const zarn::ReflectedObject& object)
{
    return QString::fromStdString(object.metaObject()->name()).section(QLatin1Char(':'), -1);
}

/// The values of a property of several objects, as objects.
Objects nestedObjects(const Objects& objects, const std::string& name)
{
    Objects nested;
    for (const zarn::ReflectedObject& object : objects)
        nested.emplace_back(object.findPropertyByName(name));
    return nested;
}

} // namespace

QString labelOf(const zarn::BoundProperty& property)
{
    const std::string label = property.annotations().valueOr<Meta::Label::Text>(property.name())(property);
    return QString::fromStdString(property.isMethod()
                                      ? property.annotations().valueOr<Meta::Button::Text>(label)(property)
                                      : label);
}

bool PropertyRow::looksLike(const PropertyRow& other) const
{
    return path == other.path && editor == other.editor && level == other.level && fields.size() == other.fields.size();
}

void PropertyRowBuilder::addObject(const Objects& objects, const zarn::ReflectedObject& merged, const QString& path,
                                   int level)
{
    PropertyRow methods;
    for (std::size_t index = 0; index < merged.propertyCount(); ++index) {
        const zarn::BoundProperty property = merged.propertyAt(index);
        if (!isShown(property))
            continue;
        const QString place =
            (path.isEmpty() ? QString() : path + QLatin1Char('.')) + QString::fromStdString(property.name());
        if (property.isMethod())
            methods.fields.push_back(property);
        else
            addProperty(objects, property, place, level);
    }
    if (methods.fields.empty())
        return;
    methods.path = path + QStringLiteral("()");
    methods.editor = "methods";
    methods.level = level;
    m_rows.push_back(methods);
}

void PropertyRowBuilder::addProperty(const Objects& objects, const zarn::BoundProperty& property, const QString& path,
                                     int level)
{
    PropertyRow row;
    row.path = path;
    row.label = row.stepLabel = labelOf(property);
    row.level = level;
    row.property = property;
    row.sample = objects.front().findPropertyByName(property.name());
    const Objects nested = nestedObjects(objects, property.name());
    if (nested.front().isValid() && areAlike(nested)) {
        addNested(nested, row);
        return;
    }
    row.editor = editorFor(row.sample);
    if (!row.editor.isEmpty())
        m_rows.push_back(row);
}

void PropertyRowBuilder::addNested(const Objects& nested, PropertyRow& row)
{
    const zarn::ReflectedObject merged = merge(nested);
    const bool isCollection = nested.front().annotations().contain<Meta::Collection>();
    if (!isCollection && row.sample.annotations().contain<Meta::Value>()) {
        addVector(merged, row);
        return;
    }
    row.editor = "heading";
    row.isOpen = !m_closed.contains(row.path);
    if (isCollection)
        row.collections = nested;
    m_rows.push_back(row);
    if (!row.isOpen)
        return;
    if (isCollection)
        addElements(nested, merged, PropertyRow(row));
    else
        addObject(nested, merged, row.path, row.level + 1);
}

void PropertyRowBuilder::addVector(const zarn::ReflectedObject& merged, PropertyRow& row)
{
    row.editor = "vector";
    for (std::size_t index = 0; index < merged.propertyCount(); ++index)
        row.fields.push_back(merged.propertyAt(index));
    m_rows.push_back(row);
}

void PropertyRowBuilder::addElements(const Objects& collections, const zarn::ReflectedObject& merged,
                                     const PropertyRow& heading)
{
    for (std::size_t index = 0; index < merged.propertyCount(); ++index) {
        const zarn::BoundProperty element = merged.propertyAt(index);
        const std::size_t before = m_rows.size();
        addProperty(collections, element, heading.path + QLatin1Char('.') + QString::fromStdString(element.name()),
                    heading.level + 1);
        if (m_rows.size() == before)
            continue;
        PropertyRow& row = m_rows[before];
        row.isElement = true;
        row.collections = collections;
        const zarn::ReflectedObject object(collections.front().propertyAt(index));
        if (row.sample.annotations().contain<Meta::Label::Text>())
            continue;
        row.label = object.isValid() ? classLabel(object) : QString::number(index + 1);
        row.stepLabel = object.isValid() ? row.label : heading.label + QLatin1Char(' ') + row.label;
    }
}

zarn::ReflectedObject PropertyRowBuilder::merge(const Objects& objects)
{
    m_selections.push_back(std::make_unique<zarn::MultiSelection>());
    for (const zarn::ReflectedObject& object : objects)
        m_selections.back()->merge(object, zarn::BoundProperty());
    return zarn::reflect(*m_selections.back());
}

std::pair<std::size_t, std::size_t> sizeBounds(const zarn::ReflectedObject& collection)
{
    const auto bounds = collection.annotations().find<Meta::CollectionSize>();
    if (!bounds.isValid())
        return {std::numeric_limits<std::size_t>::max(), 0};
    return bounds->value<Meta::CollectionSize>().bounds(collection);
}

} // namespace editor
