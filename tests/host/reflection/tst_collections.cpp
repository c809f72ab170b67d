#include "sample_objects.h"

#include <host/base/profiler.h>
#include <host/base/stack_tracker.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/reflection_wrapper.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <support/log_capture.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

using Boats = ReflectionWrapper<std::vector<std::shared_ptr<Boat>>>;
using Numbers = ReflectionWrapper<std::vector<int>>;
using Words = ReflectionWrapper<std::vector<std::string>>; // for one test alone, which sees its properties made

/// A collection class of its own, which keeps no undo history when told so.
class Crew : public Object
{
public:
    std::vector<Engine*>& elements() { return m_engines; }
    bool isStateless = false;

private:
    std::vector<Engine*> m_engines;
};

const ReflectAtLoad<Engine> engineClass;
const ReflectAtLoad<Boat> boatClass;
const AutoregisterMetaObject<Boats> boatsClass("Boats", {Meta::Children{"*", {Meta::Precision{3}}}, Meta::ToolTip("afloat")});
const AutoregisterMetaObject<Numbers> numbersClass("Numbers", {});
const AutoregisterMetaObject<Words> wordsClass("Words", {});
const SequentialCollectionMetaObject<Crew, 0>
    crewClass("Crew", {Meta::Stateless([](const ReflectedObject& crew) { return int(cast<Crew>(crew)->isStateless); })});

std::shared_ptr<Boat> boatNamed(const char* name)
{
    auto boat = std::make_shared<Boat>();
    boat->setName(name);
    return boat;
}

QStringList names(const Boats& boats)
{
    QStringList names;
    for (const auto& boat : *boats)
        names << (boat ? QString::fromStdString(boat->name()) : "none");
    return names;
}

/// What a collection and its elements tell, in order, with the number of elements at that time.
class CollectionStory
{
public:
    explicit CollectionStory(const ReflectedObject& collection)
    {
        const auto range = [this](const char* what) {
            return [this, what](const ReflectedObject& told, std::size_t first, std::size_t count) {
                lines << QString("%1 %2+%3 of %4").arg(what).arg(first).arg(count).arg(told.propertyCount());
            };
        };
        keep(collection.connectPropertyAboutToBeAdded(range("adding")));
        keep(collection.connectPropertyAdded(range("added")));
        keep(collection.connectPropertyAboutToBeRemoved(range("removing")));
        keep(collection.connectPropertyRemoved(range("removed")));
    }
    void follow(const QString& label, const BoundProperty& element)
    {
        const auto change = [this, label](const char* what) {
            return [this, label, what](const BoundProperty& told, ryk::Flags<SetterFlag> setter, ryk::Flags<NotifyFlag> notify) {
                lines << QString("%1 %2 as %3, %4/%5").arg(label, what, QString::fromStdString(told.name()))
                             .arg(setter.value()).arg(notify.value());
            };
        };
        keep(element.connectPropertyAboutToBeChanged(change("changing")));
        keep(element.connectPropertyChanged(change("changed")));
    }
    QStringList take() { return std::exchange(lines, {}); }

    QStringList lines;

private:
    void keep(ryk::Connection connection) { m_connections.emplace_back(std::move(connection)); }
    std::vector<ryk::ScopedConnection> m_connections;
};

struct ThreeBoats
{
    Boats boats{{boatNamed("a"), boatNamed("b"), boatNamed("c")}};
    ReflectedObject object = reflect(boats);
};

} // namespace

