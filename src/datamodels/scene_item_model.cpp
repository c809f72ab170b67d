#include <datamodels/scene_item_model.h>

#include <datamodels/scene/scene_item.h>
#include <datamodels/scene/scene_item_buttons_model.h>
#include <datamodels/scene/scene_item_object.h>
#include <datamodels/scene_roles.h>
#include <host/base/profiler.h>
#include <host/base/stack_tracker.h>

#include <QCursor>
#include <QGuiApplication>

namespace {

class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

} // namespace

SceneItemModel::SceneItemModel(zarn::ReflectedObject object, QObject* parent)
    : AssetModel(parent), m_sceneObject(std::move(object))
{
    const RYK::Profiler::Scope scope("SceneItemModel::SceneItemModel");
    const WaitCursor cursor;
    m_rootItem = std::make_unique<SceneItem>(m_sceneObject, *this);
    --m_suppressCounter;
}

SceneItemModel::~SceneItemModel()
{
    const Ozy::StackTracker::Scope entry("SceneItemModel::~SceneItemModel");
    ++m_suppressCounter;
    m_rootItem.reset();
}

void SceneItemModel::setObject(zarn::ReflectedObject object)
{
    const RYK::Profiler::Scope scope("SceneItemModel::setObject");
    beginResetModel();
    ++m_suppressCounter;
    m_rootItem.reset();
    m_sceneObject = std::move(object);
    m_rootItem = std::make_unique<SceneItem>(m_sceneObject, *this);
    --m_suppressCounter;
    endResetModel();
}

QModelIndex SceneItemModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, 0, const_cast<SceneItem*>(itemAt(parent)->childAt(row)));
}

QModelIndex SceneItemModel::parent(const QModelIndex& child) const
{
    const SceneItem* const item = child.isValid() ? itemAt(child) : nullptr;
    return item && item->parent() ? indexOfParent(*item->parent()) : QModelIndex();
}

int SceneItemModel::rowCount(const QModelIndex& parent) const
{
    const SceneItem* const item = itemAt(parent);
    return item ? item->childrenCount() : 0;
}

int SceneItemModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant SceneItemModel::data(const QModelIndex& index, int role) const
{
    SceneItem* const item = itemAt(index);
    if (!item)
        return {};
    switch (role) {
    case Qt::DisplayRole: return item->name();
    case Qt::DecorationRole: return item->icon();
    case Qt::CheckStateRole: return item->state();
    case SceneRoles::Type: return item->objectType();
    case SceneRoles::Object: return item->object();
    case SceneRoles::Expanded: return item->isExpanded();
    case SceneRoles::Enabled: return item->isEnabled();
    case SceneRoles::RowButtonsModel:
        return m_rowButtonsVisible ? QVariant::fromValue<QAbstractListModel*>(item->iconButtonsModel()) : QVariant();
    case SceneRoles::Hover: return item->isHovered();
    case SceneRoles::Modified: return item->isModified();
    default: return {};
    }
}

bool SceneItemModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    SceneItem* const item = index.isValid() ? itemAt(index) : nullptr;
    if (!item)
        return false;
    switch (role) {
    case SceneRoles::Expanded: item->setExpanded(value.toBool()); return true;
    case SceneRoles::Hover: item->setHovered(value.toBool()); return true;
    default: return false;
    }
}

QHash<int, QByteArray> SceneItemModel::roleNames() const
{
    QHash<int, QByteArray> names = AssetModel::roleNames();
    names.insert(Qt::CheckStateRole, "state");
    return names;
}

QModelIndex SceneItemModel::indexOf(const zarn::ReflectedObject& object)
{
    const Ozy::StackTracker::Scope entry("SceneItemModel::indexOf");
    const SceneItem* const item = m_rootItem ? m_rootItem->findSceneItemByItsReflectedObject(object) : nullptr;
    return item ? toIndex(*item, -1) : QModelIndex();
}

void SceneItemModel::updateHoverRole(const zarn::ReflectedObject& object, bool hovered)
{
    if (SceneItem* const item = m_rootItem ? m_rootItem->findSceneItemByItsReflectedObject(object) : nullptr)
        item->setHovered(hovered);
}

const zarn::ReflectedObject& SceneItemModel::objectAt(const QModelIndex& index) const
{
    static const zarn::ReflectedObject none;
    const SceneItem* const item = itemAt(index);
    return item ? item->reflectedObject() : none;
}

SceneItem* SceneItemModel::itemAt(const QModelIndex& index) const
{
    if (!index.isValid())
        return m_rootItem.get();
    return index.model() == this ? static_cast<SceneItem*>(index.internalPointer()) : nullptr;
}

QModelIndex SceneItemModel::toIndex(const SceneItem& item, int row)
{
    if (!item.parent())
        return {};
    return createIndex(row < 0 ? item.selfIndexInParent() : row, 0, const_cast<SceneItem*>(&item));
}

QModelIndex SceneItemModel::indexOfParent(const SceneItem& parent) const
{
    return parent.parent() ? createIndex(parent.selfIndexInParent(), 0, const_cast<SceneItem*>(&parent)) : QModelIndex();
}

void SceneItemModel::onItemsAboutToBeAdded(const SceneItem& parent, int first, int last)
{
    beginInsertRows(indexOfParent(parent), first, last);
}

void SceneItemModel::onItemsAdded()
{
    endInsertRows();
}

void SceneItemModel::onItemsAboutToBeRemoved(const SceneItem& parent, int first, int last)
{
    beginRemoveRows(indexOfParent(parent), first, last);
}

void SceneItemModel::onItemsRemoved()
{
    endRemoveRows();
}

// Intended: with invalid indexes for the scene object itself.
void SceneItemModel::onItemDataChanged(const SceneItem& first, const SceneItem& last, const QVector<int>& roles)
{
    Q_EMIT dataChanged(toIndex(first, -1), toIndex(last, -1), roles);
}
