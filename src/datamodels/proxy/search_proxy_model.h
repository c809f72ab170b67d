#pragma once

#include <datamodels/datamodels_export.h>

#include <host/jobs/async_manager.h>

#include <QAbstractProxyModel>
#include <QVariantList>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace qelm::datamodels::proxy {

class SearchResults;
class SearchScan;
struct SearchItem;
struct SortRole;

/// The results of a search through a tree as a flat list, which grows while a worker searches.
///
/// A row is a row of the source, with all its roles and one more: "searchInfo" (`Qt::UserRole + 1001`), what
/// the predicate wrote for it. Results stay until the next `search`: a row that the source removes answers
/// invalid values but its "searchInfo", what the source inserts is found by the next search, and a change of
/// data neither removes nor moves a row. A source that resets stops the search; what was found so far stays.
///
/// Signals: `searchingChanged` at each state of the search, from the event loop; `countChanged` after the
/// rows of each hand-over, and when a new search drops old rows.
///
/// Threads: GUI, but for the predicate and all that it calls, and `rowCount`, `index` of the source, which
/// run on a worker without a lock: the source must bear that while it is searched. It must not die during a
/// search; one that may do so resets first. A slot of the row signals must not start a search.
///
/// Cost: a hand-over, which is a round trip between the threads, for each `searchBufferSize` + 1 results; a
/// result takes logarithmic time to its place, and `mapFromSource` constant time.
class DATAMODELS_API SearchProxyModel : public QAbstractProxyModel
{
    Q_OBJECT
    Q_PROPERTY(bool searching READ isSeraching NOTIFY searchingChanged)
    Q_PROPERTY(int count READ getCount NOTIFY countChanged)

public:
    /// Whether a row is a result; may fill `info`. An exception ends the search, and is logged.
    using Predicate = std::function<bool(const QModelIndex& sourceIndex, QVariant& info)>;

    static constexpr int SearchInfoRole = Qt::UserRole + 1001;

    explicit SearchProxyModel(QObject* parent = nullptr);
    /// Stops the search, and waits for the worker.
    ~SearchProxyModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    /// Throws `std::out_of_range` for the "searchInfo" of an index from before a search.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;
    /// Neither clears the rows nor stops a search; start a new one.
    void setSourceModel(QAbstractItemModel* model) override;
    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& source) const override;
    using QAbstractProxyModel::sort;

    bool isSeraching() const;
    int getCount() const;

    /// How many results may wait before the worker hands them over; 0 at the start, which makes each result a
    /// round trip. Takes effect at the next result, from any thread.
    void setSearchBufferSize(std::size_t size);

    /// The first row that shows this text, or -1. Asks all rows ahead of it.
    Q_INVOKABLE int indexOf(QString childName);

Q_SIGNALS:
    void searchingChanged();
    void countChanged();

public Q_SLOTS:
    /// Ends the search before and drops its results, then searches the children of a source index, those of
    /// children too when `recursive`: parents ahead of their children, rows in order. Without a predicate all
    /// are results. `callback` runs on the GUI thread after the last row, unless the search is cancelled.
    void search(QModelIndex rootIndex, Predicate predicate = {}, bool recursive = false,
                std::function<void()> callback = {});

    /// Sorts the rows, and those that come: `[{role: "size", order: Qt.DescendingOrder}, ...]`, the first one
    /// deciding. A role is a number or a name; one that is unknown makes no difference, and entries without
    /// both keys are skipped. Rows that are equal stay in the order of their arrival; invalid values come
    /// last in ascending order, and digits in texts count by value.
    void sort(QVariantList sortRoles);

private:
    void watchJob(std::function<void()> callback);
    void flushSearchBuffer();
    void show(const SearchScan& scan, std::vector<SearchItem> found);
    void stopSearching();
    std::vector<SortRole> parseSortRoles(const QVariantList& list) const;
    int roleKey(const QByteArray& name) const;
    bool hasSource() const;
    void processSourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                  const QVector<int>& roles);

    std::unique_ptr<SearchResults> m_items;
    std::shared_ptr<SearchScan> m_scan;
    std::atomic<std::size_t> m_searchBufferSize{0};
    Ozy::AsyncManager::Job m_searchJob;
};

} // namespace qelm::datamodels::proxy
