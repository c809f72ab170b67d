#include <datamodels/proxy/asset_filter_proxy_model.h>

namespace qelm::datamodels::proxy {

AssetFilterProxyModel::AssetFilterProxyModel(BasePredicate* predicate, QObject* parent)
    : FilterProxyModel(predicate, parent)
{
}

AssetFilterProxyModel::~AssetFilterProxyModel() = default;

} // namespace qelm::datamodels::proxy
