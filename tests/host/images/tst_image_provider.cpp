#include "sample_images.h"

#include <support/disk_folder.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QtTest>

namespace {

using Desc = TessenImageRequestDesc;
using Response = std::unique_ptr<QQuickImageResponse>;

Response request(const Desc& desc)
{
    TessenImageProvider provider;
    return Response(provider.requestImageResponse(idOf(desc), {}));
}

bool hasFinished(QQuickImageResponse& response)
{
    QSignalSpy finished(&response, &QQuickImageResponse::finished);
    return finished.wait(60000);
}

/// What the counters have gained since it was made.
class Gain
{
public:
    qint64 hits() const { return TessenImageProvider::counters().hits - m_before.hits; }
    qint64 misses() const { return TessenImageProvider::counters().misses - m_before.misses; }
    qint64 evictions() const { return TessenImageProvider::counters().evictions - m_before.evictions; }

private:
    const TessenImageProvider::Counters m_before = TessenImageProvider::counters();
};

/// Keeps all workers busy until it is told to let go.
class BusyWorkers
{
public:
    BusyWorkers()
    {
        for (int count = 0; count < 64; ++count) {
            m_jobs.push_back(Ozy::AsyncManager::async(100, [this] {
                while (!m_isOver)
                    QThread::msleep(1);
            }));
        }
    }
    ~BusyWorkers()
    {
        m_isOver = true;
        for (const auto& job : m_jobs)
            job.wait();
    }

private:
    std::atomic<bool> m_isOver = false;
    std::vector<Ozy::AsyncManager::Job> m_jobs;
};

constexpr qint64 ordinaryRoom = 256 << 20;

} // namespace

