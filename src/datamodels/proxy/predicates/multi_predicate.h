#pragma once

#include <datamodels/proxy/predicates/base_predicate.h>

#include <initializer_list>
#include <vector>

namespace qelm::datamodels::proxy {

/// A predicate over a list of others, asked in order; each becomes its `QObject` child. A predicate may be in the list
/// more than once. Null is refused with an assertion.
class DATAMODELS_API MultiPredicate : public BasePredicate
{
public:
    explicit MultiPredicate(QObject* parent = nullptr);
    explicit MultiPredicate(std::vector<BasePredicate*> predicates, QObject* parent = nullptr);
    /// So that a list of one is a list, and not the parent of this predicate.
    MultiPredicate(std::initializer_list<BasePredicate*> predicates, QObject* parent = nullptr);
    ~MultiPredicate() override;

    bool evaluate(const QModelIndex& index) const override = 0;

    const std::vector<BasePredicate*>& getPredicates() const { return m_predicates; }

    /// Appends and sends `changed`.
    void addPredicate(BasePredicate* predicate);

    /// Takes every occurrence out and sends `changed`; silent if there is none. The predicate is neither deleted nor
    /// given another parent.
    /// Intended: what loses its connection is the object that compaction leaves at the new end of the list. Unless the
    /// removed predicate was the last one, that is the old last, which stays in the list, while the removed one stays
    /// connected. Who needs a live connection adds the predicate again.
    void removePredicate(BasePredicate* predicate);

    /// Empties the list, deleting the predicates if asked to, and sends `changed`, also for an empty list.
    void clear(bool deletePredicates);

private:
    void adopt(BasePredicate* predicate);
    void forget(const QObject* destroyed);

    std::vector<BasePredicate*> m_predicates;
    // Hears of deleted children; apart from `this`, since the list's own operations cut connections to `this`.
    QObject m_lifeWatch;
};

} // namespace qelm::datamodels::proxy
