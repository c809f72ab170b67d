#include <host/images/tessen_image_request_desc.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickAsyncImageProvider>
#include <QtTest>

#include <limits>

using Desc = TessenImageRequestDesc;

namespace {

Desc descOf(const QString& fileName)
{
    Desc desc;
    desc.setFileName(fileName);
    return desc;
}

/// Notes what the engine asks for, and answers with nothing.
class AskedProvider : public QQuickAsyncImageProvider
{
public:
    explicit AskedProvider(QStringList& asked) : m_asked(asked) {}

    QQuickImageResponse* requestImageResponse(const QString& id, const QSize&) override
    {
        m_asked << id;
        return new Nothing;
    }

private:
    struct Nothing : QQuickImageResponse
    {
        Nothing() { QMetaObject::invokeMethod(this, &QQuickImageResponse::finished, Qt::QueuedConnection); }
        QQuickTextureFactory* textureFactory() const override { return nullptr; }
        QString errorString() const override { return "nothing"; }
    };

    QStringList& m_asked;
};

} // namespace

class tst_ImageRequestDesc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewOneShowsTheColoursOfTheFirstImageWithoutAlpha()
    {
        const Desc desc;

        QCOMPARE(desc.fileName(), QString());
        QCOMPARE(desc.imageIndex(), 0);
        QVERIFY(desc.isChannelVisible(Desc::Red));
        QVERIFY(desc.isChannelVisible(Desc::Green));
        QVERIFY(desc.isChannelVisible(Desc::Blue));
        QVERIFY(!desc.isChannelVisible(Desc::Alpha));
        QCOMPARE(desc.mip(), 0);
        QCOMPARE(desc.exposure(), 0.0f);
    }

    void channelsAreAlsoNamedByTheirNumber()
    {
        Desc desc;

        desc.setChannelVisible(1, false);
        desc.setChannelVisible(0, true);

        QVERIFY(!desc.isChannelVisible(Desc::Red));
        QVERIFY(desc.isChannelVisible(Desc::Alpha));
    }

    void channelsThatThereAreNotAreIgnored()
    {
        Desc desc;

        desc.setChannelVisible(4, true);
        desc.setChannelVisible(-1, true);

        QCOMPARE(desc, Desc());
        QVERIFY(!desc.isChannelVisible(4));
        QVERIFY(!desc.isChannelVisible(-1));
    }

    void withAllChannelsOffNoneIsVisible()
    {
        Desc desc;

        desc.setChannelVisible(Desc::Red, false);
        desc.setChannelVisible(Desc::Green, false);
        desc.setChannelVisible(Desc::Blue, false);

        QVERIFY(!desc.hasVisibleChannels());
    }

    void alphaAloneIsVisible()
    {
        Desc desc;
        desc.setChannelVisible(Desc::Red, false);
        desc.setChannelVisible(Desc::Green, false);
        desc.setChannelVisible(Desc::Blue, false);

        desc.setChannelVisible(Desc::Alpha, true);

        QVERIFY(desc.hasVisibleChannels());
    }

    void exposureIsBounded_data()
    {
        QTest::addColumn<float>("set");
        QTest::addColumn<float>("exposure");
        QTest::newRow("inside") << 1.5f << 1.5f;
        QTest::newRow("too dark") << -1000.0f << -64.0f;
        QTest::newRow("infinite") << std::numeric_limits<float>::infinity() << 64.0f;
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN() << 0.0f;
    }
    void exposureIsBounded()
    {
        QFETCH(float, set);
        QFETCH(float, exposure);
        Desc desc;

        desc.setExposure(set);

        QCOMPARE(desc.exposure(), exposure);
    }

    void theUrlTellsWhatIsShown_data()
    {
        QTest::addColumn<Desc>("desc");
        QTest::addColumn<QString>("url");
        QTest::newRow("plain") << descOf("textures/oak.png") << "image://tessen/0_rgb/textures/oak.png";
        Desc side = descOf("sky.dds");
        side.setImageIndex(5);
        side.setChannelVisible(Desc::Alpha, true);
        side.setChannelVisible(Desc::Green, false);
        QTest::newRow("a side") << side << "image://tessen/5_rba/sky.dds";
        Desc bright = descOf("sky.exr");
        bright.setMip(2);
        bright.setExposure(-0.1f);
        QTest::newRow("mip and exposure") << bright << "image://tessen/0_rgb_m2_e-0.1/sky.exr";
        Desc none = descOf("a.png");
        none.setChannelVisible(Desc::Red, false);
        none.setChannelVisible(Desc::Green, false);
        none.setChannelVisible(Desc::Blue, false);
        QTest::newRow("no channel") << none << "image://tessen/0_none/a.png";
    }
    void theUrlTellsWhatIsShown()
    {
        QFETCH(Desc, desc);
        QFETCH(QString, url);

        QCOMPARE(desc.toUrl().toString(), url);
        QCOMPARE(*Desc::fromUrl(desc.toUrl()), desc);
    }

    void anyFileNameComesBackFromTheUrl_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("empty") << QString();
        QTest::newRow("absolute") << "/home/ann/oak.png";
        QTest::newRow("spaces") << " two  spaces .png ";
        QTest::newRow("percent") << "100%25%.png";
        QTest::newRow("fragment and query") << "a#b?c=d&e+f;g.png";
        QTest::newRow("escape") << "a~20b~.png";
        QTest::newRow("dots") << "../.././.hidden/..png";
        QTest::newRow("slashes") << "//share///oak.png/";
        QTest::newRow("backslashes") << "C:\\art\\oak.png";
        QTest::newRow("umlauts") << QString::fromUtf8("B\u00e4ume/\u0434\u0443\u0431/\u6a39.png");
        QTest::newRow("beyond 16 bits") << QString::fromUtf8("\U0001F333.png");
        QTest::newRow("half a pair") << QString(QChar(0xd83c)) + ".png";
        QTest::newRow("line break") << "a\nb.png";
        QTest::newRow("upper case") << "OAK_AM.DDS";
        QTest::newRow("a URL") << "image://tessen/0_rgb/a.png";
    }
    void anyFileNameComesBackFromTheUrl()
    {
        QFETCH(QString, fileName);

        const auto desc = Desc::fromUrl(QUrl(descOf(fileName).toUrl().toString()));

        QVERIFY(desc);
        QCOMPARE(desc->fileName(), fileName);
    }

    void theUrlStaysAsItIsWhenItIsResolved_data() { anyFileNameComesBackFromTheUrl_data(); }
    void theUrlStaysAsItIsWhenItIsResolved()
    {
        QFETCH(QString, fileName);
        const QUrl url = descOf(fileName).toUrl();

        const QUrl resolved = QUrl("qrc:/panels/image/Image.qml").resolved(url);

        QCOMPARE(resolved, url);
    }

    void aQmlImageAsksTheProviderForTheSameDescription_data() { anyFileNameComesBackFromTheUrl_data(); }
    void aQmlImageAsksTheProviderForTheSameDescription()
    {
        QFETCH(QString, fileName);
        const Desc desc = descOf(fileName);
        QStringList asked;
        QQmlEngine engine;
        engine.addImageProvider(Desc::providerId(), new AskedProvider(asked));
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.15\nImage { cache: false }", QUrl("qrc:/Image.qml"));
        const std::unique_ptr<QObject> image(component.create());

        image->setProperty("source", desc.toUrl());
        QTRY_COMPARE(image->property("status").toInt(), 3);

        QCOMPARE(asked.size(), 1);
        QCOMPARE(*Desc::fromId(asked.first()), desc);
    }

    void whatIsNoUrlOfADescriptionGivesNothing_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("empty") << QUrl();
        QTest::newRow("another scheme") << QUrl("file:///0_rgb/a.png");
        QTest::newRow("another provider") << QUrl("image://other/0_rgb/a.png");
        QTest::newRow("no file") << QUrl("image://tessen/0_rgb");
        QTest::newRow("no channels") << QUrl("image://tessen/0/a.png");
        QTest::newRow("no index") << QUrl("image://tessen/_rgb/a.png");
        QTest::newRow("channels twice") << QUrl("image://tessen/0_rrgb/a.png");
        QTest::newRow("unknown part") << QUrl("image://tessen/0_rgb_x1/a.png");
        QTest::newRow("number out of range") << QUrl("image://tessen/99999999999_rgb/a.png");
        QTest::newRow("exposure out of range") << QUrl("image://tessen/0_rgb_e65/a.png");
        QTest::newRow("not escaped") << QUrl("image://tessen/0_rgb/a%20b.png");
        QTest::newRow("half an escape") << QUrl("image://tessen/0_rgb/a~2");
    }
    void whatIsNoUrlOfADescriptionGivesNothing()
    {
        QFETCH(QUrl, url);

        QVERIFY(!Desc::fromUrl(url));
    }

    void differentDescriptionsHaveDifferentUrls()
    {
        Desc other = descOf("a.png");
        QSet<QUrl> urls{descOf("a.png").toUrl(), descOf("b.png").toUrl(), descOf("A.png").toUrl()};

        other.setImageIndex(1);
        urls << other.toUrl();
        other.setMip(1);
        urls << other.toUrl();
        other.setExposure(1);
        urls << other.toUrl();
        other.setExposure(std::nextafter(1.0f, 2.0f));
        urls << other.toUrl();
        other.setChannelVisible(Desc::Alpha, true);
        urls << other.toUrl();

        QCOMPARE(urls.size(), 8);
    }
};

QTEST_MAIN(tst_ImageRequestDesc)
#include "tst_image_request_desc.moc"
