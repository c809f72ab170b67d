#include "walked_proxies.h"

#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/invert_predicate.h>
#include <datamodels/proxy/predicates/or_predicate.h>
#include <datamodels/proxy/predicates/text_predicate.h>
#include <datamodels/proxy/token_filter_proxy_model.h>
#include <support/scripted_tree.h>

#include <map>

using namespace qelm::datamodels::proxy;

namespace {

using Accepts =
    std::function<bool(const QModelIndex& parent, const QModelIndex& row, const QAbstractItemModel& model)>;
using Mode = BaseFilterProxyModel::FilteringMode;

enum Sorting
{
    Unsorted,
    ByKey,
    ByText,
    BySize,
};

bool holdsOak(const QVariant& value)
{
    return value.toString().contains(QLatin1String("oak"), Qt::CaseInsensitive);
}

bool isOak(const QModelIndex& row)
{
    return holdsOak(row.data());
}

bool isOakOrHerb(const QModelIndex& row)
{
    return isOak(row) || row.data(ScriptedTree::KindRole) == QLatin1String("herb");
}

bool anyBelow(const QAbstractItemModel& model, const QModelIndex& row)
{
    for (int i = 0; i < model.rowCount(row); ++i) {
        const QModelIndex child = model.index(i, 0, row);
        if (isOakOrHerb(child) || anyBelow(model, child))
            return true;
    }
    return false;
}

bool isOnTheWayToOakOrHerb(const QModelIndex& parent, const QModelIndex& row, const QAbstractItemModel& model)
{
    if (isOakOrHerb(row))
        return true;
    for (QModelIndex above = parent; above.isValid(); above = above.parent()) {
        if (isOakOrHerb(above))
            return true;
    }
    return anyBelow(model, row);
}

/// Qt's proxy with a filter function.
class PlainProxy : public QSortFilterProxyModel
{
public:
    explicit PlainProxy(Accepts accepts) : m_accepts(std::move(accepts)) {}
    using QSortFilterProxyModel::invalidateFilter;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        return m_accepts(parent, sourceModel()->index(row, 0, parent), *sourceModel());
    }

private:
    Accepts m_accepts;
};

class RefreshableProxy : public BaseFilterProxyModel
{
public:
    using BaseFilterProxyModel::invalidateFilter;
};

template <class Proxy>
std::unique_ptr<QSortFilterProxyModel> sorted(std::unique_ptr<Proxy> proxy, Sorting sorting)
{
    proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    if (sorting == ByKey)
        proxy->setSortRole(ScriptedTree::KeyRole);
    if (sorting == BySize)
        proxy->setSortRole(ScriptedTree::SizeRole);
    if (sorting != Unsorted)
        proxy->sort(0, sorting == BySize ? Qt::DescendingOrder : Qt::AscendingOrder);
    return proxy;
}

WalkedProxies::Make plain(Accepts accepts, bool isRecursive, Sorting sorting)
{
    return [=] {
        auto proxy = std::make_unique<PlainProxy>(accepts);
        proxy->setRecursiveFilteringEnabled(isRecursive);
        return sorted(std::move(proxy), sorting);
    };
}

Accepts byRow(bool (*accepts)(const QModelIndex& row))
{
    return [accepts](const QModelIndex&, const QModelIndex& row, const QAbstractItemModel&) {
        return accepts(row);
    };
}

WalkedProxies withPredicate(BasePredicate* (*predicate)(), bool (*accepts)(const QModelIndex&),
                            Sorting sorting)
{
    return {[=] { return sorted(std::make_unique<FilterProxyModel>(predicate()), sorting); },
            plain(byRow(accepts), true, sorting)};
}

WalkedProxies withTokens(Sorting sorting)
{
    const auto ours = [=] {
        auto proxy = std::make_unique<TokenFilterProxyModel>();
        proxy->setFilterTokens("k OA");
        return sorted(std::move(proxy), sorting);
    };
    return {ours, plain(byRow(isOak), false, sorting)};
}

