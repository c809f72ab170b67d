#include <datamodels/reflection_tree_model.h>

#include "../host/reflection/sample_objects.h"

#include <host/bridge/qt_script_object.h>
#include <host/reflection/generic_object.h>

#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/without_root_flags.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

/// A place for one vehicle, or none.
class Garage : public zarn::Object
{
public:
    Vehicle* vehicle = nullptr;
    int capacity = 1;
};

} // namespace

template <>
struct zarn::Reflection<Garage>
{
    static constexpr const char* name = "Garage";
    static Annotations annotations() { return {Meta::Precision{3}}; }
    static void declare(StaticMetaObject<Garage>::Builder& garage)
    {
        garage
            .value("vehicle", &Garage::vehicle, [](Garage& self, Vehicle* vehicle) { self.vehicle = vehicle; },
                   Meta::Label::Text("Vehicle"))
            .value("capacity", &Garage::capacity, [](Garage& self, int capacity) { self.capacity = capacity; })
            .readOnly("doors", [](const Garage&) { return 2; });
    }
};

namespace {

const ReflectAtLoad<Engine> engineClass;
const ReflectAtLoad<Vehicle> vehicleClass;
const ReflectAtLoad<Boat> boatClass;
const ReflectAtLoad<Garage> garageClass;

constexpr auto plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
constexpr auto editable = plain | Qt::ItemIsEditable;

ReflectedObject objectOf(const QVariant& value)
{
    const auto* script = dynamic_cast<qelm::QtScriptObject*>(value.value<QObject*>());
    return script ? script->object() : ReflectedObject();
}

/// Every row with its value, or its class in brackets, two spaces a level.
QStringList lines(const QAbstractItemModel& model, const QModelIndex& parent = {}, const QString& indent = {})
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QVariant value = index.data(ReflectionTreeModel::ValueRole);
        const ReflectedObject object = objectOf(value);
        texts << indent
                + (object.isValid() ? '[' + QString::fromStdString(object.metaObject()->name()) + ']' : value.toString());
        texts << lines(model, index, indent + "  ");
    }
    return texts;
}

} // namespace

class tst_ReflectionTreeModel : public QObject
{
    Q_OBJECT

    Vehicle* vehicle = nullptr;
    Boat* boat = nullptr;
    Garage* garage = nullptr;

    BoundProperty property(const char* name) const { return reflect(*garage).findPropertyByName(name); }

private Q_SLOTS:
    void init()
    {
        vehicle = new Vehicle;
        boat = new Boat;
        garage = new Garage;
        garage->vehicle = vehicle;
    }
    void cleanup()
    {
        delete garage;
        delete boat;
        delete vehicle;
    }

    void itShowsTheValuesOfAnObjectToAnyDepth()
    {
        garage->vehicle = boat;
        ReflectionTreeModel model(reflect(*garage));

        QCOMPARE(lines(model), (QStringList{"[sample::Boat]", "  vehicle", "  10", "  ", "  ", "  1.5", "  [sample::Engine]",
                                            "    40", "  false", "  2", "  0", "  path of a boat", "1", "2"}));
        QCOMPARE(model.columnCount(), 1);
    }

    void wrappedTheObjectItselfIsTheOneRow()
    {
        ReflectionTreeModel model(reflect(*garage), true);

        QCOMPARE(model.rowCount(), 1);
        QVERIFY(objectOf(model.index(0, 0).data()) == reflect(*garage));
        QCOMPARE(model.rowCount(model.index(0, 0)), 3);
        QCOMPARE(model.index(0, 0).parent(), QModelIndex());
        QCOMPARE(model.index(1, 0, model.index(0, 0)).parent(), model.index(0, 0));
    }

    void aPropertyIsShownAsItsValueIs()
    {
        ReflectionTreeModel object(property("vehicle"));
        ReflectionTreeModel value(property("capacity"), true);

        QCOMPARE(lines(object), (QStringList{"vehicle", "10", "", ""}));
        QCOMPARE(lines(value), QStringList{"1"});
        QCOMPARE(value.rowCount(value.index(0, 0)), 0);
    }

    // The tester also wants a text of the first row on each level, so no object stands there.
    void itStandsUnderTheTesterButForTheFlagsOfTheRoot()
    {
        GenericObject object;
        reflect(object).addProperty("number", 1);
        reflect(object).addProperty("inner", reflect(*boat));
        WithoutRootFlags<ReflectionTreeModel> model(reflect(object));
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(lines(model).size(), 13);

        QVERIFY(reflect(object).propertyAt(0).set(5, {}));
        QVERIFY(reflect(object).propertyAt(1).set(reflect(*vehicle), {}));
        QVERIFY(reflect(object).propertyAt(1).set(ReflectedObject(), {}));
        QCOMPARE(lines(model).size(), 2);
        QVERIFY(reflect(object).propertyAt(1).set(reflect(*boat), {}));

        QCOMPARE(lines(model).size(), 13);
    }

