#include <datamodels/proxy/predicates/multi_predicate.h>

#include <host/base/debug.h>

#include <algorithm>

namespace qelm::datamodels::proxy {

MultiPredicate::MultiPredicate(QObject* parent) : BasePredicate(parent) {}

MultiPredicate::MultiPredicate(std::vector<BasePredicate*> predicates, QObject* parent) : BasePredicate(parent)
{
    for (BasePredicate* predicate : predicates) {
        if (OZY_ASSERT(predicate))
            adopt(predicate);
    }
}

MultiPredicate::MultiPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent)
    : MultiPredicate(std::vector<BasePredicate*>(predicates), parent)
{
}

MultiPredicate::~MultiPredicate() = default;

void MultiPredicate::addPredicate(BasePredicate* predicate)
{
    if (!OZY_ASSERT(predicate))
        return;
    adopt(predicate);
    Q_EMIT changed();
}

void MultiPredicate::removePredicate(BasePredicate* predicate)
{
    if (!OZY_ASSERT(predicate))
        return;

    // Compacted by hand, since the standard algorithm does not say what it leaves behind the new end.
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_predicates.size(); ++i) {
        if (m_predicates[i] != predicate)
            m_predicates[kept++] = m_predicates[i];
    }
    if (kept == m_predicates.size())
        return;

    disconnect(m_predicates[kept], nullptr, this, nullptr);
    m_predicates.resize(kept);
    Q_EMIT changed();
}

void MultiPredicate::clear(bool deletePredicates)
{
    while (!m_predicates.empty()) {
        BasePredicate* predicate = m_predicates.front();
        std::erase(m_predicates, predicate);
        disconnect(predicate, nullptr, this, nullptr);
        if (deletePredicates)
            delete predicate;
    }
    Q_EMIT changed();
}

void MultiPredicate::adopt(BasePredicate* predicate)
{
    predicate->setParent(this);
    m_predicates.push_back(predicate);
    connect(predicate, &BasePredicate::changed, this, &BasePredicate::changed);
    connect(predicate, &QObject::destroyed, &m_lifeWatch, [this](QObject* destroyed) { forget(destroyed); });
}

void MultiPredicate::forget(const QObject* destroyed)
{
    if (std::erase(m_predicates, destroyed) > 0)
        Q_EMIT changed();
}

} // namespace qelm::datamodels::proxy
