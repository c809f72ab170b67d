#include <datamodels/proxy/predicates/base_predicate.h>

namespace qelm::datamodels::proxy {

BasePredicate::BasePredicate(QObject* parent) : QObject(parent) {}

BasePredicate::~BasePredicate() = default;

void BasePredicate::modelChanged() {}

void BasePredicate::setModel(FilterProxyModel* model)
{
    if (m_model == model)
        return;
    m_model = model;
    modelChanged();
}

} // namespace qelm::datamodels::proxy
