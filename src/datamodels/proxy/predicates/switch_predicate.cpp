#include <datamodels/proxy/predicates/switch_predicate.h>

namespace qelm::datamodels::proxy {

SwitchPredicate::SwitchPredicate(QObject* parent) : MultiPredicate(parent) {}

SwitchPredicate::SwitchPredicate(std::vector<BasePredicate*> predicates, QObject* parent)
    : MultiPredicate(std::move(predicates), parent)
{
}

SwitchPredicate::SwitchPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent)
    : SwitchPredicate(std::vector<BasePredicate*>(predicates), parent)
{
}

SwitchPredicate::~SwitchPredicate() = default;

bool SwitchPredicate::evaluate(const QModelIndex& index) const
{
    const auto& predicates = getPredicates();
    if (m_currentIndex < 0 || static_cast<std::size_t>(m_currentIndex) >= predicates.size())
        return true;
    return predicates[static_cast<std::size_t>(m_currentIndex)]->evaluate(index);
}

void SwitchPredicate::setCurrentIndex(int index)
{
    if (m_currentIndex == index)
        return;
    m_currentIndex = index;
    Q_EMIT currentIndexChanged();
    Q_EMIT changed();
}

} // namespace qelm::datamodels::proxy
