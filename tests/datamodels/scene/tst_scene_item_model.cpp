#include "sample_scene.h"

#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>

#include <host/reflection/generic_object.h>
#include <host/reflection/notifiers.h>

#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QGuiApplication>
#include <QtTest>

using namespace stage;
using zarn::reflect;
using zarn::ReflectedObject;

namespace {

ReflectedObject partsOf(const std::shared_ptr<Actor>& actor)
{
    return reflect(actor->parts);
}

bool set(const std::shared_ptr<Actor>& actor, const char* property, const qelm::Variant& value)
{
    return reflect(*actor).findPropertyByName(property).set(value, {});
}

/// Which property, with which flags, and nothing else of what `set` does.
void tell(const std::shared_ptr<Actor>& actor, const char* property, unsigned setterFlags, unsigned notifyFlags)
{
    const zarn::PropertyChangeNotifier notifier(reflect(*actor), {property}, ryk::Flags<zarn::SetterFlag>(setterFlags),
                                                ryk::Flags<zarn::NotifyFlag>(notifyFlags));
}

} // namespace

class tst_SceneItemModel : public QObject
{
    Q_OBJECT

    std::shared_ptr<Actor> hand, leg, body, hat, scene;
    SceneItemModel* model = nullptr;

    QModelIndex row(const std::shared_ptr<Actor>& actor) const { return model->indexOf(reflect(*actor)); }

private Q_SLOTS:
    void init()
    {
        hand = actor("hand");
        leg = actor("leg");
        body = actor("body", {hand, leg});
        hat = actor("hat");
        scene = actor("scene", {body, hat});
        model = new SceneItemModel(reflect(*scene));
    }
    void cleanup() { delete model; }

    void rowsAreThePropertiesThatAreItems()
    {
        const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        QCOMPARE(treeLines(*model), (QStringList{"body", "  hand", "  leg", "hat"}));
        QCOMPARE(model->columnCount(), 1);
        QCOMPARE(model->index(0, 0).parent(), QModelIndex());
        QVERIFY(model->sceneObject() == reflect(*scene));
    }

    void aRowShowsWhatItsObjectSays()
    {
        const QModelIndex index = row(hand);

        QCOMPARE(index.data(Qt::DisplayRole), QVariant("hand"));
        QCOMPARE(index.data(Qt::DecorationRole), QVariant("icons/a.b"));
        QCOMPARE(index.data(Qt::CheckStateRole), QVariant(0));
        QCOMPARE(index.data(SceneRoles::Type), QVariant("Actor"));
        QCOMPARE(index.data(SceneRoles::Count), QVariant());
        QCOMPARE(index.data(SceneRoles::Expanded), QVariant(true));
        QCOMPARE(index.data(SceneRoles::Enabled), QVariant(true));
        QCOMPARE(index.data(SceneRoles::Hover), QVariant(false));
        QCOMPARE(index.data(SceneRoles::Modified), QVariant(false));
        QVERIFY(index.data(SceneRoles::Object).value<ReflectedObject>() == reflect(*hand));
        QCOMPARE(index.data(Qt::EditRole), QVariant());
    }

    void theInvalidIndexIsTheSceneItself()
    {
        QCOMPARE(model->data({}, Qt::DisplayRole), QVariant("scene"));
        QVERIFY(model->objectAt({}) == reflect(*scene));
        QCOMPARE(model->indexOf(reflect(*scene)), QModelIndex());
    }

    void theStateHasItsOwnRoleName()
    {
        QCOMPARE(model->roleNames().value(Qt::CheckStateRole), QByteArray("state"));
        QCOMPARE(model->roleNames().value(SceneRoles::Hover), QByteArray("hoverRole"));
    }

