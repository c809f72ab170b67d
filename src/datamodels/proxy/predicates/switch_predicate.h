#pragma once

#include <datamodels/proxy/predicates/multi_predicate.h>

namespace qelm::datamodels::proxy {

/// Wants what the predicate at `currentIndex` wants; the others are not asked. An index outside the list, as at the
/// start, wants every row. A change of the index sends `currentIndexChanged`, then `changed`.
class DATAMODELS_API SwitchPredicate : public MultiPredicate
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)

public:
    explicit SwitchPredicate(QObject* parent = nullptr);
    explicit SwitchPredicate(std::vector<BasePredicate*> predicates, QObject* parent = nullptr);
    SwitchPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent = nullptr);
    ~SwitchPredicate() override;

    bool evaluate(const QModelIndex& index) const override;

    int currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(int index);

Q_SIGNALS:
    void currentIndexChanged();

private:
    int m_currentIndex = -1;
};

} // namespace qelm::datamodels::proxy
