#include <host/registry/instances.h>

#include <QtTest>

namespace {

class IClock
{
public:
    virtual ~IClock() = default;
};
class ILamp
{
public:
    virtual ~ILamp() = default;
};
/// One object behind two interfaces, whose pointers differ.
class ClockWithLamp : public IClock, public ILamp
{
};

} // namespace

class tst_Instances : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        instances::set<IClock>(nullptr);
        instances::set<ILamp>(nullptr);
    }

    void anInterfaceThatNobodySetIsNull()
    {
        QVERIFY(!instances::get(typeid(IClock).name()));
        QVERIFY(!instances::get("no such key"));
    }

    void theInstanceIsFoundByTheDecoratedNameOfItsInterface()
    {
        ClockWithLamp object;

        instances::set<ILamp>(&object);

        QCOMPARE(instances::get(typeid(ILamp).name()), static_cast<void*>(static_cast<ILamp*>(&object)));
        QVERIFY(!instances::get(typeid(IClock).name()));
    }

    void theKeyIsComparedByItsText()
    {
        ClockWithLamp object;
        const std::string key = typeid(IClock).name();

        instances::set(key.c_str(), &object);

        QCOMPARE(instances::get(std::string(key).c_str()), static_cast<void*>(&object));
    }

    void aLaterInstanceTakesThePlaceOfTheOneBefore()
    {
        ClockWithLamp first;
        ClockWithLamp second;
        instances::set<IClock>(&first);

        instances::set<IClock>(&second);

        QCOMPARE(instances::get(typeid(IClock).name()), static_cast<void*>(static_cast<IClock*>(&second)));
    }

    void nullTakesTheInstanceOut()
    {
        ClockWithLamp object;
        instances::set<IClock>(&object);

        instances::set<IClock>(nullptr);

        QVERIFY(!instances::get(typeid(IClock).name()));
    }
};

QTEST_GUILESS_MAIN(tst_Instances)
#include "tst_instances.moc"