void filterAgain(QSortFilterProxyModel& proxy)
{
    if (auto* refreshable = dynamic_cast<RefreshableProxy*>(&proxy))
        refreshable->invalidateFilter();
    else
        dynamic_cast<PlainProxy&>(proxy).invalidateFilter();
}

WalkedProxies inMode(Mode mode, Sorting sorting)
{
    const auto ours = [=] {
        auto proxy = std::make_unique<RefreshableProxy>();
        proxy->setFilterPredicate(
            [](const QVariant& value) { return holdsOak(value) || value == QLatin1String("herb"); });
        proxy->addFilterRole(ScriptedTree::KindRole);
        proxy->setFilteringMode(mode);
        return sorted(std::move(proxy), sorting);
    };
    if (mode == BaseFilterProxyModel::Hierarchical)
        return {ours, plain(isOnTheWayToOakOrHerb, false, sorting), filterAgain};
    return {ours, plain(byRow(isOakOrHerb), mode == BaseFilterProxyModel::Recursive, sorting)};
}

BasePredicate* text(const QString& text, int role = Qt::DisplayRole)
{
    auto* predicate = new TextPredicate({role});
    predicate->setText(text);
    return predicate;
}

BasePredicate* oak()
{
    return text("oak");
}

BasePredicate* oakOrHerb()
{
    return new OrPredicate({text("oak"), text("herb", ScriptedTree::KindRole)});
}

BasePredicate* neitherOakNorHerb()
{
    return new InvertPredicate(oakOrHerb());
}

BasePredicate* everything()
{
    return text({});
}

bool isNeitherOakNorHerb(const QModelIndex& row)
{
    return !isOakOrHerb(row);
}

bool isThere(const QModelIndex&)
{
    return true;
}

const std::map<QString, std::function<WalkedProxies()>>& table()
{
    static const std::map<QString, std::function<WalkedProxies()>> rows{
        {"everything", [] { return withPredicate(everything, isThere, Unsorted); }},
        {"everything by key", [] { return withPredicate(everything, isThere, ByKey); }},
        {"predicate", [] { return withPredicate(oak, isOak, Unsorted); }},
        {"predicate by key", [] { return withPredicate(oak, isOak, ByKey); }},
        {"predicate by text", [] { return withPredicate(oak, isOak, ByText); }},
        {"predicates", [] { return withPredicate(oakOrHerb, isOakOrHerb, Unsorted); }},
        {"predicates by key", [] { return withPredicate(oakOrHerb, isOakOrHerb, ByKey); }},
        {"inverted", [] { return withPredicate(neitherOakNorHerb, isNeitherOakNorHerb, Unsorted); }},
        {"inverted by key", [] { return withPredicate(neitherOakNorHerb, isNeitherOakNorHerb, ByKey); }},
        {"inverted by size", [] { return withPredicate(neitherOakNorHerb, isNeitherOakNorHerb, BySize); }},
        {"tokens", [] { return withTokens(Unsorted); }},
        {"tokens by key", [] { return withTokens(ByKey); }},
        {"flat", [] { return inMode(BaseFilterProxyModel::Flat, Unsorted); }},
        {"flat by key", [] { return inMode(BaseFilterProxyModel::Flat, ByKey); }},
        {"flat by size", [] { return inMode(BaseFilterProxyModel::Flat, BySize); }},
        {"recursive", [] { return inMode(BaseFilterProxyModel::Recursive, Unsorted); }},
        {"recursive by key", [] { return inMode(BaseFilterProxyModel::Recursive, ByKey); }},
        {"recursive by text", [] { return inMode(BaseFilterProxyModel::Recursive, ByText); }},
        {"hierarchical", [] { return inMode(BaseFilterProxyModel::Hierarchical, Unsorted); }},
        {"hierarchical by key", [] { return inMode(BaseFilterProxyModel::Hierarchical, ByKey); }},
        {"hierarchical by size", [] { return inMode(BaseFilterProxyModel::Hierarchical, BySize); }},
    };
    return rows;
}

} // namespace

QStringList walkedProxyNames()
{
    QStringList names;
    for (const auto& row : table())
        names.append(row.first);
    return names;
}

WalkedProxies walkedProxies(const QString& name)
{
    return table().at(name)();
}