    void itStandsUnderTheTesterWhilePropertiesComeAndGo()
    {
        GenericObject object;
        WithoutRootFlags<ReflectionTreeModel> model(reflect(object));
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        reflect(object).addProperty("one", 1);
        reflect(object).addProperty("two", 2);
        QCOMPARE(lines(model), (QStringList{"1", "2"}));
        reflect(object).removeProperty("one");
        QCOMPARE(lines(model), QStringList{"2"});
        object.clear();
        QCOMPARE(model.rowCount(), 0);
    }

    void theRolesAreTheseThree()
    {
        const ReflectionTreeModel model(reflect(*garage));

        QCOMPARE(model.roleNames(), (QHash<int, QByteArray>{
                                        {256, "value"}, {257, "objectAnnotations"}, {258, "propertyAnnotations"}}));
    }

    void displayEditAndValueAreOne()
    {
        const ReflectionTreeModel model(reflect(*garage));
        const QModelIndex capacity = model.index(1, 0);

        QCOMPARE(capacity.data(Qt::DisplayRole), QVariant(1));
        QCOMPARE(capacity.data(Qt::EditRole), QVariant(1));
        QCOMPARE(capacity.data(ReflectionTreeModel::ValueRole), QVariant(1));
        QCOMPARE(capacity.data(Qt::DecorationRole), QVariant());
    }

    void columnOneHasDataAndColumnTwoNone()
    {
        const ReflectionTreeModel model(reflect(*garage));

        QCOMPARE(model.index(1, 1).data(), QVariant(1));
        QCOMPARE(model.index(1, 2).data(), QVariant());
    }

