#include <host/base/flags.h>
#include <host/base/pointers.h>

#include <QtTest>

#include <type_traits>

namespace {

enum class Channel
{
    None = 0,
    Red = 1,
    Green = 2,
    Blue = 4,
    Colours = 7
};
using Channels = ryk::Flags<Channel>;

static_assert(sizeof(Channels) == 4);
static_assert(std::is_convertible_v<Channel, Channels>);
static_assert(!std::is_convertible_v<std::uint32_t, Channels>);
static_assert((Channels(Channel::Red) | Channel::Blue).value() == 5);

struct Counted : Ozy::SafeReferenceCount
{
    explicit Counted(int& deaths) : deaths(deaths) {}
    ~Counted() override { ++deaths; }
    int& deaths;
};
using Pointer = Ozy::SmartPointer<Counted>;

static_assert(sizeof(Pointer) == sizeof(void*));
static_assert(std::is_nothrow_move_constructible_v<Pointer> && std::is_nothrow_copy_constructible_v<Pointer>);

} // namespace

class tst_Flags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flagsAreEmptyAtFirst() { QCOMPARE(Channels().value(), 0u); }

    void bitsAreJoinedCutAndTurned()
    {
        Channels channels = Channel::Red;
        channels |= Channel::Green;
        QCOMPARE(channels.value(), 3u);

        channels &= ~Channels(Channel::Red);
        QCOMPARE(channels.value(), 2u);
        QVERIFY(channels == Channels(Channel::Green));
        QCOMPARE((~Channels()).value(), 0xffffffffu);
    }

    void aTestAsksForAllBitsOfAFlag()
    {
        const Channels channels(5u);

        QVERIFY(channels.test(Channel::Red));
        QVERIFY(!channels.test(Channel::Green));
        QVERIFY(!channels.test(Channel::Colours));
        QVERIFY(Channels(7u).test(Channel::Colours));
    }

    void theFlagWithoutBitsStandsForNone()
    {
        QVERIFY(Channels().test(Channel::None));
        QVERIFY(!Channels(Channel::Red).test(Channel::None));
    }

    void aCountedObjectDiesWithItsLastOwner()
    {
        int deaths = 0;
        Pointer first(new Counted(deaths));
        Pointer second = first;

        first = Pointer();
        QCOMPARE(deaths, 0);
        second = Pointer();

        QCOMPARE(deaths, 1);
    }

    void aMovedPointerPassesItsOwnershipOn()
    {
        int deaths = 0;
        Pointer first(new Counted(deaths));

        const Pointer second = std::move(first);

        QVERIFY(!first);
        QVERIFY(second);
        QCOMPARE(deaths, 0);
    }

    void anOwnershipIsGivenUpAndTakenOver()
    {
        int deaths = 0;
        Pointer first(new Counted(deaths));
        Counted* plain = first.detach();

        Pointer second = Pointer::adopt(plain);
        second = second;
        QCOMPARE(deaths, 0);
        second = Pointer();

        QCOMPARE(deaths, 1);
    }
};

QTEST_GUILESS_MAIN(tst_Flags)
#include "tst_flags.moc"
