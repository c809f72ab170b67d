#include <datamodels/i_asset_proxy_model.h>

void IAssetProxyModel::updateHoverRole(const zarn::ReflectedObject& object, bool hovered)
{
    if (m_sourceAssetModel)
        m_sourceAssetModel->updateHoverRole(object, hovered);
}

QModelIndex IAssetProxyModel::mapIndex(const QModelIndex& index) const
{
    return m_sourceAssetModel ? doMapIndex(m_sourceAssetModel->mapIndex(index)) : QModelIndex();
}

QModelIndex IAssetProxyModel::indexOf(const zarn::ReflectedObject& object)
{
    return m_sourceAssetModel ? doMapIndex(m_sourceAssetModel->indexOf(object)) : QModelIndex();
}

ryk::Connection IAssetProxyModel::connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const
{
    return m_sourceAssetModel ? m_sourceAssetModel->connectOnDoubleClicked(std::move(callback)) : ryk::Connection();
}

void IAssetProxyModel::onDoubleClicked(const QModelIndex& index)
{
    if (m_sourceAssetModel)
        m_sourceAssetModel->onDoubleClicked(mapToSourceIndex(index));
}
