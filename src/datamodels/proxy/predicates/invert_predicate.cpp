#include <datamodels/proxy/predicates/invert_predicate.h>

#include <host/base/debug.h>

namespace qelm::datamodels::proxy {

InvertPredicate::InvertPredicate(BasePredicate* source, QObject* parent) : ProxyPredicate(source, parent) {}

InvertPredicate::~InvertPredicate() = default;

bool InvertPredicate::evaluate(const QModelIndex& index) const
{
    if (const BasePredicate* inverted = source())
        return !inverted->evaluate(index);

    Ozy::DebugMessageHelper(Ozy::Priority::predicate, "datamodels")
        .message("InvertPredicate(): filtering without predicate\n");
    return false;
}

} // namespace qelm::datamodels::proxy
