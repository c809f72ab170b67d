#include <datamodels/library_frame.h>

#include <host/registry/static_registrar.h>

#include <QMetaType>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace {

/// The ids of the pointers to the types that the library registers at load, in the order of its table; 0 for an unknown
/// one.
QVector<int> loadTimeTypes()
{
    return {QMetaType::type("QtMiltiselectionComposer*"),
            QMetaType::type("datamodels::ImageChannelsModel*"),
            QMetaType::type("datamodels::ImageInfoModel*"),
            QMetaType::type("datamodels::FlatImageInfoModel*"),
            QMetaType::type("datamodels::ImageModel*"),
            QMetaType::type("datamodels::SimpleImageModel*")};
}

std::unique_ptr<QObject> create(QQmlEngine& engine, const QByteArray& qml)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    return std::unique_ptr<QObject>(component.create());
}

} // namespace

/// The library's own types: linked, and so loaded before there is an application. The tests are the stages of one
/// process, in this order.
class tst_LibraryTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsRegisteredBeforeTheApplication()
    {
        datamodels::registerGraphQml(); // so that the library is linked and loaded

        QCOMPARE(loadTimeTypes(), QVector<int>(6, 0));
    }

    void theDeferredRegistrationsFollowTheOrderOfTheTable()
    {
        m_application = std::make_unique<QCoreApplication>(m_argumentCount, m_arguments);
        StaticRegistrar::RegistrarInternals::runDeferred();

        const QVector<int> ids = loadTimeTypes();
        QVERIFY(!ids.contains(0));
        QVERIFY(std::is_sorted(ids.begin(), ids.end()));
    }

    void qmlCanWriteThoseWithANameAndHoldTheOther_data()
    {
        QTest::addColumn<QByteArray>("qml");
        QTest::addColumn<QByteArray>("className");

        QTest::newRow("composer") << QByteArray("import QelmTools.Misc 1.0\nQtMiltiselectionComposer {}")
                                  << QByteArray("QtMiltiselectionComposer");
        QTest::newRow("table of facts") << QByteArray("import QELM.ImagePreview 1.0\nImageInfoModel {}")
                                        << QByteArray("datamodels::ImageInfoModel");
        QTest::newRow("form of facts") << QByteArray("import QELM.ImagePreview 1.0\nFlatImageInfoModel {}")
                                       << QByteArray("datamodels::FlatImageInfoModel");
        QTest::newRow("images") << QByteArray("import QELM.ImagePreview 1.0\nImageModel {}")
                                << QByteArray("datamodels::ImageModel");
        QTest::newRow("preview") << QByteArray("import QELM.ImagePreview 1.0\nSimpleImageModel {}")
                                 << QByteArray("datamodels::SimpleImageModel");
    }
    void qmlCanWriteThoseWithANameAndHoldTheOther()
    {
        QFETCH(QByteArray, qml);
        QQmlEngine engine;

        const auto object = create(engine, qml);

        QVERIFY(object);
        QTEST(QByteArray(object->metaObject()->className()), "className");
    }

    void theChannelsAreTheValueOfAPropertyOnly()
    {
        QQmlEngine engine;

        const auto image = create(engine, "import QELM.ImagePreview 1.0\n"
                                          "ImageModel { property var held: channelsModel; property bool alpha: held.hasAlpha }");

        QVERIFY(image);
        QCOMPARE(image->property("alpha"), QVariant(false));
        QVERIFY(!create(engine, "import QELM.ImagePreview 1.0\nImageChannelsModel {}"));
    }

    void theModuleOfTheAtlasIsMissingUntilItIsAskedFor()
    {
        QQmlEngine engine;

        QVERIFY(!create(engine, "import QtQml 2.15\nimport QelmTools.AtlasEditor 1.0\nQtObject {}"));
    }

    void cleanupTestCase() { m_application.reset(); }

private:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

QTEST_APPLESS_MAIN(tst_LibraryTypes)
#include "tst_library_types.moc"
