#include <datamodels/history_model.h>
#include <datamodels/method_proxy.h>
#include <host/reflection/static_meta_object.h>
#include <host/undo/undo_redo.h>

#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QtTest>

namespace {

class Steps : public Ozy::UndoRedo
{
public:
    std::size_t historySize() const override { return names.size(); }
    Ozy::BasicStringRef<char> barrierName(std::size_t step) const override { return names.at(step); }

    std::vector<std::string> names;
};

struct Bell : zarn::Object
{
    void ring() { ++rung; }
    int rung = 0;
};

} // namespace

template <>
struct zarn::Reflection<Bell>
{
    static constexpr const char* name = "Bell";
    static void declare(StaticMetaObject<Bell>::Builder& bell)
    {
        bell.method("ring", &Bell::ring);
        bell.method("ringTimes", [](Bell& self, int times) { self.rung += times; });
        bell.method("crack", [](Bell&) { throw std::runtime_error("cracked"); });
    }
};

namespace {

const zarn::ReflectAtLoad<Bell> bellClass;

} // namespace

class tst_History : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyHistoryHasNoRows()
    {
        Steps steps;
        const HistoryModel model(&steps);

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(HistoryModel(nullptr).rowCount(), 0);
    }

    void stepsAreRowsWithTheirNames()
    {
        Steps steps;
        steps.names = {"Move", "Größe ändern"};
        const HistoryModel model(&steps);

        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.rowCount(model.index(0, 0)), 0);
        QCOMPARE(model.index(0, 0).data().toString(), QString("Move"));
        QCOMPARE(model.index(1, 0).data().toString(), QString::fromUtf8("Größe ändern"));
    }

    void otherRolesAndNoIndexHaveNoData()
    {
        Steps steps;
        steps.names = {"Move"};
        const HistoryModel model(&steps);

        QCOMPARE(model.data(model.index(0, 0), Qt::EditRole), QVariant());
        QCOMPARE(model.data(QModelIndex(), Qt::DisplayRole), QVariant());
    }

    // Intended: the model says nothing, and counts anew when it is asked.
    void aLongerHistoryIsSeenWhenAskedAgainWithoutANotification()
    {
        Steps steps;
        const HistoryModel model(&steps);
        SignalLog log(model);

        steps.names = {"Move"};

        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(log.take(), QStringList());
    }

    void aStillHistoryFollowsQtsContract()
    {
        Steps steps;
        steps.names = {"Move", "Turn"};
        HistoryModel model(&steps);

        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void theModelHasNoMetaObjectOfItsOwn()
    {
        Steps steps;

        QCOMPARE(HistoryModel(&steps).metaObject(), &QAbstractListModel::staticMetaObject);
    }

    void qmlInvokesAReflectedMethod()
    {
        Bell bell;
        MethodProxy proxy(zarn::reflect(bell).findPropertyByName("ring"), nullptr);
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("ring", &proxy);

        QQmlExpression(engine.rootContext(), nullptr, "ring.invoke()").evaluate();

        QCOMPARE(bell.rung, 1);
    }

    void aMethodThatWantsArgumentsThrows()
    {
        Bell bell;
        MethodProxy proxy(zarn::reflect(bell).findPropertyByName("ringTimes"), nullptr);

        QVERIFY_EXCEPTION_THROWN(proxy.invoke(), zarn::GenericFunctionError);

        QCOMPARE(bell.rung, 0);
    }

    void whatTheMethodThrowsPassesThrough()
    {
        Bell bell;
        MethodProxy proxy(zarn::reflect(bell).findPropertyByName("crack"), nullptr);

        QVERIFY_EXCEPTION_THROWN(proxy.invoke(), std::runtime_error);
    }

    void onADeadObjectNothingHappens()
    {
        auto bell = std::make_unique<Bell>();
        MethodProxy proxy(zarn::reflect(*bell).findPropertyByName("ring"), nullptr);
        bell.reset();

        proxy.invoke();
    }
};

QTEST_GUILESS_MAIN(tst_History)
#include "tst_history.moc"
