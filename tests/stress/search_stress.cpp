// Searches that are superseded, cancelled and destroyed at random moments while their source changes. Meant
// for the thread and address sanitizers; what it checks by itself: every row that is shown is the one that
// was found, once, and a search that nobody ends ends by itself.
#include <datamodels/proxy/search_proxy_model.h>

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <thread>
#include <vector>

using qelm::datamodels::proxy::SearchProxyModel;

namespace {

constexpr int searches = 10000;
constexpr int branchesAtStart = 20;
constexpr int leavesAtStart = 10;
constexpr int foundOfThree = 2;

/// A tree of two levels that bears reads from another thread while it changes: reads and changes exclude each
/// other, and a stale index reads nothing. Each row has a number of its own for life.
class Orchard : public QAbstractItemModel
{
public:
    Orchard()
    {
        for (int i = 0; i < branchesAtStart; ++i)
            m_branches.push_back(newBranch());
    }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override
    {
        const std::lock_guard lock(m_mutex);
        const auto* rows = rowsBelow(parent);
        const bool isRow = rows && row >= 0 && row < int(rows->size()) && column == 0;
        return isRow ? createIndex(row, 0, quintptr(parent.isValid() ? numberOf(parent) : 0)) : QModelIndex();
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        const std::lock_guard lock(m_mutex);
        const int number = int(index.internalId());
        const auto branch = std::find_if(m_branches.begin(), m_branches.end(), [=](const Branch& each) {
            return number != 0 && each.number == number;
        });
        return branch == m_branches.end() ? QModelIndex()
                                          : createIndex(int(branch - m_branches.begin()), 0, quintptr(0));
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        const std::lock_guard lock(m_mutex);
        const auto* rows = rowsBelow(parent);
        return rows ? int(rows->size()) : 0;
    }
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int) const override
    {
        const std::lock_guard lock(m_mutex);
        const int number = numberOf(index);
        return number ? QVariant(number) : QVariant();
    }

    void insert(int row)
    {
        Branch branch = newBranch();
        beginInsertRows({}, row, row);
        change([&] { m_branches.insert(m_branches.begin() + row, std::move(branch)); });
        endInsertRows();
    }
    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        change([&] { m_branches.erase(m_branches.begin() + row); });
        endRemoveRows();
    }
    void insertLeaf(int branch)
    {
        beginInsertRows(index(branch, 0), 0, 0);
        change([&] {
            m_branches[size_t(branch)].leaves.insert(m_branches[size_t(branch)].leaves.begin(), ++m_last);
        });
        endInsertRows();
    }
    void swapEnds()
    {
        const int last = rowCount() - 1;
        beginMoveRows({}, last, last, {}, 0);
        change([&] { std::rotate(m_branches.begin(), m_branches.end() - 1, m_branches.end()); });
        endMoveRows();
    }
    void reset()
    {
        beginResetModel();
        change([&] {
            m_branches.clear();
            for (int i = 0; i < branchesAtStart; ++i)
                m_branches.push_back(newBranch());
        });
        endResetModel();
    }

private:
    struct Branch
    {
        int number = 0;
        std::vector<int> leaves;
    };

    Branch newBranch()
    {
        Branch branch{++m_last, {}};
        for (int i = 0; i < leavesAtStart; ++i)
            branch.leaves.push_back(++m_last);
        return branch;
    }
    template <class Change>
    void change(Change changing)
    {
        const std::lock_guard lock(m_mutex);
        changing();
    }
    /// What stands below an index: branches, leaves, or nothing.
    const std::vector<int>* rowsBelow(const QModelIndex& parent) const
    {
        static const std::vector<int> none;
        m_numbers.clear();
        for (const Branch& branch : m_branches)
            m_numbers.push_back(branch.number);
        if (!parent.isValid())
            return &m_numbers;
        const bool isBranch = parent.internalId() == 0 && parent.row() < int(m_branches.size());
        return isBranch ? &m_branches[size_t(parent.row())].leaves : &none;
    }
    int numberOf(const QModelIndex& index) const
    {
        if (!index.isValid())
            return 0;
        if (index.internalId() == 0)
            return index.row() < int(m_branches.size()) ? m_branches[size_t(index.row())].number : 0;
        for (const Branch& branch : m_branches) {
            if (branch.number == int(index.internalId()) && index.row() < int(branch.leaves.size()))
                return branch.leaves[size_t(index.row())];
        }
        return 0;
    }

    mutable std::mutex m_mutex;
    mutable std::vector<int> m_numbers;
    std::vector<Branch> m_branches;
    int m_last = 0;
};

