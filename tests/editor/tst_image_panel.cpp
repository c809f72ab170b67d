#include "desk.h"
#include "sample_sheet.h"

#include "../datamodels/image/sample_images.h"

#include <panels/image/image_panel.h>

#include <QtTest>

using editor::ImagePanel;

namespace {

/// A desk with two pictures more: one of four quarters, and one without alpha.
class ImageDesk : public Desk
{
public:
    ImageDesk() : Desk("image", &addPictures) { wait(); }

    SampleProject& project() { return m_project; }
    ImagePanel& panel() const { return Desk::panel<ImagePanel>(); }
    /// Until the picture shows.
    void wait()
    {
        if (!QTest::qWaitFor([this] { return !panel().isBusy(); }))
            qFatal("The picture does not come");
        settle();
    }
    void choose(const QString& path)
    {
        click(path);
        wait();
    }
    QStringList images() const
    {
        QStringList names;
        for (const QQuickItem* row : rowItems("images"))
            names << reads(*row);
        return names;
    }
    QStringList facts() const
    {
        QStringList lines;
        for (const QQuickItem* row : rowItems("facts"))
            lines << reads(*row);
        return lines;
    }
    double zoom() const { return item("canvas").property("zoom").toDouble(); }

    static QImage quarters(QImage::Format format)
    {
        QImage image(8, 8, format);
        image.fill(red);
        for (int y = 0; y < 8; ++y) {
            for (int x = 4; x < 8; ++x)
                image.setPixelColor(x, y, y < 4 ? green : blue);
        }
        return image;
    }

    static const QColor red;
    static const QColor green;
    static const QColor blue;

private:
    static void addPictures(const SampleProject& project)
    {
        quarters(QImage::Format_RGBA8888).save(project.filePath("textures/quarters.png"));
        quarters(QImage::Format_RGB888).save(project.filePath("textures/solid.png"));
    }
};

const QColor ImageDesk::red(240, 0, 0);
const QColor ImageDesk::green(0, 240, 0);
const QColor ImageDesk::blue(0, 0, 240);

} // namespace

