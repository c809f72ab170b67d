#include "sample_objects.h"

#include <host/reflection/generic_object.h>
#include <host/reflection/multi_selection.h>
#include <host/reflection/string_join_reduce.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace sample {

/// Shows the labels of several joined, and takes as many parts as it has room for, unless it is sealed.
class Crate : public zarn::Object
{
public:
    bool setParts(int count)
    {
        if (isSealed)
            throw std::runtime_error("sealed");
        if (count > room)
            return false;
        parts = count;
        return true;
    }

    std::string label = "crate";
    int parts = 1;
    int room = 100;
    bool isSealed = false;
};

} // namespace sample

template <>
struct zarn::Reflection<sample::Crate>
{
    static constexpr const char* name = "sample::Crate";
    static void declare(StaticMetaObject<sample::Crate>::Builder& crate)
    {
        crate.readOnly("label", &sample::Crate::label, StringJoinReduce::meta(", ", false));
        crate.value("parts", &sample::Crate::parts, &sample::Crate::setParts);
        crate.readOnly("all", &sample::Crate::label, StringJoinReduce::meta("+", true));
    }
};

namespace {

const ReflectAtLoad<Engine> engineClass;
const ReflectAtLoad<Vehicle> vehicleClass;
const ReflectAtLoad<Boat> boatClass;
const ReflectAtLoad<Crate> crateClass;

QStringList propertyNames(const ReflectedObject& object)
{
    QStringList names;
    for (std::size_t index = 0; index < object.propertyCount(); ++index)
        names << QString::fromStdString(object.propertyAt(index).name());
    return names;
}

struct TwoBoats
{
    TwoBoats()
    {
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});
    }
    BoundProperty property(const char* name) { return reflect(selection).findPropertyByName(name); }

    Boat first;
    Boat second;
    MultiSelection selection;
};

/// Writes down what is heard of a property and whether it is mixed then.
class PropertyStory
{
public:
    explicit PropertyStory(const BoundProperty& property)
        : m_about(property.connectPropertyAboutToBeChanged([this](const BoundProperty& told) { note("about", told); }))
        , m_changed(property.connectPropertyChanged([this](const BoundProperty& told) { note("changed", told); }))
    {
    }
    QStringList take() { return std::exchange(m_lines, {}); }

private:
    void note(const char* what, const BoundProperty& told)
    {
        m_lines << QString("%1 %2").arg(what, MultiSelection::isMixed(told) ? "mixed" : qelm::toQVariant(told.get()).toString());
    }

    QStringList m_lines;
    ryk::ScopedConnection m_about;
    ryk::ScopedConnection m_changed;
};

} // namespace

