#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/i_asset_model.h>

/// An asset model on top of another one: it forwards what it is asked, with indexes mapped on the way.
///
/// The source asset model is not owned; without one, indexes are invalid, connections dead, and nothing is forwarded.
class DATAMODELS_API IAssetProxyModel : public IAssetModel
{
public:
    IAssetModel* sourceAssetModel() const { return m_sourceAssetModel; }
    void setSourceAssetModel(IAssetModel* model) { m_sourceAssetModel = model; }

    void updateHoverRole(const zarn::ReflectedObject& object, bool hovered) override;
    QModelIndex mapIndex(const QModelIndex& index) const override;
    QModelIndex indexOf(const zarn::ReflectedObject& object) override;
    ryk::Connection connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const override;
    void onDoubleClicked(const QModelIndex& index) override;

    /// An index of this model as one of the source's.
    virtual QModelIndex mapToSourceIndex(const QModelIndex& index) const = 0;
    /// An index of the source as one of this model's.
    virtual QModelIndex doMapIndex(const QModelIndex& index) const = 0;

private:
    IAssetModel* m_sourceAssetModel = nullptr;
};
