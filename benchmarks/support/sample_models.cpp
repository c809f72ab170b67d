#include <support/sample_models.h>

#include <datamodels/simple_tree_model.h>

#include <array>

namespace bench {
namespace {

class AssetNode : public SimpleTreeModel::Node
{
public:
    AssetNode(SimpleTreeModel& owner, QString name) : Node(owner), m_name(std::move(name)) {}

    QVariant data(int role) const override { return role == Qt::DisplayRole ? QVariant(m_name) : QVariant(); }

private:
    QString m_name;
};

void grow(SimpleTreeModel::Node& parent, int fan, int depth, unsigned& seed, int& count)
{
    for (int i = 0; depth > 0 && i < fan; ++i)
        grow(parent.addChild<AssetNode>(assetName(seed, count++)), fan, depth - 1, seed, count);
}

} // namespace

unsigned nextRandom(unsigned& seed)
{
    seed = seed * 1664525U + 1013904223U;
    return seed >> 8U;
}

QString assetName(unsigned& seed, int number)
{
    static const std::array<const char*, 8> words{"Tree", "rock", "Tank_Hull", "turret", "Building", "fence", "BRIDGE", "water"};
    const unsigned random = nextRandom(seed);
    return QString::asprintf("content/%s_%05d/%s_AM.png", words[random % 8], number % 100000, words[random / 8 % 8]);
}

FlatModel::FlatModel(int rows, int numbers)
{
    unsigned seed = 7;
    for (int i = 0; i < rows; ++i) {
        m_names.push_back(assetName(seed, i));
        m_numbers.push_back(static_cast<int>(nextRandom(seed) % static_cast<unsigned>(numbers)));
    }
}

int FlatModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_names.size());
}

QVariant FlatModel::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole)
        return m_names[row];
    return role == Qt::UserRole ? QVariant(m_numbers[row]) : QVariant();
}

std::unique_ptr<SimpleTreeModel> treeOfAssets(int fan, int depth)
{
    auto tree = std::make_unique<SimpleTreeModel>();
    unsigned seed = 7;
    int count = 0;
    grow(tree->root(), fan, depth, seed, count);
    return tree;
}

long long walk(const QAbstractItemModel& model, const QModelIndex& parent)
{
    long long rows = 0;
    for (int row = 0, count = model.rowCount(parent); row < count; ++row)
        rows += 1 + walk(model, model.index(row, 0, parent));
    return rows;
}

} // namespace bench
