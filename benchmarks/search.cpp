// Searching a tree on a worker, handing results over, and keeping them sorted as they arrive.
#include <support/comparison.h>
#include <support/sample_models.h>

#include <datamodels/proxy/search_matcher.h>
#include <datamodels/proxy/search_proxy_model.h>
#include <datamodels/simple_tree_model.h>
#include <host/jobs/async_manager.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QPersistentModelIndex>
#include <QTimer>
#include <QtConcurrent>

#include <algorithm>
#include <chrono>
#include <thread>

using namespace bench;
using Ozy::AsyncManager;
using qelm::datamodels::proxy::SearchProxyModel;
using qelm::datamodels::proxy::TextSearchMatcher;

namespace {

const QString needle = QStringLiteral("tree");

/// A node with nothing around it.
struct Bare
{
    QString text;
    std::vector<Bare> children;
};

void copyChildren(const QAbstractItemModel& model, const QModelIndex& parent, Bare& bare)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        bare.children.push_back({index.data().toString(), {}});
        copyChildren(model, index, bare.children.back());
    }
}

long long countMatches(const Bare& bare)
{
    long long matches = 0;
    for (const Bare& child : bare.children)
        matches += child.text.contains(needle, Qt::CaseInsensitive) + countMatches(child);
    return matches;
}

void collect(const Bare& bare, std::vector<const Bare*>& all)
{
    for (const Bare& child : bare.children) {
        all.push_back(&child);
        collect(child, all);
    }
}

bool matches(const QModelIndex& index, QVariant&)
{
    return index.data().toString().contains(needle, Qt::CaseInsensitive);
}

/// Searches the whole source and waits in the event loop.
void search(SearchProxyModel& proxy, const SearchProxyModel::Predicate& predicate)
{
    QEventLoop loop;
    proxy.search({}, predicate, true, [&loop] { loop.quit(); });
    loop.exec();
    keep(proxy.rowCount());
}

auto searched(QAbstractItemModel& source, std::size_t bufferSize,
              const SearchProxyModel::Predicate& predicate)
{
    return [&source, bufferSize, predicate] {
        auto proxy = std::make_shared<SearchProxyModel>();
        proxy->setSourceModel(&source);
        proxy->setSearchBufferSize(bufferSize);
        return [proxy, predicate] { search(*proxy, predicate); };
    };
}

void compareScans(QAbstractItemModel& tree, const Bare& bare)
{
    TextSearchMatcher matcher;
    matcher.setText(needle);
    const std::string what = std::to_string(walk(tree)) + " nodes, 23 % hits";

    Comparison("search " + what)
        .addPlain("a thread that counts in bare nodes",
                  [&bare] { std::thread([&bare] { keep(countMatches(bare)); }).join(); })
        .add("SearchProxyModel, buffer 99", searched(tree, 99, &matches))
        .add("SearchProxyModel, buffer 999", searched(tree, 999, &matches))
        .add("SearchProxyModel, buffer 9999", searched(tree, 9999, &matches))
        .add("SearchProxyModel, buffer 999, TextSearchMatcher", searched(tree, 999, matcher.predicate()));

    Comparison("search " + what + ", to QtConcurrent")
        .addPlain("QtConcurrent::filtered over a list of the nodes, two cores",
                  [&bare] {
                      std::vector<const Bare*> all;
                      collect(bare, all);
                      QFutureWatcher<const Bare*> watcher;
                      QEventLoop loop;
                      QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
                      watcher.setFuture(QtConcurrent::filtered(all, [](const Bare* node) {
                          return node->text.contains(needle, Qt::CaseInsensitive);
                      }));
                      loop.exec();
                      keep(watcher.future().resultCount());
                  })
        .add("SearchProxyModel, buffer 999", searched(tree, 999, &matches));
}

void compareHandOver()
{
    constexpr int count = 20000;
    Comparison("hand over to the GUI thread and wait")
        .addPlain("Qt::BlockingQueuedConnection",
                  [] {
                      QObject receiver;
                      QEventLoop loop;
                      long long done = 0;
                      std::thread worker([&] {
                          for (int i = 0; i < count; ++i)
                              QMetaObject::invokeMethod(
                                  &receiver, [&done] { ++done; }, Qt::BlockingQueuedConnection);
                          QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
                      });
                      loop.exec();
                      worker.join();
                      keep(done);
                  })
        .addPlain("AsyncManager::sync, added and waited for", [] {
            QEventLoop loop;
            long long done = 0;
            AsyncManager::async(0, [&](const AsyncManager::Job& job) {
                for (int i = 0; i < count; ++i) {
                    const auto task = AsyncManager::sync(true, [&done] { ++done; });
                    job += task;
                    task.wait();
                }
                job += AsyncManager::sync(false, [&loop] { loop.quit(); });
                return true;
            });
            loop.exec();
            keep(done);
        });
}

