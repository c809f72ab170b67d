#include <datamodels/helpers/qt_miltiselection_composer.h>

#include "../sample_assets.h"

#include <host/registry/static_registrar.h>

#include <support/signal_log.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QStringListModel>
#include <QtTest>

using namespace sample;
using zarn::reflect;
using zarn::ReflectedObject;

class tst_QtMiltiselectionComposer : public QObject
{
    Q_OBJECT

    Vehicle car;
    Vehicle bus;
    Boat boat;
    AssetTree* tree = nullptr;
    QItemSelectionModel* selection = nullptr;

    void select(int first, int last, QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::Select)
    {
        selection->select(QItemSelection(tree->index(first, 0), tree->index(last, 0)), flags);
    }

private Q_SLOTS:
    void initTestCase() { StaticRegistrar::RegistrarInternals::runDeferred(); }
    void init()
    {
        tree = new AssetTree;
        tree->add(reflect(car), "car");
        tree->add(reflect(bus), "bus");
        tree->add(reflect(boat), "boat");
        selection = new QItemSelectionModel(tree, tree);
    }
    void cleanup() { delete tree; }

    void whatIsSelectedIsOneObject()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        QVERIFY(!composer.object().value<ReflectedObject>().isValid());

        select(0, 1);

        const auto both = composer.object().value<ReflectedObject>();
        QVERIFY(both.isValid());
        QVERIFY(both.findPropertyByName("speed").set(77, {}));
        QCOMPARE(car.speed(), 77);
        QCOMPARE(bus.speed(), 77);
    }

    void nothingSelectedIsAnInvalidObject()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(0, 1);

        selection->clear();

        QCOMPARE(composer.object().userType(), qMetaTypeId<ReflectedObject>());
        QVERIFY(!composer.object().value<ReflectedObject>().isValid());
    }

    void aChangeIsToldOnceWhileProcessing()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(0, 0);
        SignalLog log;
        log.addAll(composer);

        select(1, 1, QItemSelectionModel::ClearAndSelect);

        QCOMPARE(log.take(), (QStringList{"processingChanged()", "objectChanged()", "processingChanged()"}));
        QVERIFY(!composer.isProcessing());
    }

    void deselectedObjectsLeaveBeforeOthersJoin()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(2, 2);

        select(0, 0, QItemSelectionModel::ClearAndSelect);

        const auto object = composer.object().value<ReflectedObject>();
        QVERIFY(object.findPropertyByName("speed").isValid());
        QVERIFY(!object.findPropertyByName("draught").isValid());
    }

    void theObjectStaysTheSameWhileTheSelectionChanges()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(0, 0);
        const auto before = composer.object().value<ReflectedObject>();

        select(1, 1);

        QVERIFY(composer.object().value<ReflectedObject>() == before);
    }

    void itsEditsAreNotRecordedForItselfButForItsObjects()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(0, 1);

        QVERIFY(composer.object().value<ReflectedObject>().isStateless());
    }

    void whatWasSelectedBeforeIsNotTakenOver()
    {
        select(0, 1);
        QtMiltiselectionComposer composer;

        composer.setSelectionModel(selection);
        QVERIFY(!composer.object().value<ReflectedObject>().isValid());

        select(2, 2);
        QVERIFY(composer.object().value<ReflectedObject>().findPropertyByName("draught").isValid());
    }

    void settingTheSelectionModelBeginsAnewAlsoWithTheSame()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(0, 1);
        SignalLog log;
        log.addAll(composer);

        composer.setSelectionModel(selection);

        QCOMPARE(log.take(), (QStringList{"processingChanged()", "processingChanged()", "selectionModelChanged()",
                                          "objectChanged()"}));
        QVERIFY(!composer.object().value<ReflectedObject>().isValid());
    }

    void aNullSelectionModelLeavesItProcessing()
    {
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);

        composer.setSelectionModel(nullptr);

        QVERIFY(composer.isProcessing());
        select(0, 0);
        QVERIFY(!composer.object().value<ReflectedObject>().isValid());
    }

    void processingIsWritableAndTellsChangesOnly()
    {
        QtMiltiselectionComposer composer;
        SignalLog log;
        log.addAll(composer);

        composer.setProperty("processing", true);
        composer.setProperty("processing", true);

        QCOMPARE(log.take(), QStringList{"processingChanged()"});
        QVERIFY(composer.isProcessing());
    }

    void rowsWithoutObjectsTakeNoPart()
    {
        QStringListModel texts({"a", "b"});
        QItemSelectionModel plain(&texts);
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(&plain);

        plain.select(QItemSelection(texts.index(0), texts.index(1)), QItemSelectionModel::Select);

        QVERIFY(!composer.object().value<ReflectedObject>().isValid());
    }

    void anObjectThatDiesLeavesTheSelection()
    {
        auto dying = std::make_unique<Vehicle>();
        tree->add(reflect(*dying), "taxi");
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(selection);
        select(3, 3);

        dying.reset();

        QVERIFY(!composer.object().value<ReflectedObject>().isValid());
    }

    void aSelectionModelThatDiesIsForgotten()
    {
        auto dying = std::make_unique<QItemSelectionModel>(tree);
        QtMiltiselectionComposer composer;
        composer.setSelectionModel(dying.get());

        dying.reset();

        QCOMPARE(composer.selectionModel(), nullptr);
        composer.setSelectionModel(selection);
        select(0, 0);
        QVERIFY(composer.object().value<ReflectedObject>().isValid());
    }

    void qmlMakesItByTheNameThatItsFilesUse()
    {
        QQmlEngine engine;
        QQmlComponent component(&engine);
        component.setData("import QelmTools.Misc 1.0\nQtMiltiselectionComposer {}", {});

        const std::unique_ptr<QObject> object(component.create());

        QVERIFY2(qobject_cast<QtMiltiselectionComposer*>(object.get()), qPrintable(component.errorString()));
    }
};

QTEST_MAIN(tst_QtMiltiselectionComposer)
#include "tst_qt_miltiselection_composer.moc"