    void missingPropertiesHaveFallbacks()
    {
        zarn::GenericObject thing;
        const SceneItemModel bare(reflect(thing));

        QCOMPARE(bare.data({}, Qt::DisplayRole), QVariant("<unnamed scene item>"));
        QCOMPARE(bare.data({}, Qt::DecorationRole), QVariant("<unnamed type>"));
        QCOMPARE(bare.data({}, SceneRoles::Type), QVariant("<unknown type>"));
        QCOMPARE(bare.data({}, Qt::CheckStateRole), QVariant(0));
        QCOMPARE(bare.data({}, SceneRoles::Enabled), QVariant(true));
        QCOMPARE(bare.data({}, SceneRoles::Modified), QVariant(false));
    }

    void anIconLosesItsExtensionAndALeadingFolder_data()
    {
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QString>("shown");
        QTest::newRow("folder and extension") << "resources/maps/gui/icons/a.b.png" << "icons/a.b";
        QTest::newRow("folder further on") << "x/resources/maps/gui/a.png" << "x/resources/maps/gui/a";
        QTest::newRow("dot of a directory") << "icons.d/lamp" << "icons";
        QTest::newRow("neither") << "lamp" << "lamp";
    }

    void anIconLosesItsExtensionAndALeadingFolder()
    {
        QFETCH(QString, icon);
        QFETCH(QString, shown);
        hand->icon = icon.toStdString();

        QCOMPARE(row(hand).data(Qt::DecorationRole), QVariant(shown));
    }

    void aStateOutsideOfAnIntIsZero()
    {
        hand->state = 4294967296;
        QCOMPARE(row(hand).data(Qt::CheckStateRole), QVariant(0));

        hand->state = 7;
        QCOMPARE(row(hand).data(Qt::CheckStateRole), QVariant(7));
    }

    void namesOutsideOfAsciiComeThrough()
    {
        QVERIFY(set(hand, "_objectName", std::string("m\xc3\xa5ne \xe6\x9c\x88")));

        QCOMPARE(row(hand).data(), QVariant(QString("måne 月")));
    }

