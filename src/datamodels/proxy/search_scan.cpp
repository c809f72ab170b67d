#include <datamodels/proxy/search_scan.h>

#include <QAbstractItemModel>
#include <QScopedValueRollback>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace qelm::datamodels::proxy {
namespace {

constexpr auto pauseWhileSourceChanges = std::chrono::microseconds(50);

} // namespace

SearchScan::SearchScan(const QAbstractItemModel* source, const QModelIndex& root, Predicate predicate,
                       bool isRecursive)
    : m_source(source)
    , m_predicate(std::move(predicate))
    , m_isRecursive(isRecursive)
    , m_hasRoot(root.isValid())
{
    if (!m_source)
        return;
    m_levels.push_back({root, {}});
    watch();
}

void SearchScan::run(const Job& job, const std::atomic<std::size_t>& threshold,
                     const std::function<void()>& handOver)
{
    Lock lock(m_mutex);
    while (canGoOn(job, lock) && !m_levels.empty()) {
        const Level& level = m_levels.back();
        if (level.count < 0) {
            lookAtLevel(lock);
        } else if (level.next >= level.count) {
            m_levels.pop_back();
        } else if (lookAtRow(lock) && m_kept.size() + m_found.size() > threshold) {
            lock.unlock();
            handOver();
            // A cancelled hand-over may have been cut short by the thread that holds the lock.
            if (job.state() == Job::Cancelled)
                return;
            lock.lock();
        }
    }
}

bool SearchScan::canGoOn(const Job& job, Lock& lock) const
{
    while (job.state() != Job::Cancelled) {
        if (m_changes == 0)
            return true;
        lock.unlock();
        std::this_thread::sleep_for(pauseWhileSourceChanges);
        lock.lock();
    }
    return false;
}

void SearchScan::lookAtLevel(Lock& lock)
{
    const QModelIndex parent = m_levels.back().parent;
    const unsigned version = m_version;

    lock.unlock();
    const int count = m_source->rowCount(parent);
    lock.lock();

    if (m_version == version)
        m_levels.back().count = std::max(count, 0);
}

/// Whether there is a result more.
bool SearchScan::lookAtRow(Lock& lock)
{
    const QModelIndex parent = m_levels.back().parent;
    const int row = m_levels.back().next;
    const unsigned version = m_version;

    lock.unlock();
    QVariant info;
    const QModelIndex index = m_source->index(row, 0, parent);
    const bool isResult = index.isValid() && (!m_predicate || m_predicate(index, info));
    lock.lock();

    if (m_version != version)
        return false; // the row may be another by now
    ++m_levels.back().next;
    if (isResult)
        m_found.push_back({index, std::move(info)});
    if (m_isRecursive && index.isValid())
        m_levels.push_back({index, {}});
    return isResult;
}

void SearchScan::flush(const std::function<void(std::vector<SearchItem> found)>& show)
{
    const Lock lock(m_mutex);
    const QScopedValueRollback<bool> flushing(m_isFlushing, true);
    keepFound();
    if (!m_kept.empty())
        show(std::exchange(m_kept, {}));
}

void SearchScan::forget()
{
    m_isForgotten = true;
    const Lock lock = lockUnlessFlushing();
    m_levels.clear();
    m_found.clear();
    m_kept.clear();
}

void SearchScan::keepFound()
{
    for (Found& found : m_found)
        m_kept.push_back({found.index, std::move(found.info)});
    m_found.clear();
}

/// A slot of what a flush tells may change the source, with the lock taken further out on the same thread.
SearchScan::Lock SearchScan::lockUnlessFlushing()
{
    return m_isFlushing ? Lock() : Lock(m_mutex);
}

void SearchScan::watch()
{
    using Model = QAbstractItemModel;
    const auto before = [this] { aboutToChange(); };
    connect(m_source, &Model::rowsAboutToBeInserted, this, before);
    connect(m_source, &Model::rowsAboutToBeRemoved, this, before);
    connect(m_source, &Model::rowsAboutToBeMoved, this, before);
    connect(m_source, &Model::columnsAboutToBeInserted, this, before);
    connect(m_source, &Model::columnsAboutToBeRemoved, this, before);
    connect(m_source, &Model::columnsAboutToBeMoved, this, before);
    connect(m_source, &Model::layoutAboutToBeChanged, this, before);

    const auto after = [this] { changed(); };
    connect(m_source, &Model::rowsInserted, this, &SearchScan::rowsInserted);
    connect(m_source, &Model::rowsRemoved, this, &SearchScan::rowsRemoved);
    connect(m_source, &Model::rowsMoved, this, &SearchScan::rowsMoved);
    connect(m_source, &Model::columnsInserted, this, after);
    connect(m_source, &Model::columnsRemoved, this, after);
    connect(m_source, &Model::columnsMoved, this, after);
    connect(m_source, &Model::layoutChanged, this, [this] {
        m_mayRepeat = true;
        changed();
    });
}

void SearchScan::aboutToChange()
{
    const Lock lock = lockUnlessFlushing();
    ++m_version;
    if (m_changes++ > 0)
        return;
    for (Level& level : m_levels)
        level.kept = level.parent;
    keepFound();
}

void SearchScan::changed()
{
    const Lock lock = lockUnlessFlushing();
    ++m_version;
    if (m_changes == 0 || --m_changes > 0) // some models end what they have not announced
        return;
    for (Level& level : m_levels)
        level.parent = std::exchange(level.kept, {});
    const auto isGone = [this](const Level& level) {
        const bool isInvisibleRoot = !m_hasRoot && &level == &m_levels.front();
        return !level.parent.isValid() && !isInvisibleRoot;
    };
    m_levels.erase(std::find_if(m_levels.begin(), m_levels.end(), isGone), m_levels.end());
}

void SearchScan::rowsInserted(const QModelIndex& parent, int first, int last)
{
    adjustForInserted(parent, first, last - first + 1);
    changed();
}

void SearchScan::rowsRemoved(const QModelIndex& parent, int first, int last)
{
    adjustForRemoved(parent, first, last - first + 1);
    changed();
}

void SearchScan::rowsMoved(const QModelIndex& from, int first, int last, const QModelIndex& to, int before)
{
    const int count = last - first + 1;
    adjustForRemoved(from, first, count);
    adjustForInserted(to, from == to && before > last ? before - count : before, count);
    m_mayRepeat = true;
    changed();
}

void SearchScan::adjustForInserted(const QModelIndex& parent, int first, int count)
{
    adjustLevels(parent, [=](Level& level) {
        level.next += first < level.next ? count : 0;
        level.count += count;
    });
}

void SearchScan::adjustForRemoved(const QModelIndex& parent, int first, int count)
{
    adjustLevels(parent, [=](Level& level) {
        level.next -= std::clamp(level.next - first, 0, count);
        level.count -= count;
    });
}

/// Keeps the place among rows of which some come or go: those that have been looked at stay behind.
template <class Adjust>
void SearchScan::adjustLevels(const QModelIndex& parent, Adjust adjust)
{
    const Lock lock = lockUnlessFlushing();
    for (Level& level : m_levels) {
        if (m_changes > 0 && level.count >= 0 && level.kept == parent)
            adjust(level);
    }
}

} // namespace qelm::datamodels::proxy
