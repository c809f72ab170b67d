#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>

namespace editor {

/// Wants the assets that the image cache can describe: textures, and the files of atlases.
class ImagePredicate : public qelm::datamodels::proxy::BasePredicate
{
public:
    using BasePredicate::BasePredicate;

    bool evaluate(const QModelIndex& asset) const override;
};

} // namespace editor
