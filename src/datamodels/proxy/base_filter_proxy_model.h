#pragma once

#include <datamodels/datamodels_export.h>

#include <QSortFilterProxyModel>

#include <functional>
#include <memory>
#include <unordered_set>

namespace qelm::datamodels::proxy {

class SortKeys;

/// A sort-filter proxy that filters by a function over several roles, in one of three modes, and sorts by role name.
///
/// A row matches if the function accepts its value of `filterRole()` or of one of the extra roles; without a function
/// the filter of `QSortFilterProxyModel` decides. Columns other than 0 are not asked. Sorting ignores case and knows the
/// engine's date type; invalid values come first.
///
/// Signals: those of its base; `sortingChanged` after `sortByRole` has sorted. Intended: a `layoutChanged` for given
/// parents is followed at once by one without parents, for views that only know the whole model.
///
/// The proxy does not own its source. With a source that dies it is empty; a null source likewise.
/// A source that resets while the filter asks about its rows is followed as soon as control is back in the event loop:
/// until then the proxy shows the rows that it had begun with, and asks nothing. The rows being asked about must outlive
/// such a reset if they have parents, since Qt goes on to ask the source for these.
/// Cost: in `Hierarchical` mode each row asks about its ancestors and descendants until one matches. A sort fetches
/// each value once. Thread: GUI only.
class DATAMODELS_API BaseFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT
    Q_PROPERTY(int sortOrder READ sortOrder CONSTANT)

public:
    enum FilteringMode
    {
        Flat,         ///< rows that match
        Hierarchical, ///< rows that match, or have an ancestor or descendant that does; follows no changes by itself
        Recursive,    ///< rows that match, or have a descendant that does
    };

    explicit BaseFilterProxyModel(QObject* parent = nullptr);
    ~BaseFilterProxyModel() override;

    void setSourceModel(QAbstractItemModel* source) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Sorts by the role of that name. Nothing happens, not even a signal, if the name is unknown or the proxy sorts by
    /// this role in this order already. Names are compared as Latin-1; a character beyond it stands for a question mark.
    Q_INVOKABLE void sortByRole(QString roleName, Qt::SortOrder order = Qt::AscendingOrder);
    /// The role of that name, or -1.
    Q_INVOKABLE int roleByName(QString roleName);

    // The setters below do not filter or sort again: the caller does, once, when it has set all that it wants. Only a
    // switch to or from `Recursive` filters at once, which is Qt's own doing.

    void addFilterRole(int role);
    void removeFilterRole(int role);
    void clearFilterRoles();
    void setFilterPredicate(std::function<bool(const QVariant&)> predicate);
    void setSortPredicate(std::function<bool(const QVariant&, const QVariant&)> predicate);
    FilteringMode filteringMode() const { return m_filteringMode; }
    void setFilteringMode(FilteringMode mode);

Q_SIGNALS:
    void sortingChanged();

protected:
    /// Marks the length of one question to the filter, so that a reset of the source inside it can be put off.
    class Question;

    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    void connectNotify(const QMetaMethod& signal) override;

    bool filterAcceptsRowInternal(int sourceRow, const QModelIndex& sourceParent) const;
    bool filterRecursiveAcceptsRow(int sourceRow, const QModelIndex& sourceParent, bool checkAncestors) const;

private:
    class SortKeysScope;

    void repeatLayoutChange();
    void followResetsOf(QAbstractItemModel* source);
    void followPutOffReset();

    std::function<bool(const QVariant&)> m_filterPredicate;
    std::unordered_set<int> m_filterRoles;
    std::function<bool(const QVariant&, const QVariant&)> m_sortPredicate;
    FilteringMode m_filteringMode = Flat;

    std::unique_ptr<SortKeys> m_sortKeys; // only while sorting
    std::unique_ptr<QObject> m_sourceWatch; // receives what this class itself hears from the source
    QMetaObject::Connection m_layoutRepetition;
    bool m_isMovingRepetition = false;
    mutable int m_questions = 0;
    bool m_hasPutOffReset = false;
};

class BaseFilterProxyModel::Question
{
public:
    explicit Question(const BaseFilterProxyModel& proxy) : m_proxy(proxy) { ++m_proxy.m_questions; }
    ~Question() { --m_proxy.m_questions; }
    Q_DISABLE_COPY_MOVE(Question)

    /// False after the source has been reset: its rows are no longer those that are asked about.
    bool canBeAsked() const { return !m_proxy.m_hasPutOffReset; }

private:
    const BaseFilterProxyModel& m_proxy;
};

} // namespace qelm::datamodels::proxy