class tst_MultiSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewSelectionIsEmptyAndShowsNothing()
    {
        MultiSelection selection(MultiSelection::Mode(0), true);

        QVERIFY(selection.empty());
        QVERIFY(reflect(selection).isValid());
        QCOMPARE(reflect(selection).propertyCount(), std::size_t(0));
        QVERIFY(!selection.parent().isValid());
    }

    void invalidHandlesAreTolerated()
    {
        MultiSelection selection;

        selection.merge({}, {});

        QVERIFY(selection.empty());
        QVERIFY(!selection.unmerge({}));
    }

    void oneObjectShowsAllItsProperties()
    {
        Boat boat;
        MultiSelection selection;

        selection.merge(reflect(boat), {});

        QCOMPARE(propertyNames(reflect(selection)), propertyNames(reflect(boat)));
        QCOMPARE(reflect(selection).findPropertyByName("speed").get().value<int>(), 10);
    }

    void anObjectThatComesOrGoesIsOneChangeOfAllProperties()
    {
        TwoBoats boats;
        Boat third;
        QStringList lines;
        const auto note = [&lines](const char* what) {
            return [&lines, what](const BoundProperty& told) { lines << what + QString::fromStdString(told.name()); };
        };
        const ryk::ScopedConnection listening[] = {
            boats.property("speed").connectPropertyAboutToBeChanged(note("about ")),
            boats.property("speed").connectPropertyChanged(note("changed ")),
            boats.property("draught").connectPropertyAboutToBeChanged(note("about ")),
            boats.property("draught").connectPropertyChanged(note("changed ")),
        };

        boats.selection.merge(reflect(third), {});
        QCOMPARE(std::exchange(lines, {}), (QStringList{"about speed", "about draught", "changed speed", "changed draught"}));

        boats.selection.unmerge(reflect(third));
        QCOMPARE(lines, (QStringList{"about speed", "about draught", "changed speed", "changed draught"}));
    }

    void aSelectionThatDiesInTheMiddleOfAChangeEndsItWithoutObjects()
    {
        Boat boat;
        auto selection = std::make_unique<MultiSelection>();
        selection->merge(reflect(boat), {});
        PropertyStory story(reflect(*selection).findPropertyByName("speed"));
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        const ryk::ScopedConnection killing = speed.connectPropertyAboutToBeChanged([&] { selection.reset(); });

        QVERIFY(speed.set(20, {}));

        QCOMPARE(story.take(), (QStringList{"about 10", "changed "}));
    }

    void theSameObjectMergesOnce()
    {
        Boat boat;
        MultiSelection selection;
        selection.merge(reflect(boat), {});
        selection.merge(reflect(boat), {});

        QCOMPARE(selection.mergedCount(), std::size_t(1));
        QVERIFY(selection.unmerge(reflect(boat)));
        QVERIFY(!selection.unmerge(reflect(boat)));
        QVERIFY(selection.empty());
    }

    void aSelectionDoesNotMergeWithItself()
    {
        MultiSelection selection;

        selection.merge(reflect(selection), {});

        QVERIFY(selection.empty());
    }

    void whatAllAgreeOnReadsAsThatValue()
    {
        TwoBoats boats;

        QCOMPARE(boats.property("speed").get().value<int>(), 10);
        QVERIFY(!MultiSelection::isMixed(boats.property("speed")));
    }

    void whatTheyDifferInIsMixedAndReadsAsVoid()
    {
        TwoBoats boats;
        boats.second.setSpeed(20);
        const auto mixed = boats.property("speed").annotations().find<Meta::MultiSelection::Mixed>();

        QVERIFY(boats.property("speed").get().isVoid());
        QVERIFY(MultiSelection::isMixed(boats.property("speed")));
        QVERIFY(mixed->value<Meta::MultiSelection::Mixed>().isMixed(boats.property("speed")));
        QVERIFY(!MultiSelection::isMixed(reflect(boats.first).findPropertyByName("speed")));
    }

    void aReduceMapMakesOneTextOfSeveral()
    {
        Crate first{};
        Crate second{};
        Crate third{};
        second.label = "box";
        MultiSelection selection;
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});
        selection.merge(reflect(third), {});

        QCOMPARE(reflect(selection).findPropertyByName("label").get().value<std::string>(), std::string("crate, box"));
        QCOMPARE(reflect(selection).findPropertyByName("all").get().value<std::string>(), std::string("crate+box+crate"));
        QVERIFY(MultiSelection::isMixed(reflect(selection).findPropertyByName("label")));
    }

    void aReduceMapIsNotAskedForASingleObject()
    {
        Crate crate;
        MultiSelection selection;
        selection.merge(reflect(crate), {});

        QCOMPARE(reflect(selection).findPropertyByName("all").get().value<std::string>(), std::string("crate"));
    }

    void aWriteReachesAllAndIsToldOnce()
    {
        TwoBoats boats;
        boats.second.setSpeed(20);
        PropertyStory story(boats.property("speed"));

        QVERIFY(boats.property("speed").set(30, {}));

        QCOMPARE(boats.first.speed(), 30);
        QCOMPARE(boats.second.speed(), 30);
        QCOMPARE(story.take(), (QStringList{"about mixed", "changed 30"}));
    }

    void aWriteIsOneStepThatUndoAndRedoTakeAsAWhole()
    {
        TwoBoats boats;
        boats.second.setSpeed(20);
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("speed", &document);
            boats.property("speed").set(30, {});
            QCOMPARE(Ozy::CommitChangesScope::transaction()->composite->size(), std::size_t(2));
        }

        QCOMPARE(document.count(), 1);
        QVERIFY(document.undo());
        QCOMPARE(boats.first.speed(), 10);
        QCOMPARE(boats.second.speed(), 20);
        QVERIFY(document.redo());
        QCOMPARE(boats.first.speed(), 30);
        QCOMPARE(boats.second.speed(), 30);
    }

    void selectingIsNoEditOfTheDocument()
    {
        Boat boat;
        MultiSelection selection;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("select", &document);
            selection.merge(reflect(boat), {});
            selection.unmerge(reflect(boat));
            selection.merge(reflect(boat), {});
            selection.clear();
        }

        QCOMPARE(document.count(), 0);
    }

    void aWriteThatOneRefusesIsTakenBackFromTheOthers_data()
    {
        QTest::addColumn<int>("room");
        QTest::addColumn<bool>("isSealed");

        QTest::newRow("refused") << 5 << false;
        QTest::newRow("thrown") << 100 << true;
    }

    void aWriteThatOneRefusesIsTakenBackFromTheOthers()
    {
        QFETCH(int, room);
        QFETCH(bool, isSealed);
        Crate first;
        Crate second;
        second.room = room;
        second.isSealed = isSealed;
        MultiSelection selection;
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});
        QStringList heard;
        const ryk::ScopedConnection listening(reflect(first).findPropertyByName("parts").connectPropertyChanged(
            [&heard](const BoundProperty& told) { heard << QString::number(told.get().value<int>()); }));

        bool isDone = false;
        try {
            isDone = reflect(selection).findPropertyByName("parts").set(50, {});
        } catch (const std::runtime_error& error) {
            QCOMPARE(error.what(), "sealed");
        }

        QVERIFY(!isDone);
        QCOMPARE(first.parts, 1);
        QCOMPARE(second.parts, 1);
        QCOMPARE(heard, (QStringList{"50", "1"}));
    }

    void aWriteThatOneRefusesLeavesNoStep()
    {
        Crate first;
        Crate second;
        second.room = 5;
        Boat noticing;
        MultiSelection selection;
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});
        const ryk::ScopedConnection answering(reflect(first).findPropertyByName("parts").connectPropertyChanged(
            [&](const BoundProperty&) { reflect(noticing).findPropertyByName("speed").set(first.parts, {}); }));
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("parts", &document);
            QVERIFY(!reflect(selection).findPropertyByName("parts").set(50, {}));
        }

        QCOMPARE(document.count(), 0);
        QCOMPARE(first.parts, 1);
    }

    void aWriteThatCannotBeConvertedForOneReachesNone()
    {
        GenericObject narrow;
        GenericObject wide;
        reflect(wide).addProperty("size", qint64(1));
        reflect(narrow).addProperty("size", qint8(2));
        MultiSelection selection;
        selection.merge(reflect(wide), {});
        selection.merge(reflect(narrow), {});

        QVERIFY(!reflect(selection).findPropertyByName("size").set(1000, {}));

        QCOMPARE(reflect(wide).findPropertyByName("size").get().value<qint64>(), qint64(1));
        QCOMPARE(reflect(narrow).findPropertyByName("size").get().value<qint8>(), qint8(2));
    }

    void aSetterThatThrowsLeavesTheNotificationsPaired()
    {
        TwoBoats boats;
        PropertyStory story(boats.property("speed"));

        QVERIFY_EXCEPTION_THROWN(boats.property("speed").set(500, {}), std::runtime_error);

        QCOMPARE(boats.first.speed(), 10);
        QCOMPARE(boats.second.speed(), 10);
        QCOMPARE(story.take(), (QStringList{"about 10", "changed 10"}));
    }

    void aChangeOfOneObjectIsForwardedOnce()
    {
        TwoBoats boats;
        PropertyStory story(boats.property("speed"));

        reflect(boats.second).findPropertyByName("speed").set(15, {});

        QCOMPARE(story.take(), (QStringList{"about 10", "changed mixed"}));
    }

    void aJoiningAndALeavingObjectAreTold()
    {
        TwoBoats boats;
        Boat third;
        third.setSpeed(99);
        PropertyStory story(boats.property("speed"));

        boats.selection.merge(reflect(third), {});
        boats.selection.unmerge(reflect(third));

        QCOMPARE(story.take(), (QStringList{"about 10", "changed mixed", "about mixed", "changed 10"}));
    }

    void aMethodIsCalledForEach()
    {
        TwoBoats boats;
        const qelm::Variant by(5);

        const qelm::Variant result = boats.property("accelerate").genericInvoke({}, 1, &by);

        QCOMPARE(boats.second.speed(), 15);
        QCOMPARE(result.value<int>(), 15);
        QVERIFY_EXCEPTION_THROWN(boats.property("accelerate").genericInvoke({}, 0, nullptr), GenericFunctionError);
    }

    void aPropertyIsAsVisibleAndAsWritableAsInAllObjects()
    {
        TwoBoats boats;
        boats.second.isHidden = true;

        QVERIFY(boats.property("anchors").visibility() == meta_property::hidden);
        QVERIFY(boats.property("speed").visibility() == meta_property::fullyVisible);
        QVERIFY(boats.property("path").isReadOnly());
        QVERIFY(boats.property("wheels").isConst());
        QVERIFY(boats.property("speed").annotations().empty() == false);
    }

    void objectsOfAnotherTypeWaitUntilAllOfTheFirstHaveLeft()
    {
        TwoBoats boats;
        Engine engine;
        boats.selection.merge(reflect(engine), {});
        QCOMPARE(boats.selection.mergedCount(), std::size_t(2));
        QCOMPARE(reflect(boats.selection).propertyCount(), std::size_t(10));

        boats.selection.unmerge(reflect(boats.first));
        boats.selection.unmerge(reflect(boats.second));

        QCOMPARE(propertyNames(reflect(boats.selection)), QStringList{"power"});
        QCOMPARE(boats.selection.typeName(), std::string("Engine"));
    }

    void withoutTheBoundOfTypesWhatAllHaveIsShown()
    {
        Boat boat;
        Vehicle vehicle;
        MultiSelection selection(MultiSelection::Mode::Common, false);
        selection.merge(reflect(boat), {});
        selection.merge(reflect(vehicle), {});

        QCOMPARE(propertyNames(reflect(selection)), (QStringList{"name", "speed", "accelerate", "stop"}));
        selection.unmerge(reflect(vehicle));
        QCOMPARE(reflect(selection).propertyCount(), std::size_t(10));
    }

    void propertiesComeBackWithTheObjectThatLackedThem()
    {
        GenericObject first;
        GenericObject second;
        reflect(first).addProperty("a", 1);
        reflect(second).addProperty("a", 1);
        reflect(second).addProperty("b", 2);
        MultiSelection selection;
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});
        QCOMPARE(propertyNames(reflect(selection)), QStringList{"a"});

        selection.unmerge(reflect(first));

        QCOMPARE(propertyNames(reflect(selection)), (QStringList{"a", "b"}));
    }

    void aPropertyThatAllObjectsGetAppears()
    {
        GenericObject first;
        GenericObject second;
        MultiSelection selection;
        selection.merge(reflect(first), {});
        selection.merge(reflect(second), {});

        reflect(first).addProperty("a", 1);
        QCOMPARE(propertyNames(reflect(selection)), QStringList());
        reflect(second).addProperty("a", 1);

        QCOMPARE(propertyNames(reflect(selection)), QStringList{"a"});
    }

    void anObjectThatDiesLeavesByItself()
    {
        auto boat = std::make_unique<Boat>();
        Boat other;
        other.setSpeed(20);
        MultiSelection selection;
        selection.merge(reflect(other), {});
        selection.merge(reflect(*boat), {});
        PropertyStory story(reflect(selection).findPropertyByName("speed"));

        boat.reset();

        QCOMPARE(selection.mergedCount(), std::size_t(1));
        QCOMPARE(story.take(), (QStringList{"about 20", "changed 20"}));
    }

    void clearingLetsAllObjectsGo()
    {
        TwoBoats boats;

        boats.selection.clear();

        QVERIFY(boats.selection.empty());
        QCOMPARE(reflect(boats.selection).propertyCount(), std::size_t(0));
        QVERIFY(!boats.selection.unmerge(reflect(boats.first)));
    }

    void othersCannotAddOrRemoveProperties()
    {
        TwoBoats boats;

        QVERIFY(!reflect(boats.selection).addProperty("new", 1).isValid());
        QVERIFY(!reflect(boats.selection).removeProperty("speed"));
    }

    void theParentIsThatOfTheFirstObject()
    {
        Boat boat;
        MultiSelection selection;

        selection.merge(ReflectedObject(reflect(boat).findPropertyByName("engine")), reflect(boat).findPropertyByName("engine"));

        QVERIFY(selection.parent() == reflect(boat).findPropertyByName("engine"));
    }

    void aHandleByTheBaseIsOnTheSelection()
    {
        TwoBoats boats;
        ReflectedObject handle;
        const qelm::Variant value(static_cast<GenericObject*>(&boats.selection));
        const BoundProperty reference = boats.selection.parent();

        handle.init(value, MetaObject::objectDataOf(boats.selection, value, nullptr), &reference);

        QVERIFY(handle == reflect(boats.selection));
        QCOMPARE(handle.propertyCount(), std::size_t(10));
        QCOMPARE(handle.annotations().valueOr<Meta::MultiSelection::ObjectType>().name(handle), std::string("Boat"));
    }

    void aListenerMayEmptyTheSelectionThatItIsToldOf()
    {
        TwoBoats boats;
        const ryk::ScopedConnection listening(
            boats.property("speed").connectPropertyAboutToBeChanged([&] { boats.selection.clear(); }));

        reflect(boats.first).findPropertyByName("speed").set(77, {});

        QCOMPARE(boats.first.speed(), 77);
        QVERIFY(boats.selection.empty());
    }

    void aListenerMayEmptyTheSelectionAfterAChange()
    {
        TwoBoats boats;
        const ryk::ScopedConnection listening(
            boats.property("speed").connectPropertyChanged([&] { boats.selection.clear(); }));

        boats.property("speed").set(77, {});

        QCOMPARE(boats.second.speed(), 77);
        QVERIFY(boats.selection.empty());
    }

    void aPropertyThatOutlivesItsSelectionAnswersNothing()
    {
        Boat boat;
        auto selection = std::make_unique<MultiSelection>();
        selection->merge(reflect(boat), {});
        const BoundProperty speed = reflect(*selection).findPropertyByName("speed");

        selection.reset();
        reflect(boat).findPropertyByName("speed").set(55, {});

        QVERIFY(!speed.isValid());
        QVERIFY(speed.get().isVoid());
        QVERIFY(!speed.set(60, {}));
    }
};

QTEST_GUILESS_MAIN(tst_MultiSelection)
#include "tst_multi_selection.moc"