class Stress
{
public:
    Stress() { renewProxy(); }

    void run()
    {
        for (int i = 0; i < searches; ++i) {
            start();
            for (unsigned steps = random(4); steps > 0; --steps)
                step();
            if (random(20) == 0)
                finish();
        }
        finish();
    }

    long faults() const { return m_faults; }
    void print() const
    {
        std::printf("%d searches, %ld ended by themselves, %ld rows looked at, %ld changes of the source\n",
                    searches, m_ended, m_rowsSeen, m_changes);
        std::printf("faults %ld, asked %ld times\n", m_faults, m_asked.load());
    }
    bool hasDoneIt() const { return m_ended > 0 && m_rowsSeen > 0 && m_changes > 0 && m_asked > 0; }

private:
    unsigned random(unsigned end) { return unsigned(m_random() % end); }

    void renewProxy()
    {
        m_proxy = std::make_unique<SearchProxyModel>();
        m_proxy->setSourceModel(&m_source);
    }

    void start()
    {
        m_hasEnded = false;
        m_proxy->setSearchBufferSize(random(3) == 0 ? random(5) : random(1000));
        m_proxy->search(
            {},
            [this](const QModelIndex& index, QVariant& info) {
                ++m_asked;
                const int number = index.data().toInt();
                info = number;
                return number % 3 < foundOfThree;
            },
            true, [this] { m_hasEnded = true; });
    }

    void finish()
    {
        if (!m_proxy->isSeraching())
            start();
        while (!m_hasEnded)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++m_ended;
        check();
    }

    void step()
    {
        switch (random(12)) {
        case 0:
            std::this_thread::sleep_for(std::chrono::microseconds(random(200)));
            break;
        case 1:
            m_proxy->sort({QVariantMap{{"role", int(Qt::DisplayRole)}, {"order", int(random(2))}}});
            break;
        case 2:
            m_proxy->sort(QVariantList());
            break;
        case 3:
            check();
            break;
        case 4:
            if (random(20) == 0) {
                renewProxy();
                start();
            }
            break;
        case 5:
            if (random(20) == 0) {
                m_source.reset();
                start();
            }
            break;
        case 6:
        case 7:
            changeSource();
            break;
        default:
            QCoreApplication::processEvents();
        }
    }

    void changeSource()
    {
        ++m_changes;
        const int rows = m_source.rowCount();
        switch (random(4)) {
        case 0:
            m_source.insert(int(random(unsigned(rows) + 1)));
            break;
        case 1:
            if (rows > 5)
                m_source.remove(int(random(unsigned(rows))));
            break;
        case 2:
            m_source.insertLeaf(int(random(unsigned(rows))));
            break;
        default:
            m_source.swapEnds();
        }
    }

    /// A row without a value is one that has been removed.
    void check()
    {
        std::set<int> seen;
        for (int row = 0; row < m_proxy->rowCount(); ++row) {
            const QVariant number = m_proxy->index(row, 0).data();
            if (!number.isValid())
                continue;
            ++m_rowsSeen;
            const bool isRight = number == m_proxy->index(row, 0).data(SearchProxyModel::SearchInfoRole) &&
                                 number.toInt() % 3 < foundOfThree;
            if (!isRight || !seen.insert(number.toInt()).second)
                ++m_faults;
        }
    }

    std::minstd_rand m_random{7};
    std::atomic<long> m_asked{0};
    bool m_hasEnded = false;
    long m_faults = 0;
    long m_ended = 0;
    long m_rowsSeen = 0;
    long m_changes = 0;
    Orchard m_source;
    std::unique_ptr<SearchProxyModel> m_proxy;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Stress stress;
    stress.run();
    stress.print();
    return stress.faults() == 0 && stress.hasDoneIt() ? EXIT_SUCCESS : EXIT_FAILURE;
}
