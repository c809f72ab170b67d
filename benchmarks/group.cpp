// Grouping by a role: filling, memory, and what changes of the source cost.
#include <support/comparison.h>
#include <support/sample_models.h>

#include <datamodels/proxy/group_by_proxy_model.h>

#include <KCategorizedSortFilterProxyModel>
#include <QCoreApplication>
#include <QSortFilterProxyModel>

#include <numeric>
#include <unordered_map>

using namespace bench;
using qelm::datamodels::proxy::GroupByProxyModel;

namespace {

constexpr int kindRole = Qt::UserRole + 1;

/// A list of numbers that are also told as texts: the kinds by which rows are grouped.
class Kinds : public QAbstractListModel
{
public:
    explicit Kinds(std::vector<int> kinds) : m_kinds(std::move(kinds)) {}

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_kinds.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const int kind = m_kinds[static_cast<std::size_t>(index.row())];
        switch (role) {
        case kindRole:
        case KCategorizedSortFilterProxyModel::CategoryDisplayRole:
            return QString::number(kind);
        case KCategorizedSortFilterProxyModel::CategorySortRole:
            return kind;
        default:
            return {};
        }
    }
    void insertFirst(int kind)
    {
        beginInsertRows({}, 0, 0);
        m_kinds.insert(m_kinds.begin(), kind);
        endInsertRows();
    }
    void removeFirst(int count)
    {
        beginRemoveRows({}, 0, count - 1);
        m_kinds.erase(m_kinds.begin(), m_kinds.begin() + count);
        endRemoveRows();
    }
    void set(int first, int count, int kind)
    {
        std::fill_n(m_kinds.begin() + first, count, kind);
        Q_EMIT dataChanged(index(first), index(first + count - 1), {kindRole});
    }

private:
    std::vector<int> m_kinds;
};

std::vector<int> mixed(int rows, int kinds)
{
    unsigned seed = 7;
    std::vector<int> result(static_cast<std::size_t>(rows));
    for (int& kind : result)
        kind = static_cast<int>(nextRandom(seed) % static_cast<unsigned>(kinds));
    return result;
}

/// The kinds from `firstKind` on, each for as many rows.
std::vector<int> inOrder(int firstKind, int kinds, int rowsEach)
{
    std::vector<int> result;
    for (int kind = firstKind; kind < firstKind + kinds; ++kind)
        result.insert(result.end(), static_cast<std::size_t>(rowsEach), kind);
    return result;
}

std::shared_ptr<GroupByProxyModel> grouping(Kinds& source)
{
    auto proxy = std::make_shared<GroupByProxyModel>();
    proxy->setRole(kindRole, "kind");
    proxy->setSourceModel(&source);
    return proxy;
}

std::shared_ptr<std::vector<QPersistentModelIndex>> bareIndexes(const Kinds& source)
{
    auto indexes = std::make_shared<std::vector<QPersistentModelIndex>>();
    indexes->reserve(static_cast<std::size_t>(source.rowCount()));
    for (int row = 0; row < source.rowCount(); ++row)
        indexes->emplace_back(source.index(row));
    return indexes;
}

/// Tables of hashes in which each removal rebuilds or rewrites what it shifts; without any notification.
class PlainTables
{
public:
    struct Hash
    {
        std::size_t operator()(const QPersistentModelIndex& index) const { return qHash(index); }
    };
    using ByMember = std::unordered_map<QPersistentModelIndex, int, Hash>;

    explicit PlainTables(const Kinds& source)
    {
        for (int row = 0; row < source.rowCount(); ++row) {
            const QPersistentModelIndex index(source.index(row));
            const int group = index.data(kindRole).toInt();
            if (static_cast<std::size_t>(group) >= m_groups.size())
                m_groups.resize(static_cast<std::size_t>(group) + 1);
            add(m_groups[static_cast<std::size_t>(group)], group, index);
        }
    }

    void removeFirstMembers(const Kinds& source, int count)
    {
        for (int i = 0; i < count; ++i) {
            Group& group = m_groups.front();
            const auto found = group.rows.find(QPersistentModelIndex(source.index(i)));
            const int removed = found->second;
            m_groupOf.erase(found->first);
            group.rows.erase(found);
            group.members.clear();
            for (auto& [member, row] : group.rows) {
                row -= row > removed ? 1 : 0;
                group.members.emplace(row, member);
            }
        }
    }

    void moveFirstGroupToTheEnd()
    {
        Group group = std::move(m_groups.front());
        for (const auto& [member, row] : group.rows)
            m_groupOf.erase(member);
        m_groups.erase(m_groups.begin());
        for (std::size_t position = 0; position < m_groups.size(); ++position) {
            for (const auto& [member, row] : m_groups[position].rows)
                m_groupOf[member] = static_cast<int>(position);
        }
        for (const auto& [member, row] : group.rows)
            m_groupOf[member] = static_cast<int>(m_groups.size());
        m_groups.push_back(std::move(group));
    }

private:
    struct Group
    {
        ByMember rows;
        std::unordered_map<int, QPersistentModelIndex> members;
    };

    void add(Group& group, int position, const QPersistentModelIndex& index)
    {
        const int row = static_cast<int>(group.rows.size());
        group.rows.emplace(index, row);
        group.members.emplace(row, index);
        m_groupOf.emplace(index, position);
    }

    std::vector<Group> m_groups;
    ByMember m_groupOf;
};

template <class Proxy>
std::function<Comparison::Timed()> sorted(Kinds& source, void (*setUp)(Proxy&))
{
    return [&source, setUp] {
        auto proxy = std::make_shared<Proxy>();
        setUp(*proxy);
        return [&source, proxy] {
            proxy->setSourceModel(&source);
            proxy->sort(0);
            keep(proxy->rowCount());
        };
    };
}

