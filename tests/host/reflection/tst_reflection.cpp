#include "sample_objects.h"

#include <host/reflection/persistent_object.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <support/log_capture.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

const ReflectAtLoad<Engine> engineClass;
const ReflectAtLoad<Vehicle> vehicleClass;
const ReflectAtLoad<Boat> boatClass;

/// An object that holds a boat in the one berth that it has, and a handle on whatever was shown last.
class Yard : public Object
{
public:
    std::unique_ptr<Boat> boat = std::make_unique<Boat>();
    ReflectedObject shown;
    int depth = 3;

    bool dig(int metres)
    {
        depth = metres;
        if (metres > 50)
            throw std::runtime_error("rock");
        return metres < 20;
    }
};

} // namespace

template <>
struct zarn::Reflection<Yard>
{
    static constexpr const char* name = "Yard";
    static int count(const BoundProperty& property, int factor) { return factor * int(property.name().size()); }
    static void declare(StaticMetaObject<Yard>::Builder& yard)
    {
        yard.readOnly("boat", [](Yard* self) { return self->boat.get(); });
        yard.readOnly("shown", &Yard::shown);
        yard.value("depth", &Yard::depth, &Yard::dig);
        yard.method("count", &Reflection::count).method("twice", [](int number) { return 2 * number; });
    }
};

namespace {

const ReflectAtLoad<Yard> yardClass;

QStringList propertyNames(const ReflectedObject& object)
{
    QStringList names;
    for (std::size_t index = 0; index < object.propertyCount(); ++index)
        names << QString::fromStdString(object.propertyAt(index).name());
    return names;
}

/// Writes down what is heard of a property.
class PropertyStory
{
public:
    explicit PropertyStory(const BoundProperty& property)
        : m_about(property.connectPropertyAboutToBeChanged([this] { lines << "about"; }))
        , m_changed(property.connectPropertyChanged([this](const BoundProperty& told) {
            lines << QString("changed %1").arg(qelm::toQVariant(told.get()).toString());
        }))
    {
    }
    QStringList take() { return std::exchange(lines, {}); }

    QStringList lines;

private:
    ryk::ScopedConnection m_about;
    ryk::ScopedConnection m_changed;
};

template <class T>
T valueOf(const ReflectedObject& object, const char* name)
{
    return object.findPropertyByName(name).get().value<T>();
}

} // namespace

