#pragma once

#include <datamodels/proxy/predicates/multi_predicate.h>

namespace qelm::datamodels::proxy {

/// Wants what one of its predicates wants, asking no further than the first agreement.
/// Intended: without predicates it wants every row, as an `AndPredicate` does, so that an empty filter filters nothing.
class DATAMODELS_API OrPredicate : public MultiPredicate
{
public:
    explicit OrPredicate(QObject* parent = nullptr);
    explicit OrPredicate(std::vector<BasePredicate*> predicates, QObject* parent = nullptr);
    OrPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent = nullptr);
    ~OrPredicate() override;

    bool evaluate(const QModelIndex& index) const override;
};

} // namespace qelm::datamodels::proxy
