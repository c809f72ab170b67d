// The outliner: building it, finding rows, edits of a collection, changes of what a row shows.
#include <support/parent_questions.h>
#include <support/sample_scene.h>

#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>
#include <host/reflection/meta.h>

#include <QGuiApplication>
#include <QStandardItemModel>

#include <unordered_map>

using namespace bench;

namespace {

constexpr int edits = 10;

/// What the outliner asks of each property, and nothing else.
int countRows(const zarn::ReflectedObject& object)
{
    int rows = 0;
    for (std::size_t i = 0; i < object.propertyCount(); ++i) {
        const zarn::BoundProperty property = object.propertyAt(i);
        if (!property.visibility().test(zarn::meta_property::VisibilityFlag::Outliner))
            continue;
        const zarn::Annotations annotations = property.annotations();
        if (annotations.contain<Meta::Value>())
            continue;
        const auto row = annotations.find<Meta::SceneItem>();
        rows += row.isValid() && row->value<Meta::SceneItem>()(property) ? 1 : 0;
        if (const zarn::ReflectedObject below(property); below.isValid())
            rows += countRows(below);
    }
    return rows;
}

void compareBuilding(const std::string& shape, const std::shared_ptr<SampleActor>& scene)
{
    Comparison("build 10^5 rows, " + shape)
        .addPlain("a walk that counts", [scene] { keep(countRows(zarn::reflect(*scene))); })
        .add("SceneItemModel", [scene] {
            auto model = std::make_shared<std::unique_ptr<SceneItemModel>>();
            return [scene, model] { *model = std::make_unique<SceneItemModel>(zarn::reflect(*scene)); };
        });
    Comparison("heap in bytes a row, " + shape)
        .addQuantity("1", [] { return 1; })
        .addQuantity("SceneItemModel", [scene] {
            const int rows = countRows(zarn::reflect(*scene));
            const double before = heapBytes();
            const SceneItemModel model(zarn::reflect(*scene));
            return (heapBytes() - before) / rows;
        });
}

std::shared_ptr<QStandardItemModel> standardFamily(int siblings)
{
    auto model = std::make_shared<QStandardItemModel>();
    for (int i = 0; i < siblings; ++i) {
        auto* const item = new QStandardItem("actor");
        item->appendRow(new QStandardItem("part"));
        model->appendRow(item);
    }
    return model;
}

struct Family
{
    explicit Family(int siblings) : scene(sampleScene({siblings, 1})), model(zarn::reflect(*scene)) {}

    std::shared_ptr<SampleActor> scene;
    SceneItemModel model;
};

void compareParents(int siblings)
{
    Comparison("parent(), " + std::to_string(siblings) + " siblings")
        .add("QStandardItemModel", [siblings] { return parentQuestions(standardFamily(siblings), QModelIndex()); })
        .add("SceneItemModel", [siblings] {
            const auto family = std::make_shared<Family>(siblings);
            return parentQuestions(std::shared_ptr<SceneItemModel>(family, &family->model), QModelIndex());
        });
}

struct Outliner
{
    explicit Outliner(int rows) : scene(sampleScene({rows})), model(zarn::reflect(*scene)) {}

