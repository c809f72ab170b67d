#include "image_predicate.h"

#include "panels/library/asset_list_model.h"

namespace editor {

bool ImagePredicate::evaluate(const QModelIndex& asset) const
{
    return asset.data(AssetListModel::IconRole).toString() == QLatin1String(factsOf(FileKind::Texture).icon)
           || asset.data(AssetListModel::ExtensionRole).toString() == QLatin1String("atlas");
}

} // namespace editor
