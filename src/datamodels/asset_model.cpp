#include <datamodels/asset_model.h>

#include <datamodels/scene_roles.h>

AssetModel::AssetModel(QObject* parent) : QAbstractItemModel(parent) {}

AssetModel::~AssetModel() = default;

QHash<int, QByteArray> AssetModel::roleNames() const
{
    return SceneRoles::namesBeside(QAbstractItemModel::roleNames());
}

ryk::Connection AssetModel::connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const
{
    return m_doubleClicked.connect(std::move(callback));
}

void AssetModel::onDoubleClicked(const QModelIndex& index)
{
    m_doubleClicked(index);
}
