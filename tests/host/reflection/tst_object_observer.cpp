#include <host/reflection/cast.h>
#include <host/reflection/generic_object.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/object_observer.h>

#include <QtTest>

#include <functional>
#include <optional>

using namespace zarn;

namespace {

/// Writes down under its name what it is told, and then does what the test wants.
class Witness final : public ObjectObserver
{
public:
    Witness(QString name, QStringList& lines, const ReflectedObject& object) : m_name(std::move(name)), m_lines(lines)
    {
        observe(object);
    }

    void objectDeleted() override { note("deleted"); }
    void propertyAboutToBeChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) override
    {
        note("about to change " + shown(property));
    }
    void propertyChanged(const BoundProperty& property, ryk::Flags<SetterFlag>, ryk::Flags<NotifyFlag>) override
    {
        note("changed " + shown(property));
    }
    void propertyAdded(std::size_t first, std::size_t count) override { note(range("added", first, count)); }
    void propertyAboutToBeRemoved(std::size_t first, std::size_t count) override { note(range("removing", first, count)); }
    void propertyRemoved(std::size_t first, std::size_t count) override { note(range("removed", first, count)); }
    void propertiesAboutToBeReset() override { note("resetting"); }
    void propertiesReset() override { note("reset"); }

    std::function<void()> then = [] {};

private:
    static QString shown(const BoundProperty& property)
    {
        return QString::fromStdString(property.name()) + "=" + qelm::toQVariant(property.get()).toString();
    }
    static QString range(const char* what, std::size_t first, std::size_t count)
    {
        return QString("%1 %2+%3").arg(what).arg(first).arg(count);
    }
    void note(const QString& what)
    {
        m_lines << m_name + ": " + what;
        const std::function<void()> kept = then; // it may destroy this
        kept();
    }

    const QString m_name;
    QStringList& m_lines;
};

/// An object with two properties and nobody who listens yet.
struct Lantern
{
    Lantern()
    {
        handle.addProperty("light", 1);
        handle.addProperty("oil", 2);
    }
    void setLight(int value) { handle.findPropertyByName("light").set(value, {}); }

    GenericObject object;
    ReflectedObject handle = reflect(object);
    QStringList lines;
};

} // namespace

