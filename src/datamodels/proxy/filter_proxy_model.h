#pragma once

#include <datamodels/proxy/base_filter_proxy_model.h>
#include <datamodels/proxy/predicates/base_predicate.h> // complete, so that the property's type registers itself

#include <QPointer>

namespace qelm::datamodels::proxy {

/// Filters by a tree of predicates: shows the rows that the predicate wants, and those with a descendant that it wants.
///
/// The proxy owns the root of the tree through the `QObject` parent link, and filters again whenever it sends `changed`.
/// A change of the predicate filters first and then sends `predicateChanged`. Without a predicate, and after it was
/// deleted, the filter of the base decides.
/// Intended: `filteringMode` stays `Flat`, though descendants count; `setFilteringMode` switches that off, after which
/// every row is reported as an assertion.
/// Thread: GUI only.
class DATAMODELS_API FilterProxyModel : public BaseFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(qelm::datamodels::proxy::BasePredicate* predicate READ predicate WRITE setPredicate NOTIFY predicateChanged)

public:
    explicit FilterProxyModel(BasePredicate* predicate = nullptr, QObject* parent = nullptr);
    ~FilterProxyModel() override;

    BasePredicate* predicate() const { return m_predicate; }
    /// The one before is neither deleted nor given another parent; it just no longer filters.
    void setPredicate(BasePredicate* predicate);

Q_SIGNALS:
    void predicateChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QPointer<BasePredicate> m_predicate;
};

} // namespace qelm::datamodels::proxy
