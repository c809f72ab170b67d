#include "../reflection/sample_objects.h"

#include <host/bridge/qt_script_object.h>
#include <host/reflection/generic_object.h>
#include <host/reflection/multi_selection.h>
#include <host/reflection/reflection_wrapper.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/undo/changes_controller.h>

#include <support/log_capture.h>

#include <QJSEngine>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

using namespace sample;
using qelm::QtScriptObject;

namespace {

class Gauge : public zarn::Object
{
public:
    int value = 3;
};

} // namespace

template <>
struct zarn::Reflection<Gauge>
{
    static constexpr const char* name = "Gauge";
    static Meta::Validator::Range upToItself(const BoundProperty& property) { return std::pair(qelm::Variant(0), property.get()); }
    static void declare(StaticMetaObject<Gauge>::Builder& gauge)
    {
        gauge.readOnly("value", &Gauge::value, Meta::ToolTip("In bar"), Meta::Label::Visible(false), Meta::MinMax(0, 60),
                       Meta::Validator(&Reflection::upToItself), Meta::DefaultValue(), Meta::Dependent{{"unit"}},
                       Meta::FilesFilter{"*.png"}, Meta::DialogInitialPath{L"textures"}, Meta::Layout::FillWidth(),
                       Meta::Visible(false), Meta::Value());
    }
};

namespace {

const zarn::ReflectAtLoad<Gauge> gaugeClass;
const zarn::AutoregisterMetaObject<zarn::ReflectionWrapper<std::vector<int>>> numbersClass("Numbers", {});
const zarn::ReflectAtLoad<Engine> engineClass;
const zarn::ReflectAtLoad<Vehicle> vehicleClass;
const zarn::ReflectAtLoad<Boat> boatClass;

} // namespace

class tst_QtScriptObject : public QObject
{
    Q_OBJECT

    QQmlEngine m_engine;

    std::unique_ptr<QObject> bind(QtScriptObject& boat, const QByteArray& body)
    {
        m_engine.rootContext()->setContextProperty("boat", &boat);
        QQmlComponent component(&m_engine);
        component.setData("import QtQml 2.15\nQtObject { " + body + " }", QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            qWarning("%s", qPrintable(component.errorString()));
        return object;
    }

private Q_SLOTS:
    void qmlReadsValuesByTheirNames()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);

        const auto reader = bind(script, "property var text: boat.name + ' ' + boat.speed + ' ' + boat.draught");

