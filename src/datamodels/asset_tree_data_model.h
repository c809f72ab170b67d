#pragma once

#include <datamodels/i_asset_model.h>
#include <datamodels/simple_tree_model.h>
#include <host/asset/inherits.h>
#include <host/reflection/reflected_object.h>

#include <string>
#include <unordered_map>

namespace Ozy {

/// A ready tree of objects with a name and an icon each, for plug-ins that just list objects. Abstract: a derived class
/// says what a double click does.
///
/// Roles: the name as `Qt::DisplayRole`, the icon as `Qt::DecorationRole`, the object as `SceneRoles::Object`. The other
/// names of `SceneRoles` have no values here. Rows cannot be edited.
///
/// Signals: those of `SimpleTreeModel`. Does not own the objects. Cost: finding an object is one look-up.
/// Intended: `removeRow` forgets the one object only. Remove children before their parents, and after `resetModel`
/// begin with a new model: `indexOf` of what went unsaid is undefined. Thread: GUI only.
class DATAMODELS_API AssetTreeDataModel : public SimpleTreeModel, public Ozy::Inherits<IAssetModel>
{
    Q_OBJECT

public:
    class AssetNode;

    /// What a row shows, as UTF-8.
    struct DataRolesDescription
    {
        std::string name;
        std::string icon;
    };

    AssetTreeDataModel();
    ~AssetTreeDataModel() override;

    QHash<int, QByteArray> roleNames() const override;

    /// Adds a row behind the others of `parent`, on the top level for an invalid one. An unknown parent throws
    /// `std::out_of_range`. Intended: for an object that has a row already, `indexOf` goes on to give the first.
    void addRow(const zarn::ReflectedObject& object, std::unique_ptr<DataRolesDescription> description,
                const zarn::ReflectedObject& parent);
    /// Removes the row with all below it. An unknown object throws `std::out_of_range`.
    void removeRow(const zarn::ReflectedObject& object);

    QAbstractItemModel* itemModel() override { return this; }
    /// Intended: nothing is shown differently.
    void updateHoverRole(const zarn::ReflectedObject&, bool) override {}
    QModelIndex mapIndex(const QModelIndex& index) const override { return index; }
    QModelIndex indexOf(const zarn::ReflectedObject& object) override;
    void onDoubleClicked(const QModelIndex&) override {}

private:
    Node* at(const zarn::ReflectedObject& object) const;

    std::unordered_map<zarn::ReflectedObject, Node*> m_rows;
};

/// A row of the tree.
class DATAMODELS_API AssetTreeDataModel::AssetNode : public SimpleTreeModel::Node
{
public:
    AssetNode(SimpleTreeModel& owner, zarn::ReflectedObject object, std::unique_ptr<DataRolesDescription> description);
    ~AssetNode() override;

    QVariant data(int role) const override;

private:
    zarn::ReflectedObject m_object;
    std::unique_ptr<DataRolesDescription> m_description;
};

} // namespace Ozy
