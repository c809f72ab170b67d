#include "desk.h"

#include <panels/assets/assets_panel.h>

#include <QtTest>

using editor::AssetsPanel;

namespace {

class AssetsDesk : public Desk
{
public:
    AssetsDesk() : Desk("assets") {}

    SampleProject& project() { return m_project; }
    QString tiles() const
    {
        QStringList names;
        for (const QQuickItem* tile : rowItems("grid"))
            names << reads(*tile);
        return names.join(' ');
    }
    QString selected() const
    {
        QStringList names;
        for (const QQuickItem* tile : rowItems("grid")) {
            if (tile->property("isSelected").toBool())
                names << reads(*tile);
        }
        return names.join(' ');
    }
    /// A place of the grid beyond its tiles.
    void clickGround() { clickAt(item("grid"), {item("grid").width() - 40, item("grid").height() - 40}); }
    void paint(const QString& file, const QColor& colour)
    {
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(colour);
        image.save(project().filePath(file));
    }
};

const QColor selectedFill("#2a4768");

} // namespace

class tst_AssetsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithAllAssetsByName()
    {
        const AssetsDesk desk;

        QCOMPARE(desk.tiles(), QString("barge.mesh notes.txt quay.png quay.xml Sail.mesh weir.lua"));
        QCOMPARE(desk.selected(), QString());
        QCOMPARE(desk.status(), QString("6 assets"));
    }

    void wordsFilterTheAssets()
    {
        AssetsDesk desk;
        desk.click("words");

        desk.type("quay");

        QCOMPARE(desk.tiles(), QString("quay.png quay.xml"));
        QCOMPARE(desk.status(), QString("2 of 6 assets"));
    }

    void withoutResultsThereIsAReasonAndAWayOut()
    {
        AssetsDesk desk;
        desk.click("words");
        desk.type("lighthouse");
        const bool tellsWhy = desk.item("empty").isVisible();

        desk.click("emptyAction");

        QVERIFY(tellsWhy);
        QVERIFY(!desk.item("empty").isVisible());
        QCOMPARE(desk.status(), QString("6 assets"));
    }

    void aClickSelectsOneAsset()
    {
        AssetsDesk desk;

        desk.click("notes.txt");
        desk.click("boats/barge.mesh");

        QCOMPARE(desk.selected(), QString("barge.mesh"));
        QCOMPARE(desk.status(), QString("6 assets, 1 selected, 300 B"));
        QVERIFY(desk.pixels(desk.item("boats/barge.mesh"), selectedFill) > 1000);
        QCOMPARE(desk.pixels(desk.item("notes.txt"), selectedFill), 0);
    }

    void controlAddsAndTakesAway()
    {
        AssetsDesk desk;
        desk.click("boats/barge.mesh");

        desk.click("scripts/weir.lua", Qt::ControlModifier);
        const QString two = desk.selected();
        const QString status = desk.status();
        desk.click("boats/barge.mesh", Qt::ControlModifier);

        QCOMPARE(two, QString("barge.mesh weir.lua"));
        QCOMPARE(status, QString("6 assets, 2 selected, 1.8 kB"));
        QCOMPARE(desk.selected(), QString("weir.lua"));
    }

    void shiftSelectsARange()
    {
        AssetsDesk desk;
        desk.click("notes.txt");

        desk.click("boats/Sail.mesh", Qt::ShiftModifier);

        QCOMPARE(desk.selected(), QString("notes.txt quay.png quay.xml Sail.mesh"));
    }

    void theArrowsWalkAndWithShiftTheySelect()
    {
        AssetsDesk desk;
        desk.click("boats/barge.mesh");

        desk.press(Qt::Key_Right);
        const QString walked = desk.selected();
        desk.press(Qt::Key_Right, Qt::ShiftModifier);

        QCOMPARE(walked, QString("notes.txt"));
        QCOMPARE(desk.selected(), QString("notes.txt quay.png"));
        QVERIFY(desk.item("textures/quay.png").property("isCurrent").toBool());
    }

    void everythingCanBeSelectedAndNothing()
    {
        AssetsDesk desk;
        desk.click("notes.txt");

        desk.press(Qt::Key_A, Qt::ControlModifier);
        const QString all = desk.status();
        desk.press(Qt::Key_Escape);

        QVERIFY(all.startsWith("6 assets, 6 selected, "));
        QCOMPARE(desk.selected(), QString());
    }

    void aClickBesideTheTilesSelectsNothing()
    {
        AssetsDesk desk;
        desk.click("notes.txt");

        desk.clickGround();

        QCOMPARE(desk.selected(), QString());
        QCOMPARE(desk.status(), QString("6 assets"));
    }

    void whatIsSelectedStaysSoWhileTheFilterShowsIt()
    {
        AssetsDesk desk;
        desk.click("notes.txt");
        desk.click("textures/quay.png", Qt::ControlModifier);

        desk.click("words");
        desk.type("quay");

        QCOMPARE(desk.selected(), QString("quay.png"));
        QVERIFY(desk.status().startsWith("2 of 6 assets, 1 selected"));
    }

    void theSwitchChangesTheSizeOfThePictures()
    {
        AssetsDesk desk;

        desk.click("S");
        const double small = desk.item("notes.txt").width();
        desk.click("L");

        QCOMPARE(small, 88.0);
        QCOMPARE(desk.item("notes.txt").width(), 192.0);
    }

    void imagesAreShownAndFollowTheirFiles()
    {
        AssetsDesk desk;
        const QQuickItem& tile = desk.item("textures/quay.png");

        desk.paint("textures/quay.png", Qt::green);
        QTRY_VERIFY(desk.pixels(tile, Qt::green) > 5000);
        desk.paint("textures/quay.png", Qt::magenta);
        QTRY_VERIFY(desk.pixels(tile, Qt::magenta) > 5000);

        QCOMPARE(desk.pixels(tile, Qt::green), 0);
    }

    void onlyImagesHaveAPicture()
    {
        const AssetsDesk desk;
        const auto& panel = desk.panel<AssetsPanel>();
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(5);

        QVERIFY(panel.pictureOf("textures/quay.png", time).toString().endsWith("/textures/quay.png#5"));
        QCOMPARE(panel.pictureOf("notes.txt", time), QUrl());
    }

    void theGridFollowsTheDisk()
    {
        AssetsDesk desk;
        desk.click("notes.txt");

        desk.project().write("boats/anchor.mesh", 1);
        QTRY_COMPARE(desk.status(), QString("7 assets, 1 selected, 5 B"));
        desk.settle();

        QCOMPARE(desk.tiles(),
                 QString("anchor.mesh barge.mesh notes.txt quay.png quay.xml Sail.mesh weir.lua"));
        QCOMPARE(desk.selected(), QString("notes.txt"));
    }

    void aDeletedAssetLeavesTheSelection()
    {
        AssetsDesk desk;
        desk.click("notes.txt");

        QFile::remove(desk.project().filePath("notes.txt"));

        QTRY_COMPARE(desk.status(), QString("5 assets"));
    }
};

int main(int argc, char** argv)
{
    tst_AssetsPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_assets_panel.moc"
