#include "sample_atlas.h"
#include "sample_view.h"

#include <datamodels/atlas/atlas_context.h>
#include <datamodels/atlas/qt_atlas_model.h>
#include <datamodels/atlas/qt_atlas_selection_helper.h>
#include <host/images/tessen_image_request_desc.h>
#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QPointer>
#include <QStringListModel>
#include <QtTest>

using Channel = IAtlasViewSettings::Channel;

/// An atlas on its way to QML: context, settings, model, slots.
class tst_AtlasViews : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;
    ScriptedSettings settings;
    AtlasViewData view;

    static std::shared_ptr<ScriptedTile> tile(std::vector<std::string> textures = {"", "", ""})
    {
        return std::make_shared<ScriptedTile>(std::move(textures));
    }
    AtlasViewData dataOf(std::vector<std::shared_ptr<IAtlasTile>> tiles)
    {
        const int count = int(tiles.size());
        return {{count * 4, 4}, {count, 1}, std::move(tiles), &settings};
    }
    static QVariant variantOf(AtlasViewData* data) { return QVariant::fromValue(data); }
    static QtAtlasSlot* slotOf(const QtAtlasModel& model, int row)
    {
        return model.data(model.index(row), QtAtlasModel::AtlasSlotRole).value<QtAtlasSlot*>();
    }
    QString urlOf(const QString& name) const
    {
        TessenImageRequestDesc request;
        request.setFileName(desk->disk.path(name));
        return request.toUrl().toString();
    }
    static QVariantList valuesOf(const QObject& object, const QList<QByteArray>& names)
    {
        QVariantList values;
        for (const QByteArray& name : names)
            values << object.property(name);
        return values;
    }

