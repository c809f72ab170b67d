// Composition: reading through a composite, and what it costs to tell changes of a mounted model.
#include <support/comparison.h>
#include <support/sample_models.h>

#include <datamodels/composite_model.h>

#include <QConcatenateTablesProxyModel>
#include <QCoreApplication>

#include <vector>

using namespace bench;

namespace {

constexpr int modelCount = 10;
constexpr int rowsEach = 10000;

/// Lets rows be told as changed, and removed.
class Assets : public FlatModel
{
public:
    Assets() : FlatModel(rowsEach) {}

    void tell(int first, int last) { Q_EMIT dataChanged(index(first), index(last), {Qt::DisplayRole}); }
    void removeFirst()
    {
        beginRemoveRows({}, 0, 0);
        m_removed = 1;
        endRemoveRows();
    }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return FlatModel::rowCount(parent) - (parent.isValid() ? 0 : m_removed);
    }

private:
    int m_removed = 0;
};

using Models = std::vector<std::shared_ptr<Assets>>;

Models makeModels()
{
    Models models;
    for (int i = 0; i < modelCount; ++i)
        models.push_back(std::make_shared<Assets>());
    return models;
}

/// Reads the rows of the level of that depth; returns the length of what they show.
long long readLevel(const QAbstractItemModel& model, int depth, const QModelIndex& parent = QModelIndex())
{
    long long sum = 0;
    for (int row = 0, rows = model.rowCount(parent); row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        sum += depth == 0 ? index.data().toString().size() : readLevel(model, depth - 1, index);
    }
    return sum;
}

constexpr int depthOfComposite = 2;
constexpr int depthOfConcatenation = 0;

std::shared_ptr<QAbstractItemModel> composite(const Models& models)
{
    auto result = std::make_shared<CompositeModel>();
    for (std::size_t i = 0; i < models.size(); ++i)
        result->addSubmodel("content/m" + std::to_string(i), models[i]);
    keep(readLevel(*result, depthOfComposite)); // now all rows are known
    return result;
}

std::shared_ptr<QAbstractItemModel> concatenation(const Models& models)
{
    auto result = std::make_shared<QConcatenateTablesProxyModel>();
    for (const auto& model : models)
        result->addSourceModel(model.get());
    keep(readLevel(*result, depthOfConcatenation));
    return result;
}

std::shared_ptr<QAbstractItemModel> compositeAfterRemoval(const Models& models)
{
    auto result = composite(models);
    models.back()->removeFirst();
    return result;
}

/// The last model tells something, with a listener at the far end.
template <class Make, class Tell>
std::function<Comparison::Timed()> telling(Make make, Tell tell)
{
    return [make, tell] {
        const Models models = makeModels();
        const auto model = make(models);
        auto heard = std::make_shared<long long>(0);
        QObject::connect(model.get(), &QAbstractItemModel::dataChanged, model.get(),
                         [heard](const QModelIndex& topLeft) { *heard += topLeft.row(); });
        return [models, model, heard, tell] {
            tell(*models.back());
            keep(*heard);
        };
    };
}

template <class Make>
std::function<Comparison::Timed()> reading(Make make, int depth)
{
    return [make, depth] {
        const Models models = makeModels();
        const auto model = make(models);
        return [models, model, depth] { keep(readLevel(*model, depth)); };
    };
}

void tellOneByOne(Assets& model)
{
    for (int row = 1; row <= 1000; ++row)
        model.tell(row, row);
}

void tellAll(Assets& model)
{
    model.tell(1, model.rowCount() - 1);
}

/// Searches for each row of a model among persistent indexes from the first on.
std::function<Comparison::Timed()> plainSearch()
{
    return [] {
        auto model = std::make_shared<Assets>();
        auto known = std::make_shared<std::vector<QPersistentModelIndex>>();
        for (int row = 0; row < model->rowCount(); ++row)
            known->emplace_back(model->index(row));
        return [model, known] {
            long long found = 0;
            for (int row = 1; row < model->rowCount(); ++row)
                found += std::find(known->begin(), known->end(), model->index(row)) - known->begin();
            keep(found);
        };
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);

    Comparison("read known rows of 10 models of 10^4")
        .add("QConcatenateTablesProxyModel", reading(concatenation, depthOfConcatenation))
        .add("CompositeModel", reading(composite, depthOfComposite));
    Comparison("tell changes of single rows")
        .add("QConcatenateTablesProxyModel", telling(concatenation, tellOneByOne))
        .add("CompositeModel", telling(composite, tellOneByOne))
        .add("CompositeModel, after a removal", telling(compositeAfterRemoval, tellOneByOne));
    Comparison("tell a change of 10^4 rows at once")
        .add("a search from the first item on for each row", plainSearch())
        .add("CompositeModel", telling(composite, tellAll))
        .add("CompositeModel, after a removal", telling(compositeAfterRemoval, tellAll));

    return runAll(argc, argv);
}
