#pragma once

#include <datamodels/datamodels_export.h>

#include <QModelIndex>
#include <QObject>

namespace qelm::datamodels::proxy {

class FilterProxyModel;

/// Answers one question about one source index: is this row wanted?
///
/// Predicates are composed into trees and given to a `FilterProxyModel`, which owns the root as its `QObject` child. A
/// predicate is asked about source indexes of column 0, reads them through `QModelIndex::data`, keeps none of them and
/// never touches the proxy. `changed()` travels up the tree; the proxy answers it by filtering again.
///
/// A predicate that is deleted while it is part of a tree leaves it, and the tree sends `changed()`.
/// Cost: `evaluate` runs for each source row of a filtering, and nothing is cached. Thread: GUI only.
class DATAMODELS_API BasePredicate : public QObject
{
    Q_OBJECT

public:
    explicit BasePredicate(QObject* parent = nullptr);
    ~BasePredicate() override;

    virtual bool evaluate(const QModelIndex& index) const = 0;
    bool operator()(const QModelIndex& index) const { return evaluate(index); }

Q_SIGNALS:
    void changed();

protected:
    /// The proxy whose root this predicate is; null for inner predicates and before adoption.
    FilterProxyModel* model() const { return m_model; }

private:
    friend class FilterProxyModel;

    /// For predicates that must know their proxy; runs after `model` has changed.
    virtual void modelChanged();
    void setModel(FilterProxyModel* model);

    FilterProxyModel* m_model = nullptr;
};

} // namespace qelm::datamodels::proxy
