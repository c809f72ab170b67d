#pragma once

#include <datamodels/proxy/search_results.h>

#include <host/jobs/async_manager.h>

#include <QModelIndex>
#include <QObject>
#include <QPersistentModelIndex>
#include <QVariant>

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

class QAbstractItemModel;

namespace qelm::datamodels::proxy {

/// The walk of one search through its source, and what it has found that is not shown yet.
///
/// The worker walks with plain indexes and never makes persistent ones, which only the GUI thread may do.
/// When the source announces a change of its structure, they are made persistent there; the worker waits
/// until the change is over and goes on where it was. Rows that were looked at meanwhile are looked at again,
/// so that no result is stale; rows that move from ahead to behind are missed. Made and destroyed on the GUI
/// thread.
class SearchScan : public QObject
{
public:
    using Job = Ozy::AsyncManager::Job;
    using Predicate = std::function<bool(const QModelIndex& sourceIndex, QVariant& info)>;

    /// Without a source there is nothing to find; without a predicate every row is a result. The source must
    /// outlive the walk.
    SearchScan(const QAbstractItemModel* source, const QModelIndex& root, Predicate predicate,
               bool isRecursive);

    /// On the worker: walks parents before their children, rows in order, until the end or until the job is
    /// cancelled. Calls `handOver` whenever there are more results than `threshold`.
    void run(const Job& job, const std::atomic<std::size_t>& threshold,
             const std::function<void()>& handOver);

    /// On the GUI thread: calls `show` with the results there are, which are then forgotten; not without any.
    /// Meanwhile the worker cannot add more.
    void flush(const std::function<void(std::vector<SearchItem> found)>& show);

    /// On the GUI thread: whether a row may be found that has been found before.
    bool mayRepeat() const { return m_mayRepeat; }

    /// On the GUI thread, when the worker has stopped: drops the results that are not shown yet.
    void forget();
    bool isForgotten() const { return m_isForgotten; }

private:
    /// A row whose children are being looked at. Its index is persistent while the source changes.
    struct Level
    {
        QModelIndex parent;
        QPersistentModelIndex kept;
        int next = 0;   ///< the child to look at
        int count = -1; ///< of the children; -1 before the source is asked
    };
    struct Found
    {
        QModelIndex index;
        QVariant info;
    };
    using Lock = std::unique_lock<std::mutex>;

    void watch();
    void aboutToChange();
    void changed();
    void rowsInserted(const QModelIndex& parent, int first, int last);
    void rowsRemoved(const QModelIndex& parent, int first, int last);
    void rowsMoved(const QModelIndex& from, int first, int last, const QModelIndex& to, int before);
    void adjustForInserted(const QModelIndex& parent, int first, int count);
    void adjustForRemoved(const QModelIndex& parent, int first, int count);
    template <class Adjust>
    void adjustLevels(const QModelIndex& parent, Adjust adjust);
    void keepFound();
    Lock lockUnlessFlushing();

    bool canGoOn(const Job& job, Lock& lock) const;
    void lookAtLevel(Lock& lock);
    bool lookAtRow(Lock& lock);

    const QAbstractItemModel* const m_source;
    const Predicate m_predicate;
    const bool m_isRecursive;
    const bool m_hasRoot;
    bool m_isFlushing = false; ///< on the GUI thread, as the next
    bool m_mayRepeat = false;
    bool m_isForgotten = false;

    std::mutex m_mutex; ///< guards the following
    std::vector<Level> m_levels;
    std::vector<Found> m_found;
    std::vector<SearchItem> m_kept; ///< found before those
    int m_changes = 0;              ///< of the source that are announced and not over
    unsigned m_version = 0;         ///< of the structure of the source
};

} // namespace qelm::datamodels::proxy
