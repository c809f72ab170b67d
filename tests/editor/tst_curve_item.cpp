#include <controls/curve_item.h>

#include <QtTest>

using editor::CurveItem;

class tst_CurveItem : public QObject
{
    Q_OBJECT

    static bool containsInParent(const CurveItem& curve, const QPointF& place)
    {
        return curve.contains(place - curve.position());
    }

private Q_SLOTS:
    void itTakesThePlaceThatTheCurveNeeds()
    {
        CurveItem curve;

        curve.setFrom({100, 50});
        curve.setTo({300, 150});

        QCOMPARE(QRectF(curve.position(), curve.size()), QRectF(94, 44, 212, 112));
    }

    void itContainsTheCurveAndWhatIsNear()
    {
        CurveItem curve;
        curve.setFrom({100, 50});
        curve.setTo({300, 150});

        QVERIFY(containsInParent(curve, {100, 50}));
        QVERIFY(containsInParent(curve, {200, 100}));
        QVERIFY(containsInParent(curve, {200, 104}));
        QVERIFY(containsInParent(curve, {299, 150}));
    }

    void itDoesNotContainTheRestOfItsArea()
    {
        CurveItem curve;
        curve.setFrom({100, 50});
        curve.setTo({300, 150});

        QVERIFY(!containsInParent(curve, {290, 60}));
        QVERIFY(!containsInParent(curve, {110, 140}));
        QVERIFY(!containsInParent(curve, {200, 120}));
    }

    void aCurveThatTurnsBackBulgesAtBothEnds()
    {
        CurveItem curve;

        curve.setFrom({300, 50});
        curve.setTo({100, 150});

        QVERIFY(curve.x() < 90);
        QVERIFY(curve.x() + curve.width() > 310);
    }

    void changesAreToldOnce()
    {
        CurveItem curve;
        QSignalSpy told(&curve, &CurveItem::changed);

        curve.setTo({300, 150});
        curve.setTo({300, 150});

        QCOMPARE(told.size(), 1);
    }
};

QTEST_MAIN(tst_CurveItem)
#include "tst_curve_item.moc"
