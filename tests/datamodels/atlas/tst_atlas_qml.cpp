#include "sample_view.h"

#include <datamodels/atlas/atlas_context.h>
#include <datamodels/atlas/qt_atlas_model.h>
#include <datamodels/atlas/qt_atlas_selection_helper.h>
#include <datamodels/library_frame.h>
#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

/// What the QML of an atlas view sees.
class tst_AtlasQml : public QObject
{
    Q_OBJECT

    QQmlEngine engine;
    ScriptedSettings settings;
    std::shared_ptr<ScriptedTile> oak;
    std::shared_ptr<ScriptedTile> elm;
    std::unique_ptr<AtlasContext> context;

    std::unique_ptr<QObject> create(const QByteArray& qml)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\nimport QtQml.Models 2.15\nimport QelmTools.AtlasEditor 1.0\n" + qml, QUrl());
        std::unique_ptr<QObject> object(component.create());
        if (!object)
            errors = component.errorString();
        return object;
    }
    QString errors;

private Q_SLOTS:
    void init()
    {
        settings = ScriptedSettings();
        oak = std::make_shared<ScriptedTile>(std::vector<std::string>{"image://oak", "", ""});
        elm = std::make_shared<ScriptedTile>(std::vector<std::string>{"image://elm", "", ""});
        context = std::make_unique<AtlasContext>();
        context->setData({{8, 4}, {2, 1}, {oak, elm}, &settings});
        engine.rootContext()->setContextProperty("atlas", context.get());
    }

    void theModuleIsUnknownBeforeItIsRegistered()
    {
        QTest::ignoreMessage(QtWarningMsg, "QQmlComponent: Component is not ready");
        QVERIFY(!create("QtAtlasModel {}"));
        QVERIFY2(errors.contains("module \"QelmTools.AtlasEditor\" is not installed"), qPrintable(errors));

        registerAtlasQmlInterfaces();

        QVERIFY(create("QtAtlasModel {}"));
        QVERIFY(create("QtAtlasSettings {}"));
        QVERIFY(create("AtlasSelectionHelper {}"));
    }

    void delegatesReadTheSlotByTheRoleName()
    {
        const auto view = create(R"(
            Instantiator {
                property var pictures: Array.from({length: count}, (_, row) => objectAt(row).picture)
                model: QtAtlasModel { source: atlas.object }
                delegate: QtObject { property string picture: atlasSlot.textures[0] }
            })");
        QVERIFY2(view, qPrintable(errors));

        QCOMPARE(view->property("pictures").toStringList(), (QStringList{"image://oak", "image://elm"}));
    }

    void theGridIsThatOfTheSource()
    {
        const auto model = create(R"(
            QtAtlasModel {
                property string grid: columnCount + "x" + rowCount + ", " + atlasWidth + "x" + atlasHeight
                source: atlas.object
            })");
        QCOMPARE(model->property("grid").toString(), QString("2x1, 8x4"));

        model->setProperty("source", QVariant::fromValue<AtlasViewData*>(nullptr));

        QCOMPARE(model->property("grid").toString(), QString("0x0, 1x1"));
    }

    void aBindingFollowsTheTexturesOfASlot()
    {
        const auto view = create(R"(
            Instantiator {
                property string picture: count > 0 ? objectAt(0).picture : ""
                model: QtAtlasModel { source: atlas.object }
                delegate: QtObject { property string picture: atlasSlot.textures[0] }
            })");
        QVERIFY2(view, qPrintable(errors));

        oak->paths[0] = "image://ash";
        oak->tell(AtlasType::AM);

        QCOMPARE(view->property("picture").toString(), QString("image://ash"));
    }

    void aNewObjectIsShownAtOnce()
    {
        const auto model = create("QtAtlasModel { source: atlas.object }");

        context->setData({{12, 4}, {3, 1}, {oak, elm, oak}, &settings});

        QCOMPARE(model->property("columnCount").toInt(), 3);
    }

    void theSettingsOfTheContextAreFollowed()
    {
        const auto object = create(R"(
            QtObject {
                property bool red: atlas.settings.red
                property real zoom: atlas.settings.zoomFactor
            })");
        QCOMPARE(object->property("red").toBool(), true);

        settings.channels = {};
        settings.setZoom(4);
        settings.tell();

        QCOMPARE(object->property("red").toBool(), false);
        QCOMPARE(object->property("zoom").toDouble(), 4.0);
    }

    void settingsWithoutASourceAreAnElement()
    {
        const auto object = create(R"(
            QtAtlasSettings { property var all: [red, green, blue, alpha, showNumbers, zoomFactor, tileType] })");

        QCOMPARE(object->property("all").toList(), (QVariantList{false, false, false, false, true, 1.0, 0}));
    }

    void aHelperIsEvaluatedWhenItHasBeenLoaded()
    {
        const auto object = create(R"(
            QtObject {
                property var told: []
                property QtAtlasModel model: QtAtlasModel { source: atlas.object; selection: atlas.selectionModel }
                property AtlasSelectionHelper helper: AtlasSelectionHelper {
                    selection: atlas.selectionModel
                    index: 1
                    onSelectedChanged: told.push(selected)
                }
                Component.onCompleted: atlas.selectionModel.select(model.index(1, 0), ItemSelectionModel.Select)
            })");
        QVERIFY2(object, qPrintable(errors));

        QCOMPARE(object->property("told").toList(), QVariantList{true});
        QVERIFY(object->property("helper").value<QObject*>()->property("selected").toBool());
    }

    void aHelperThatIsLoadedOverASelectedRowTellsSoOnce()
    {
        const auto model = create("QtAtlasModel { source: atlas.object; selection: atlas.selectionModel }");
        const auto* const rows = qobject_cast<QAbstractItemModel*>(model.get());
        context->getSelectionModel()->select(rows->index(1, 0), QItemSelectionModel::Select);

        const auto object = create(R"(
            QtObject {
                property var told: []
                property AtlasSelectionHelper helper: AtlasSelectionHelper {
                    index: 1
                    selection: atlas.selectionModel
                    onSelectedChanged: told.push(selected)
                }
            })");
        QVERIFY2(object, qPrintable(errors));

        QCOMPARE(object->property("told").toList(), QVariantList{true});
    }
};

QTEST_MAIN(tst_AtlasQml)
#include "tst_atlas_qml.moc"
