#include "sample_objects.h"

#include <host/reflection/generic_object.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <QtTest>

using namespace sample;
using namespace zarn;

namespace {

QStringList shown(const ReflectedObject& object)
{
    QStringList lines;
    for (std::size_t index = 0; index < object.propertyCount(); ++index) {
        const BoundProperty property = object.propertyAt(index);
        lines << QString::fromStdString(property.name()) + "=" + qelm::toQVariant(property.get()).toString();
    }
    return lines;
}

/// An object with three properties.
struct Filled
{
    Filled()
    {
        handle.addProperty("one", 1);
        handle.addProperty("two", 2);
        handle.addProperty("text", "three");
    }
    GenericObject object;
    ReflectedObject handle = reflect(object);
};

} // namespace

class tst_GenericObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void propertiesStandInTheOrderInWhichTheyWereAdded()
    {
        const Filled filled;

        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three"}));
    }

    void keysMayBeOfAnyTypeAndAreFoundByNameToo()
    {
        GenericObject object;
        const ReflectedObject handle = reflect(object);

        const BoundProperty added = handle.addProperty(std::size_t(7), true);

        QCOMPARE(added.key().value<std::size_t>(), std::size_t(7));
        QVERIFY(handle.findPropertyByName("7") == added);
        QVERIFY(handle.removeProperty(std::size_t(7)));
    }

    void aKeyThatIsTakenAndVoidKeysAndValuesAreRefused()
    {
        const Filled filled;

        QVERIFY(!filled.handle.addProperty("one", 5).isValid());
        QVERIFY(!filled.handle.addProperty({}, 5).isValid());
        QVERIFY(!filled.handle.addProperty("four", {}).isValid());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three"}));
    }

    void aPropertyKeepsItsType()
    {
        const Filled filled;
        const BoundProperty one = filled.handle.findPropertyByName("one");

        QVERIFY(one.set("12", {}));
        QCOMPARE(one.get().value<int>(), 12);
        QVERIFY(!one.set("twelve", {}));
        QVERIFY(!one.set({}, {}));
        QCOMPARE(one.get().value<int>(), 12);
    }

    void twoObjectsHaveNothingInCommon()
    {
        const Filled filled;
        GenericObject other;

        QCOMPARE(reflect(other).propertyCount(), std::size_t(0));
        QVERIFY(!reflect(other).findPropertyByName("one").isValid());
    }

    void aHandleByTheBaseIsTheSame()
    {
        GenericObject object;
        ReflectedObject handle;
        const qelm::Variant value(&object);

        handle.init(value, MetaObject::objectDataOf(object, value, nullptr), nullptr);

        QVERIFY(handle == reflect(object));
        QCOMPARE(handle.metaObject()->name(), std::string("zarn::GenericObject"));
    }

    void addingRemovingAndClearingAreToldInOrder()
    {
        const Filled filled;
        QStringList heard;
        const auto range = [&heard](const char* what) {
            return [&heard, what](const ReflectedObject& told, std::size_t first, std::size_t count) {
                heard << QString("%1 %2+%3 of %4").arg(what).arg(first).arg(count).arg(told.propertyCount());
            };
        };
        const auto reset = [&heard](const char* what) {
            return [&heard, what](const ReflectedObject& told) {
                heard << QString("%1 of %2").arg(what).arg(told.propertyCount());
            };
        };
        const ryk::ScopedConnection connections[] = {
            filled.handle.connectPropertyAboutToBeAdded(range("adding")),
            filled.handle.connectPropertyAdded(range("added")),
            filled.handle.connectPropertyAboutToBeRemoved(range("removing")),
            filled.handle.connectPropertyRemoved(range("removed")),
            filled.handle.connectPropertiesAboutToBeReset(reset("resetting")),
            filled.handle.connectPropertiesReset(reset("reset")),
        };

        filled.handle.addProperty("four", 4);
        filled.handle.removePropertyAt(1);
        zarn::cast<GenericObject>(filled.handle)->clear();

        QCOMPARE(heard, (QStringList{"adding 3+1 of 3", "added 3+1 of 4", "removing 1+1 of 4", "removed 1+1 of 3",
                                     "resetting of 3", "reset of 0"}));
    }

    void undoTakesAnAddedPropertyAwayAndRedoBringsItBack()
    {
        const Filled filled;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("add", &document);
            filled.handle.addProperty("four", 4);
            filled.handle.findPropertyByName("four").set(5, {});
        }

        QVERIFY(document.undo());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three"}));
        QVERIFY(document.redo());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three", "four=5"}));
    }

    void undoBringsARemovedPropertyBackInItsPlace()
    {
        const Filled filled;
        const BoundProperty two = filled.handle.propertyAt(1);
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("remove", &document);
            QVERIFY(filled.handle.removeProperty("two"));
        }

        QVERIFY(document.undo());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three"}));
        QVERIFY(filled.handle.propertyAt(1) == two);
        QVERIFY(document.redo());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "text=three"}));
    }

    void undoBringsAllBackThatWasCleared()
    {
        Filled filled;
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("clear", &document);
            filled.object.clear();
        }

        QVERIFY(document.undo());
        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "two=2", "text=three"}));
        QVERIFY(document.redo());
        QCOMPARE(shown(filled.handle), QStringList());
    }

    void theHistoryLeavesOutWhatIsVolatile_data()
    {
        QTest::addColumn<int>("volatility");
        QTest::addColumn<QStringList>("afterUndo");

        QTest::newRow("nothing") << 0 << QStringList{"one=1", "two=2", "text=three"};
        QTest::newRow("structure") << 1 << QStringList{"one=1", "text=three"};
        QTest::newRow("structure and values") << 2 << QStringList{"one=9", "text=three"};
    }

    void theHistoryLeavesOutWhatIsVolatile()
    {
        QFETCH(int, volatility);
        QFETCH(QStringList, afterUndo);
        Filled filled;
        filled.object.setVolatility(GenericObject::VolatilityType(volatility));
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("both", &document);
            filled.handle.findPropertyByName("one").set(9, {});
            filled.handle.removeProperty("two");
        }

        document.undo();

        QCOMPARE(shown(filled.handle), afterUndo);
    }

    void aListenerMayRemoveThePropertyThatItIsToldOf()
    {
        const Filled filled;
        const BoundProperty two = filled.handle.findPropertyByName("two");
        const ryk::ScopedConnection about(
            two.connectPropertyAboutToBeChanged([&] { filled.handle.removeProperty("two"); }));

        QVERIFY(!two.set(7, {}));

        QCOMPARE(shown(filled.handle), (QStringList{"one=1", "text=three"}));
        QCOMPARE(two.get().value<int>(), 2);
    }

    void aListenerMayRemoveAPropertyAheadOfTheRemovalThatItIsToldOf()
    {
        const Filled filled;
        ryk::ScopedConnection removing;
        removing = filled.handle.connectPropertyAboutToBeRemoved([&](ryk::Connection self, const ReflectedObject& told) {
            self.disconnect();
            told.removePropertyAt(0);
        });

        QVERIFY(!filled.handle.removePropertyAt(1));

        QCOMPARE(shown(filled.handle), (QStringList{"two=2", "text=three"}));
    }

    void anObjectMayDieInItsOwnNotification_data()
    {
        QTest::addColumn<int>("edit");

        QTest::newRow("insertion") << 0;
        QTest::newRow("removal") << 1;
        QTest::newRow("reset") << 2;
        QTest::newRow("change") << 3;
    }

    void anObjectMayDieInItsOwnNotification()
    {
        QFETCH(int, edit);
        auto object = std::make_unique<GenericObject>();
        const ReflectedObject handle = reflect(*object);
        const BoundProperty one = handle.addProperty("one", 1);
        const auto die = [&object] { object.reset(); };
        const ryk::ScopedConnection connections[] = {
            handle.connectPropertyAboutToBeAdded(die), handle.connectPropertyAboutToBeRemoved(die),
            handle.connectPropertiesAboutToBeReset(die), one.connectPropertyAboutToBeChanged(die)};
        const std::function<bool()> edits[] = {
            [&] { return handle.addProperty("two", 2).isValid(); }, [&] { return handle.removePropertyAt(0); },
            [&] { return object->clear(), false; }, [&] { return one.set(2, {}); }};

        QVERIFY(!edits[edit]());

        QVERIFY(!handle.isValid());
        QCOMPARE(object, nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_GenericObject)
#include "tst_generic_object.moc"
