#pragma once

#include <datamodels/i_asset_proxy_model.h>
#include <datamodels/proxy/filter_proxy_model.h>

namespace qelm::datamodels::proxy {

/// A `FilterProxyModel` that stands wherever an asset model is expected: it forwards what an asset panel asks to the asset
/// model behind its source, with indexes mapped. A row that is filtered out has no index here.
///
/// Set both: `setSourceModel` with the item model, `setSourceAssetModel` with the asset model that has it. Thread: GUI
/// only.
class DATAMODELS_API AssetFilterProxyModel : public FilterProxyModel, public IAssetProxyModel
{
public:
    explicit AssetFilterProxyModel(BasePredicate* predicate = nullptr, QObject* parent = nullptr);
    ~AssetFilterProxyModel() override;

    QAbstractItemModel* itemModel() override { return this; }
    QModelIndex mapToSourceIndex(const QModelIndex& index) const override { return mapToSource(index); }
    QModelIndex doMapIndex(const QModelIndex& index) const override { return mapFromSource(index); }
};

} // namespace qelm::datamodels::proxy
