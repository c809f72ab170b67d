#include <datamodels/scene/gap_vector.h>

#include <QtTest>

#include <memory>

namespace {

GapVector<int> made(const QList<int>& values)
{
    GapVector<int> vector;
    for (int value : values)
        vector.insert(vector.size(), value);
    return vector;
}

QList<int> values(const GapVector<int>& vector)
{
    QList<int> list;
    for (std::size_t i = 0; i < vector.size(); ++i)
        list << vector[i];
    return list;
}

} // namespace

class tst_GapVector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyOneHasNoElements()
    {
        const GapVector<int> vector;

        QVERIFY(vector.empty());
        QCOMPARE(vector.size(), std::size_t(0));
    }

    void elementsGoWhereTheyAreTold()
    {
        GapVector<int> vector = made({1, 2, 3});

        vector.insert(0, 9);
        vector.insert(2, 8);
        vector.insert(5, 7);

        QCOMPARE(values(vector), (QList<int>{9, 1, 8, 2, 3, 7}));
    }

    void aRangeLeaves()
    {
        GapVector<int> vector = made({1, 2, 3, 4, 5});

        vector.erase(1, 3);

        QCOMPARE(values(vector), (QList<int>{1, 5}));
    }

    void editsFarApartKeepTheOrder()
    {
        GapVector<int> vector = made({1, 2, 3, 4, 5, 6, 7, 8});

        vector.erase(7);
        vector.erase(0);
        vector.insert(6, 9);
        vector.erase(3, 2);
        vector.insert(0, 0);

        QCOMPARE(values(vector), (QList<int>{0, 2, 3, 4, 7, 9}));
    }

    void roomThatIsMadeKeepsTheOrder()
    {
        GapVector<int> vector = made({1, 2, 3, 4, 5});
        vector.erase(1, 1);

        vector.reserve(10);
        vector.insert(1, 9);

        QCOMPARE(values(vector), (QList<int>{1, 9, 3, 4, 5}));
    }

    void anErasedElementHasLeftWhenItIsDestroyed()
    {
        GapVector<std::shared_ptr<void>> vector;
        std::size_t sizeThen = 9;
        vector.insert(0, std::shared_ptr<void>(nullptr, [&](void*) { sizeThen = vector.size(); }));

        vector.erase(0);

        QCOMPARE(sizeThen, std::size_t(0));
    }
};

QTEST_APPLESS_MAIN(tst_GapVector)
#include "tst_gap_vector.moc"