/// How pictures come to QML, and what is kept of them.
class tst_ImageProvider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        TessenImageProvider::setCapacity(0);
        TessenImageProvider::setCapacity(ordinaryRoom);
    }

    void aQmlImageShowsAPicture()
    {
        const DiskFolder disk;
        disk.write("a b#c.png", pngOf(filled(64, 32, Qt::red)));
        QQmlEngine engine;
        engine.addImageProvider(Desc::providerId(), new TessenImageProvider);
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15\nImage { cache: false; sourceSize: Qt.size(16, 16) }", QUrl());
        const std::unique_ptr<QObject> image(component.create());

        image->setProperty("source", descOf(disk.path("a b#c.png")).toUrl());

        QTRY_COMPARE(image->property("status").toInt(), 1);
        QCOMPARE(image->property("implicitWidth").toInt(), 16);
        QCOMPARE(image->property("implicitHeight").toInt(), 8);
    }

    void aQmlImageWhoseSourceIsClearedWhileItLoadsIsEmpty()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2048, 2048, Qt::red)));
        QQmlEngine engine;
        engine.addImageProvider(Desc::providerId(), new TessenImageProvider);
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15\nImage { cache: false }", QUrl());
        const std::unique_ptr<QObject> image(component.create());
        image->setProperty("source", descOf(disk.path("a.png")).toUrl());
        QTRY_VERIFY(TessenImageProvider::counters().bytes > 0 || image->property("status").toInt() == 2);

        image->setProperty("source", QUrl());
        QTest::qWait(50);

        QCOMPARE(image->property("status").toInt(), 0);
    }

    void anEngineMayGoWhileItsPicturesLoad()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2048, 2048, Qt::red)));
        auto engine = std::make_unique<QQmlEngine>();
        engine->addImageProvider(Desc::providerId(), new TessenImageProvider);
        QQmlComponent component(engine.get());
        component.setData("import QtQuick 2.15\nImage { cache: false }", QUrl());
        std::unique_ptr<QObject> image(component.create());
        image->setProperty("source", descOf(disk.path("a.png")).toUrl());
        QTest::qWait(2);

        image.reset();
        engine.reset();

        QCOMPARE(shown(descOf(disk.path("a.png"))).picture.size(), QSize(2048, 2048));
    }

    void aResponseMayGoWhileItIsDecoded()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2048, 2048, Qt::red)));

        Response response = request(descOf(disk.path("a.png")));
        QTest::qWait(2);
        response.reset();

        QCOMPARE(shown(descOf(disk.path("a.png"))).picture.size(), QSize(2048, 2048));
    }

    void aResponseThatIsCancelledBeforeItBeginsFinishesAtOnceAndDecodesNothing()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));
        const Gain gain;
        const BusyWorkers busy;
        const Response response = request(descOf(disk.path("a.png")));

        response->cancel();

        QVERIFY(hasFinished(*response));
        QVERIFY(shownBy(*response).picture.isNull());
        QCOMPARE(response->errorString(), QString("cancelled"));
        QCOMPARE(gain.misses(), 0);
    }

    void aResponseThatIsCancelledWhileItIsDecodedFinishes()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2048, 2048, Qt::red)));
        const Gain gain;
        const Response response = request(descOf(disk.path("a.png")));
        QTRY_COMPARE(gain.misses(), 1);

        response->cancel();

        QVERIFY(hasFinished(*response));
    }

    void cancellingOneOfTwoLeavesTheOtherItsPicture()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2048, 2048, Qt::red)));
        const Gain gain;
        const Response first = request(descOf(disk.path("a.png")));
        const Response second = request(descOf(disk.path("a.png")));
        QTRY_COMPARE(gain.hits() + gain.misses(), 2);

        first->cancel();

        QVERIFY(hasFinished(*second));
        QCOMPARE(shownBy(*second).picture.size(), QSize(2048, 2048));
    }

    void theSameRequestedTwiceAtOnceIsDecodedOnce()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(1024, 1024, Qt::red)));
        const Gain gain;

        const Response first = request(descOf(disk.path("a.png")));
        const Response second = request(descOf(disk.path("a.png")));
        QSignalSpy firstFinished(first.get(), &QQuickImageResponse::finished);
        QSignalSpy secondFinished(second.get(), &QQuickImageResponse::finished);
        QTRY_COMPARE(firstFinished.size() + secondFinished.size(), 2);

        QCOMPARE(gain.misses(), 1);
        QCOMPARE(gain.hits(), 1);
        QCOMPARE(shownBy(*first).picture, shownBy(*second).picture);
    }

    void otherChannelsOfAKeptPictureAreNotDecodedAgain()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 4, QColor(200, 100, 50))));
        Desc desc = descOf(disk.path("a.png"));
        shown(desc);
        const Gain gain;

        desc.setChannelVisible(Desc::Red, false);
        const Shown shows = shown(desc);

        QCOMPARE(shows.at(0, 0), QColor(0, 100, 50));
        QCOMPARE(gain.hits(), 1);
        QCOMPARE(gain.misses(), 0);
    }

    void theBytesThatAreKeptAreCounted()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(16, 8, Qt::red)));

        shown(descOf(disk.path("a.png")));

        QCOMPARE(TessenImageProvider::counters().bytes, 16 * 8 * 4);
    }

    void whatWasUsedLeastRecentlyGoesFirst()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(16, 16, Qt::red)));
        disk.write("b.png", pngOf(filled(16, 16, Qt::red)));
        disk.write("c.png", pngOf(filled(16, 16, Qt::red)));
        TessenImageProvider::setCapacity(2 * 16 * 16 * 4);
        shown(descOf(disk.path("a.png")));
        shown(descOf(disk.path("b.png")));
        shown(descOf(disk.path("a.png")));
        const Gain gain;

        shown(descOf(disk.path("c.png")));
        shown(descOf(disk.path("a.png")));

        QCOMPARE(gain.evictions(), 1);
        QCOMPARE(gain.hits(), 1);
        QCOMPARE(gain.misses(), 1);
        QCOMPARE(TessenImageProvider::counters().bytes, 2 * 16 * 16 * 4);
    }

    void aPictureThatIsLargerThanTheRoomIsShownAndNotKept()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(16, 16, Qt::red)));
        TessenImageProvider::setCapacity(100);

        QCOMPARE(shown(descOf(disk.path("a.png"))).at(0, 0), QColor(Qt::red));

        QCOMPARE(TessenImageProvider::counters().bytes, 0);
    }

    void lessRoomTakesEffectAtOnce()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(16, 16, Qt::red)));
        shown(descOf(disk.path("a.png")));

        TessenImageProvider::setCapacity(0);

        QCOMPARE(TessenImageProvider::counters().bytes, 0);
    }

    void aChangedFileIsDecodedAgainThoughNobodyTold()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));
        shown(descOf(disk.path("a.png")));

        disk.write("new.png", pngOf(filled(4, 4, Qt::blue)));
        disk.rename("new.png", "a.png");

        QCOMPARE(shown(descOf(disk.path("a.png"))).at(0, 0), QColor(Qt::blue));
    }

    void aFileThatHasGoneIsNotShownFromWhatIsKept()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));
        shown(descOf(disk.path("a.png")));

        disk.remove("a.png");

        QVERIFY(shown(descOf(disk.path("a.png"))).picture.isNull());
    }
};

QTEST_MAIN(tst_ImageProvider)
#include "tst_image_provider.moc"
