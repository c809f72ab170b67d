#pragma once

#include <datamodels/proxy/predicates/proxy_predicate.h>

namespace qelm::datamodels::proxy {

/// Asks its source about the ancestors of a row, nearest first, and then about the row itself.
///
/// Without a source it wants nothing, and says so in the log for every row; an invalid index is never wanted.
class DATAMODELS_API HierarchyPredicate : public ProxyPredicate
{
public:
    enum class Mode
    {
        All, ///< the row and all its ancestors must pass
        Any, ///< the row or one of its ancestors must pass
    };

    explicit HierarchyPredicate(BasePredicate* source = nullptr, QObject* parent = nullptr);
    ~HierarchyPredicate() override;

    bool evaluate(const QModelIndex& index) const override;

    Mode mode() const { return m_mode; }
    void setMode(Mode mode);

private:
    bool filter(const BasePredicate& source, const QModelIndex& index) const;

    Mode m_mode = Mode::All;
};

} // namespace qelm::datamodels::proxy
