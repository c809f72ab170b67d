#include "json_writer.h"
#include "panels/form/form_annotations.h"
#include "panels/texts.h"
#include "scene_outliner.h"

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene_roles.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object.h>
#include <host/undo/commit_changes_scope.h>

#include <algorithm>

namespace editor {
namespace {

zarn::ReflectedObject objectOf(const QModelIndex& index)
{
    return index.data(SceneRoles::Object).value<zarn::ReflectedObject>();
}

bool isRowLocked(const QModelIndex& index)
{
    const auto* object = zarn::cast<LevelObject>(objectOf(index));
    return (object && object->isLocked) || (index.parent().isValid() && isRowLocked(index.parent()));
}

/// Whether the collection that an object stands in can spare one.
bool isSpared(const zarn::ReflectedObject& object)
{
    const zarn::ReflectedObject collection = object.reference().object();
    const auto bounds = collection.annotations().find<Meta::CollectionSize>();
    return bounds.isValid()
        && bounds->value<Meta::CollectionSize>().bounds(collection).first < collection.propertyCount();
}

bool hasSelectedAncestor(const QModelIndex& index, const QItemSelectionModel& selection)
{
    const QModelIndex parent = index.parent();
    return parent.isValid() && (selection.isSelected(parent) || hasSelectedAncestor(parent, selection));
}

/// From the bottom up, so that what is still to come keeps its place.
bool liesBelow(const zarn::ReflectedObject& one, const zarn::ReflectedObject& other)
{
    return std::stoul(one.reference().name()) > std::stoul(other.reference().name());
}

} // namespace

bool SceneOutliner::isLocked(const zarn::ReflectedObject& object)
{
    const QModelIndex index = m_model.indexOf(object);
    return index.isValid() && isRowLocked(index);
}

/// The first of the rows that a button of a row acts on that is locked; invalid if none is.
QModelIndex SceneOutliner::lockedAmongPressed(int row) const
{
    const QModelIndex pressed = m_filter.mapToSource(m_rows.mapToSource(m_rows.index(row, 0)));
    const QModelIndexList rows = m_selection.isSelected(pressed) ? m_selection.selectedIndexes() : QModelIndexList{pressed};
    const auto locked = std::find_if(rows.begin(), rows.end(), &isRowLocked);
    return locked == rows.end() ? QModelIndex() : *locked;
}

void SceneOutliner::pressButton(int row, QObject* button, bool exchanges)
{
    auto* const pressed = qobject_cast<SceneItemButton*>(button);
    if (!pressed)
        return;
    const bool isAllowed = pressed->name() == QLatin1String("locked") || pressed->name() == QLatin1String("visible");
    const QModelIndex locked = isAllowed ? QModelIndex() : lockedAmongPressed(row);
    if (!locked.isValid())
        pressed->invoke(&m_assetSelection, exchanges);
    else
        m_document.setMessage(
            QStringLiteral("%1 is locked, or in a locked group. Unlock it first.").arg(locked.data().toString()));
}

bool SceneOutliner::canRemove() const
{
    const QModelIndexList selected = m_selection.selectedIndexes();
    return std::any_of(selected.begin(), selected.end(),
                       [](const QModelIndex& index) { return !isRowLocked(index) && isSpared(objectOf(index)); });
}

void SceneOutliner::remove()
{
    std::vector<zarn::ReflectedObject> removed;
    for (const QModelIndex& index : m_selection.selectedIndexes()) {
        if (!isRowLocked(index) && !hasSelectedAncestor(index, m_selection))
            removed.push_back(m_model.objectAt(index));
    }
    if (removed.empty())
        return;
    std::stable_sort(removed.begin(), removed.end(), &liesBelow);
    const int row = m_cursor.row();
    const std::string name = removed.size() == 1
                                 ? m_model.indexOf(removed.front()).data().toString().toStdString()
                                 : counted(static_cast<int>(removed.size()), "object", "objects").toStdString();
    {
        const Ozy::CommitChangesScope step("Delete " + name, m_document.history());
        for (const zarn::ReflectedObject& object : removed) {
            // Its own handle may tell of the place that it had before others went.
            const zarn::ReflectedObject current = m_model.objectAt(m_model.indexOf(object));
            if (isSpared(current))
                current.reference().object().removeProperty(current.reference().key());
        }
    }
    if (m_cursor.row() < 0)
        m_cursor.setRow(std::min(row, m_rows.rowCount() - 1));
}

void SceneOutliner::add(const QString& className)
{
    const zarn::ReflectedObject collection = collectionFor(m_filter.mapToSource(m_cursor.sourceIndex()));
    for (const zarn::MetaObject* metaObject : collection.annotations().valueOr<ElementClasses>().list()) {
        if (shortClassName(*metaObject) != className)
            continue;
        const qelm::Variant made = metaObject->createInstance();
        zarn::cast<LevelObject>(made)->moveTo(m_newPlace.x(), m_newPlace.y());
        zarn::BoundProperty added;
        {
            const Ozy::CommitChangesScope step("Add " + className.toLower().toStdString(), m_document.history());
            added = collection.addProperty({}, made);
        }
        selectObject(zarn::ReflectedObject(added));
        return;
    }
}

/// The objects of the group that a row is, or stands in; those of the level without a row.
zarn::ReflectedObject SceneOutliner::collectionFor(const QModelIndex& sourceIndex)
{
    auto* object = zarn::cast<LevelObject>(m_model.objectAt(sourceIndex));
    if (object && object->childObjects())
        return zarn::reflect(*object->childObjects());
    return collectionFor(sourceIndex.parent());
}

} // namespace editor
