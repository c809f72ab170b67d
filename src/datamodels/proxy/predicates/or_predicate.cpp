#include <datamodels/proxy/predicates/or_predicate.h>

#include <algorithm>

namespace qelm::datamodels::proxy {

OrPredicate::OrPredicate(QObject* parent) : MultiPredicate(parent) {}

OrPredicate::OrPredicate(std::vector<BasePredicate*> predicates, QObject* parent)
    : MultiPredicate(std::move(predicates), parent)
{
}

OrPredicate::OrPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent)
    : OrPredicate(std::vector<BasePredicate*>(predicates), parent)
{
}

OrPredicate::~OrPredicate() = default;

bool OrPredicate::evaluate(const QModelIndex& index) const
{
    const auto& predicates = getPredicates();
    return predicates.empty()
        || std::any_of(predicates.begin(), predicates.end(), [&index](const auto* child) { return (*child)(index); });
}

} // namespace qelm::datamodels::proxy
