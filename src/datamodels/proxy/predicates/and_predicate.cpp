#include <datamodels/proxy/predicates/and_predicate.h>

#include <algorithm>

namespace qelm::datamodels::proxy {

AndPredicate::AndPredicate(QObject* parent) : MultiPredicate(parent) {}

AndPredicate::AndPredicate(std::vector<BasePredicate*> predicates, QObject* parent)
    : MultiPredicate(std::move(predicates), parent)
{
}

AndPredicate::AndPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent)
    : AndPredicate(std::vector<BasePredicate*>(predicates), parent)
{
}

AndPredicate::~AndPredicate() = default;

bool AndPredicate::evaluate(const QModelIndex& index) const
{
    const auto& predicates = getPredicates();
    return std::all_of(predicates.begin(), predicates.end(), [&index](const auto* child) { return (*child)(index); });
}

} // namespace qelm::datamodels::proxy