/// Keeps its rows in order as a plain vector does, asking the source for values at each comparison.
class PlainList : public QAbstractListModel
{
public:
    int rowCount(const QModelIndex& = {}) const override { return static_cast<int>(m_rows.size()); }
    QVariant data(const QModelIndex&, int) const override { return {}; }

    void add(const QPersistentModelIndex& added)
    {
        const auto isAhead = [&added](const QPersistentModelIndex& row) {
            return added.data(Qt::UserRole).toInt() >= row.data(Qt::UserRole).toInt();
        };
        const auto place = std::partition_point(m_rows.begin(), m_rows.end(), isAhead);
        const int row = static_cast<int>(place - m_rows.begin());
        beginInsertRows({}, row, row);
        m_rows.insert(place, added);
        endInsertRows();
    }

private:
    std::vector<QPersistentModelIndex> m_rows;
};

auto sortedSearch(FlatModel& source)
{
    return [&source] {
        auto proxy = std::make_shared<SearchProxyModel>();
        proxy->setSourceModel(&source);
        proxy->setSearchBufferSize(999);
        proxy->sort({QVariantMap{{"role", int(Qt::UserRole)}, {"order", int(Qt::AscendingOrder)}}});
        return [proxy] { search(*proxy, {}); };
    };
}

void compareSortedArrival(FlatModel& source)
{
    Comparison("sorted arrival of " + std::to_string(source.rowCount()) + " results, the search included")
        .add("into a vector, values asked at each comparison",
             [&source] {
                 auto list = std::make_shared<PlainList>();
                 return [&source, list] {
                     for (int row = 0; row < source.rowCount(); ++row)
                         list->add(source.index(row, 0));
                     keep(list->rowCount());
                 };
             })
        .add("SearchProxyModel, buffer 999", sortedSearch(source));
}

void compareWithSorting(FlatModel& source)
{
    Comparison("sorted arrival of " + std::to_string(source.rowCount()) + " results, to one sort at the end")
        .addPlain("stable_sort by ready keys",
                  [&source] {
                      std::vector<std::pair<int, int>> keys;
                      for (int row = 0; row < source.rowCount(); ++row)
                          keys.emplace_back(source.index(row, 0).data(Qt::UserRole).toInt(), row);
                      std::stable_sort(keys.begin(), keys.end(),
                                       [](const auto& a, const auto& b) { return a.first < b.first; });
                      keep(keys.front().second);
                  })
        .add("SearchProxyModel, buffer 999", sortedSearch(source));
}

/// For how long at a time the event loop does not get round while a source is searched, in milliseconds,
/// sorted.
std::vector<double> stalls(QAbstractItemModel& source, bool isSorted)
{
    using Clock = std::chrono::steady_clock;
    SearchProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setSearchBufferSize(999);
    if (isSorted)
        proxy.sort({QVariantMap{{"role", int(Qt::UserRole)}, {"order", int(Qt::AscendingOrder)}}});

    std::vector<double> gaps;
    QTimer ticks;
    auto last = Clock::now();
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        const auto now = Clock::now();
        gaps.push_back(std::chrono::duration<double, std::milli>(now - last).count());
        last = now;
    });
    ticks.start(0);
    search(proxy, {});
    std::sort(gaps.begin(), gaps.end());
    return gaps;
}

/// Gaps between ticks with nothing to do are no stalls: the percentile is that of the searching time.
double percentileOfTime(const std::vector<double>& gaps, double part)
{
    double whole = 0;
    for (double gap : gaps)
        whole += gap;
    double sum = 0;
    for (double gap : gaps) {
        sum += gap;
        if (sum >= part * whole)
            return gap;
    }
    return gaps.back();
}

void compareStalls(QAbstractItemModel& source, bool isSorted)
{
    constexpr double budget = 8;
    const auto measured = [&source, isSorted](double part) {
        return [&source, isSorted, part] { return percentileOfTime(stalls(source, isSorted), part); };
    };
    Comparison(std::string("stalls of the event loop, 1000000 results, ") +
               (isSorted ? "sorted" : "unsorted"))
        .addQuantity("8 ms", [] { return budget; })
        .addQuantity("half of the time is in shorter ones than", measured(0.5))
        .addQuantity("99 % of the time is in shorter ones than", measured(0.99))
        .addQuantity("the longest", measured(1));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto tree = treeOfAssets(100, 3);
    Bare bare;
    copyChildren(*tree, {}, bare);
    compareScans(*tree, bare);
    compareHandOver();

    FlatModel small(10000, 10000);
    FlatModel middle(100000, 100000);
    FlatModel large(1000000, 1000000);
    compareSortedArrival(small);
    compareSortedArrival(middle);
    compareWithSorting(middle);
    compareWithSorting(large);
    compareStalls(large, false);
    compareStalls(large, true);
    return runAll(argc, argv);
}
