// The property panel: opening one node of a large graph, and joining what is selected.
#include <support/comparison.h>
#include <support/sample_scene.h>

#include <datamodels/helpers/qt_miltiselection_composer.h>
#include <datamodels/reflection_tree_model.h>
#include <datamodels/scene_item_model.h>

#include <QGuiApplication>

using namespace bench;

namespace {

/// Opens the first part, which has parts of its own, and reads the values below it.
std::function<Comparison::Timed()> openings(const std::vector<int>& partsOnLevels)
{
    return [partsOnLevels] {
        const auto scene = sampleScene(partsOnLevels);
        return [scene] {
            for (int i = 0; i < 1000; ++i) {
                const ReflectionTreeModel model(zarn::reflect(*scene));
                const QModelIndex parts = model.index(3, 0);
                const QModelIndex first = model.index(0, 0, parts);
                for (int row = 0; row < model.rowCount(first); ++row)
                    keep(model.index(row, 0, first).data(ReflectionTreeModel::ValueRole).userType());
            }
        };
    };
}

/// What a panel has to look at in any case.
void readAll(const SampleActor& scene)
{
    long long sum = 0;
    for (const auto& part : *scene.parts) {
        const zarn::ReflectedObject object = zarn::reflect(*part);
        for (std::size_t i = 0; i < object.propertyCount(); ++i)
            sum += object.propertyAt(i).get().isVoid() ? 0 : 1;
    }
    keep(sum);
}

struct Panel
{
    Panel() { composer.setSelectionModel(&selection); }

    std::shared_ptr<SampleActor> scene = sampleScene({10000});
    SceneItemModel model{zarn::reflect(*scene)};
    QItemSelectionModel selection{&model};
    QtMiltiselectionComposer composer;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the outliner shows the wait cursor while it is built
    const QGuiApplication application(argc, argv);

    Comparison("open one node of a ReflectionTreeModel")
        .add("among 10^3 objects", openings({10, 100}))
        .add("among 10^6 objects", openings({10, 100, 1000}));
    Comparison("select 10000 rows")
        .add("a loop over the properties", [] {
            const auto on = std::make_shared<Panel>();
            return [on] { readAll(*on->scene); };
        })
        .add("QItemSelectionModel alone", [] {
            const auto on = std::make_shared<Panel>();
            on->composer.setSelectionModel(nullptr);
            return [on] { on->selection.select(QItemSelection(on->model.index(0, 0), on->model.index(9999, 0)), QItemSelectionModel::Select); };
        })
        .add("QtMiltiselectionComposer", [] {
            const auto on = std::make_shared<Panel>();
            return [on] {
                on->selection.select(QItemSelection(on->model.index(0, 0), on->model.index(9999, 0)), QItemSelectionModel::Select);
            };
        });

    return runAll(argc, argv);
}
