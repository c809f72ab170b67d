#include <datamodels/proxy/filter_proxy_model.h>

#include <host/base/debug.h>

namespace qelm::datamodels::proxy {

FilterProxyModel::FilterProxyModel(BasePredicate* predicate, QObject* parent) : BaseFilterProxyModel(parent)
{
    setPredicate(predicate);
    setRecursiveFilteringEnabled(true);
}

FilterProxyModel::~FilterProxyModel()
{
    // A predicate that was given another parent outlives its proxy.
    if (m_predicate)
        m_predicate->setModel(nullptr);
}

void FilterProxyModel::setPredicate(BasePredicate* predicate)
{
    if (m_predicate == predicate)
        return;
    if (m_predicate) {
        disconnect(m_predicate, nullptr, this, nullptr);
        m_predicate->setModel(nullptr);
    }

    m_predicate = predicate;
    if (predicate) {
        predicate->setParent(this);
        predicate->setModel(this);
        connect(predicate, &BasePredicate::changed, this, &FilterProxyModel::invalidateFilter);
        connect(predicate, &QObject::destroyed, this, [this] {
            invalidateFilter();
            Q_EMIT predicateChanged();
        });
    }
    invalidateFilter();
    Q_EMIT predicateChanged();
}

bool FilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QAbstractItemModel* source = sourceModel();
    if (!m_predicate || !source)
        return BaseFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);

    const Question question(*this);
    if (!question.canBeAsked())
        return true;
    OZY_ASSERT(isRecursiveFilteringEnabled());
    return m_predicate->evaluate(source->index(sourceRow, 0, sourceParent));
}

} // namespace qelm::datamodels::proxy