class tst_ImagePanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheFirstImageOfTheProject()
    {
        const ImageDesk desk;

        QCOMPARE(desk.images(), (QStringList{"quarters.png", "quay.png", "solid.png"}));
        QCOMPARE(desk.status(), QString("3 images, textures/quarters.png"));
        QVERIFY(desk.pixels(desk.item("canvas"), ImageDesk::red) > 1000);
    }

    void aClickShowsAnImageWithItsFacts()
    {
        ImageDesk desk;

        desk.choose("textures/quay.png");

        QCOMPARE(desk.status(), QString("3 images, textures/quay.png"));
        QCOMPARE(desk.facts().mid(0, 3), (QStringList{"Width 24", "Height 16", "Depth 1"}));
        QVERIFY(desk.reads(desk.item("form")).startsWith("quay.png Size"));
    }

    void theKeysWalkThroughTheImages()
    {
        ImageDesk desk;
        desk.click("textures/quarters.png");

        desk.press(Qt::Key_Down);
        const QString down = desk.panel().path();
        desk.press(Qt::Key_End);
        const QString end = desk.panel().path();
        desk.press(Qt::Key_Up);

        QCOMPARE(down, QString("textures/quay.png"));
        QCOMPARE(end, QString("textures/solid.png"));
        QCOMPARE(desk.panel().path(), QString("textures/quay.png"));
    }

    void wordsFilterTheListAndLeaveTheImage()
    {
        ImageDesk desk;
        desk.click("words");

        desk.type("quay");

        QCOMPARE(desk.images(), QStringList{"quay.png"});
        QCOMPARE(desk.panel().path(), QString("textures/quarters.png"));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        ImageDesk desk;
        desk.click("words");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty").isVisible();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QCOMPARE(desk.images().size(), 3);
    }

    void aChannelIsTurnedOff()
    {
        ImageDesk desk;

        desk.click("channel-red");
        desk.wait();

        QTRY_COMPARE(desk.pixels(desk.item("canvas"), ImageDesk::red), 0);
        QVERIFY(desk.pixels(desk.item("canvas"), ImageDesk::green) > 1000);
    }

    void shiftShowsAChannelAlone()
    {
        ImageDesk desk;

        desk.click("channel-green", Qt::ShiftModifier);
        desk.wait();

        QTRY_COMPARE(desk.pixels(desk.item("canvas"), ImageDesk::blue), 0);
        QVERIFY(desk.pixels(desk.item("canvas"), ImageDesk::green) > 1000);
    }

    void withoutAChannelTheImageSaysSo()
    {
        ImageDesk desk;

        desk.click("channel-red");
        desk.click("channel-green");
        desk.click("channel-blue");
        desk.wait();

        QTRY_COMPARE(desk.reads(desk.item("sheet")), QString("No channel is shown"));
    }

    void aChannelThatIsMissingCannotBeTurned()
    {
        ImageDesk desk;

        desk.choose("textures/solid.png");

        QVERIFY(!desk.item("channel-alpha").isEnabled());
        QVERIFY(desk.item("channel-blue").isEnabled());
    }

    void theWheelEnlargesByWholePixels()
    {
        ImageDesk desk;
        desk.click("actual");
        const double before = desk.zoom();

        desk.turnWheel(desk.item("canvas"), {300, 300}, 1);
        const double once = desk.zoom();
        desk.turnWheel(desk.item("canvas"), {300, 300}, 1);

        QCOMPARE(before, 1.0);
        QCOMPARE(once, 2.0);
        QCOMPARE(desk.zoom(), 3.0);
        QCOMPARE(desk.text("zoom"), QString("300 %"));
    }

    void anEnlargedPixelHasHardEdges()
    {
        ImageDesk desk;

        desk.click("actual");
        desk.click("larger");
        desk.click("larger");
        desk.click("larger");
        desk.wait();

        // 4 by 8 and twice 4 by 4 pixels, each 16 of the screen: nothing in between.
        QCOMPARE(desk.zoom(), 4.0);
        QTRY_COMPARE(desk.pixels(desk.item("canvas"), ImageDesk::red), 32 * 16);
        QCOMPARE(desk.pixels(desk.item("canvas"), ImageDesk::green), 16 * 16);
    }

    void fitShowsAllOfTheImageAgain()
    {
        ImageDesk desk;
        const double fitting = desk.zoom();
        desk.click("actual");

        desk.click("fit");

        QCOMPARE(desk.zoom(), fitting);
        QVERIFY(desk.item("canvas").property("isFitting").toBool());
    }

    void thePointerTellsItsPixel()
    {
        ImageDesk desk;
        const QQuickItem& sheet = desk.item("sheet");

        desk.moveTo(sheet, {sheet.width() * 0.55, sheet.height() * 0.2});
        desk.settle();

        QCOMPARE(desk.text("pixel"), QString("x 4, y 1"));
    }

    void aFileThatIsPaintedAnewIsShownAnew()
    {
        ImageDesk desk;
        desk.click("channel-blue");
        desk.wait();
        QImage image(8, 8, QImage::Format_RGBA8888);
        image.fill(ImageDesk::green);

        image.save(desk.project().filePath("textures/quarters.png"));

        QTRY_COMPARE(desk.pixels(desk.item("canvas"), ImageDesk::red), 0);
        QTRY_VERIFY(desk.pixels(desk.item("canvas"), ImageDesk::green) > 1000);
        QVERIFY(!desk.panel().channels()->index(2).data(259).toBool()); // the choice stays
    }

    void aCubeMapIsItsSixSidesAsTheCubeUnfolds()
    {
        ImageDesk desk;
        desk.project().write("textures/cube.dds", SampleImages::cubeMap(16));
        QTRY_COMPARE(desk.images().size(), 4);

        desk.choose("textures/cube.dds");

        QCOMPARE(desk.reads(desk.item("sheet")),
                 QString("+X Right -X Left +Y Top -Y Bottom +Z Front -Z Back"));
        QCOMPARE(Desk::areaOf(desk.item("image-4")).left(), Desk::areaOf(desk.item("image-1")).right());
        QCOMPARE(Desk::areaOf(desk.item("image-4")).top(), Desk::areaOf(desk.item("image-2")).bottom());
    }

    void anAtlasIsItsSlots()
    {
        ImageDesk desk;
        SampleSheet::writeTextures(desk.project(), "oak", ImageDesk::red);
        SampleSheet::writeAtlas(desk.project(), 2, 1, {"oak", "-"});
        QTRY_COMPARE(desk.images().size(), 9);

        desk.choose("textures/quay_AM.atlas");

        QTRY_VERIFY(desk.has("slot-1"));
        QVERIFY(!desk.has("slot-2"));
        QTRY_VERIFY(desk.pixels(desk.item("slot-0"), ImageDesk::red) > 1000);
    }

    void aFileThatIsNoImageSaysSo()
    {
        ImageDesk desk;
        desk.project().write("textures/broken.png", QByteArray("no picture"));
        QTRY_COMPARE(desk.images().size(), 4);

        desk.choose("textures/broken.png");

        QTRY_COMPARE(desk.reads(desk.item("state")), QString("Image info not found\ntextures/broken.png"));
        QVERIFY(!desk.messages().isEmpty());
    }
};

int main(int argc, char** argv)
{
    tst_ImagePanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_image_panel.moc"
