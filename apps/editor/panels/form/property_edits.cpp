#include "form_annotations.h"
#include "property_rows.h"

#include <host/base/debug.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/undo/changes_controller.h>

namespace editor {
namespace {

qelm::Variant madeElement(const zarn::ReflectedObject& collection, const QString& className)
{
    const auto classes = collection.annotations().find<ElementClasses>();
    if (!classes.isValid())
        return {};
    for (const zarn::MetaObject* metaObject : classes->value<ElementClasses>().list()) {
        if (QString::fromStdString(metaObject->name()).section(QLatin1Char(':'), -1) == className)
            return metaObject->createInstance();
    }
    return {};
}

} // namespace

bool PropertyRows::write(int row, const QVariant& value, int field)
{
    const PropertyRow* edit = at(row);
    if (!edit || !isWritable(*edit) || field >= static_cast<int>(edit->fields.size()))
        return false;
    const zarn::BoundProperty property = field < 0 ? edit->property : edit->fields[static_cast<std::size_t>(field)];
    bool isDone = false;
    {
        const Ozy::CommitChangesScope step(stepName(*edit), &m_history);
        isDone = property.set(qelm::Variant(value), {});
    }
    Q_EMIT edited();
    return isDone;
}

void PropertyRows::begin(int row)
{
    const PropertyRow* edit = at(row);
    if (edit && !m_gesture)
        m_gesture = std::make_unique<Ozy::CommitChangesScope>(stepName(*edit), &m_history);
}

void PropertyRows::end()
{
    m_gesture.reset();
}

void PropertyRows::call(int row, int method)
{
    const PropertyRow* edit = at(row);
    if (!edit || !isWritable(*edit) || method < 0 || method >= static_cast<int>(edit->fields.size()))
        return;
    const zarn::BoundProperty called = edit->fields[static_cast<std::size_t>(method)];
    {
        const std::string label = labelOf(called).toStdString();
        const Ozy::CommitChangesScope step(m_subject.toStdString() + ": " + label, &m_history);
        called.genericInvoke({}, 0, nullptr);
    }
    Q_EMIT edited();
}

void PropertyRows::add(int row, const QString& className)
{
    const PropertyRow* heading = at(row);
    if (!heading || !data(index(row), roleNames().key("canAdd")).toBool())
        return;
    m_closed.remove(heading->path);
    const std::vector<zarn::ReflectedObject> collections = heading->collections;
    const Ozy::CommitChangesScope step(stepName(*heading, "Add to "), &m_history);
    for (const zarn::ReflectedObject& collection : collections)
        collection.addProperty({}, madeElement(collection, className));
}

void PropertyRows::remove(int row)
{
    const PropertyRow* element = at(row);
    if (!element || !data(index(row), roleNames().key("canRemove")).toBool())
        return;
    const std::vector<zarn::ReflectedObject> collections = element->collections;
    const qelm::Variant key = element->property.key();
    const Ozy::CommitChangesScope step(stepName(*element, "Remove "), &m_history);
    for (const zarn::ReflectedObject& collection : collections)
        collection.removeProperty(key);
}

std::string PropertyRows::stepName(const PropertyRow& row, const char* verb) const
{
    return m_subject.toStdString() + ": " + verb + row.stepLabel.toStdString();
}

} // namespace editor