private Q_SLOTS:
    void init()
    {
        desk = std::make_unique<AtlasDesk>();
        settings = ScriptedSettings();
    }
    void cleanup() { desk.reset(); }

    void viewSettingsByThemselvesShowColoursAndNumbers()
    {
        const IAtlasViewSettings standard;

        QCOMPARE(standard.activeChannels().value(), 7U);
        QVERIFY(standard.redChannelEnabled() && standard.greenChannelEnabled() && standard.blueChannelEnabled());
        QVERIFY(!standard.alphaChannelEnabled());
        QVERIFY(standard.showNumbers());
        QCOMPARE(standard.tileType(), AtlasType::AM);
        QCOMPARE(standard.zoomData().zoomFactor, 1.0F);
    }

    void movedSettingsTakeTheirListenersAlong()
    {
        int told = 0;
        ScriptedSettings first;
        const ryk::ScopedConnection listening = first.connectSettingsChanged([&] { ++told; });

        const ScriptedSettings second = std::move(first);
        second.tell();

        QCOMPARE(told, 1);
    }

    void withoutSettingsNoChannelIsOn()
    {
        const QtAtlasSettings published;

        QCOMPARE(valuesOf(published, {"red", "green", "blue", "alpha", "showNumbers", "zoomFactor", "tileType"}),
                 (QVariantList{false, false, false, false, true, 1.0F, 0}));
    }

    void settingsArePublishedAsTheyAre()
    {
        settings.channels = ryk::Flags(Channel::Green) | Channel::Alpha;
        settings.numbers = false;
        settings.type = AtlasType::MAO;
        settings.setZoom(2.5F);
        QtAtlasSettings published;

        published.setSource(&settings);

        QCOMPARE(valuesOf(published, {"red", "green", "blue", "alpha", "showNumbers", "zoomFactor", "tileType"}),
                 (QVariantList{false, true, false, true, false, 2.5F, 2}));
    }

    void theSourceOfSettingsIsToldAlsoIfItIsTheSame()
    {
        QtAtlasSettings published;
        SignalLog log;
        log.add(published, &QtAtlasSettings::sourceChanged);

        published.setSource(&settings);
        published.setSource(&settings);

        QCOMPARE(log.take(), (QStringList{"sourceChanged()", "sourceChanged()"}));
    }

    void theContextTellsTheSettingsTheObjectAndTheSettingsAgain()
    {
        AtlasContext context;
        SignalLog log;
        log.addAll(context, "context").addAll(*context.settings(), "settings");

        context.setData(dataOf({tile()}));

        QCOMPARE(log.take(), (QStringList{"settings: sourceChanged()", "context: objectChanged()",
                                          "context: settingsChanged()"}));
    }

    void theContextGivesItsOwnCopyUnderOneAddress()
    {
        AtlasContext context;
        auto* const object = context.getObject().value<AtlasViewData*>();
        context.setData(dataOf({tile(), tile()}));

        QCOMPARE(context.getObject().value<AtlasViewData*>(), object);
        QCOMPARE(QString(context.getObject().typeName()), QString("AtlasViewData*"));
        QCOMPARE(object->tiles.size(), std::size_t(2));
        QCOMPARE(object->tilesCount.x, 2);
        QCOMPARE(object->atlasSize.x, 8);
        QVERIFY(object->settings == &settings);
        QCOMPARE(context.settings()->property("red"), QVariant(true));
        QVERIFY(!context.getSelectionModel()->model());
    }

    void theContextTellsOfChangedSettings()
    {
        AtlasContext context;
        context.setData(dataOf({tile()}));
        SignalLog log;
        log.addAll(context);

        settings.tell();

        QCOMPARE(log.take(), QStringList{"settingsChanged()"});
    }

    void theContextForgetsFormerSettings()
    {
        AtlasContext context;
        context.setData(dataOf({tile()}));
        ScriptedSettings others;
        AtlasViewData data = dataOf({tile()});
        data.settings = &others;
        context.setData(data);
        SignalLog log;
        log.addAll(context);

        settings.tell();
        QCOMPARE(log.take(), QStringList());
        others.tell();
        QCOMPARE(log.take(), QStringList{"settingsChanged()"});

        data.settings = nullptr;
        context.setData(data);
        log.take();
        others.tell();
        QCOMPARE(log.take(), QStringList());
    }

    void settingsMayOutliveTheContext()
    {
        auto context = std::make_unique<AtlasContext>();
        context->setData(dataOf({tile()}));
        context.reset();

        settings.tell();
    }

    void aModelWithoutASourceHasNoRowsAndAnAtlasOfOnePixel()
    {
        const QtAtlasModel model;

        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(valuesOf(model, {"columnCount", "rowCount", "atlasWidth", "atlasHeight"}), (QVariantList{0, 0, 1, 1}));
        QCOMPARE(model.roleNames(), (QHash<int, QByteArray>{{256, "atlasSlot"}}));
    }

    void aModelHasARowASlot()
    {
        AtlasViewData data = {{12, 8}, {3, 2}, {tile(), tile(), tile(), tile(), tile(), tile()}, &settings};
        QtAtlasModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        model.setSource(variantOf(&data));

        QCOMPARE(model.rowCount(), 6);
        QCOMPARE(model.rowCount(model.index(0)), 0);
        QCOMPARE(valuesOf(model, {"columnCount", "rowCount", "atlasWidth", "atlasHeight"}), (QVariantList{3, 2, 12, 8}));
        QVERIFY(slotOf(model, 5));
        QVERIFY(!model.data(model.index(0), Qt::DisplayRole).isValid());
        QVERIFY(!model.data({}, QtAtlasModel::AtlasSlotRole).isValid());
    }

    void aSourceIsAResetAlsoIfItIsTheSame()
    {
        AtlasViewData data = dataOf({tile()});
        QtAtlasModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setSource(variantOf(&data));
        const QPointer<QtAtlasSlot> before = slotOf(model, 0);
        SignalLog log(model);
        log.add(model, &QtAtlasModel::sourceChanged);

        model.setSource(variantOf(&data));

        QCOMPARE(log.take(), (QStringList{"resetting", "reset", "sourceChanged()"}));
        QVERIFY(before.isNull());
        QVERIFY(slotOf(model, 0));
    }

    void aNullSourceClearsTheModel_data()
    {
        QTest::addColumn<QVariant>("source");
        QTest::newRow("null pointer") << variantOf(nullptr);
        QTest::newRow("null of QML") << QVariant::fromValue(nullptr);
        QTest::newRow("something else") << QVariant("atlas");
    }
    void aNullSourceClearsTheModel()
    {
        QFETCH(QVariant, source);
        AtlasViewData data = dataOf({tile()});
        QtAtlasModel model;
        model.setSource(variantOf(&data));
        SignalLog log(model);
        log.add(model, &QtAtlasModel::sourceChanged);

        model.setSource(source);

        QCOMPARE(log.take(), (QStringList{"resetting", "reset", "sourceChanged()"}));
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.atlasWidth(), 1);
    }

    void anInvalidSourceLeavesTheModel()
    {
        AtlasViewData data = dataOf({tile()});
        QtAtlasModel model;
        model.setSource(variantOf(&data));
        SignalLog log(model);
        log.add(model, &QtAtlasModel::sourceChanged);

        model.setSource(QVariant());

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(model.rowCount(), 1);
    }

    // Without a model tester, which asks for every row.
    void rowsFollowFromTheSizesAndSlotsFromTheTiles()
    {
        AtlasViewData data = {{8, 8}, {2, 2}, {tile()}, &settings};
        QtAtlasModel model;
        model.setSource(variantOf(&data));

        QCOMPARE(model.rowCount(), 4);
        QVERIFY(slotOf(model, 0));
        QVERIFY_EXCEPTION_THROWN(model.data(model.index(1), QtAtlasModel::AtlasSlotRole), std::out_of_range);
        QCOMPARE(messageOf([&] { model.data(model.index(3), Qt::DisplayRole); }), QString("invalid vector subscript"));
    }

    void slotsStayAsTheyWereUntilTheSourceIsWrittenAgain()
    {
        AtlasContext context;
        context.setData(dataOf({tile({"image://a", "", ""}), tile()}));
        QtAtlasModel model;
        model.setSource(context.getObject());

        context.setData(dataOf({tile({"image://b", "", ""}), tile()}));
        QCOMPARE(slotOf(model, 0)->textures(), (QVector<QString>{"image://a"}));

        model.setSource(context.getObject());
        QCOMPARE(slotOf(model, 0)->textures(), (QVector<QString>{"image://b"}));
    }

    void aSelectionGetsTheModel()
    {
        QtAtlasModel model;
        QItemSelectionModel selection;

        model.setSelection(&selection);

        QCOMPARE(selection.model(), &model);
    }

    void noSelectionIsAnAssertion()
    {
        QtAtlasModel model;
        LogCapture log;

        model.setSelection(nullptr);

        QCOMPARE(log.assertions(), QStringList{"selection"});
    }

    void aSlotGivesAUrlATexture()
    {
        desk->writeTextures({"oak"});
        view = dataOf({});
        const QtAtlasSlot slot(tile({"content/oak_AM.png", "content/oak_GBMT.png", "content/oak_MAO.png"}), view);

        QCOMPARE(slot.textures(), (QVector<QString>{urlOf("content/oak_AM.png"), urlOf("content/oak_GBMT.png"),
                                                    urlOf("content/oak_MAO.png")}));
    }

    void whatHasNoTextureTakesNoPlace()
    {
        desk->writeTextures({"oak"});
        view = dataOf({});
        const QtAtlasSlot slot(tile({"content/oak_AM.png", "", "content/oak_MAO.png"}), view);

        QCOMPARE(slot.textures(), (QVector<QString>{urlOf("content/oak_AM.png"), urlOf("content/oak_MAO.png")}));
    }

    void whatHasNoFileTakesNoPlace()
    {
        desk->writeTextures({"oak"});
        desk->disk.remove("content/oak_GBMT.png");
        view = dataOf({});
        const QtAtlasSlot slot(tile({"content/oak_AM.png", "content/oak_GBMT.png", "content/oak_MAO.png"}), view);

        QCOMPARE(slot.textures(), (QVector<QString>{urlOf("content/oak_AM.png"), urlOf("content/oak_MAO.png")}));
    }

    void urlsOfImagesStayAsTheyAre()
    {
        view = dataOf({});
        view.settings = nullptr;
        const QtAtlasSlot slot(tile({"image://any/thing", "", "image://"}), view);

        QCOMPARE(slot.textures(), (QVector<QString>{"image://any/thing", "image://"}));
    }

    void namesOfTexturesNeedNotBeAscii()
    {
        const QString stem = QString::fromUtf8("дуб & 橡树 #1");
        desk->writeTextures({stem});
        view = dataOf({});
        const QtAtlasSlot slot(tile({textureOf(stem), "", ""}), view);

        const auto request = TessenImageRequestDesc::fromUrl(QUrl(slot.textures().at(0)));

        QCOMPARE(request->fileName(), desk->disk.path(QString::fromStdString(textureOf(stem))));
    }

    void urlsShowTheChannelsOfNow()
    {
        desk->writeTextures({"oak"});
        view = dataOf({});
        const QtAtlasSlot slot(tile({"content/oak_AM.png", "", ""}), view);
        SignalLog log;
        log.addAll(slot);

        settings.channels = ryk::Flags(Channel::Blue) | Channel::Alpha;
        const auto request = TessenImageRequestDesc::fromUrl(QUrl(slot.textures().at(0)));

        QVERIFY(!request->isChannelVisible(TessenImageRequestDesc::Red));
        QVERIFY(!request->isChannelVisible(TessenImageRequestDesc::Green));
        QVERIFY(request->isChannelVisible(TessenImageRequestDesc::Blue));
        QVERIFY(request->isChannelVisible(TessenImageRequestDesc::Alpha));
        QCOMPARE(request->imageIndex(), 0);
        QCOMPARE(log.take(), QStringList());
    }

    void withoutSettingsThereIsNoUrl()
    {
        desk->writeTextures({"oak"});
        view = dataOf({});
        view.settings = nullptr;
        const QtAtlasSlot slot(tile({"content/oak_AM.png", "content/oak_GBMT.png", ""}), view);
        LogCapture log;

        QCOMPARE(slot.textures(), QVector<QString>());

        QCOMPARE(log.assertions(), (QStringList{"m_atlasViewData.settings", "m_atlasViewData.settings"}));
    }

    void aSlotTellsOfEachTextureOfItsTile()
    {
        view = dataOf({});
        const auto shown = tile();
        const QtAtlasSlot slot(shown, view);
        SignalLog log;
        log.addAll(slot);

        shown->tell(AtlasType::AM);
        shown->tell(AtlasType::MAO);

        QCOMPARE(log.take(), (QStringList{"dataChanged()", "dataChanged()"}));
    }

    void aTileMayOutliveItsSlot()
    {
        view = dataOf({});
        const auto shown = tile();
        std::make_unique<QtAtlasSlot>(shown, view).reset();

        shown->tell(AtlasType::AM);

        QCOMPARE(shown.use_count(), 1L);
    }

    void aSlotWithoutATileShowsNothing()
    {
        view = dataOf({});

        QCOMPARE(QtAtlasSlot(nullptr, view).textures(), QVector<QString>());
    }

    void anAtlasIsShownFromItsFilesToItsUrls()
    {
        desk->writeAtlas({2, 1}, {"oak", "-"});
        AtlasAsset asset("content/sheet", nullptr);
        AtlasContext context;
        context.setData({asset.data().atlasSize, asset.data().tilesCount,
                         {asset.data().tiles->begin(), asset.data().tiles->end()}, &settings});
        QtAtlasModel model;
        model.setSource(context.getObject());
        desk->writeTextures({"elm"});
        SignalLog log;
        log.addAll(*slotOf(model, 1));

        asset.getTile(1)->setTexture(AtlasType::AM, textureOf("elm"));

        QCOMPARE(log.take(), QStringList{"dataChanged()"});
        QCOMPARE(slotOf(model, 1)->textures().at(0), urlOf("content/elm_AM.png"));
        QCOMPARE(model.atlasWidth(), 8);
    }

private:
    static QString messageOf(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const std::exception& error) {
            return error.what();
        }
        return {};
    }
};

QTEST_MAIN(tst_AtlasViews)
#include "tst_atlas_views.moc"
