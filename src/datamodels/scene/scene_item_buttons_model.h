#pragma once

#include <datamodels/scene/asset_item_buttons_model.h>
#include <host/reflection/meta.h>

#include <functional>
#include <memory>
#include <vector>

class IAssetSelection;
class SceneItemButton;

/// The buttons of one row, in the order in which they were added; "posIndex" says where to show them. Display, decoration
/// and tool tip are the name, the icon and the tool tip; "iconType" is always "Default".
///
/// Signals: an insertion or removal a button. Buttons are made anew when their property changes: a delegate keeps none.
/// Bad input: an invalid index and an unknown role are logged and have no value; a row past the end throws
/// `std::out_of_range`. Owns its buttons. Thread: GUI only.
class DATAMODELS_API SceneItemButtonsModel : public AssetItemButtonsModel
{
public:
    explicit SceneItemButtonsModel(QObject* parent = nullptr);
    ~SceneItemButtonsModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    using Handler = std::function<void(IAssetSelection*, bool)>;

    /// With the property's own `Meta::IconButton` and `Meta::ToolTip`, or empty ones.
    SceneItemButton* addButton(zarn::BoundProperty property, const std::string& name, Handler handler);
    /// An empty name becomes that of the property.
    SceneItemButton* addButton(zarn::BoundProperty property, const std::string& name, Handler handler,
                               Meta::IconButton iconButton, Meta::ToolTip toolTip);
    /// Destroys it. What is not a button of this model fails an assertion.
    void removeButton(const SceneItemButton& button);
    /// Tells views that the values of a range of buttons have changed.
    void onItemDataChanged(const SceneItemButton& first, const SceneItemButton& last,
                           std::vector<AssetItemButtonsModel::Roles>&& roles);

private:
    SceneItemButton* buttonAt(const QModelIndex& index) const;
    int indexOf(const SceneItemButton& button) const;

    std::vector<std::unique_ptr<SceneItemButton>> m_buttons;
};
