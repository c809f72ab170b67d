#include <datamodels/scene/asset_item_buttons_model.h>

AssetItemButtonsModel::AssetItemButtonsModel(QObject* parent) : QAbstractListModel(parent) {}

AssetItemButtonsModel::~AssetItemButtonsModel() = default;

QHash<int, QByteArray> AssetItemButtonsModel::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractListModel::roleNames();
    names.insert(ActionRole, "action");
    names.insert(IconColourRole, "iconColour");
    names.insert(CheckedRole, "checked");
    names.insert(PosIndexRole, "posIndex");
    names.insert(IconTypeRole, "iconType");
    names.insert(ShowOnlyOnHoverRole, "showOnlyOnHover");
    return names;
}
