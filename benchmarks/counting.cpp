// The counter of elements against a bare recursion over rowCount and index, and over Qt's own item model.
#include <support/comparison.h>

#include <datamodels/helpers/model_elements_counter.h>
#include <datamodels/simple_tree_model.h>

#include <QCoreApplication>
#include <QStandardItemModel>

using namespace bench;

namespace {

void grow(SimpleTreeModel::Node& parent, int fan, int depth)
{
    for (int i = 0; depth > 0 && i < fan; ++i)
        grow(parent.addChild<SimpleTreeModel::Node>(), fan, depth - 1);
}

void grow(QStandardItem& parent, int fan, int depth)
{
    for (int i = 0; depth > 0 && i < fan; ++i) {
        auto* const item = new QStandardItem;
        parent.appendRow(item);
        grow(*item, fan, depth - 1);
    }
}

long long nodesBelow(const SimpleTreeModel::Node& node)
{
    long long count = 0;
    for (const auto& child : node.children())
        count += 1 + nodesBelow(*child);
    return count;
}

long long rowsBelow(const QAbstractItemModel& model, const QModelIndex& parent)
{
    long long count = 0;
    for (int row = 0, rows = model.rowCount(parent); row < rows; ++row)
        count += 1 + rowsBelow(model, model.index(row, 0, parent));
    return count;
}

Comparison::Timed counting(QAbstractItemModel& model, ModelElementsCounter::Mode mode)
{
    return [&model, mode] {
        ModelElementsCounter counter;
        counter.setMode(mode);
        counter.setModel(&model);
        keep(counter.value());
    };
}

void compareCounting(SimpleTreeModel& tree, QStandardItemModel& items, int fan)
{
    const std::string shape = "count 10^6 rows, fan " + std::to_string(fan);
    Comparison(shape + ", against the nodes")
        .addPlain("bare recursion over the nodes", [&tree] { keep(nodesBelow(tree.root())); })
        .addPlain("recursion over rowCount and index", [&tree] { keep(rowsBelow(tree, {})); })
        .addPlain("ModelElementsCounter, All", counting(tree, ModelElementsCounter::All))
        .addPlain("ModelElementsCounter, Leafs", counting(tree, ModelElementsCounter::Leafs));
    Comparison(shape + ", against the same over QStandardItemModel")
        .addPlain("QStandardItemModel, All", counting(items, ModelElementsCounter::All))
        .addPlain("SimpleTreeModel, All", counting(tree, ModelElementsCounter::All))
        .addPlain("SimpleTreeModel, Leafs", counting(tree, ModelElementsCounter::Leafs));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);

    SimpleTreeModel narrow;
    SimpleTreeModel wide;
    QStandardItemModel narrowItems;
    QStandardItemModel wideItems;
    grow(narrow.root(), 10, 6);
    grow(wide.root(), 100, 3);
    grow(*narrowItems.invisibleRootItem(), 10, 6);
    grow(*wideItems.invisibleRootItem(), 100, 3);

    compareCounting(narrow, narrowItems, 10);
    compareCounting(wide, wideItems, 100);
    return runAll(argc, argv);
}
