#include <datamodels/proxy/predicates/hierarchy_predicate.h>

#include <host/base/debug.h>

#include <QAbstractItemModel>

namespace qelm::datamodels::proxy {

HierarchyPredicate::HierarchyPredicate(BasePredicate* source, QObject* parent) : ProxyPredicate(source, parent) {}

HierarchyPredicate::~HierarchyPredicate() = default;

bool HierarchyPredicate::evaluate(const QModelIndex& index) const
{
    if (const BasePredicate* asked = source())
        return filter(*asked, index);

    Ozy::DebugMessageHelper(Ozy::Priority::predicate, "datamodels")
        .message("HierarchyPredicate(): filtering without predicate\n");
    return false;
}

bool HierarchyPredicate::filter(const BasePredicate& source, const QModelIndex& index) const
{
    if (!index.isValid())
        return false;
    const QAbstractItemModel* model = index.model();
    if (!OZY_ASSERT(model))
        return false;

    const bool decisive = m_mode == Mode::Any;
    for (QModelIndex ancestor = model->parent(index); ancestor.isValid(); ancestor = model->parent(ancestor)) {
        if (source.evaluate(ancestor) == decisive)
            return decisive;
    }
    return source.evaluate(index);
}

void HierarchyPredicate::setMode(Mode mode)
{
    if (m_mode == mode)
        return;
    m_mode = mode;
    Q_EMIT changed();
}

} // namespace qelm::datamodels::proxy
