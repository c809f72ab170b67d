#include <datamodels/proxy/base_filter_proxy_model.h>

#include <datamodels/proxy/sort_keys.h>
#include <host/base/debug.h>

#include <QMetaMethod>
#include <QScopedValueRollback>

#include <algorithm>

namespace qelm::datamodels::proxy {

/// Keeps the sort keys for the length of a block, the outermost of nested ones.
class BaseFilterProxyModel::SortKeysScope
{
public:
    SortKeysScope(BaseFilterProxyModel& proxy, int role) : m_proxy(proxy), m_isOutermost(!proxy.m_sortKeys)
    {
        if (m_isOutermost) {
            const TextOrder order{proxy.isSortLocaleAware(), proxy.sortCaseSensitivity()};
            proxy.m_sortKeys = std::make_unique<SortKeys>(role, order);
        }
    }
    ~SortKeysScope()
    {
        if (m_isOutermost)
            m_proxy.m_sortKeys.reset();
    }
    Q_DISABLE_COPY_MOVE(SortKeysScope)

private:
    BaseFilterProxyModel& m_proxy;
    bool m_isOutermost;
};

BaseFilterProxyModel::BaseFilterProxyModel(QObject* parent) : QSortFilterProxyModel(parent)
{
    setSortCaseSensitivity(Qt::CaseInsensitive);
    repeatLayoutChange();
}

BaseFilterProxyModel::~BaseFilterProxyModel() = default;

void BaseFilterProxyModel::setSourceModel(QAbstractItemModel* source)
{
    if (source == sourceModel()) {
        QSortFilterProxyModel::setSourceModel(source);
        return;
    }
    m_sourceWatch = std::make_unique<QObject>();
    m_hasPutOffReset = false;

    // Ahead of the base's own connections: it may sort in answer to what makes the keys stale.
    if (source) {
        const auto dropSortKeys = [this] {
            if (m_sortKeys)
                m_sortKeys->clear();
        };
        QObject* watch = m_sourceWatch.get();
        connect(source, &QAbstractItemModel::dataChanged, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::rowsInserted, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::rowsRemoved, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::rowsMoved, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::columnsInserted, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::columnsRemoved, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::layoutChanged, watch, dropSortKeys);
        connect(source, &QAbstractItemModel::modelReset, watch, dropSortKeys);
    }
    QSortFilterProxyModel::setSourceModel(source);
    if (source)
        followResetsOf(source);
}

// Qt's handler throws the row mapping away, which a filter run in progress still works on. So ours stands in its place,
// and hands over at once, or from the event loop when the reset came out of a question of the filter.
void BaseFilterProxyModel::followResetsOf(QAbstractItemModel* source)
{
    disconnect(source, SIGNAL(modelAboutToBeReset()), this, SLOT(_q_sourceAboutToBeReset()));
    disconnect(source, SIGNAL(modelReset()), this, SLOT(_q_sourceReset()));

    connect(source, &QAbstractItemModel::modelAboutToBeReset, m_sourceWatch.get(), [this] {
        if (m_questions == 0 && !m_hasPutOffReset)
            QMetaObject::invokeMethod(this, "_q_sourceAboutToBeReset");
        else if (!std::exchange(m_hasPutOffReset, true))
            QMetaObject::invokeMethod(this, &BaseFilterProxyModel::followPutOffReset, Qt::QueuedConnection);
    });
    connect(source, &QAbstractItemModel::modelReset, m_sourceWatch.get(), [this] {
        if (!m_hasPutOffReset)
            QMetaObject::invokeMethod(this, "_q_sourceReset");
    });
}

void BaseFilterProxyModel::followPutOffReset()
{
    if (!std::exchange(m_hasPutOffReset, false))
        return;
    QMetaObject::invokeMethod(this, "_q_sourceAboutToBeReset");
    QMetaObject::invokeMethod(this, "_q_sourceReset");
}

void BaseFilterProxyModel::sort(int column, Qt::SortOrder order)
{
    const SortKeysScope keys(*this, sortRole());
    QSortFilterProxyModel::sort(column, order);
}

void BaseFilterProxyModel::sortByRole(QString roleName, Qt::SortOrder order)
{
    const int role = roleByName(std::move(roleName));
    if (role == -1 || (role == sortRole() && order == sortOrder()))
        return;

    const SortKeysScope keys(*this, role);
    setSortRole(role);
    sort(0, order);
    Q_EMIT sortingChanged();
}

int BaseFilterProxyModel::roleByName(QString roleName)
{
    return roleNames().key(roleName.toLatin1(), -1);
}

void BaseFilterProxyModel::addFilterRole(int role)
{
    m_filterRoles.insert(role);
}

void BaseFilterProxyModel::removeFilterRole(int role)
{
    m_filterRoles.erase(role);
}

void BaseFilterProxyModel::clearFilterRoles()
{
    m_filterRoles.clear();
}

void BaseFilterProxyModel::setFilterPredicate(std::function<bool(const QVariant&)> predicate)
{
    m_filterPredicate = std::move(predicate);
}

void BaseFilterProxyModel::setSortPredicate(std::function<bool(const QVariant&, const QVariant&)> predicate)
{
    m_sortPredicate = std::move(predicate);
}

void BaseFilterProxyModel::setFilteringMode(FilteringMode mode)
{
    if (m_filteringMode == mode)
        return;
    m_filteringMode = mode;
    setRecursiveFilteringEnabled(mode == Recursive);
}

bool BaseFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const Question question(*this);
    if (!question.canBeAsked())
        return true;
    return m_filteringMode == Hierarchical ? filterRecursiveAcceptsRow(sourceRow, sourceParent, true)
                                           : filterAcceptsRowInternal(sourceRow, sourceParent);
}

