#pragma once

#include <host/reflection/bound_property.h>
#include <host/reflection/multi_selection.h>

#include <QByteArray>
#include <QSet>
#include <QStringList>

#include <memory>
#include <vector>

namespace editor {

/// What a value, or the button of a method, is called.
QString labelOf(const zarn::BoundProperty& property);

/// One row of a form.
struct PropertyRow
{
    QString path;
    QString label;
    QString stepLabel; ///< in the history
    /// "check", "number", "text", "lines", "colour", "choice", "file", "vector", "heading", "methods"
    QByteArray editor;
    int level = 0;
    zarn::BoundProperty property;                 ///< of all objects as one
    zarn::BoundProperty sample;                   ///< of the first object
    std::vector<zarn::BoundProperty> fields;      ///< of a vector, or the methods
    std::vector<zarn::ReflectedObject> collections; ///< that the heading is for, or that the element stands in
    bool isElement = false;
    bool isOpen = true;

    /// Whether it can stay in its place with other objects behind it.
    bool looksLike(const PropertyRow& other) const;
};

/// Describes objects as rows.
class PropertyRowBuilder
{
public:
    /// The merged objects that the rows are about.
    using Selections = std::vector<std::unique_ptr<zarn::MultiSelection>>;

    PropertyRowBuilder(const QSet<QString>& closed, Selections& selections)
        : m_closed(closed), m_selections(selections)
    {
    }

    void addObject(const std::vector<zarn::ReflectedObject>& objects, const zarn::ReflectedObject& merged,
                   const QString& path, int level);
    std::vector<PropertyRow> take() { return std::move(m_rows); }

private:
    using Objects = std::vector<zarn::ReflectedObject>;

    void addProperty(const Objects& objects, const zarn::BoundProperty& property, const QString& path, int level);
    void addNested(const Objects& nested, PropertyRow& row);
    void addVector(const zarn::ReflectedObject& merged, PropertyRow& row);
    void addElements(const Objects& collections, const zarn::ReflectedObject& merged, const PropertyRow& heading);
    zarn::ReflectedObject merge(const Objects& objects);

    const QSet<QString>& m_closed;
    Selections& m_selections;
    std::vector<PropertyRow> m_rows;
};

/// The bounds of a collection's size.
std::pair<std::size_t, std::size_t> sizeBounds(const zarn::ReflectedObject& collection);

} // namespace editor
