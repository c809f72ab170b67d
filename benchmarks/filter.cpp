// Filtering by text: a flat list, a tree with its ancestors kept, and hierarchical mode.
#include <support/comparison.h>
#include <support/sample_models.h>

#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/predicates/text_predicate.h>
#include <datamodels/simple_tree_model.h>

#include <QCoreApplication>

using namespace bench;
using namespace qelm::datamodels::proxy;

namespace {

std::unique_ptr<QSortFilterProxyModel> qtFilter(const QString& text, bool isRecursive)
{
    auto proxy = std::make_unique<QSortFilterProxyModel>();
    proxy->setRecursiveFilteringEnabled(isRecursive);
    proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy->setFilterFixedString(text);
    return proxy;
}

std::unique_ptr<QSortFilterProxyModel> predicateFilter(const QString& text)
{
    auto* predicate = new TextPredicate;
    predicate->setText(text);
    return std::make_unique<FilterProxyModel>(predicate);
}

std::unique_ptr<QSortFilterProxyModel> hierarchicalFilter(const QString& text)
{
    auto proxy = std::make_unique<BaseFilterProxyModel>();
    TextMatcher matcher;
    matcher.setText(text);
    proxy->setFilterPredicate([matcher](const QVariant& value) { return matcher.matches(value); });
    proxy->setFilteringMode(BaseFilterProxyModel::Hierarchical);
    return proxy;
}

// A new proxy each round, so that its first mapping is what counts: of a list by its count, of a tree by a walk.
template <class Make>
auto fresh(FlatModel& source, Make make)
{
    return [&source, make] {
        std::shared_ptr<QSortFilterProxyModel> proxy = make();
        return [&source, proxy] {
            proxy->setSourceModel(&source);
            keep(proxy->rowCount());
        };
    };
}

template <class Make>
auto fresh(SimpleTreeModel& source, Make make)
{
    return [&source, make] {
        std::shared_ptr<QSortFilterProxyModel> proxy = make();
        return [&source, proxy] {
            proxy->setSourceModel(&source);
            keep(walk(*proxy));
        };
    };
}

void compareFlat(FlatModel& source, const char* share, const QString& text)
{
    Comparison(std::string("flat, 10^6 rows, hits ") + share)
        .add("QSortFilterProxyModel, fixed string", fresh(source, [text] { return qtFilter(text, false); }))
        .add("FilterProxyModel with a TextPredicate", fresh(source, [text] { return predicateFilter(text); }))
        .addPlain("loop over QString::contains", [&source, text] {
            long long hits = 0;
            for (const QString& name : source.names())
                hits += name.contains(text, Qt::CaseInsensitive);
            keep(hits);
        });
}

void compareTree(SimpleTreeModel& source, const char* shape, const char* share, const QString& text)
{
    Comparison(std::string("tree, ") + shape + ", hits " + share)
        .add("QSortFilterProxyModel, recursive", fresh(source, [text] { return qtFilter(text, true); }))
        .add("FilterProxyModel with a TextPredicate", fresh(source, [text] { return predicateFilter(text); }))
        .add("BaseFilterProxyModel, hierarchical", fresh(source, [text] { return hierarchicalFilter(text); }));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString rare = QStringLiteral("TREE_0007");
    const QString common = QStringLiteral("tree");
    const QString absent = QStringLiteral("nowhere");

    FlatModel flat(1000000);
    compareFlat(flat, "0.01 %", rare);
    compareFlat(flat, "23 %", common);

    const auto deep = treeOfAssets(10, 6);
    compareTree(*deep, "fan 10, depth 6", "0.01 %", rare);
    compareTree(*deep, "fan 10, depth 6", "23 %", common);
    compareTree(*deep, "fan 10, depth 6", "none", absent);
    const auto broad = treeOfAssets(100, 3);
    compareTree(*broad, "fan 100, depth 3", "0.01 %", rare);
    compareTree(*broad, "fan 100, depth 3", "23 %", common);
    compareTree(*broad, "fan 100, depth 3", "none", absent);

    return runAll(argc, argv);
}