bool BaseFilterProxyModel::filterAcceptsRowInternal(int sourceRow, const QModelIndex& sourceParent) const
{
    const QAbstractItemModel* source = sourceModel();
    if (!source)
        return false;
    if (!m_filterPredicate)
        return QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);

    const QModelIndex index = source->index(sourceRow, 0, sourceParent);
    return m_filterPredicate(index.data(filterRole()))
        || std::any_of(m_filterRoles.begin(), m_filterRoles.end(),
                       [&](int role) { return m_filterPredicate(index.data(role)); });
}

bool BaseFilterProxyModel::filterRecursiveAcceptsRow(int sourceRow, const QModelIndex& sourceParent,
                                                     bool checkAncestors) const
{
    OZY_ASSERT(!isRecursiveFilteringEnabled());
    if (filterAcceptsRowInternal(sourceRow, sourceParent))
        return true;

    if (checkAncestors) {
        for (QModelIndex ancestor = sourceParent; ancestor.isValid();) {
            const int row = ancestor.row();
            ancestor = ancestor.parent();
            if (filterAcceptsRowInternal(row, ancestor))
                return true;
        }
    }

    const QAbstractItemModel* source = sourceModel();
    if (!source)
        return false;
    const QModelIndex index = source->index(sourceRow, 0, sourceParent);
    for (int row = 0, rows = source->rowCount(index); row < rows; ++row) {
        if (filterRecursiveAcceptsRow(row, index, false))
            return true;
    }
    return false;
}

bool BaseFilterProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    // A source may lack the sort column below some of its rows; such an index has no key.
    SortKeys* keys = left.isValid() && right.isValid() ? m_sortKeys.get() : nullptr;
    if (m_sortPredicate && sourceModel()) {
        return keys ? m_sortPredicate(keys->value(left), keys->value(right))
                    : m_sortPredicate(left.data(sortRole()), right.data(sortRole()));
    }
    return keys ? keys->isLess(left, right)
                : isLess(left.data(sortRole()), right.data(sortRole()), {isSortLocaleAware(), sortCaseSensitivity()});
}

void BaseFilterProxyModel::connectNotify(const QMetaMethod& signal)
{
    static const QMetaMethod layoutChangedSignal = QMetaMethod::fromSignal(&QAbstractItemModel::layoutChanged);
    // Listeners are to hear of the parents first and of the whole model second, so the repetition stays the last one.
    if (signal == layoutChangedSignal && !m_isMovingRepetition)
        repeatLayoutChange();
    QSortFilterProxyModel::connectNotify(signal);
}

void BaseFilterProxyModel::repeatLayoutChange()
{
    const QScopedValueRollback moving(m_isMovingRepetition, true);
    disconnect(m_layoutRepetition);
    m_layoutRepetition = connect(this, &QAbstractItemModel::layoutChanged, this,
                                 [this](const QList<QPersistentModelIndex>& parents, LayoutChangeHint hint) {
                                     if (!parents.isEmpty())
                                         Q_EMIT layoutChanged({}, hint);
                                 });
}

} // namespace qelm::datamodels::proxy
