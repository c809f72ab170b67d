#include "../allocation_count.h"
#include "sample_objects.h"

#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

const ReflectAtLoad<Vehicle> vehicleClass;
const ReflectAtLoad<Boat> boatClass;
const ReflectAtLoad<Engine> engineClass;

} // namespace

/// What is done once a frame for each row of a panel takes no memory.
class tst_ReflectionAllocations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCountSeesARecordedSet()
    {
        Ozy::ChangesController document;
        Boat boat;
        const BoundProperty speed = reflect(boat).findPropertyByName("speed");
        const Ozy::CommitChangesScope scope("Speed up", &document);
        const AllocationCount count;

        speed.set(20, {});

        QVERIFY(count.taken() > 0);
    }

    void readingASmallValueAllocatesNothing()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);
        const BoundProperty speed = handle.findPropertyByName("speed");
        const AllocationCount count;

        const int cached = *speed.get().as<int>();
        const int byName = *handle.findPropertyByName("speed").get().as<int>();

        QCOMPARE(count.taken(), 0);
        QCOMPARE(cached + byName, 20);
    }

    void settingASmallValueWithListenersAllocatesNothing()
    {
        Boat boat;
        const ReflectedObject handle = reflect(boat);
        const BoundProperty speed = handle.findPropertyByName("speed");
        int heard = 0;
        const ryk::ScopedConnection about(speed.connectPropertyAboutToBeChanged([&heard] { ++heard; }));
        const ryk::ScopedConnection changed(speed.connectPropertyChanged([&heard] { ++heard; }));
        const AllocationCount count;

        speed.set(20, {});
        handle.findPropertyByName("speed").set(30, {});

        QCOMPARE(count.taken(), 0);
        QCOMPARE(heard, 4);
        QCOMPARE(boat.speed(), 30);
    }

    void convertingASmallValueAllocatesNothing()
    {
        Boat boat;
        const BoundProperty draught = reflect(boat).findPropertyByName("draught");
        const AllocationCount count;

        draught.set(2, {});

        QCOMPARE(count.taken(), 0);
        QCOMPARE(boat.draught, 2.0);
    }

    void copyingHandlesAllocatesNothing()
    {
        Boat boat;
        const ReflectedObject engine(reflect(boat).findPropertyByName("engine"));
        const BoundProperty power = engine.findPropertyByName("power");
        const AllocationCount count;

        const ReflectedObject sameEngine = engine;
        const BoundProperty samePower = power;

        QCOMPARE(count.taken(), 0);
        QVERIFY(sameEngine == engine);
        QVERIFY(samePower == power);
    }
};

QTEST_GUILESS_MAIN(tst_ReflectionAllocations)
#include "tst_reflection_allocations.moc"
