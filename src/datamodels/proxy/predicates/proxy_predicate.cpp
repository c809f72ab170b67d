#include <datamodels/proxy/predicates/proxy_predicate.h>

namespace qelm::datamodels::proxy {

ProxyPredicate::ProxyPredicate(BasePredicate* source, QObject* parent) : BasePredicate(parent)
{
    setSource(source);
}

ProxyPredicate::~ProxyPredicate() = default;

void ProxyPredicate::setSource(BasePredicate* source)
{
    if (m_source == source)
        return;
    if (m_source)
        disconnect(m_source, nullptr, this, nullptr);

    m_source = source;
    if (source) {
        source->setParent(this);
        connect(source, &BasePredicate::changed, this, &BasePredicate::changed);
        connect(source, &QObject::destroyed, this, &BasePredicate::changed);
    }
    Q_EMIT changed();
}

} // namespace qelm::datamodels::proxy