    std::shared_ptr<SampleActor> scene;
    SceneItemModel model;
};

/// Looks 10^5 objects up, in random order.
template <class LookUp>
Comparison::Timed searches(const std::shared_ptr<SampleActor>& scene, LookUp lookUp)
{
    return [scene, lookUp] {
        const auto& parts = *scene->parts;
        long long sum = 0;
        unsigned seed = 3;
        for (int i = 0; i < 100000; ++i)
            sum += lookUp(*parts[nextRandom(seed) % parts.size()]);
        keep(sum);
    };
}

void compareSearches(int rows)
{
    Comparison("find among " + std::to_string(rows) + " rows by the object")
        .add("a hash of addresses",
             [rows] {
                 const auto scene = sampleScene({rows});
                 auto known = std::make_shared<std::unordered_map<const void*, int>>();
                 for (int row = 0; row < rows; ++row)
                     known->emplace((*scene->parts)[static_cast<std::size_t>(row)].get(), row);
                 return searches(scene, [known](SampleActor& actor) { return known->find(&actor)->second; });
             })
        .add("SceneItemModel::indexOf",
             [rows] {
                 const auto on = std::make_shared<Outliner>(rows);
                 return searches(on->scene, [on](SampleActor& actor) { return on->model.indexOf(zarn::reflect(actor)).row(); });
             })
        .add("SceneItemModel::updateHoverRole", [rows] {
            const auto on = std::make_shared<Outliner>(rows);
            return searches(on->scene, [on](SampleActor& actor) {
                on->model.updateHoverRole(zarn::reflect(actor), true);
                return 0;
            });
        });
}

enum class Place { Front, Middle, End };

/// Elements come and go again at one place of a collection.
std::function<Comparison::Timed()> editsAt(Place place, int rows)
{
    return [place, rows] {
        const auto on = std::make_shared<Outliner>(rows);
        return [on, place, rows] {
            const zarn::ReflectedObject parts = zarn::reflect(on->scene->parts);
            const int at = place == Place::Front ? 0 : place == Place::Middle ? rows / 2 : rows;
            for (int i = 0; i < edits; ++i) {
                parts.addProperty(static_cast<std::size_t>(at), std::make_shared<SampleActor>());
                parts.removePropertyAt(static_cast<std::size_t>(at));
            }
            keep(on->model.rowCount());
        };
    };
}

void compareEdits()
{
    Comparison("10 elements come and go at the front")
        .add("of 1000 rows", editsAt(Place::Front, 1000))
        .add("of 10000 rows", editsAt(Place::Front, 10000))
        .add("of 100000 rows", editsAt(Place::Front, 100000));
    Comparison("10 elements come and go, 10000 rows")
        .add("at the front", editsAt(Place::Front, 10000))
        .add("in the middle", editsAt(Place::Middle, 10000))
        .add("at the end", editsAt(Place::End, 10000));
}

struct StandardRows
{
    StandardRows()
    {
        for (int i = 0; i < 1000; ++i)
            model.appendRow(new QStandardItem("actor"));
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, [this] { ++heard; });
    }
    QStandardItemModel model;
    long long heard = 0;
};

struct OutlinerRows : Outliner
{
    OutlinerRows() : Outliner(1000)
    {
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, [this] { ++heard; });
        for (const auto& part : *scene->parts)
            names.push_back(zarn::reflect(*part).findPropertyByName("_objectName"));
    }
    std::vector<zarn::BoundProperty> names;
    long long heard = 0;
};

void compareChanges()
{
    static const QString texts[] = {QStringLiteral("lantern by the quay"), QStringLiteral("lantern by the lock")};
    static const qelm::Variant names[] = {std::string("lantern by the quay"), std::string("lantern by the lock")};
    Comparison("a name changes, one listener")
        .add("QStandardItem::setData",
             [] {
                 const auto on = std::make_shared<StandardRows>();
                 return [on] {
                     for (int i = 0; i < 500000; ++i)
                         on->model.item(i % 1000)->setData(texts[i / 1000 % 2], Qt::DisplayRole);
                     keep(on->heard);
                 };
             })
        .add("SceneItemModel", [] {
            const auto on = std::make_shared<OutlinerRows>();
            return [on] {
                for (int i = 0; i < 500000; ++i)
                    on->names[static_cast<std::size_t>(i % 1000)].set(names[i / 1000 % 2], {});
                keep(on->heard);
            };
        });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the outliner shows the wait cursor while it is built
    const QGuiApplication application(argc, argv);

    compareBuilding("one collection", sampleScene({100000}));
    compareBuilding("ten in each", sampleScene({10, 10, 10, 10, 10}));
    for (int siblings : {100, 1000, 10000, 100000})
        compareParents(siblings);
    compareSearches(1000);
    compareSearches(100000);
    compareEdits();
    compareChanges();

    return runAll(argc, argv);
}
