// The node tree against QStandardItemModel: building, parent(), heap, removal at the front, walking.
#include <support/comparison.h>
#include <support/parent_questions.h>

#include <datamodels/simple_tree_model.h>

#include <QCoreApplication>
#include <QStandardItemModel>

using namespace bench;

namespace {

const QString text = QStringLiteral("content/Tree_00042/turret_AM.png");

class TextNode : public SimpleTreeModel::Node
{
public:
    TextNode(SimpleTreeModel& owner, QString text) : Node(owner), m_text(std::move(text)) {}
    QVariant data(int role) const override { return role == Qt::DisplayRole ? QVariant(m_text) : QVariant(); }

private:
    QString m_text;
};

SimpleTreeModel::Node& append(SimpleTreeModel::Node& parent)
{
    return parent.addChild<TextNode>(text);
}

QStandardItem& append(QStandardItem& parent)
{
    auto* item = new QStandardItem(text);
    parent.appendRow(item);
    return *item;
}

SimpleTreeModel::Node& rootOf(SimpleTreeModel& model)
{
    return model.root();
}

QStandardItem& rootOf(QStandardItemModel& model)
{
    return *model.invisibleRootItem();
}

template <class Node>
void growTree(Node& parent, int depth)
{
    for (int i = 0; depth > 0 && i < 100; ++i)
        growTree(append(parent), depth - 1);
}

template <class Model>
auto built()
{
    return [] {
        auto model = std::make_shared<Model>();
        return [model] { growTree(rootOf(*model), 3); };
    };
}

template <class Model>
double heapOfTree()
{
    const double before = heapBytes();
    Model model;
    growTree(rootOf(model), 3);
    return heapBytes() - before;
}

/// One grandchild under each of `siblings`.
template <class Model>
std::shared_ptr<Model> family(int siblings)
{
    auto model = std::make_shared<Model>();
    auto& top = append(rootOf(*model));
    for (int i = 0; i < siblings; ++i)
        append(append(top));
    return model;
}

template <class Model>
auto parents(int siblings)
{
    return [model = family<Model>(siblings)] { return parentQuestions(model, model->index(0, 0)); };
}

void compareParents(int siblings)
{
    Comparison("parent(), " + std::to_string(siblings) + " siblings")
        .add("QStandardItemModel", parents<QStandardItemModel>(siblings))
        .add("SimpleTreeModel", parents<SimpleTreeModel>(siblings));
}

void compareRemovals(int children)
{
    Comparison("100 removals at the front of " + std::to_string(children))
        .add("vector of unique_ptr", [children] {
            auto nodes = std::make_shared<std::vector<std::unique_ptr<QString>>>();
            for (int i = 0; i < children; ++i)
                nodes->push_back(std::make_unique<QString>(text));
            return [nodes] {
                for (int i = 0; i < 100; ++i)
                    nodes->erase(nodes->begin());
            };
        })
        .add("SimpleTreeModel, one by one", [children] {
            auto model = std::make_shared<SimpleTreeModel>();
            for (int i = 0; i < children; ++i)
                append(model->root());
            return [model] {
                for (int i = 0; i < 100; ++i)
                    model->root().removeChildren(0, 1);
            };
        })
        .add("SimpleTreeModel, one by one, the last row asked in between", [children] {
            auto model = std::make_shared<SimpleTreeModel>();
            for (int i = 0; i < children; ++i)
                append(model->root());
            return [model] {
                for (int i = 0; i < 100; ++i) {
                    model->root().removeChildren(0, 1);
                    keep(static_cast<long long>(model->root().children().back()->row()));
                }
            };
        });
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);

    Comparison("build 1010100 nodes one by one")
        .add("QStandardItemModel", built<QStandardItemModel>())
        .add("SimpleTreeModel", built<SimpleTreeModel>());
    Comparison("heap of 1010100 nodes")
        .addQuantity("QStandardItemModel", heapOfTree<QStandardItemModel>)
        .addQuantity("SimpleTreeModel", heapOfTree<SimpleTreeModel>);
    for (int siblings : {100, 1000, 10000, 100000})
        compareParents(siblings);
    compareRemovals(10000);
    compareRemovals(100000);

    return runAll(argc, argv);
}