    void anObjectIsTheSameScriptObjectUntilItChanges()
    {
        const ReflectionTreeModel model(reflect(*garage));
        const QPointer<QObject> first = model.index(0, 0).data().value<QObject*>();
        QCOMPARE(model.index(0, 0).data().value<QObject*>(), first.data());

        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(boat), {}));

        QVERIFY(!first);
        QVERIFY(objectOf(model.index(0, 0).data()) == reflect(*boat));
    }

    void onlyAPlainValueThatMayBeSetIsEditable()
    {
        garage->vehicle = boat;
        const ReflectionTreeModel model(reflect(*garage));
        const QModelIndex boatRow = model.index(0, 0);

        QCOMPARE(model.flags(boatRow), plain);
        QCOMPARE(model.flags(model.index(1, 0)), editable);
        QCOMPARE(model.flags(model.index(2, 0)), plain);                // read-only
        QCOMPARE(model.flags(model.index(2, 0, boatRow)), plain);       // a method
        QCOMPARE(model.flags(model.index(8, 0, boatRow)), plain);       // constant
        QCOMPARE(model.flags(QModelIndex()), plain);                    // the root
        QCOMPARE(ReflectionTreeModel(property("capacity")).flags({}), editable);
    }

    void aValueIsSetAndToldByTheObject()
    {
        ReflectionTreeModel model(reflect(*garage));
        SignalLog log(model);

        QVERIFY(model.setData(model.index(1, 0), "7"));

        QCOMPARE(garage->capacity, 7);
        QCOMPARE(log.take(), QStringList{"changed /1"});
    }

    void whatCannotBeSetIsRefusedSilently_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("role");
        QTest::newRow("an object") << 0 << QVariant(1) << int(Qt::EditRole);
        QTest::newRow("a read-only value") << 2 << QVariant(1) << int(Qt::EditRole);
        QTest::newRow("no number") << 1 << QVariant("many") << int(Qt::EditRole);
        QTest::newRow("another role") << 1 << QVariant(1) << int(ReflectionTreeModel::ObjectAnnotationsRole);
    }

    void whatCannotBeSetIsRefusedSilently()
    {
        QFETCH(int, row);
        QFETCH(QVariant, value);
        QFETCH(int, role);
        ReflectionTreeModel model(reflect(*garage));
        SignalLog log(model);
        LogCapture messages;

        QVERIFY(!model.setData(model.index(row, 0), value, role));

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(messages.messages() + messages.assertions(), QStringList());
    }

    void aValueThatChangesIsToldWithoutRoles()
    {
        ReflectionTreeModel model(reflect(*garage));
        model.index(1, 0).data();
        SignalLog log(model);

        QVERIFY(property("capacity").set(4, {}));

        QCOMPARE(log.take(), QStringList{"changed /1"});
    }

    void aRowThatHasNotBeenTouchedIsNotFollowed()
    {
        ReflectionTreeModel model(reflect(*garage));
        QCOMPARE(model.rowCount(), 3);
        SignalLog log(model);

        QVERIFY(property("capacity").set(4, {}));

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(model.index(1, 0).data(), QVariant(4));
    }

    void anObjectThatIsReplacedIsTakenDownAndBuiltAnew()
    {
        ReflectionTreeModel model(reflect(*garage));
        QCOMPARE(model.rowCount(model.index(0, 0)), 4);
        SignalLog log(model);

        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(boat), {}));

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..3]", "removed /0 [0..3]", "changed /0", "inserting /0 [0..9]",
                                          "inserted /0 [0..9]"}));
    }

    void anObjectThatGoesLeavesALeaf()
    {
        ReflectionTreeModel model(reflect(*garage));
        QCOMPARE(model.rowCount(model.index(0, 0)), 4);
        SignalLog log(model);

        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(nullptr), {}));

        QCOMPARE(log.take(), (QStringList{"removing /0 [0..3]", "removed /0 [0..3]", "changed /0"}));
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    }

    void anObjectThatComesBringsItsRows()
    {
        garage->vehicle = nullptr;
        ReflectionTreeModel model(reflect(*garage));
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        SignalLog log(model);

        QVERIFY(property("vehicle").set(vehicle, {}));

        QCOMPARE(log.take(), (QStringList{"changed /0", "inserting /0 [0..3]", "inserted /0 [0..3]"}));
    }

    void aReplacedValueStaysFollowed()
    {
        ReflectionTreeModel model(reflect(*garage));
        model.index(0, 0).data();
        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(boat), {}));
        QVERIFY(property("vehicle").set(vehicle, {}));
        model.index(1, 0, model.index(0, 0)).data();
        SignalLog log(model);

        QVERIFY(reflect(*vehicle).findPropertyByName("speed").set(90, {}));

        QCOMPARE(log.take(), QStringList{"changed /0/1"});
    }

    void theRootOfAPropertyIsToldByTheInvalidIndex()
    {
        ReflectionTreeModel model(property("vehicle"));
        SignalLog log(model);

        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(nullptr), {}));

        QCOMPARE(log.take(), (QStringList{"removing / [0..3]", "removed / [0..3]", "changed /"}));
    }

    void anObjectReachedDirectlyIsNotFollowedAsAWhole()
    {
        ReflectionTreeModel model(reflect(*vehicle));
        SignalLog log(model);

        QVERIFY(property("vehicle").set(static_cast<Vehicle*>(boat), {}));

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(model.rowCount(), 4);
    }

    void anEmptyObjectIsStillFollowed()
    {
        GenericObject object;
        ReflectionTreeModel model(reflect(object));
        QCOMPARE(model.rowCount(), 0);
        SignalLog log(model);

        reflect(object).addProperty("one", 1);

        QCOMPARE(log.take(), (QStringList{"inserting / [0..0]", "inserted / [0..0]"}));
        QCOMPARE(lines(model), QStringList{"1"});
    }

    void aPropertyThatGoesTakesItsRowAndThoseBehindMoveUp()
    {
        GenericObject object;
        reflect(object).addProperty("one", 1);
        reflect(object).addProperty("two", 2);
        ReflectionTreeModel model(reflect(object));
        const QPersistentModelIndex two = model.index(1, 0);
        two.data();
        SignalLog log(model);

        reflect(object).removeProperty("one");

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]"}));
        QCOMPARE(two.row(), 0);
        QCOMPARE(two.data(), QVariant(2));
    }

    void aResetDropsTheRowsAndBringsTheNewOnes()
    {
        GenericObject object;
        reflect(object).addProperty("one", 1);
        ReflectionTreeModel model(reflect(object));
        model.index(0, 0).data();
        SignalLog log(model);

        {
            const PropertiesResetNotifier notifier(reflect(object));
        }

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]", "inserting / [0..0]", "inserted / [0..0]"}));
    }

    void annotationsAreScriptObjectsThatStayTheSame()
    {
        const ReflectionTreeModel model(reflect(*garage), true);
        const QModelIndex root = model.index(0, 0);
        const QModelIndex row = model.index(0, 0, root);

        QVERIFY(row.data(ReflectionTreeModel::PropertyAnnotationsRole).value<QObject*>());
        QCOMPARE(row.data(ReflectionTreeModel::PropertyAnnotationsRole),
                 row.data(ReflectionTreeModel::PropertyAnnotationsRole));
        QVERIFY(root.data(ReflectionTreeModel::ObjectAnnotationsRole).value<QObject*>());
    }

    void withoutAnObjectOrAPropertyThereAreNoAnnotations()
    {
        const ReflectionTreeModel model(reflect(*garage), true);
        const QModelIndex root = model.index(0, 0);

        QCOMPARE(model.index(1, 0, root).data(ReflectionTreeModel::ObjectAnnotationsRole), QVariant());
        QCOMPARE(root.data(ReflectionTreeModel::PropertyAnnotationsRole), QVariant());
        QCOMPARE(model.data({}, ReflectionTreeModel::PropertyAnnotationsRole), QVariant());
    }

    void aRowPastTheEndHasAnIndexAndFailsAnAssertion()
    {
        const ReflectionTreeModel model(reflect(*garage));
        const QModelIndex beyond = model.index(9, 0);
        LogCapture log;

        QCOMPARE(beyond.data(), QVariant());
        QCOMPARE(model.rowCount(beyond), 0);
        QCOMPARE(model.flags(beyond), Qt::NoItemFlags);
        QCOMPARE(log.assertions(), (QStringList{"result", "result", "result"}));
    }

    void anIndexOfAnotherModelFailsAnAssertion()
    {
        const ReflectionTreeModel other(reflect(*vehicle));
        const ReflectionTreeModel model(reflect(*garage));
        LogCapture log;

        QCOMPARE(model.data(other.index(0, 0)), QVariant());

        QCOMPARE(log.assertions(), QStringList{"!result || index.model() == this"});
    }

    void anObjectThatDiesLeavesRowsThatAnswerNothing()
    {
        ReflectionTreeModel model(reflect(*garage), true);
        lines(model);
        auto* dying = std::exchange(garage, nullptr);

        delete dying;

        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(objectOf(model.index(0, 0).data()), ReflectedObject());
    }

    void aListenerMayReplaceTheObjectAboveTheRowThatItIsToldOf()
    {
        garage->vehicle = boat;
        ReflectionTreeModel model(reflect(*garage));
        lines(model);
        connect(&model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& index) {
            if (index.parent().isValid())
                property("vehicle").set(static_cast<Vehicle*>(nullptr), {});
        });

        QVERIFY(reflect(*boat).findPropertyByName("draught").set(2.0, {}));

        QCOMPARE(lines(model), (QStringList{"", "1", "2"}));
    }

    void aSetterMayAddPropertiesToTheObjectThatItReplaces()
    {
        GenericObject inner;
        GenericObject outer;
        reflect(outer).addProperty("inner", reflect(inner));
        ReflectionTreeModel model(reflect(outer));
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        const BoundProperty property = reflect(outer).propertyAt(0);
        const ryk::ScopedConnection early =
            property.connectPropertyAboutToBeChanged([&] { reflect(inner).addProperty("late", 1); });
        SignalLog log(model);

        QVERIFY(property.set(reflect(inner), {}));

        QCOMPARE(log.take(),
                 (QStringList{"inserting /0 [0..0]", "inserted /0 [0..0]", "removing /0 [0..0]", "removed /0 [0..0]",
                              "changed /0", "inserting /0 [0..0]", "inserted /0 [0..0]"}));
    }

    void qmlKeepsNeitherValuesNorAnnotations()
    {
        ReflectionTreeModel model(reflect(*garage));
        const QPointer<QObject> value = model.index(0, 0).data().value<QObject*>();
        {
            QQmlEngine engine;
            engine.rootContext()->setContextProperty("rows", &model);
            QQmlComponent component(&engine);
            component.setData("import QtQml 2.15\nQtObject { property var object: rows.data(rows.index(0, 0), 256)\n"
                              "property string name: object.name; Component.onCompleted: object.speed = 55 }",
                              {});
            const std::unique_ptr<QObject> object(component.create());
            QVERIFY2(object, qPrintable(component.errorString()));
            QCOMPARE(object->property("name").toString(), QString("vehicle"));
            engine.collectGarbage();
        }

        QVERIFY(value);
        QCOMPARE(vehicle->speed(), 55);
    }

    void openingOneNodeCostsThatNodeOnly()
    {
        std::vector<std::unique_ptr<GenericObject>> objects;
        GenericObject top;
        objects.reserve(1000);
        for (int i = 0; i < 1000; ++i) {
            objects.push_back(std::make_unique<GenericObject>());
            reflect(*objects.back()).addProperty("number", i);
            reflect(top).addProperty(std::size_t(i), reflect(*objects.back()));
        }
        ReflectionTreeModel model(reflect(top));
        SignalLog log(model);

        QCOMPARE(model.index(0, 0, model.index(500, 0)).data(), QVariant(500));
        QVERIFY(reflect(*objects[500]).propertyAt(0).set(-1, {}));
        QVERIFY(reflect(*objects[501]).propertyAt(0).set(-1, {}));

        QCOMPARE(log.take(), QStringList{"changed /500/0"});
    }
};

QTEST_GUILESS_MAIN(tst_ReflectionTreeModel)
#include "tst_reflection_tree_model.moc"