class tst_Reflection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thePropertiesOfTheBasesComeFirst()
    {
        Boat boat;

        QCOMPARE(propertyNames(reflect(boat)), (QStringList{"name", "speed", "accelerate", "stop", "draught", "engine",
                                                            "isHidden", "anchors", "wheels", "path"}));
    }

    void aHandleMadeByTheBaseIsOnTheObjectsOwnClass()
    {
        Boat boat;
        Vehicle& vehicle = boat;

        QCOMPARE(reflect(vehicle).metaObject(), static_cast<MetaObject*>(&StaticMetaObject<Boat>::instance()));
        QVERIFY(reflect(vehicle) == reflect(boat));
        QCOMPARE(reflect(vehicle).hash(), reflect(boat).hash());
    }

    void handlesOnDifferentObjectsDiffer()
    {
        Boat first;
        Boat second;

        QVERIFY(!(reflect(first) == reflect(second)));
    }

    void allInvalidHandlesAreEqualAndAnswerNothing()
    {
        const ReflectedObject none;
        const ReflectedObject noValue{BoundProperty()};

        QVERIFY(none == noValue);
        QCOMPARE(none.hash(), noValue.hash());
        QCOMPARE(none.metaObject(), nullptr);
        QCOMPARE(none.propertyCount(), std::size_t(0));
        QVERIFY(!none.propertyAt(0).isValid());
        QVERIFY(!none.findPropertyByName("name").isValid());
        QVERIFY(!none.addProperty("a", 1).isValid());
        QVERIFY(!none.removeProperty("a"));
        QVERIFY(!none.connectPropertiesReset([] {}).isConnected());
        QVERIFY(none.annotations().empty());
    }

    void anInvalidPropertyAnswersNothing()
    {
        const BoundProperty none;

        QVERIFY(!none.isValue());
        QVERIFY(!none.isMethod());
        QVERIFY(none.get().isVoid());
        QVERIFY(!none.set(1, {}));
        QVERIFY(none.name().empty());
        QVERIFY(none.key().isVoid());
        QCOMPARE(none.propertyData(), nullptr);
        QVERIFY(!none.connectPropertyChanged([] {}).isConnected());
        QVERIFY(none == BoundProperty());
    }

    void aDeadObjectMakesItsHandlesInvalid()
    {
        auto boat = std::make_unique<Boat>();
        const ReflectedObject handle = reflect(*boat);
        const BoundProperty name = handle.findPropertyByName("name");
        QVERIFY(handle.isValid());

        boat.reset();

        QVERIFY(!handle.isValid());
        QVERIFY(!name.isValid());
        QVERIFY(name.get().isVoid());
        QVERIFY(!name.set(std::string("ghost"), {}));
    }

    void aSharedObjectIsKeptAlive()
    {
        auto boat = std::make_shared<Boat>();
        const ReflectedObject handle = reflect(boat);
        const std::weak_ptr<Boat> watch = boat;

        boat.reset();

        QVERIFY(handle.isValid());
        QVERIFY(!watch.expired());
    }

    void valuesAreReadByAnyKindOfGetter()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);

        QCOMPARE(valueOf<std::string>(handle, "name"), std::string("vehicle"));
        QCOMPARE(valueOf<double>(handle, "draught"), 1.5);
        QCOMPARE(valueOf<int>(handle, "wheels"), 0);
        QCOMPARE(valueOf<std::string>(handle, "path"), std::string("path of a boat"));
    }

    void valuesAreWrittenAndConverted()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);

        QVERIFY(handle.findPropertyByName("speed").set(25, {}));
        QVERIFY(handle.findPropertyByName("draught").set(QVariant("2.25"), {}));
        QVERIFY(handle.findPropertyByName("name").set(QString("Heron"), {}));

        QCOMPARE(boat.speed(), 25);
        QCOMPARE(boat.draught, 2.25);
        QCOMPARE(boat.name(), std::string("Heron"));
    }

    void whatCannotBeConvertedIsRefusedInSilence()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        PropertyStory story(speed);

        QVERIFY(!speed.set(std::string("fast"), {}));
        QVERIFY(!speed.set(5000000000LL, {}));

        QCOMPARE(boat.speed(), 10);
        QCOMPARE(story.take(), QStringList());
    }

    void whatCannotBeWrittenIsRefusedInSilence()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);

        QVERIFY(handle.findPropertyByName("engine").isReadOnly());
        QVERIFY(!handle.findPropertyByName("engine").isConst());
        QVERIFY(handle.findPropertyByName("wheels").isConst());
        QVERIFY(!handle.findPropertyByName("wheels").set(4, {}));
        QVERIFY(!handle.findPropertyByName("stop").set(4, {}));
    }

    void aSetIsToldBeforeAndAfter()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        PropertyStory story(speed);

        speed.set(25, {});

        QCOMPARE(story.take(), (QStringList{"about", "changed 25"}));
    }

    void aRefusalOfTheSetterStaysPaired()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        PropertyStory story(speed);

        QVERIFY(!speed.set(-1, {}));

        QCOMPARE(story.take(), (QStringList{"about", "changed 10"}));
    }

    void aSetterThatThrowsLeavesAllPaired()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        PropertyStory story(speed);
        {
            const Ozy::CommitChangesScope scope("Too fast", &document);
            QVERIFY_EXCEPTION_THROWN(speed.set(300, {}), std::runtime_error);
        }

        QCOMPARE(story.take(), (QStringList{"about", "changed 10"}));
        QCOMPARE(boat.speed(), 10);
        QCOMPARE(document.count(), 0);
    }

    void whatASetterDidBeforeItThrewIsRolledBackWithTheScope()
    {
        Ozy::ChangesController document;
        Yard yard;
        PropertyStory story(reflect(yard).findPropertyByName("depth"));
        const auto digInOneStep = [&] {
            const Ozy::CommitChangesScope scope("Dig", &document);
            reflect(yard).findPropertyByName("depth").set(70, {});
        };

        QVERIFY_EXCEPTION_THROWN(digInOneStep(), std::runtime_error);

        QCOMPARE(yard.depth, 3);
        QCOMPARE(document.count(), 0);
        QCOMPARE(story.take(), (QStringList{"about", "changed 70", "about", "changed 3"}));
    }

    void whatASetterDidBeforeItRefusedIsUndone()
    {
        Ozy::ChangesController document;
        Yard yard;
        {
            const Ozy::CommitChangesScope scope("Dig", &document);
            QVERIFY(!reflect(yard).findPropertyByName("depth").set(30, {}));
        }

        QCOMPARE(document.count(), 1);
        QVERIFY(document.undo());
        QCOMPARE(yard.depth, 3);
    }

    void nestedChangesAreToldOnceWithTheOuterFlags()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        QStringList heard;
        const auto note = [&heard](const char* what) {
            return [&heard, what](const BoundProperty& told, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag> flags) {
                heard << QString("%1 %2 of %3").arg(what).arg(flags.value()).arg(told.get().value<int>());
            };
        };
        const ryk::ScopedConnection about(speed.connectPropertyAboutToBeChanged(note("about")));
        const ryk::ScopedConnection changed(speed.connectPropertyChanged(note("changed")));
        {
            const NotifyScope scope = NotifyScope::beginPropertyChange(speed, {}, ryk::Flags<NotifyFlag>(3U));
            speed.set(20, {});
            speed.set(30, {});
        }

        QCOMPARE(heard, (QStringList{"about 3 of 10", "changed 3 of 30"}));
    }

    void namedPropertiesAreToldTogether()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);
        PropertyStory name(handle.findPropertyByName("name"));
        PropertyStory speed(handle.findPropertyByName("speed"));
        {
            const PropertyChangeNotifier notifier(handle, {"name", "speed", "nothing"}, {});
            boat.stop();
        }

        QCOMPARE(name.take(), (QStringList{"about", "changed vehicle"}));
        QCOMPARE(speed.take(), (QStringList{"about", "changed 0"}));
    }

    void aListenerMayDestroyTheObject()
    {
        auto boat = std::make_unique<Boat>();
        const BoundProperty speed = reflect(*boat).findPropertyByName("speed");
        const ryk::ScopedConnection about = speed.connectPropertyAboutToBeChanged([&] { boat.reset(); });

        QVERIFY(!speed.set(25, {}));

        QVERIFY(!speed.isValid());
    }

    void aListenerMayDestroyTheObjectOnceItHasChanged()
    {
        Ozy::ChangesController document;
        auto boat = std::make_unique<Boat>();
        const BoundProperty speed = reflect(*boat).findPropertyByName("speed");
        const ryk::ScopedConnection changed = speed.connectPropertyChanged([&] { boat.reset(); });
        {
            const Ozy::CommitChangesScope scope("Set speed", &document);
            QVERIFY(speed.set(25, {}));
        }

        QVERIFY(!speed.isValid());
    }

    void aListenerMayDestroyTheHandleThatIsSet()
    {
        Boat boat;
        auto speed = std::make_unique<BoundProperty>(reflect(boat).findPropertyByName("speed"));
        PropertyStory story(*speed);
        const ryk::ScopedConnection about = speed->connectPropertyAboutToBeChanged([&] { speed.reset(); });

        QVERIFY(speed->set(25, {}));

        QCOMPARE(speed, nullptr);
        QCOMPARE(story.take(), (QStringList{"about", "changed 25"}));
    }

    void aListenerThatUndoesInsideOfAnUndoIsRefused()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        const auto setInOneStep = [&](int value) {
            const Ozy::CommitChangesScope scope("Set speed", &document);
            speed.set(value, {});
        };
        setInOneStep(20);
        setInOneStep(30);
        QList<bool> undone;
        LogCapture log;
        const ryk::ScopedConnection changed = speed.connectPropertyChanged([&] { undone << document.undo() << document.redo(); });

        QVERIFY(document.undo());

        QCOMPARE(undone, (QList<bool>{false, false}));
        QCOMPARE(boat.speed(), 20);
        QCOMPARE(document.index(), 1);
        QCOMPARE(log.messages(), (QStringList{"5 Cannot undo inside of an edit", "5 Cannot redo inside of an edit"}));
    }

    void whatAListenerAnswersIsUndoneWithTheChange()
    {
        Ozy::ChangesController document;
        Boat boat;
        const ReflectedObject handle = reflect(boat);
        const ryk::ScopedConnection changed =
            handle.findPropertyByName("speed").connectPropertyChanged([&](ryk::Connection self, const BoundProperty&) {
                self.disconnect();
                handle.findPropertyByName("draught").set(0.5, {});
            });
        {
            const Ozy::CommitChangesScope scope("Plane", &document);
            handle.findPropertyByName("speed").set(50, {});
        }
        QCOMPARE(boat.draught, 0.5);

        QVERIFY(document.undo());

        QCOMPARE(boat.draught, 1.5);
        QCOMPARE(boat.speed(), 10);
    }

    void aListenerMayTakeTheConnectionInFront()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        int calls = 0;
        speed.connectPropertyChanged([&](ryk::Connection connection, const BoundProperty&) {
            ++calls;
            connection.disconnect();
        });

        speed.set(20, {});
        speed.set(30, {});

        QCOMPARE(calls, 1);
    }

    void aListenerThatWantsAnObjectGetsTheProperties()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);
        ReflectedObject heard;
        const ryk::ScopedConnection listening =
            handle.findPropertyByName("speed").connectPropertyChanged([&](const ReflectedObject& object) { heard = object; });

        handle.findPropertyByName("speed").set(20, {});

        QVERIFY(heard == handle);
    }

    void methodsAreCalledWithConvertedArguments()
    {
        Boat boat;
        const BoundProperty accelerate = reflect(boat).findPropertyByName("accelerate");
        const qelm::Variant by = std::string("5");

        const qelm::Variant result = accelerate.genericInvoke({}, 1, &by);

        QVERIFY(accelerate.isMethod());
        QCOMPARE(result.value<int>(), 15);
        QCOMPARE(boat.speed(), 15);
    }

    void methodsTakeTheObjectThePropertyOrNeither()
    {
        Yard yard;
        const ReflectedObject handle = reflect(yard);
        const qelm::Variant argument(4);

        QCOMPARE(cast<Boat>(handle.findPropertyByName("boat").get()), yard.boat.get());
        QCOMPARE(handle.findPropertyByName("count").genericInvoke({}, 1, &argument).value<int>(), 20);
        QCOMPARE(handle.findPropertyByName("twice").genericInvoke({}, 1, &argument).value<int>(), 8);
    }

    void aWrongNumberOfArgumentsThrows()
    {
        Boat boat;
        const BoundProperty accelerate = reflect(boat).findPropertyByName("accelerate");
        std::string text;

        try {
            accelerate.genericInvoke({}, 0, nullptr);
        } catch (const GenericFunctionError& error) {
            text = error.what();
        }

        QCOMPARE(text, std::string("function accepts 1 args, but 0 were passed"));
    }

    void anArgumentThatCannotBeConvertedThrowsWithBothNames()
    {
        Boat boat;
        const qelm::Variant by = std::string("much");

        QVERIFY_EXCEPTION_THROWN(reflect(boat).findPropertyByName("accelerate").genericInvoke({}, 1, &by), qelm::CastError);
    }

    void anObjectBehindAPropertyRemembersTheWay()
    {
        Boat boat;
        const BoundProperty property = reflect(boat).findPropertyByName("engine");

        const ReflectedObject engine(property);

        QVERIFY(engine.isValid());
        QVERIFY(engine == reflect(*boat.engine));
        QVERIFY(engine.reference() == property);
    }

    void anObjectIsReadAgainByTheWayByWhichItWasReached()
    {
        Boat boat;
        const BoundProperty property = reflect(boat).findPropertyByName("engine");
        const ReflectedObject before(property);
        boat.engine = std::make_unique<Engine>();

        const ReflectedObject now = before.reread();

        QVERIFY(!before.isValid());
        QVERIFY(now == reflect(*boat.engine));
        QCOMPARE(&now.reference(), &before.reference());
        QVERIFY(!reflect(boat).reread().isValid());
    }

    void aHandleThatAPropertyHoldsIsUnwrapped()
    {
        Yard yard;
        Engine engine;
        yard.shown = reflect(engine);
        const BoundProperty shown = reflect(yard).findPropertyByName("shown");

        const ReflectedObject unwrapped(shown);

        QVERIFY(unwrapped == reflect(engine));
        QVERIFY(unwrapped.reference() == shown);
        QVERIFY(!yard.shown.reference().isValid());
    }

    void aValueThatIsNoObjectGivesAnInvalidHandleThatRemembers()
    {
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");

        const ReflectedObject none(speed);

        QVERIFY(!none.isValid());
        QVERIFY(none.reference() == speed);
    }

    void objectsAreCastAlongTheirClasses()
    {
        Boat boat;
        Engine engine;

        QCOMPARE(cast<Boat>(reflect(boat)), &boat);
        QCOMPARE(cast<Vehicle>(reflect(boat)), static_cast<Vehicle*>(&boat));
        QCOMPARE(cast<Boat>(qelm::Variant(static_cast<Vehicle*>(&boat))), &boat);
        QCOMPARE(cast<Boat>(reflect(engine)), nullptr);
        QCOMPARE(cast<Boat>(ReflectedObject()), nullptr);
    }

    void aGetterOfAnotherClassThrowsWithBothNames()
    {
        Boat boat;
        Engine engine;
        const BoundProperty mixed(reflect(engine), reflect(boat).findPropertyByName("speed").metaProperty());
        QString text;

        try {
            mixed.get();
        } catch (const qelm::CastError& error) {
            text = error.what();
        }

        QVERIFY2(text.contains("sample::Engine") && text.contains("sample::Vehicle"), qPrintable(text));
    }

    void aSetIsUndoneAndRedoneThroughSet()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        {
            const Ozy::CommitChangesScope scope("Set speed", &document);
            speed.set(25, {});
        }
        PropertyStory story(speed);

        QVERIFY(document.undo());
        QVERIFY(document.redo());

        QCOMPARE(story.take(), (QStringList{"about", "changed 10", "about", "changed 25"}));
        QCOMPARE(document.count(), 1);
    }

    void aSetToTheSameValueIsToldButNoStep()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        PropertyStory story(speed);
        {
            const Ozy::CommitChangesScope scope("Set speed", &document);
            QVERIFY(speed.set(10, {}));
        }

        QCOMPARE(document.count(), 0);
        QCOMPARE(story.take(), (QStringList{"about", "changed 10"}));
    }

    void aStatelessPropertyIsNotRecorded()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty hidden = reflect(boat).findPropertyByName("isHidden");
        {
            const Ozy::CommitChangesScope scope("Hide", &document);
            QVERIFY(hidden.set(true, {}));
        }

        QVERIFY(hidden.isStateless());
        QCOMPARE(document.count(), 0);
    }

    void undoFindsAnObjectThatWasMadeAnew()
    {
        Ozy::ChangesController document;
        Boat boat;
        const ReflectedObject engine(reflect(boat).findPropertyByName("engine"));
        {
            const Ozy::CommitChangesScope scope("Set power", &document);
            engine.findPropertyByName("power").set(70, {});
        }
        boat.engine = std::make_unique<Engine>();
        boat.engine->power = 70;

        QVERIFY(document.undo());

        QCOMPARE(boat.engine->power, 40);
    }

    void anObjectMadeAnewIsFoundThroughParentsMadeAnew()
    {
        Yard yard;
        const ReflectedObject boat(reflect(yard).findPropertyByName("boat"));
        const PersistentObject engine(ReflectedObject(boat.findPropertyByName("engine")));

        yard.boat.reset();
        QVERIFY(!engine.object().isValid());
        yard.boat = std::make_unique<Boat>();

        QVERIFY(engine.object() == reflect(*yard.boat->engine));
    }

    void anObjectThatWasReachedDirectlyIsNotFoundAgain()
    {
        auto boat = std::make_unique<Boat>();
        const PersistentObject persistent(reflect(*boat));
        QVERIFY(persistent.object() == reflect(*boat));

        boat = std::make_unique<Boat>();

        QVERIFY(!persistent.object().isValid());
        QVERIFY(!PersistentObject().object().isValid());
    }

    void undoOfAnObjectThatIsGoneIsRefused()
    {
        Ozy::ChangesController document;
        auto engine = std::make_unique<Engine>();
        {
            const Ozy::CommitChangesScope scope("Set power", &document);
            reflect(*engine).findPropertyByName("power").set(70, {});
        }
        engine.reset();
        LogCapture log;

        QVERIFY(!document.undo());

        QCOMPARE(log.messages(), QStringList{"5 A step was refused: Set power"});
        QCOMPARE(document.index(), 1);
    }

    void classesAreFoundByNameAndCreateObjects()
    {
        MetaObject* vehicle = MetaObjectManager::instance().findType(typeid(Vehicle));
        QVERIFY(vehicle);

        MetaObject* boat = vehicle->findDerived("sample::Boat");

        QCOMPARE(boat, static_cast<MetaObject*>(&StaticMetaObject<Boat>::instance()));
        QCOMPARE(vehicle->findDerived("sample::Engine"), nullptr);
        QVERIFY(cast<Boat>(boat->createInstance()));
        QVERIFY(boat->isDerivedFrom(*vehicle));
    }
};

QTEST_GUILESS_MAIN(tst_Reflection)
#include "tst_reflection.moc"
