#pragma once

#include <datamodels/asset_model.h>
#include <host/reflection/reflected_object.h>

#include <memory>

class SceneItem;

/// The scene outliner: a reflected object as a tree of those of its properties that are annotated `Meta::SceneItem`, with
/// the buttons that each row offers.
///
/// What a row shows it reads from properties with conventional names: "_objectName", "_objectIcon", "_objectState",
/// "_typeName", "_isEnabled", "_isModified"; each may be missing. Role names are Qt's own with "state" for
/// `Qt::CheckStateRole`, and those of `SceneRoles`, of which "count" has no value. "expanded" and "hoverRole" can be set;
/// setting the former sends nothing. The invalid index stands for the scene object itself, which is never a row.
///
/// The walk is eager and stops at hidden properties, at those annotated `Meta::Value`, and, with a message, at an object
/// that contains itself and below 512 levels.
///
/// Signals: a row that comes or goes is one insertion or removal, however much lies below it. A change of a property
/// rebuilds what lies below it. Setters and the model's teardown send nothing; `setObject` is one reset.
/// Intended: changes of the scene object's own name, icon, hover, state, enabling and modification are told with invalid
/// indexes, and states beyond Qt's three are passed on: `QAbstractItemModelTester` objects to both.
///
/// Does not own the objects; rows of one that died show the fallbacks. Bad indexes are invalid. Cost: `parent` and
/// `indexOf` do not search where nothing has moved; the constructor walks the whole scene under the wait cursor, for which
/// there has to be a `QGuiApplication`. Thread: GUI only.
class DATAMODELS_API SceneItemModel : public AssetModel
{
public:
    explicit SceneItemModel(zarn::ReflectedObject object, QObject* parent = nullptr);
    ~SceneItemModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;

    /// Invalid for the scene object itself, and for one without a row.
    QModelIndex indexOf(const zarn::ReflectedObject& object) override;
    void updateHoverRole(const zarn::ReflectedObject& object, bool hovered) override;

    /// Builds everything anew, also for the same object.
    void setObject(zarn::ReflectedObject object);
    const zarn::ReflectedObject& sceneObject() const { return m_sceneObject; }
    /// The object of a row; of the scene for the invalid index.
    const zarn::ReflectedObject& objectAt(const QModelIndex& index) const;

    /// Whether rows answer "rowButtonsModel". Nobody is told.
    void setRowButtonsVisible(bool visible) { m_rowButtonsVisible = visible; }
    bool isRowButtonsVisible() const { return m_rowButtonsVisible; }

protected:
    /// The scene object's own item for the invalid index.
    SceneItem* itemAt(const QModelIndex& index) const;
    /// A negative row is looked up. Invalid for the scene object's own item.
    QModelIndex toIndex(const SceneItem& item, int row);

private:
    friend class SceneItem;

    void onItemsAboutToBeAdded(const SceneItem& parent, int first, int last);
    void onItemsAdded();
    void onItemsAboutToBeRemoved(const SceneItem& parent, int first, int last);
    void onItemsRemoved();
    void onItemDataChanged(const SceneItem& first, const SceneItem& last, const QVector<int>& roles);
    QModelIndex indexOfParent(const SceneItem& parent) const;

    zarn::ReflectedObject m_sceneObject;
    std::unique_ptr<SceneItem> m_rootItem;
    int m_suppressCounter = 1; // the depth of structural work of which nobody is told row by row
    bool m_rowButtonsVisible = true;
};