    void changesAreToldWithTheirRole_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<int>("role");
        QTest::newRow("name") << "_objectName" << int(Qt::DisplayRole);
        QTest::newRow("icon") << "_objectIcon" << int(Qt::DecorationRole);
        QTest::newRow("state") << "_objectState" << int(Qt::CheckStateRole);
        QTest::newRow("enabled") << "_isEnabled" << int(SceneRoles::Enabled);
        QTest::newRow("modified") << "_isModified" << int(SceneRoles::Modified);
    }

    void changesAreToldWithTheirRole()
    {
        QFETCH(QString, property);
        QFETCH(int, role);
        SignalLog log(*model);

        tell(hand, property.toLatin1().constData(), 0, 1);

        QCOMPARE(log.take(), QStringList{"changed /0/0 roles " + QString::number(role)});
    }

    void flagsDecideWhatIsTold()
    {
        SignalLog log(*model);

        tell(hand, "_objectName", 1, 1);
        tell(hand, "_objectName", 0, 2);
        tell(hand, "_isEnabled", 1, 1);
        QCOMPARE(log.take(), QStringList());

        tell(hand, "_isModified", 1, 2);
        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 363"});
    }

    void whatUndoSetsIsTold()
    {
        SignalLog log(*model);

        QVERIFY(reflect(*hand).findPropertyByName("_objectName").set(std::string("paw"), zarn::SetterFlag::Undo));

        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 0"});
    }

    void aDisabledRowDisablesAllBelowTheDeepestFirst()
    {
        SignalLog log(*model);

        QVERIFY(set(body, "_isEnabled", false));

        QCOMPARE(log.take(), (QStringList{"changed /0/0 roles 360", "changed /0/1 roles 360", "changed /0 roles 360"}));
        QVERIFY(!row(hand).data(SceneRoles::Enabled).toBool());
        QVERIFY(row(hat).data(SceneRoles::Enabled).toBool());

        QVERIFY(set(body, "_isEnabled", true));
        QVERIFY(row(hand).data(SceneRoles::Enabled).toBool());
    }

    void aRowInADisabledPlaceBeginsDisabled()
    {
        QVERIFY(set(body, "_isEnabled", false));
        const auto arm = actor("arm");

        QVERIFY(partsOf(body).addProperty(std::size_t(2), arm).isValid());

        QVERIFY(!row(arm).data(SceneRoles::Enabled).toBool());
    }

    void modificationDoesNotTravel()
    {
        QVERIFY(set(hand, "_isModified", true));

        QVERIFY(row(hand).data(SceneRoles::Modified).toBool());
        QVERIFY(!row(body).data(SceneRoles::Modified).toBool());
    }

    void theSceneObjectIsToldByTheInvalidIndex()
    {
        SignalLog log(*model);

        QVERIFY(set(scene, "_objectName", std::string("stage")));

        QCOMPARE(log.take(), QStringList{"changed / roles 0"});
    }

    void expansionIsStoredSilently()
    {
        SignalLog log(*model);

        QVERIFY(model->setData(row(body), false, SceneRoles::Expanded));
        QVERIFY(!row(body).data(SceneRoles::Expanded).toBool());
        QVERIFY(!model->setData({}, false, SceneRoles::Expanded));
        QVERIFY(!model->setData(row(body), "x", Qt::EditRole));

        QCOMPARE(log.take(), QStringList());
    }

    void hoverIsToldWhenItChanges()
    {
        SignalLog log(*model);

        QVERIFY(model->setData(row(hat), true, SceneRoles::Hover));
        model->updateHoverRole(reflect(*hat), true);
        model->updateHoverRole(reflect(*hat), false);
        model->updateHoverRole(reflect(*scene), true);

        QCOMPARE(log.take(), (QStringList{"changed /1 roles 362", "changed /1 roles 362", "changed / roles 362"}));
    }

    void anElementThatComesIsOneInsertionHoweverMuchItBrings()
    {
        const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        SignalLog log(*model);

        QVERIFY(partsOf(scene).addProperty(std::size_t(1), actor("cart", {actor("wheel", {actor("nut")}), hand})).isValid());

        QCOMPARE(treeLines(*model),
                 (QStringList{"body", "  hand", "  leg", "cart", "  wheel", "    nut", "  hand", "hat"}));
        // The row behind it is made anew where it stood, when it gets another key, and again behind the new one.
        QCOMPARE(log.take(), (QStringList{"removing / [1..1]", "removed / [1..1]", "inserting / [1..1]", "inserted / [1..1]",
                                          "inserting / [1..1]", "inserted / [1..1]", "removing / [2..2]",
                                          "removed / [2..2]", "inserting / [2..2]", "inserted / [2..2]"}));
    }

    void anElementAtTheEndIsOneInsertion()
    {
        QVERIFY(partsOf(body).addProperty({}, actor("arm")).isValid());
        SignalLog log(*model);

        QVERIFY(partsOf(body).addProperty({}, actor("tail", {actor("tip")})).isValid());

        QCOMPARE(log.take(), (QStringList{"inserting /0 [3..3]", "inserted /0 [3..3]"}));
    }

    void anElementThatGoesTakesItsRowAndTheLaterOnesMoveUp()
    {
        const QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        QVERIFY(partsOf(scene).removePropertyAt(0));

        QCOMPARE(treeLines(*model), QStringList{"hat"});
        QCOMPARE(model->indexOf(reflect(*hand)), QModelIndex());
        QCOMPARE(row(hat), model->index(0, 0));
    }

    void anInsertionBeforeOthersShiftsTheirRows()
    {
        QVERIFY(partsOf(scene).addProperty(std::size_t(0), actor("first")).isValid());

        QCOMPARE(row(hat), model->index(2, 0));
        QCOMPARE(row(leg), model->index(1, 0, model->index(1, 0)));
        QCOMPARE(row(leg).parent(), model->index(1, 0));
    }

    void ofSeveralRowsOfAnObjectTheFirstInTheTreeIsFound()
    {
        QVERIFY(partsOf(scene).addProperty({}, hand).isValid());
        QCOMPARE(row(hand), model->index(0, 0, model->index(0, 0)));

        QVERIFY(partsOf(scene).addProperty(std::size_t(0), leg).isValid());
        QCOMPARE(row(leg), model->index(0, 0));
    }

    void aFixedNameAndAFoldedRowComeFromTheProperty()
    {
        Plain plain;
        plain.shown = hat;
        SceneItemModel other(reflect(plain));
        SignalLog log(other);

        QVERIFY(set(hat, "_objectName", std::string("cap")));

        QCOMPARE(other.index(0, 0).data(), QVariant("Shown"));
        QCOMPARE(other.index(0, 0).data(SceneRoles::Expanded), QVariant(false));
        QCOMPARE(log.take(), QStringList());
    }

    void aPropertyThatIsSetRebuildsItsRow()
    {
        Plain plain;
        plain.shown = hat;
        SceneItemModel other(reflect(plain));
        SignalLog log(other);

        QVERIFY(reflect(plain).findPropertyByName("shown").set(body, {}));

        QCOMPARE(log.take(), (QStringList{"removing / [0..0]", "removed / [0..0]", "inserting / [0..0]", "inserted / [0..0]"}));
        QCOMPARE(other.rowCount(other.index(0, 0)), 2);
    }

    void anotherSceneIsOneReset()
    {
        SignalLog log(*model);

        model->setObject(reflect(*body));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(*model), (QStringList{"hand", "leg"}));

        model->setObject(reflect(*body));
        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void aModelThatGoesSaysNothing()
    {
        SignalLog log(*model);

        delete std::exchange(model, nullptr);

        QCOMPARE(log.take(), QStringList());
    }

    void theConstructorShowsTheWaitCursorAndTakesItBack()
    {
        QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
    }

    void anObjectThatDiesLeavesARowWithFallbacks()
    {
        Plain plain;
        auto* dying = new Actor("ghost");
        zarn::GenericObject holder;
        reflect(holder).addProperty("one", reflect(*dying));
        SceneItemModel other(reflect(holder));

        delete dying;

        QCOMPARE(other.rowCount(), 0);
        QCOMPARE(other.indexOf(ReflectedObject()), QModelIndex());
    }

    void anObjectThatContainsItselfIsToldAndNotWalkedAgain()
    {
        LogCapture log;

        QVERIFY(partsOf(leg).addProperty({}, body).isValid());

        QCOMPARE(treeLines(*model), (QStringList{"body", "  hand", "  leg", "hat"}));
        QCOMPARE(log.messages(), QStringList{"6 SceneItem: \"parts.0\" contains itself and is not shown below itself"});
        partsOf(leg).removePropertyAt(0);
    }

    void objectsNestedTooDeeplyAreToldAndNotWalked()
    {
        auto deep = actor("deepest");
        for (int i = 0; i < 400; ++i)
            deep = actor("deep", {deep});
        LogCapture log;

        const SceneItemModel other(reflect(*deep));

        QVERIFY(log.messages().constFirst().contains("deeper than 512 levels"));
    }

    void aListenerMayChangeTheCollectionThatItIsToldOf()
    {
        const ryk::ScopedConnection meddling = partsOf(scene).connectPropertyAdded([this] {
            if (scene->parts->size() < 4)
                partsOf(scene).addProperty({}, actor("more"));
        });

        QVERIFY(partsOf(scene).addProperty({}, actor("one")).isValid());

        QCOMPARE(treeLines(*model), (QStringList{"body", "  hand", "  leg", "hat", "one", "more"}));
    }
};

QTEST_MAIN(tst_SceneItemModel)
#include "tst_scene_item_model.moc"
