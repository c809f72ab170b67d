#include <datamodels/helpers/model_elements_counter.h>

#include <support/scripted_tree.h>
#include <support/signal_log.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

class tst_ModelElementsCounter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qmlRegisterType<ModelElementsCounter>("Counting", 1, 0, "Counter"); }

    void eachModeCountsOtherRows_data()
    {
        QTest::addColumn<ModelElementsCounter::Mode>("mode");
        QTest::addColumn<int>("value");
        QTest::newRow("first level") << ModelElementsCounter::RootChildren << 2;
        QTest::newRow("rows without rows") << ModelElementsCounter::Leafs << 3;
        QTest::newRow("every row") << ModelElementsCounter::All << 5;
    }

    void eachModeCountsOtherRows()
    {
        QFETCH(ModelElementsCounter::Mode, mode);
        QFETCH(int, value);
        ScriptedTree tree({"a", "  b", "    c", "  d", "e"});
        ModelElementsCounter counter;
        counter.setMode(mode);

        counter.setModel(&tree);

        QCOMPARE(counter.value(), value);
    }

    void anEmptyModelIsZeroWithoutAWord()
    {
        ScriptedTree tree;
        ModelElementsCounter counter;
        SignalLog log;
        log.addAll(counter);

        counter.setModel(&tree);
        counter.setMode(ModelElementsCounter::RootChildren);
        counter.setMode(ModelElementsCounter::Leafs);

        QCOMPARE(log.take(), (QStringList{"modelChanged()", "modeChanged()", "modeChanged()"}));
        QCOMPARE(counter.value(), 0);
    }

    void aModelIsToldBeforeItsValue()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        SignalLog log;
        log.addAll(counter);

        counter.setModel(&tree);

        QCOMPARE(log.take(), (QStringList{"modelChanged()", "valueChanged()"}));
    }

    void theSameModelOrModeIsNoChange()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setModel(&tree);
        SignalLog log;
        log.addAll(counter);

        counter.setModel(&tree);
        counter.setMode(ModelElementsCounter::All);

        QCOMPARE(log.take(), QStringList());
    }

    void insertedRowsAreAddedWithWhatIsBelowThem()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setModel(&tree);

        tree.insert({}, 0, {"b", "  c", "d"});

        QCOMPARE(counter.value(), 4);
    }

    void aRemovedRowTakesItsDescendantsAlong()
    {
        ScriptedTree tree({"a", "  b", "    c", "  d", "e"});
        ModelElementsCounter counter;
        counter.setModel(&tree);

        tree.remove({}, 0);

        QCOMPARE(counter.value(), 1);
    }

    void rowsBelowTheFirstLevelDoNotCountAsRootChildren()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setMode(ModelElementsCounter::RootChildren);
        counter.setModel(&tree);

        tree.insert(tree.find("a"), 0, {"b", "c"});
        QCOMPARE(counter.value(), 1);

        tree.remove(tree.find("a"), 0, 2);
        QCOMPARE(counter.value(), 1);
    }

    void aFormerLeafStaysCountedUntilTheNextReset()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setMode(ModelElementsCounter::Leafs);
        counter.setModel(&tree);

        tree.insert(tree.find("a"), 0, {"b", "c"});
        QCOMPARE(counter.value(), 3);

        tree.reset({"a", "  b", "  c"});
        QCOMPARE(counter.value(), 2);
    }

    void movesAndChangesOfDataAreNotCounted()
    {
        ScriptedTree tree({"a", "  b", "c"});
        ModelElementsCounter counter;
        counter.setModel(&tree);
        SignalLog log;
        log.addAll(counter);

        tree.move({}, 0, 1, {}, 2);
        tree.change(tree.find("a"), "x");
        tree.rearrange({}, {1, 0});

        QCOMPARE(log.take(), QStringList());
    }

    void aNullModelIsZero()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setModel(&tree);
        SignalLog log;
        log.addAll(counter);

        counter.setModel(nullptr);

        QCOMPARE(counter.value(), 0);
        QCOMPARE(log.take(), (QStringList{"modelChanged()", "valueChanged()"}));
    }

    void anEarlierModelIsHeardAndCountedInThePresentOne()
    {
        ScriptedTree before({"a"});
        ScriptedTree now({"b", "  c", "  d"});
        ModelElementsCounter counter;
        counter.setModel(&before);
        counter.setModel(&now);
        QCOMPARE(counter.value(), 3);

        before.insert({}, 0, {"x"});

        QCOMPARE(counter.value(), 6);
    }

    void aModelThatIsSetAgainIsCountedTwice()
    {
        ScriptedTree tree({"a"});
        ModelElementsCounter counter;
        counter.setModel(&tree);
        counter.setModel(nullptr);
        counter.setModel(&tree);

        tree.insert({}, 0, {"x"});
        QCOMPARE(counter.value(), 3);

        tree.reset({"a", "b"});
        QCOMPARE(counter.value(), 2);
    }

    void anEarlierModelIsIgnoredWithoutAPresentOne()
    {
        ScriptedTree before({"a"});
        ModelElementsCounter counter;
        counter.setModel(&before);
        counter.setModel(nullptr);

        before.insert({}, 0, {"x"});
        before.remove({}, 0);
        before.reset({"y"});

        QCOMPARE(counter.value(), 0);
    }

    void aModelThatDiesLeavesItsLastValueUntilTheModeIsSet()
    {
        auto tree = std::make_unique<ScriptedTree>(QStringList{"a"});
        ModelElementsCounter counter;
        counter.setModel(tree.get());

        tree.reset();
        QCOMPARE(counter.value(), 1);

        counter.setMode(ModelElementsCounter::Leafs);
        QCOMPARE(counter.value(), 0);
    }

    void nullInPlaceOfADeadModelIsZero()
    {
        auto tree = std::make_unique<ScriptedTree>(QStringList{"a"});
        ModelElementsCounter counter;
        counter.setModel(tree.get());
        tree.reset();
        SignalLog log;
        log.addAll(counter);

        counter.setModel(nullptr);
        counter.setModel(nullptr);

        QCOMPARE(counter.value(), 0);
        QCOMPARE(log.take(), (QStringList{"modelChanged()", "valueChanged()"}));
    }

    void untilTheElementIsCompleteNothingIsCounted()
    {
        ScriptedTree tree({"a", "  b"});
        ModelElementsCounter counter;
        SignalLog log;
        log.addAll(counter);
        counter.classBegin();

        counter.setModel(&tree);
        counter.setMode(ModelElementsCounter::RootChildren);
        QCOMPARE(log.take(), (QStringList{"modelChanged()", "modeChanged()"}));

        counter.componentComplete();
        QCOMPARE(log.take(), QStringList{"valueChanged()"});
        QCOMPARE(counter.value(), 1);
    }

    void qmlBindsToTheValue()
    {
        ScriptedTree tree({"a", "  b"});
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("tree", &tree);
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\nimport Counting 1.0\n"
                          "QtObject { property Counter counter: Counter { mode: Counter.Leafs; model: tree }\n"
                          "property string text: counter.value + ' rows' }", {});
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("text").toString(), QString("1 rows"));

        tree.insert({}, 0, {"c"});

        QCOMPARE(object->property("text").toString(), QString("2 rows"));
    }
};

QTEST_GUILESS_MAIN(tst_ModelElementsCounter)
#include "tst_model_elements_counter.moc"
