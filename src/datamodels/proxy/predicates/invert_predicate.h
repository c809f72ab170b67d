#pragma once

#include <datamodels/proxy/predicates/proxy_predicate.h>

namespace qelm::datamodels::proxy {

/// Wants what its source does not. Without a source it wants nothing, and says so in the log for every row.
class DATAMODELS_API InvertPredicate : public ProxyPredicate
{
public:
    explicit InvertPredicate(BasePredicate* source = nullptr, QObject* parent = nullptr);
    ~InvertPredicate() override;

    bool evaluate(const QModelIndex& index) const override;
};

} // namespace qelm::datamodels::proxy
