#include "frame_plugin_state.h"

#include <QtTest>

/// The application exists when the plug-in is loaded.
class tst_LoadWithApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QCoreApplication::instance());
        QCOMPARE(FramePlugin::loadTimeMetaTypes(), QVector<int>(12, 0));
        QVERIFY(FramePlugin::load());
    }

    void theMetaTypesAreRegisteredInTheOrderOfTheTable()
    {
        const QVector<int> ids = FramePlugin::loadTimeMetaTypes();

        QVERIFY(!ids.contains(0));
        QVERIFY(FramePlugin::isStrictlyIncreasing(ids));
    }

    void aPointerIsKnownAsOneToAnObject()
    {
        const int id = QMetaType::type("frame::Channels*");

        QVERIFY(QMetaType::typeFlags(id) & QMetaType::PointerToQObject);
        QCOMPARE(QMetaType::metaObjectForType(id)->className(), "frame::Channels");
    }

    void theQmlTypesAreRegisteredInTheOrderOfTheTable()
    {
        // The row without a name has taken number 1.
        QCOMPARE(FramePlugin::loadTimeQmlTypes(), (QVector<int>{2, 3, 4, 5}));
    }

    void aRowWithANameCanBeWritten_data()
    {
        QTest::addColumn<QByteArray>("qml");
        QTest::addColumn<QByteArray>("type");

        QTest::newRow("1") << QByteArray("import Frame.Misc 1.0\nComposer {}")
                           << QByteArray("frame::Composer");
        QTest::newRow("3") << QByteArray("import Frame.Preview 1.0\nInfo {}") << QByteArray("frame::Info");
        QTest::newRow("4") << QByteArray("import Frame.Preview 1.0\nFlatInfo {}")
                           << QByteArray("frame::FlatInfo");
        QTest::newRow("5") << QByteArray("import Frame.Preview 1.0\nImage {}") << QByteArray("frame::Image");
        QTest::newRow("6") << QByteArray("import Frame.Preview 1.0\nSimpleImage {}")
                           << QByteArray("frame::SimpleImage");
    }

    void aRowWithANameCanBeWritten()
    {
        QFETCH(QByteArray, qml);
        QFETCH(QByteArray, type);
        QQmlEngine engine;

        QString error;
        const std::unique_ptr<QObject> object = FramePlugin::create(engine, qml, &error);

        QVERIFY2(object, qPrintable(error));
        QCOMPARE(QByteArray(object->metaObject()->className()), type);
    }

    void aRowWithoutANameCanBeHeldAndUsed()
    {
        QQmlEngine engine;

        const std::unique_ptr<QObject> image = FramePlugin::create(
            engine, "import Frame.Preview 1.0\n"
                    "Image { property var held: channels; property int count: held.count }");

        QVERIFY(image);
        QCOMPARE(image->property("count"), QVariant(4));
    }

    void aRowWithoutANameCannotBeWritten_data()
    {
        QTest::addColumn<QByteArray>("qml");

        QTest::newRow("class name") << QByteArray("import Frame.Preview 1.0\nChannels {}");
        QTest::newRow("other module") << QByteArray("import Frame.Misc 1.0\nChannels {}");
    }

    void aRowWithoutANameCannotBeWritten()
    {
        QFETCH(QByteArray, qml);
        QQmlEngine engine;

        QString error;
        const std::unique_ptr<QObject> object = FramePlugin::create(engine, qml, &error);

        QVERIFY(!object);
        QCOMPARE(error, QStringLiteral("Channels is not a type"));
    }

    void aModuleHasVersionOneOnly_data()
    {
        QTest::addColumn<QByteArray>("import");
        QTest::addColumn<QString>("complaint");

        QTest::newRow("1.1") << QByteArray("import Frame.Misc 1.1\nComposer {}")
                             << "module \"Frame.Misc\" version 1.1 is not installed";
        QTest::newRow("2.0") << QByteArray("import Frame.Misc 2.0\nComposer {}")
                             << "module \"Frame.Misc\" version 2.0 is not installed";
        QTest::newRow("0.9") << QByteArray("import Frame.Misc 0.9\nComposer {}")
                             << "module \"Frame.Misc\" version 0.9 is not installed";
    }

    void aModuleHasVersionOneOnly()
    {
        QFETCH(QByteArray, import);
        QQmlEngine engine;

        QString error;
        const std::unique_ptr<QObject> object = FramePlugin::create(engine, import, &error);

        QVERIFY(!object);
        QTEST(error, "complaint");
    }

    void rowsOfAnExportedFunctionAreUnknownUntilItIsCalled()
    {
        const QByteArray qml = "import Frame.Editor 1.0\nSheetHelper {}";
        QQmlEngine before;
        QString error;

        QVERIFY(!FramePlugin::create(before, qml, &error));
        QCOMPARE(error, QStringLiteral("module \"Frame.Editor\" is not installed"));
        QCOMPARE(QMetaType::type("frame::Vertex*"), 0);

        FramePlugin::registerEditorTypes();
        QQmlEngine after;
        const std::unique_ptr<QObject> helper = FramePlugin::create(after, qml, &error);
        QVERIFY2(helper, qPrintable(error));
        QCOMPARE(helper->metaObject()->className(), "frame::QtSheetHelper");
        QVERIFY(FramePlugin::isStrictlyIncreasing(
            {QMetaType::type("frame::Sheet*"), QMetaType::type("QQmlListProperty<frame::Sheet>"),
             QMetaType::type("frame::QtSheetHelper*"), QMetaType::type("frame::Vertex*")}));
    }
};

QTEST_GUILESS_MAIN(tst_LoadWithApplication)
#include "tst_load_with_application.moc"
