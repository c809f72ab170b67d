#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>

#include <QPointer>

namespace qelm::datamodels::proxy {

/// A predicate over the answer of one other, its source, which becomes its `QObject` child.
class DATAMODELS_API ProxyPredicate : public BasePredicate
{
public:
    explicit ProxyPredicate(BasePredicate* source = nullptr, QObject* parent = nullptr);
    ~ProxyPredicate() override;

    bool evaluate(const QModelIndex& index) const override = 0;

    /// Null without a source, and after the source was deleted.
    BasePredicate* source() const { return m_source; }
    /// Takes another source, or none, and sends `changed`. The old one is neither deleted nor given another parent.
    void setSource(BasePredicate* source);

private:
    QPointer<BasePredicate> m_source;
};

} // namespace qelm::datamodels::proxy
