// Sorting a mapped proxy by a role.
#include <support/comparison.h>
#include <support/sample_models.h>

#include <datamodels/proxy/base_filter_proxy_model.h>

#include <QCoreApplication>

using namespace bench;
using qelm::datamodels::proxy::BaseFilterProxyModel;

namespace {

/// Asks for the values at every comparison, as a comparison made outside of `sort` does.
class Unkeyed : public BaseFilterProxyModel
{
public:
    void sort(int column, Qt::SortOrder order) override { QSortFilterProxyModel::sort(column, order); }
};

template <class Proxy>
auto sorted(QAbstractItemModel& source, int role)
{
    return [&source, role] {
        auto proxy = std::make_shared<Proxy>();
        proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
        proxy->setSortRole(role);
        proxy->setSourceModel(&source);
        keep(proxy->rowCount());
        return [proxy] { proxy->sort(0, Qt::AscendingOrder); };
    };
}

void compareSort(QAbstractItemModel& source, const std::string& what, int role)
{
    Comparison("sort by " + what + ", " + std::to_string(source.rowCount()) + " rows")
        .add("QSortFilterProxyModel", sorted<QSortFilterProxyModel>(source, role))
        .add("BaseFilterProxyModel", sorted<BaseFilterProxyModel>(source, role))
        .add("BaseFilterProxyModel, values asked at each comparison", sorted<Unkeyed>(source, role));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    FlatModel small(10000, 10000);
    FlatModel middle(100000, 100000);
    FlatModel large(1000000, 1000000);
    for (FlatModel* source : {&small, &middle, &large}) {
        compareSort(*source, "strings", Qt::DisplayRole);
        compareSort(*source, "ints", Qt::UserRole);
    }
    return runAll(argc, argv);
}
