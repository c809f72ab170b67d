#include "frame_plugin_state.h"

#include <host/registry/static_registrar.h>

#include <QtTest>

/// The plug-in is loaded while there is no application. The tests are the stages of one process, in this
/// order.
class tst_LoadBeforeApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(!QCoreApplication::instance());
        QVERIFY(FramePlugin::load());
    }

    void loadingRegistersNothing()
    {
        QCOMPARE(FramePlugin::loadTimeMetaTypes(), QVector<int>(12, 0));
        QCOMPARE(FramePlugin::loadTimeQmlTypes(), QVector<int>(4, -1));
    }

    void anApplicationAloneRegistersNothing()
    {
        m_application = std::make_unique<QCoreApplication>(m_argumentCount, m_arguments);

        QCOMPARE(FramePlugin::loadTimeMetaTypes(), QVector<int>(12, 0));
        QCOMPARE(FramePlugin::loadTimeQmlTypes(), QVector<int>(4, -1));
    }

    void theDeferredRegistrationsFollowTheOrderOfTheTable()
    {
        StaticRegistrar::RegistrarInternals::runDeferred();

        const QVector<int> ids = FramePlugin::loadTimeMetaTypes();
        QVERIFY(!ids.contains(0));
        QVERIFY(FramePlugin::isStrictlyIncreasing(ids));
        QCOMPARE(FramePlugin::loadTimeQmlTypes(), (QVector<int>{2, 3, 4, 5}));
    }

    void afterThatQmlCanWriteThem()
    {
        QQmlEngine engine;

        QVERIFY(FramePlugin::create(engine, "import Frame.Misc 1.0\nComposer {}"));
        QVERIFY(FramePlugin::create(engine, "import Frame.Preview 1.0\nSimpleImage {}"));
    }

    void runningTheQueueAgainRegistersNothingAgain()
    {
        const QVector<int> before = FramePlugin::loadTimeMetaTypes();

        StaticRegistrar::RegistrarInternals::runDeferred();

        QCOMPARE(FramePlugin::loadTimeMetaTypes(), before);
        QCOMPARE(FramePlugin::loadTimeQmlTypes(), (QVector<int>{2, 3, 4, 5}));
    }

    void cleanupTestCase() { m_application.reset(); }

private:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

QTEST_APPLESS_MAIN(tst_LoadBeforeApplication)
#include "tst_load_before_application.moc"