std::function<Comparison::Timed()> groupedFresh(Kinds& source)
{
    return [&source] {
        auto proxy = std::make_shared<GroupByProxyModel>();
        proxy->setRole(kindRole, "kind");
        return [&source, proxy] {
            proxy->setSourceModel(&source);
            keep(proxy->rowCount());
        };
    };
}

void compareFilling(Kinds& source, const std::string& rows)
{
    const std::string ours = "GroupByProxyModel";
    Comparison("fill, " + rows + " rows, to KCategorizedSortFilterProxyModel")
        .add("KCategorizedSortFilterProxyModel", sorted<KCategorizedSortFilterProxyModel>(source, [](auto& proxy) {
                 proxy.setCategorizedModel(true);
             }))
        .add(ours, groupedFresh(source));
    Comparison("fill, " + rows + " rows, to a sorted QSortFilterProxyModel")
        .add("QSortFilterProxyModel",
             sorted<QSortFilterProxyModel>(source, [](auto& proxy) { proxy.setSortRole(kindRole); }))
        .add(ours, groupedFresh(source));
    Comparison("fill, " + rows + " rows, to a loop")
        .addPlain("index, data, toString into a QHash of vectors",
                  [&source] {
                      QHash<QString, QVector<int>> groups;
                      for (int row = 0, count = source.rowCount(); row < count; ++row)
                          groups[source.index(row).data(kindRole).toString()].append(row);
                      keep(groups.size());
                  })
        .add(ours, groupedFresh(source))
        .add("a persistent index for each row alone", [&source] {
            auto indexes = std::make_shared<std::vector<QPersistentModelIndex>>();
            return [&source, indexes] { indexes->swap(*bareIndexes(source)); };
        });
}

// A source and what stands on it, which goes first.
template <class Make>
auto over(std::vector<int> kinds, Make make)
{
    auto source = std::make_shared<Kinds>(std::move(kinds));
    return std::pair(source, make(*source));
}

template <class Make>
double heapPerRow(int rows, Make make)
{
    Kinds source(mixed(rows, 1000));
    const double before = heapBytes();
    const auto made = make(source);
    return (heapBytes() - before) / rows;
}

void compareHeap(int rows)
{
    Comparison("heap in bytes a row, 10^6 rows")
        .addQuantity("1", [] { return 1; })
        .addQuantity("GroupByProxyModel", [rows] { return heapPerRow(rows, grouping); })
        .addQuantity("a persistent index for each row alone", [rows] { return heapPerRow(rows, bareIndexes); });
}

void compareRemovals(int members, const std::string& name)
{
    constexpr int removed = 100;
    const auto plain = [](const Kinds& source) { return std::make_shared<PlainTables>(source); };
    Comparison("100 members leave a group of " + name)
        .add("hash tables, rebuilt for each member, no notification", [members, plain] {
            auto parts = over(inOrder(0, 1, members), plain);
            return [parts] { parts.second->removeFirstMembers(*parts.first, removed); };
        })
        .add("GroupByProxyModel, with the source's own part", [members] {
            auto parts = over(inOrder(0, 1, members), grouping);
            return [parts] { parts.first->removeFirst(removed); };
        });
}

void compareGroupsThatGo()
{
    constexpr int leavingGroups = 20;
    constexpr int leavingMembers = 10;
    constexpr int otherGroups = 1000;
    const auto kinds = [](int othersMembers) {
        std::vector<int> result = inOrder(0, leavingGroups, leavingMembers);
        const std::vector<int> others = inOrder(leavingGroups, otherGroups, othersMembers);
        result.insert(result.end(), others.begin(), others.end());
        return result;
    };
    const auto ours = [kinds](int othersMembers) {
        return [kinds, othersMembers] {
            auto parts = over(kinds(othersMembers), grouping);
            return [parts] {
                for (int i = 0; i < leavingGroups; ++i)
                    parts.first->set(i * leavingMembers, leavingMembers, leavingGroups + otherGroups + i);
            };
        };
    };
    Comparison("20 times the first of some 1000 groups goes and comes back at the end")
        .add("hash tables, positions written for each later member, 100 each, no notification",
             [kinds] {
                 auto parts = over(kinds(100),
                                   [](const Kinds& source) { return std::make_shared<PlainTables>(source); });
                 return [parts] {
                     for (int i = 0; i < leavingGroups; ++i)
                         parts.second->moveFirstGroupToTheEnd();
                 };
             })
        .add("GroupByProxyModel, later groups of 100 members", ours(100))
        .add("GroupByProxyModel, later groups of 1 member", ours(1));
}

void compareInsertion(int rows)
{
    const auto insertion = [rows](auto make) {
        return [rows, make] {
            auto parts = over(mixed(rows, 1000), make);
            return [parts] { parts.first->insertFirst(0); };
        };
    };
    Comparison("one row inserted at the front of 10^6")
        .add("a persistent index for each row alone", insertion(bareIndexes))
        .add("GroupByProxyModel", insertion(grouping));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);

    Kinds small(mixed(10000, 1000));
    Kinds middle(mixed(100000, 1000));
    Kinds large(mixed(1000000, 1000));
    compareFilling(small, "10^4");
    compareFilling(middle, "10^5");
    compareFilling(large, "10^6");
    compareHeap(1000000);
    compareRemovals(1000, "10^3");
    compareRemovals(10000, "10^4");
    compareRemovals(100000, "10^5");
    compareGroupsThatGo();
    compareInsertion(1000000);

    return runAll(argc, argv);
}
