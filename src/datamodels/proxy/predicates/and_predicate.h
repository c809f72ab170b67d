#pragma once

#include <datamodels/proxy/predicates/multi_predicate.h>

namespace qelm::datamodels::proxy {

/// Wants what all its predicates want, asking no further than the first refusal. Without predicates it wants every row.
class DATAMODELS_API AndPredicate : public MultiPredicate
{
public:
    explicit AndPredicate(QObject* parent = nullptr);
    explicit AndPredicate(std::vector<BasePredicate*> predicates, QObject* parent = nullptr);
    AndPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent = nullptr);
    ~AndPredicate() override;

    bool evaluate(const QModelIndex& index) const override;
};

} // namespace qelm::datamodels::proxy
