#include "../reflection/sample_objects.h"

#include <host/bridge/qt_script_object.h>
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