        QCOMPARE(reader->property("text").toString(), QString("vehicle 10 1.5"));
    }

    void aBindingFollowsChangesThatAreMadeElsewhere()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        const auto reader = bind(script, "property int doubled: boat.speed * 2");

        zarn::reflect(boat).findPropertyByName("speed").set(30, {});

        QCOMPARE(reader->property("doubled").toInt(), 60);
    }

    void qmlWritesValues()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);

        bind(script, "Component.onCompleted: { boat.name = 'Heron'; boat.speed = 44; boat.draught = 2 }");

        QCOMPARE(boat.name(), std::string("Heron"));
        QCOMPARE(boat.speed(), 44);
        QCOMPARE(boat.draught, 2.0);
    }

    void aSignalHandlerHearsOfAChange()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        const auto listener = bind(script, "property int calls: 0\n"
                                           "property var c: Connections { target: boat; function onSpeedChanged() { calls += 1 } }");

        zarn::reflect(boat).findPropertyByName("speed").set(30, {});

        QCOMPARE(listener->property("calls").toInt(), 1);
    }

    void qmlCallsMethodsWithArgumentsAndResults()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);

        const auto caller = bind(script, "property int result: 0\nComponent.onCompleted: result = boat.accelerate(7)");

        QCOMPARE(caller->property("result").toInt(), 17);
        QCOMPARE(boat.speed(), 17);
    }

    void nestedObjectsAreReachedAndBoundTo()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        const auto reader = bind(script, "property int power: boat.engine.power");
        QCOMPARE(reader->property("power").toInt(), 40);

        zarn::reflect(*boat.engine).findPropertyByName("power").set(90, {});

        QCOMPARE(reader->property("power").toInt(), 90);
    }

    void aNestedObjectThatIsReplacedIsReadAnew()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        const auto reader = bind(script, "property int power: boat.engine ? boat.engine.power : -1");
        {
            const zarn::PropertyChangeNotifier notifier(zarn::reflect(boat), {"engine"}, {});
            boat.engine = std::make_unique<Engine>();
            boat.engine->power = 7;
        }

        QCOMPARE(reader->property("power").toInt(), 7);
    }

    void whatIsSaidOfAPropertyIsReadable()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);

        const auto reader = bind(script, "property int digits: boat.reflectedAnnotations('draught')['Meta::Precision']\n"
                                         "property string label: boat.reflectedAnnotations('name')['Meta::Label::Text']");

        QCOMPARE(reader->property("digits").toInt(), 1);
        QCOMPARE(reader->property("label").toString(), QString("Name"));
    }

    void annotationsReadAsWhatTheySay_data()
    {
        QTest::addColumn<QString>("annotation");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("text") << "Meta::ToolTip" << QVariant("In bar");
        QTest::newRow("flag") << "Meta::Label::Visible" << QVariant(false);
        QTest::newRow("fixed range") << "Meta::MinMax" << QVariant(QVariantList{0, 60});
        QTest::newRow("range that is asked for") << "Meta::Validator" << QVariant(QVariantList{0, 3});
        QTest::newRow("default") << "Meta::DefaultValue" << QVariant::fromValue(nullptr);
        QTest::newRow("names") << "Meta::Dependent" << QVariant(QStringList{"unit"});
        QTest::newRow("pattern") << "Meta::FilesFilter" << QVariant("*.png");
        QTest::newRow("path") << "Meta::DialogInitialPath" << QVariant("textures");
        QTest::newRow("width") << "Meta::Layout::FillWidth" << QVariant(true);
        QTest::newRow("visibility") << "Meta::Visible" << QVariant(false);
        QTest::newRow("mark") << "Meta::Value" << QVariant(true);
        QTest::newRow("none") << "Meta::Collection" << QVariant();
    }

    void annotationsReadAsWhatTheySay()
    {
        QFETCH(QString, annotation);
        QFETCH(QVariant, value);
        Gauge gauge;
        const QtScriptObject script(zarn::reflect(gauge), nullptr);

        QCOMPARE(script.reflectedAnnotations("value").value(annotation), value);
    }

    void aSetOfAnnotationsIsAnObjectOfItsOwn()
    {
        const auto annotations = std::make_shared<zarn::Annotations>(std::initializer_list<qelm::Variant>{
            Meta::Precision{3}, Meta::ToolTip("fixed"), Meta::Precision{5}, Meta::Value(),
            Meta::Label::Text([](const zarn::BoundProperty& property) { return property.object().metaObject()->name(); })});
        zarn::ReflectedObject handle;
        handle.init(qelm::Variant(annotations),
                    zarn::TypeInfo(true, typeid(zarn::Annotations), typeid(zarn::Annotations), typeid(zarn::Annotations)), nullptr);
        QtScriptObject script(handle, nullptr);

        const auto reader = bind(script, "property int digits: boat['Meta::Precision']\n"
                                         "property string tip: boat['Meta::ToolTip']\n"
                                         "property bool isValue: boat['Meta::Value']\n"
                                         "property bool isAsked: boat['Meta::Label::Text']");

        QCOMPARE(reader->property("digits").toInt(), 3);
        QCOMPARE(reader->property("tip").toString(), QString("fixed"));
        QVERIFY(reader->property("isValue").toBool());
        QVERIFY(reader->property("isAsked").toBool());
        QCOMPARE(script.reflectedNames().size(), 5);
    }

    void propertiesGivenAtRunTimeAreBoundToUntilTheyGo()
    {
        zarn::GenericObject generic;
        const zarn::ReflectedObject handle = zarn::reflect(generic);
        handle.addProperty("first", 1);
        handle.addProperty("second", 2);
        QtScriptObject script(handle, nullptr);
        const auto reader = bind(script, "property var sum: boat.first === undefined ? 'gone' : boat.first + boat.second");

        handle.findPropertyByName("second").set(5, {});
        QCOMPARE(reader->property("sum").toInt(), 6);

        handle.removeProperty("first");
        QCOMPARE(reader->property("sum").toString(), QString("gone"));

        handle.addProperty("first", 10);
        handle.findPropertyByName("first").set(20, {});
        QCOMPARE(reader->property("sum").toInt(), 25);
    }

    void genericObjectsOfTheSamePropertiesShareAMetaObject()
    {
        zarn::GenericObject first;
        zarn::GenericObject second;
        zarn::GenericObject other;
        zarn::reflect(first).addProperty("a", 1);
        zarn::reflect(second).addProperty("a", "text");
        zarn::reflect(other).addProperty("b", 1);

        QCOMPARE(QtScriptObject(zarn::reflect(first), nullptr).metaObject(),
                 QtScriptObject(zarn::reflect(second), nullptr).metaObject());
        QVERIFY(QtScriptObject(zarn::reflect(first), nullptr).metaObject()
                != QtScriptObject(zarn::reflect(other), nullptr).metaObject());
    }

    void aSelectionIsBoundToAsOneObject()
    {
        Boat first;
        Boat second;
        zarn::MultiSelection selection;
        selection.merge(zarn::reflect(first), {});
        selection.merge(zarn::reflect(second), {});
        QtScriptObject script(zarn::reflect(selection), nullptr);
        const auto panel = bind(script, "property var speed: boat.speed\nfunction write() { boat.speed = 33 }\n"
                                        "function stop() { boat.stop() }");

        QMetaObject::invokeMethod(panel.get(), "write");
        QCOMPARE(second.speed(), 33);
        QCOMPARE(panel->property("speed").toInt(), 33);

        zarn::reflect(first).findPropertyByName("speed").set(5, {});
        QVERIFY(!panel->property("speed").isValid());

        QMetaObject::invokeMethod(panel.get(), "stop");
        QCOMPARE(first.speed() + second.speed(), 0);
    }

    void elementsOfACollectionAreReachedByTheirIndex()
    {
        zarn::ReflectionWrapper<std::vector<int>> numbers({4, 5});
        QtScriptObject script(zarn::reflect(numbers), nullptr);

        QCOMPARE(script.reflectedNames(), (QStringList{"0", "1"}));
        QCOMPARE(script.reflectedValue("1").toInt(), 5);
        QVERIFY(script.setReflectedValue("1", 6));
        QCOMPARE(script.reflectedValue("1").toInt(), 6);
        QCOMPARE(script.metaObject()->indexOfProperty("1"), -1);
    }

    void membersAreReachedByNamesKnownAtRunTime()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);

        QCOMPARE(script.reflectedNames().mid(0, 3), (QStringList{"name", "speed", "accelerate"}));
        QVERIFY(script.setReflectedValue("speed", 12));
        QCOMPARE(script.reflectedValue("speed").toInt(), 12);
        QVERIFY(!script.setReflectedValue("sails", 3));
        QVERIFY(!script.reflectedValue("sails").isValid());
    }

    void aClassHasOneMetaObjectForAllItsObjects()
    {
        Boat first;
        Boat second;

        QCOMPARE(QtScriptObject(zarn::reflect(first), nullptr).metaObject(),
                 QtScriptObject(zarn::reflect(second), nullptr).metaObject());
        QCOMPARE(QtScriptObject(zarn::reflect(first), nullptr).metaObject()->className(), "sample::Boat");
    }

    void constantsAndReadOnlyValuesSayWhatTheyAre()
    {
        Boat boat;
        const QtScriptObject script(zarn::reflect(boat), nullptr);
        const QMetaObject* meta = script.metaObject();

        QVERIFY(meta->property(meta->indexOfProperty("wheels")).isConstant());
        QVERIFY(!meta->property(meta->indexOfProperty("engine")).isWritable());
        QVERIFY(meta->property(meta->indexOfProperty("speed")).hasNotifySignal());
    }

    void anObjectThatDiesLeavesEmptyAnswersAndTellsBindings()
    {
        auto boat = std::make_unique<Boat>();
        QtScriptObject script(zarn::reflect(*boat), nullptr);
        const auto reader = bind(script, "property var speed: boat.speed");
        QCOMPARE(reader->property("speed").toInt(), 10);

        boat.reset();

        QVERIFY(!reader->property("speed").isValid());
        QVERIFY(!script.setReflectedValue("speed", 3));
        QCOMPARE(script.reflectedNames(), QStringList());
    }

    void anInvalidHandleHasNoMembers()
    {
        QtScriptObject script(zarn::ReflectedObject(), nullptr);

        QCOMPARE(script.reflectedNames(), QStringList());
        QVERIFY(!script.property("speed").isValid());
    }

    void withADocumentEachWriteAndCallIsAStep()
    {
        Ozy::ChangesController document;
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        script.setDocument(&document);

        bind(script, "Component.onCompleted: { boat.speed = 20; boat.engine.power = 5; boat.speed = 20 }");
        QCOMPARE(document.count(), 2);

        document.undo();
        QCOMPARE(boat.engine->power, 40);
        document.undo();
        QCOMPARE(boat.speed(), 10);
    }

    void whatAMethodThrowsIsLoggedAndEndsTheCall()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        LogCapture log;

        bind(script, "Component.onCompleted: { boat.speed = 500; boat.accelerate('much') }");

        const QStringList messages = log.messages();
        QCOMPARE(messages.size(), 2);
        QCOMPARE(messages[0], QString("5 speed: too fast"));
        QVERIFY2(messages[1].startsWith("5 accelerate: "), qPrintable(messages[1]));
        QCOMPARE(boat.speed(), 10);
    }

    void theScriptEngineDoesNotTakeNestedObjectsOver()
    {
        Boat boat;
        QtScriptObject script(zarn::reflect(boat), nullptr);
        bind(script, "property var kept: boat.engine");

        m_engine.collectGarbage();
        QCoreApplication::processEvents();
        m_engine.collectGarbage();

        const auto reader = bind(script, "property int power: boat.engine.power");
        QCOMPARE(reader->property("power").toInt(), 40);
    }

    // The leak checker of the sanitizers tells whether anything is left.
    void objectsComeAndGoWithoutLeaving()
    {
        Boat boat;
        int sum = 0;

        for (int round = 0; round < 100000; ++round) {
            QtScriptObject script(zarn::reflect(boat), nullptr);
            sum += script.property("speed").toInt();
        }

        QCOMPARE(sum, 1000000);
    }
};

QTEST_GUILESS_MAIN(tst_QtScriptObject)
#include "tst_qt_script_object.moc"