class tst_ObjectObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anObserverHearsOfTheStructureInOrder()
    {
        Lantern lantern;
        const Witness witness("a", lantern.lines, lantern.handle);

        lantern.handle.addProperty("wick", 3);
        lantern.handle.removeProperty("light");
        lantern.object.clear();

        QCOMPARE(lantern.lines,
                 (QStringList{"a: added 2+1", "a: removing 0+1", "a: removed 0+1", "a: resetting", "a: reset"}));
    }

    void anObserverHearsOfEachPropertyThoughNobodyIsConnected()
    {
        Lantern lantern;
        const Witness witness("a", lantern.lines, lantern.handle);

        lantern.setLight(5);
        lantern.handle.findPropertyByName("oil").set(7, {});

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: changed light=5", "a: about to change oil=2",
                                             "a: changed oil=7"}));
    }

    void theFlagsOfAChangeArePassedOn()
    {
        class Flags final : public ObjectObserver
        {
        public:
            void propertyChanged(const BoundProperty&, ryk::Flags<SetterFlag> setterFlags,
                                 ryk::Flags<NotifyFlag> notifyFlags) override
            {
                isUnseen = setterFlags.test(SetterFlag::Unseen);
                isValue = notifyFlags.test(NotifyFlag::Value);
            }
            bool isUnseen = false;
            bool isValue = false;
        };
        Lantern lantern;
        Flags flags;
        flags.observe(lantern.handle);

        lantern.handle.findPropertyByName("light").set(5, SetterFlag::Unseen);

        QVERIFY(flags.isUnseen);
        QVERIFY(flags.isValue);
    }

    void observersAreToldAheadOfTheSlots()
    {
        Lantern lantern;
        const ryk::ScopedConnection slots[] = {
            lantern.handle.findPropertyByName("light").connectPropertyChanged([&] { lantern.lines << "slot: changed"; }),
            lantern.handle.connectPropertyAdded([&] { lantern.lines << "slot: added"; }),
        };
        const Witness witness("a", lantern.lines, lantern.handle);

        lantern.setLight(5);
        lantern.handle.addProperty("wick", 3);

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: changed light=5", "slot: changed",
                                             "a: added 2+1", "slot: added"}));
    }

    void changesWithinAChangeAreOnePair()
    {
        Lantern lantern;
        const Witness witness("a", lantern.lines, lantern.handle);

        {
            const PropertyChangeNotifier outer(lantern.handle, {"light"}, {});
            lantern.setLight(5);
            lantern.setLight(6);
        }

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: changed light=6"}));
    }

    void observersAreToldInTheOrderInWhichTheyBegan()
    {
        Lantern lantern;
        Witness first("a", lantern.lines, lantern.handle);
        const Witness second("b", lantern.lines, lantern.handle);

        lantern.handle.addProperty("wick", 3);
        first.observe(lantern.handle);
        lantern.handle.addProperty("glass", 4);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1", "b: added 2+1", "b: added 3+1", "a: added 3+1"}));
    }

    void whoeverStopsMeanwhileIsNotToldAnyMore()
    {
        Lantern lantern;
        Witness first("a", lantern.lines, lantern.handle);
        Witness second("b", lantern.lines, lantern.handle);
        Witness third("c", lantern.lines, lantern.handle);
        first.then = [&] {
            second.stopObserving();
            third.stopObserving();
        };

        lantern.handle.addProperty("wick", 3);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1"}));
    }

    void theLastMayStopWhileOthersAreStillToBeTold()
    {
        Lantern lantern;
        Witness first("a", lantern.lines, lantern.handle);
        const Witness second("b", lantern.lines, lantern.handle);
        Witness third("c", lantern.lines, lantern.handle);
        first.then = [&] { third.stopObserving(); };

        lantern.handle.addProperty("wick", 3);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1", "b: added 2+1"}));
    }

    void whoeverBeginsMeanwhileIsToldTheNextTime()
    {
        Lantern lantern;
        Witness first("a", lantern.lines, lantern.handle);
        std::optional<Witness> second;
        first.then = [&] {
            if (!second)
                second.emplace("b", lantern.lines, lantern.handle);
        };

        lantern.handle.addProperty("wick", 3);
        lantern.handle.addProperty("glass", 4);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1", "a: added 3+1", "b: added 3+1"}));
    }

    void anObserverMayBeDestroyedByWhatItIsTold()
    {
        Lantern lantern;
        std::optional<Witness> first(std::in_place, "a", lantern.lines, lantern.handle);
        const Witness second("b", lantern.lines, lantern.handle);
        first->then = [&] { first.reset(); };

        lantern.handle.addProperty("wick", 3);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1", "b: added 2+1"}));
    }

    void aChangeInsideOfATellingReachesAllAndThenTheTellingGoesOn()
    {
        Lantern lantern;
        Witness first("a", lantern.lines, lantern.handle);
        Witness second("b", lantern.lines, lantern.handle);
        const Witness third("c", lantern.lines, lantern.handle);
        first.then = [&] {
            first.then = [] {};
            lantern.handle.addProperty("glass", 4);
            second.stopObserving();
        };

        lantern.handle.addProperty("wick", 3);

        QCOMPARE(lantern.lines, (QStringList{"a: added 2+1", "a: added 3+1", "b: added 3+1", "c: added 3+1", "c: added 2+1"}));
    }

    void anObserverOfAnotherObjectHasLeftTheFirst()
    {
        Lantern lantern;
        Lantern other;
        Witness witness("a", lantern.lines, lantern.handle);

        witness.observe(other.handle);
        lantern.setLight(5);
        other.setLight(6);

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: changed light=6"}));
    }

    void anObserverHearsOfTheDeathOfItsObjectAndOutlivesIt()
    {
        QStringList lines;
        auto object = std::make_unique<GenericObject>();
        Witness witness("a", lines, reflect(*object));

        object.reset();
        witness.stopObserving();

        QCOMPARE(lines, (QStringList{"a: deleted"}));
    }

    void anInvalidObjectIsNotFollowed()
    {
        Lantern lantern;
        Witness witness("a", lantern.lines, lantern.handle);

        witness.observe(ReflectedObject());
        lantern.setLight(5);

        QCOMPARE(lantern.lines, QStringList());
    }

    void aPropertyThatIsRemovedByAnObserverOfItsChangeEndsItsChange()
    {
        Lantern lantern;
        Witness witness("a", lantern.lines, lantern.handle);
        witness.then = [&] {
            witness.then = [] {};
            lantern.handle.removeProperty("light");
        };

        lantern.setLight(5);

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: removing 0+1", "a: removed 0+1",
                                             "a: changed light=1"}));
    }

    void aPropertyMayBeRemovedAtTheEndOfItsChange()
    {
        Lantern lantern;
        Witness witness("a", lantern.lines, lantern.handle);
        const ryk::ScopedConnection slot =
            lantern.handle.findPropertyByName("light").connectPropertyChanged([&] { lantern.lines << "slot: changed"; });
        witness.then = [&] {
            witness.then = [&] {
                witness.then = [] {};
                lantern.handle.removeProperty("light");
            };
        };

        lantern.setLight(5);

        QCOMPARE(lantern.lines, (QStringList{"a: about to change light=1", "a: changed light=5", "a: removing 0+1",
                                             "a: removed 0+1", "slot: changed"}));
    }
};

QTEST_GUILESS_MAIN(tst_ObjectObserver)
#include "tst_object_observer.moc"