class tst_Collections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theNameIsThatOfTheCollectionAndItsElementClass()
    {
        QCOMPARE(boatsClass.name(), std::string("Boats<sample::Boat>"));
        QCOMPARE(numbersClass.name(), std::string("Numbers<int>"));
        QCOMPARE(crewClass.name(), std::string("Crew<sample::Engine>"));
    }

    void theClassSaysThatItIsACollection()
    {
        const Annotations annotations = ThreeBoats().object.annotations();

        QVERIFY(annotations.contain<Meta::Collection>());
        QVERIFY(annotations.contain<Meta::ToolTip>());
        QVERIFY(boatsClass.annotations("any key").contain<Meta::Collection>());
    }

    void everyElementGetsTheAnnotationsForChildren()
    {
        const ThreeBoats three;

        QCOMPARE(three.object.propertyAt(2).annotations().valueOr<Meta::Precision>().digits, 3);
        QVERIFY(!three.object.propertyAt(2).annotations().contain<Meta::Collection>());
    }

    void theKeyOfAnElementIsItsIndexAndTheNameItsDecimalText()
    {
        const ThreeBoats three;
        const BoundProperty second = three.object.propertyAt(1);

        QCOMPARE(second.key().value<std::size_t>(), std::size_t(1));
        QCOMPARE(second.name(), std::string("1"));
        QVERIFY(three.object.findPropertyByName("1") == second);
        QVERIFY(!three.object.findPropertyByName("3").isValid());
        QVERIFY(!three.object.findPropertyByName("x").isValid());
    }

    void whoCountsPastTheLastElementIsToldHowFarPast()
    {
        const ThreeBoats three;
        std::size_t remaining = 0;

        QVERIFY(!boatsClass.property(three.object, 5, &remaining));

        QCOMPARE(remaining, std::size_t(2));
        QCOMPARE(three.object.propertyCount(), std::size_t(3));
    }

    void anElementIsAnObjectThatRemembersItsPlace()
    {
        const ThreeBoats three;

        const ReflectedObject boat(three.object.propertyAt(1));

        QCOMPARE(boat.findPropertyByName("name").get().value<std::string>(), std::string("b"));
        QVERIFY(boat.reference() == three.object.propertyAt(1));
    }

    void elementPropertiesAreSharedByAllCollectionsOfAClass()
    {
        const ThreeBoats three;
        const ThreeBoats others;

        QCOMPARE(three.object.propertyAt(1).metaProperty(), others.object.propertyAt(1).metaProperty());
        QVERIFY(!(three.object.propertyAt(1) == others.object.propertyAt(1)));
    }

    void theCreationOfAnElementPropertyIsProfiledOnce()
    {
        static QStringList profiled;
        Words words({"a"});
        const ReflectedObject object = reflect(words);
        RYK::Profiler::g_hooks = {[](const char* name) { profiled << name; }, [] { profiled << "end"; }};

        object.propertyAt(0);
        object.propertyAt(0);
        RYK::Profiler::g_hooks = {};

        QCOMPARE(profiled, (QStringList{"Reflection|MetaProperties|CollectionMetaObject", "end"}));
    }

    void theClassIsKnownAsLongAsItsMetaObjectLives()
    {
        auto shorts = std::make_unique<SequentialCollectionMetaObject<ReflectionWrapper<std::vector<short>>, 0>>("Shorts", Annotations{});
        const MetaObject* known = MetaObjectManager::instance().findType("Shorts<short>");
        QCOMPARE(known, shorts.get());

        shorts.reset();

        QVERIFY(!MetaObjectManager::instance().findType("Shorts<short>"));
    }

    void anElementThatIsGoneReadsAsVoidAndRefusesToBeSet()
    {
        ThreeBoats three;
        const BoundProperty last = three.object.propertyAt(2);
        three.boats->pop_back();

        QVERIFY(last.get().isVoid());
        QVERIFY(!last.set(boatNamed("d"), {}));
    }

    void anElementIsReplacedBySet()
    {
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("b", three.object.propertyAt(1));

        QVERIFY(three.object.propertyAt(1).set(boatNamed("x"), {}));

        QCOMPARE(names(three.boats), (QStringList{"a", "x", "c"}));
        QCOMPARE(story.take(), (QStringList{"b changing as 1, 0/1", "b changed as 1, 0/1"}));
    }

    void anElementOfAWrongTypeIsRefusedBySet()
    {
        ThreeBoats three;

        QVERIFY(!three.object.propertyAt(1).set("a text", {}));
        QVERIFY(!three.object.propertyAt(1).set({}, {}));
        QCOMPARE(names(three.boats), (QStringList{"a", "b", "c"}));
    }

    void withoutKeyAndValueANullElementIsAppended()
    {
        ThreeBoats three;

        const BoundProperty added = three.object.addProperty({}, {});

        QCOMPARE(added.name(), std::string("3"));
        QCOMPARE(names(three.boats), (QStringList{"a", "b", "c", "none"}));
    }

    void aKeyPastTheEndAppendsAndItsUndoRemovesThere()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("append", &document);
            QCOMPARE(three.object.addProperty(100, boatNamed("d")).name(), std::string("3"));
        }
        CollectionStory story(three.object);

        QVERIFY(document.undo());

        QCOMPARE(story.take(), (QStringList{"removing 3+1 of 4", "removed 3+1 of 3"}));
        QCOMPARE(names(three.boats), (QStringList{"a", "b", "c"}));
    }

    void keysMayBeTextsNumbersAndPointersToIndexes()
    {
        Numbers numbers;
        const ReflectedObject object = reflect(numbers);
        const std::size_t front = 0;

        object.addProperty({}, 1);
        object.addProperty("0", 2);
        object.addProperty(&front, 3);
        object.addProperty(qint64(1), 4);

        QCOMPARE(*numbers, (std::vector<int>{3, 4, 2, 1}));
    }

    void anElementIsRemovedByNameOrByIndex()
    {
        Numbers numbers({5, 6, 7, 8});

        QVERIFY(reflect(numbers).removeProperty("1"));
        QVERIFY(reflect(numbers).removeProperty(std::size_t(2)));
        QVERIFY(reflect(numbers).removePropertyAt(0));

        QCOMPARE(*numbers, std::vector<int>{7});
    }

    void wrongKeysAndValuesAreRefusedWithNothingToldOrRecorded_data()
    {
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("key that is no number") << QVariant("first") << QVariant(1);
        QTest::newRow("key below zero") << QVariant(-1) << QVariant(1);
        QTest::newRow("value that is no number") << QVariant(0) << QVariant("much");
        QTest::newRow("value that does not fit") << QVariant(0) << QVariant(qint64(1) << 40);
    }

    void wrongKeysAndValuesAreRefusedWithNothingToldOrRecorded()
    {
        QFETCH(QVariant, key);
        QFETCH(QVariant, value);
        Numbers numbers({5, 6});
        Ozy::ChangesController document;
        CollectionStory story(reflect(numbers));
        {
            const Ozy::CommitChangesScope scope("refused", &document);

            QVERIFY(!reflect(numbers).addProperty(key, value).isValid());
        }

        QCOMPARE(story.take(), QStringList());
        QCOMPARE(document.count(), 0);
        QCOMPARE(*numbers, (std::vector<int>{5, 6}));
    }

    void removalPastTheEndGivesFalseAndRecordsNothing()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        CollectionStory story(three.object);
        {
            const Ozy::CommitChangesScope scope("nothing", &document);

            QVERIFY(!three.object.removePropertyAt(3));
            QVERIFY(!three.object.removeProperty("3"));
        }

        QCOMPARE(story.take(), QStringList());
        QCOMPARE(document.count(), 0);
    }

    void anInsertionTellsTheMovedElementsInOrder()
    {
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("a", three.object.propertyAt(0));
        story.follow("b", three.object.propertyAt(1));
        story.follow("c", three.object.propertyAt(2));

        three.object.addProperty(1, boatNamed("x"));

        QCOMPARE(story.take(), (QStringList{"adding 1+1 of 3", "b changing as 1, 0/3", "b changed as 1, 0/3",
                                            "c changing as 2, 0/3", "c changed as 2, 0/3", "added 1+1 of 4"}));
        QCOMPARE(names(three.boats), (QStringList{"a", "x", "b", "c"}));
    }

    void aRemovalTellsTheMovedElementsInOrder()
    {
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("a", three.object.propertyAt(0));
        story.follow("b", three.object.propertyAt(1));
        story.follow("c", three.object.propertyAt(2));

        three.object.removePropertyAt(1);

        QCOMPARE(story.take(), (QStringList{"c changing as 2, 0/3", "c changed as 2, 0/3", "removing 1+1 of 3",
                                            "removed 1+1 of 2"}));
        QCOMPARE(names(three.boats), (QStringList{"a", "c"}));
    }

    void listenersFollowTheirElementToItsNewIndex()
    {
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("a", three.object.propertyAt(0));
        story.follow("b", three.object.propertyAt(1));
        story.follow("c", three.object.propertyAt(2));
        three.object.addProperty(0, boatNamed("x"));
        three.object.removePropertyAt(2);
        story.take();

        three.object.propertyAt(0).set(boatNamed("0"), {});
        three.object.propertyAt(1).set(boatNamed("1"), {});
        three.object.propertyAt(2).set(boatNamed("2"), {});

        QCOMPARE(story.take(), (QStringList{"a changing as 1, 0/1", "a changed as 1, 0/1", "c changing as 2, 0/1",
                                            "c changed as 2, 0/1"}));
    }

    void thoseWhoListenedToARemovedElementHearNothingOfItsSuccessor_data()
    {
        QTest::addColumn<int>("removed");

        QTest::newRow("first") << 0;
        QTest::newRow("last") << 2;
    }

    void thoseWhoListenedToARemovedElementHearNothingOfItsSuccessor()
    {
        QFETCH(int, removed);
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("gone", three.object.propertyAt(std::size_t(removed)));
        three.object.removePropertyAt(std::size_t(removed));
        three.object.addProperty(removed, boatNamed("x"));
        story.take();

        three.object.propertyAt(std::size_t(removed)).set(boatNamed("y"), {});

        QCOMPARE(story.take(), QStringList());
    }

    void aPropertyKeepsItsPlaceWhenItsListenersMoveOn()
    {
        ThreeBoats three;
        const BoundProperty first = three.object.propertyAt(0);
        const auto listening = ryk::ScopedConnection(first.connectPropertyChanged([] {}));

        three.object.addProperty(0, boatNamed("x"));

        QCOMPARE(first.name(), std::string("0"));
        QCOMPARE(ReflectedObject(first).findPropertyByName("name").get().value<std::string>(), std::string("x"));
    }

    void whileElementsMoveEachListenerStillReadsItsOwn()
    {
        Numbers numbers({10, 11, 12});
        const ReflectedObject object = reflect(numbers);
        QStringList read;
        const auto note = [&read](const BoundProperty& told) { read << QString::number(told.get().value<int>()); };
        const ryk::ScopedConnection second(object.propertyAt(1).connectPropertyChanged(note));
        const ryk::ScopedConnection third(object.propertyAt(2).connectPropertyChanged(note));

        object.addProperty(0, 9);
        object.removePropertyAt(0);

        QCOMPARE(read, (QStringList{"11", "12", "11", "12"}));
    }

    void aChangeThroughANotifierAloneRenumbersToo()
    {
        ThreeBoats three;
        CollectionStory story(three.object);
        story.follow("c", three.object.propertyAt(2));

        {
            const PropertiesRemoveNotifier notifier(three.object, 0, 2);
            three.boats->erase(three.boats->begin(), three.boats->begin() + 2);
        }
        three.object.propertyAt(0).set(boatNamed("x"), {});

        QCOMPARE(story.take(), (QStringList{"c changing as 2, 0/3", "c changed as 2, 0/3", "removing 0+2 of 3",
                                            "removed 0+2 of 1", "c changing as 0, 0/1", "c changed as 0, 0/1"}));
    }

    void aRemovalPastTheEndThroughANotifierIsAsserted()
    {
        ThreeBoats three;
        LogCapture log;

        const PropertiesRemoveNotifier notifier(three.object, 2, 2);

        QCOMPARE(log.assertions(), QStringList{"index + count <= size"});
    }

    void withoutAScopeTheChangeHappensAndNothingIsRecorded()
    {
        ThreeBoats three;

        QVERIFY(three.object.addProperty(0, boatNamed("x")).isValid());
        QVERIFY(three.object.removePropertyAt(1));

        QCOMPARE(Ozy::CommitChangesScope::transaction(), nullptr);
        QCOMPARE(names(three.boats), (QStringList{"x", "b", "c"}));
    }

    void aStatelessCollectionRecordsNothing()
    {
        Engine engine;
        Crew crew;
        crew.isStateless = true;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("stateless", &document);
            reflect(crew).addProperty({}, &engine);
            reflect(crew).addProperty({}, &engine);
            reflect(crew).removePropertyAt(0);
        }

        QCOMPARE(document.count(), 0);
        QCOMPARE(crew.elements(), std::vector<Engine*>{&engine});
    }

    void theCommandOfAnInsertionIsMadeBeforeAnyoneIsTold()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        const Ozy::CommitChangesScope scope("order", &document);
        bool wasRecorded = false;
        const ryk::ScopedConnection listening(three.object.connectPropertyAboutToBeAdded(
            [&] { wasRecorded = !Ozy::CommitChangesScope::transaction()->composite->empty(); }));

        three.object.addProperty({}, {});

        QVERIFY(wasRecorded);
    }

    void theCommandOfARemovalIsMadeWhileTheElementIsStillThere()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        const Ozy::CommitChangesScope scope("order", &document);
        QStringList heard;
        const auto note = [&](const ReflectedObject& told) {
            heard << QString("%1 elements, %2 commands").arg(told.propertyCount())
                         .arg(Ozy::CommitChangesScope::transaction()->composite->size());
        };
        const ryk::ScopedConnection about(three.object.connectPropertyAboutToBeRemoved(note));
        const ryk::ScopedConnection done(three.object.connectPropertyRemoved(note));

        three.object.removePropertyAt(0);

        QCOMPARE(heard, (QStringList{"3 elements, 0 commands", "2 elements, 1 commands"}));
    }

    void undoAndRedoPutTheSameElementBackAndTakeItAway()
    {
        ThreeBoats three;
        const Boat* second = (*three.boats)[1].get();
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("remove", &document);
            three.object.removePropertyAt(1);
        }

        QVERIFY(document.undo());
        QCOMPARE((*three.boats)[1].get(), second);
        QVERIFY(document.redo());
        QCOMPARE(names(three.boats), (QStringList{"a", "c"}));
        QVERIFY(document.undo());
        QCOMPARE(names(three.boats), (QStringList{"a", "b", "c"}));
    }

    void whoIsToldOfAnUndoFindsTheCommandAmongTheStackEntries()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("append", &document);
            three.object.addProperty({}, boatNamed("d"));
        }
        std::string entries;
        const ryk::ScopedConnection listening(
            three.object.connectPropertyRemoved([&] { entries = Ozy::StackTracker::describe(); }));

        document.undo();

        QVERIFY(entries.find("in zarn::RemoveFromContainer::execute (") != std::string::npos);
    }

    void oneStepMayHoldEditsOfTheCollectionAndOfItsElements()
    {
        ThreeBoats three;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("many", &document);
            three.object.propertyAt(2).set(boatNamed("z"), {});
            three.object.removePropertyAt(0);
            three.object.addProperty(1, boatNamed("x"));
            ReflectedObject(three.object.propertyAt(0)).findPropertyByName("name").set("renamed", {});
        }
        QCOMPARE(names(three.boats), (QStringList{"renamed", "x", "z"}));

        QVERIFY(document.undo());
        QCOMPARE(names(three.boats), (QStringList{"a", "b", "c"}));
        QVERIFY(document.redo());
        QCOMPARE(names(three.boats), (QStringList{"renamed", "x", "z"}));
    }

    void aCommandThatFindsNoElementRefusesAndSaysSo()
    {
        ThreeBoats three;
        LogCapture log;

        QVERIFY(!RemoveFromContainer("remove", three.object, 7).execute());

        QCOMPARE(log.messages(), QStringList{"5 Failed to remove from a container"});
    }

    void aCommandWithoutItsCollectionRefusesAndSaysSo()
    {
        LogCapture log;

        QVERIFY(!InsertIntoContainer<int>("insert", ReflectedObject(), 0, 5).execute());

        QCOMPARE(log.messages(), QStringList{"5 Failed to insert into a container"});
    }

    void aCommandWhoseElementIsNotKeptAsItIsSaysThatToo()
    {
        LogCapture log;

        QVERIFY(!InsertIntoContainer<const char*>("insert", ReflectedObject(), 0, "text").execute());

        QCOMPARE(log.messages(), (QStringList{"5 InsertIntoContainer::execute : cast error! Command value is missed!",
                                              "5 Failed to insert into a container"}));
    }

    void aListenerMayRemoveTheElementThatIsAboutToChange()
    {
        ThreeBoats three;
        const BoundProperty second = three.object.propertyAt(1);
        const ryk::ScopedConnection listening(
            second.connectPropertyAboutToBeChanged([&] { three.object.removePropertyAt(1); }));

        QVERIFY(!second.set(boatNamed("x"), {}));

        QCOMPARE(names(three.boats), (QStringList{"a", "c"}));
    }

    void aListenerMayMoveTheElementThatIsAboutToChange()
    {
        ThreeBoats three;
        const BoundProperty second = three.object.propertyAt(1);
        ryk::ScopedConnection listening;
        listening = second.connectPropertyAboutToBeChanged([&](ryk::Connection self, const BoundProperty&) {
            self.disconnect();
            three.object.addProperty(0, boatNamed("new"));
        });

        QVERIFY(second.set(boatNamed("x"), {}));

        QCOMPARE(names(three.boats), (QStringList{"new", "a", "x", "c"}));
    }

    void aListenerMayRemoveTheElementThatHasChanged()
    {
        ThreeBoats three;
        const ryk::ScopedConnection listening(three.object.propertyAt(1).connectPropertyChanged(
            [&](ryk::Connection self, const BoundProperty& told) {
                self.disconnect();
                told.object().removeProperty(told.key());
            }));

        QVERIFY(three.object.propertyAt(1).set(boatNamed("x"), {}));

        QCOMPARE(names(three.boats), (QStringList{"a", "c"}));
    }

    void aListenerMayEmptyACollectionThatIsAboutToLoseAnElement()
    {
        ThreeBoats three;
        const ryk::ScopedConnection listening(
            three.object.connectPropertyAboutToBeRemoved([&](const ReflectedObject&) { three.boats->clear(); }));

        QVERIFY(!three.object.removePropertyAt(1));

        QCOMPARE(names(three.boats), QStringList());
    }

    void aCollectionMayDieInItsOwnNotification_data()
    {
        QTest::addColumn<bool>("adds");

        QTest::newRow("insertion") << true;
        QTest::newRow("removal") << false;
    }

    void aCollectionMayDieInItsOwnNotification()
    {
        QFETCH(bool, adds);
        auto boats = std::make_unique<Boats>(std::vector{boatNamed("a"), boatNamed("b")});
        const ReflectedObject object = reflect(*boats);
        const ryk::ScopedConnection adding(object.connectPropertyAboutToBeAdded([&] { boats.reset(); }));
        const ryk::ScopedConnection removing(object.connectPropertyAboutToBeRemoved([&] { boats.reset(); }));

        const bool isDone = adds ? object.addProperty(0, {}).isValid() : object.removePropertyAt(0);

        QVERIFY(!isDone);
        QVERIFY(!object.isValid());
    }

    void elementsArePlainValuesToo()
    {
        Numbers numbers({1, 2});
        const ReflectedObject object = reflect(numbers);

        QVERIFY(object.propertyAt(0).set("7", {}));
        QVERIFY(object.addProperty({}, {}).isValid());

        QCOMPARE(*numbers, (std::vector<int>{7, 2, 0}));
    }

    void aBaseOfTheElementClassIsTakenForWhatItReallyIs()
    {
        Boats boats;
        const std::shared_ptr<Vehicle> vehicle = boatNamed("a");

        QVERIFY(reflect(boats).addProperty({}, vehicle).isValid());

        QCOMPARE(names(boats), QStringList{"a"});
    }

    void anElementMadeAnewIsFoundByItsPlace()
    {
        Crew crew;
        auto engine = std::make_unique<Engine>();
        reflect(crew).addProperty({}, engine.get());
        const PersistentObject first(ReflectedObject(reflect(crew).propertyAt(0)));
        crew.elements().clear();
        engine = std::make_unique<Engine>();
        const bool isFoundMeanwhile = first.object().isValid();

        reflect(crew).addProperty({}, engine.get());

        QVERIFY(!isFoundMeanwhile);
        QVERIFY(first.object() == reflect(*engine));
    }

    void anElementThatLivesIsMeantAfterAnotherTookItsPlace()
    {
        ThreeBoats three;
        const PersistentObject second(ReflectedObject(three.object.propertyAt(1)));

        three.object.propertyAt(1).set(boatNamed("x"), {});

        QCOMPARE(second.object().findPropertyByName("name").get().value<std::string>(), std::string("b"));
    }

    void theClassMakesEmptyCollections()
    {
        const qelm::Variant made = numbersClass.createInstance();

        QVERIFY(made.value<std::shared_ptr<Numbers>>()->operator*().empty());
    }
};

QTEST_GUILESS_MAIN(tst_Collections)
#include "tst_collections.moc"
