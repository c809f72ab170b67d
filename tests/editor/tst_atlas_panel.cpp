#include "desk.h"
#include "sample_sheet.h"

#include <panels/atlas/atlas_panel.h>

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QTimer>
#include <QtTest>

using editor::AtlasPanel;

namespace {

const QColor oak(240, 0, 0);
const QColor elm(0, 240, 0);

/// A desk with an atlas of three columns and two rows; oak and elm are in it, ash and fir could be.
class AtlasDesk : public Desk
{
public:
    AtlasDesk() : Desk("atlas", &addAtlas) { wait(); }

    SampleProject& project() { return m_project; }
    AtlasPanel& panel() const { return Desk::panel<AtlasPanel>(); }
    void wait()
    {
        if (!QTest::qWaitFor([this] { return !panel().isBusy(); }))
            qFatal("The pictures do not come");
        settle();
    }
    /// The AM textures of the slots by their stems.
    QString slotsRead() const
    {
        QStringList stems;
        for (const auto& tile : *panel().document()->asset()->data().tiles) {
            const QString texture = QString::fromStdString(tile->texturePath(AtlasType::AM));
            stems << (texture.isEmpty() ? "-" : texture.section('/', -1).section("_AM", 0, 0));
        }
        return stems.join(' ');
    }
    QString selected() const
    {
        QStringList numbers;
        for (const QQuickItem* slot : rowItems("slots")) {
            if (slot->property("isSelected").toBool())
                numbers << slot->objectName();
        }
        return numbers.join(' ');
    }
    QStringList steps() const
    {
        QStringList lines;
        for (const QQuickItem* row : rowItems("steps"))
            lines << reads(*row);
        return lines;
    }
    void enter(const QString& field, const QString& text)
    {
        click("entry-" + field);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
        settle();
    }
    void drop(const QStringList& files)
    {
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file.startsWith('/') ? file : m_project.filePath(file));
        QMimeData data;
        data.setUrls(urls);
        const QPoint place = areaOf(item("grid")).center().toPoint();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(item("grid").window(), &enter);
        QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(item("grid").window(), &event);
        settle();
    }

private:
    static void addAtlas(const SampleProject& project)
    {
        SampleSheet::writeTextures(project, "oak", oak);
        SampleSheet::writeTextures(project, "elm", elm);
        SampleSheet::writeTextures(project, "ash", Qt::white);
        SampleSheet::writeTextures(project, "fir", Qt::black);
        SampleSheet::writeAtlas(project, 3, 2, {"oak", "-", "elm", "-", "-", "-"});
    }
};

} // namespace

class tst_AtlasPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheSlotsOfTheAtlas()
    {
        const AtlasDesk desk;

        QCOMPARE(desk.slotsRead(), QString("oak - elm - - -"));
        QCOMPARE(desk.rowItems("slots").size(), 6);
        QCOMPARE(desk.status(), QString("3 \u00d7 2 slots, 4 free, saved"));
        QCOMPARE(desk.text("title"), QString("textures/quay"));
        QTRY_VERIFY(desk.pixels(desk.item("slot-0"), oak) > 100);
    }

    void withoutAnAtlasItSaysWhatIsMissing()
    {
        const Desk desk("atlas");

        QVERIFY(desk.item("noAtlas").isVisible());
        QCOMPARE(desk.status(), QString("No atlas"));
    }

    void withoutAnAtlasThereIsNothingToDropInto()
    {
        const Desk desk("atlas");

        desk.panel<AtlasPanel>().document()->addFiles({QUrl::fromLocalFile("/tmp/ash_AM.png")});

        QCOMPARE(desk.status(), QString("No atlas"));
    }

    void withoutAnAtlasThereIsNothingToCrop()
    {
        const Desk desk("atlas");

        desk.panel<AtlasPanel>().crop();

        QVERIFY(!desk.panel<AtlasPanel>().isModified());
    }

    void aClickSelectsASlotAndShowsItsTextures()
    {
        AtlasDesk desk;

        desk.click("slot-2");

        QCOMPARE(desk.selected(), QString("slot-2"));
        QCOMPARE(desk.text("title"), QString("Slot 2"));
        QCOMPARE(desk.text("entry-AM"), QString("textures/elm_AM.png"));
        QCOMPARE(desk.text("entry-MAO"), QString("textures/elm_MAO.png"));
    }

    void modifiersSelectSeveral()
    {
        AtlasDesk desk;
        desk.click("slot-0");

        desk.click("slot-2", Qt::ShiftModifier);
        const QString range = desk.selected();
        desk.click("slot-1", Qt::ControlModifier);

        QCOMPARE(range, QString("slot-0 slot-1 slot-2"));
        QCOMPARE(desk.selected(), QString("slot-0 slot-2"));
        QCOMPARE(desk.text("title"), QString("2 slots"));
    }

    void theKeysWalkThroughTheGrid()
    {
        AtlasDesk desk;
        desk.click("slot-0");

        desk.press(Qt::Key_Right);
        const QString right = desk.selected();
        desk.press(Qt::Key_Down);
        const QString down = desk.selected();
        desk.press(Qt::Key_A, Qt::ControlModifier);
        const QString all = desk.text("title");
        desk.press(Qt::Key_Escape);

        QCOMPARE(right, QString("slot-1"));
        QCOMPARE(down, QString("slot-4"));
        QCOMPARE(all, QString("6 slots"));
        QCOMPARE(desk.selected(), QString());
    }

    void theTypeChoosesWhichTexturesShow()
    {
        AtlasDesk desk;

        desk.click("GBMT");
        desk.wait();

        QTRY_VERIFY(desk.pixels(desk.item("slot-0"), Qt::blue) > 100);
        QCOMPARE(desk.pixels(desk.item("slot-0"), oak), 0);
    }

    void numbersCanBeHidden()
    {
        AtlasDesk desk;
        const QString before = desk.reads(desk.item("slot-4"));

        desk.click("numbers");

        QCOMPARE(before, QString("4"));
        QCOMPARE(desk.reads(desk.item("slot-4")), QString());
    }

    void theButtonsZoom()
    {
        AtlasDesk desk;
        const double before = desk.item("slot-0").width();

        desk.click("larger");
        desk.click("larger");
        desk.click("larger");
        desk.click("larger");

        QVERIFY(desk.item("slot-0").width() > before);
        QCOMPARE(desk.text("zoom"), QString("366 %"));
    }

    void deleteClearsTheSelectedSlotsAsOneStep()
    {
        AtlasDesk desk;
        desk.click("slot-0");
        desk.click("slot-2", Qt::ControlModifier);

        desk.press(Qt::Key_Delete);
        const QString cleared = desk.slotsRead();
        desk.press(Qt::Key_Z, Qt::ControlModifier);

        QCOMPARE(cleared, QString("- - - - - -"));
        QCOMPARE(desk.slotsRead(), QString("oak - elm - - -"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Clear 2 slots"}));
    }

    void droppedFilesFillTheFreeSlots()
    {
        AtlasDesk desk;

        desk.drop({"textures/ash_AM.png", "textures/fir_AM.png"});

        QCOMPARE(desk.slotsRead(), QString("oak ash elm fir - -"));
        QCOMPARE(desk.steps(), (QStringList{"Opened Saved", "1 Add textures"}));
        QVERIFY(desk.panel().isModified());
    }

    void whatIsDroppedInVainIsToldWithTheReason_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("reason");

        QTest::newRow("no AM texture") << "textures/ash_MAO.png"
                                       << "ash_MAO.png is no AM texture: its name does not end in _AM.png.";
        QTest::newRow("from elsewhere") << "/tmp/ash_AM.png"
                                        << "/tmp/ash_AM.png does not belong to the project.";
        QTest::newRow("wrong size") << "textures/big_AM.png"
                                    << "Selected image size mismatch 'textures/big_AM.png'. Image size: 20x20, "
                                       "required size: 16.";
    }
    void whatIsDroppedInVainIsToldWithTheReason()
    {
        QFETCH(QString, file);
        AtlasDesk desk;
        SampleSheet::picture(20, Qt::red).save(desk.project().filePath("textures/big_AM.png"));

        desk.drop({file});

        QTRY_VERIFY(desk.item("message").isVisible());
        QTEST(desk.text("message"), "reason");
        QCOMPARE(desk.slotsRead(), QString("oak - elm - - -"));
        desk.messages(); // the log has it too
    }

    void aDialogThatIsCancelledChangesNothing()
    {
        AtlasDesk desk;
        QTimer closer;
        connect(&closer, &QTimer::timeout, [] {
            if (QWidget* dialog = QApplication::activeModalWidget())
                dialog->close();
        });
        closer.start(50);

        desk.click("add");

        QCOMPARE(desk.slotsRead(), QString("oak - elm - - -"));
        QVERIFY(!desk.panel().isModified());
        desk.messages(); // the display complains of a focus on a window that goes
    }

    void aRowMoreIsAStepThatCanBeUndone()
    {
        AtlasDesk desk;

        desk.enter("tilesCountY", "3");
        QTRY_COMPARE(desk.rowItems("slots").size(), 9);
        desk.click("undo");

        QTRY_COMPARE(desk.rowItems("slots").size(), 6);
        QCOMPARE(desk.status(), QString("3 \u00d7 2 slots, 4 free, saved"));
    }

    void cropTakesOutWhatIsEmpty()
    {
        AtlasDesk desk;

        desk.click("crop");
        desk.settle();

        QCOMPARE(desk.steps().size(), 2);
        QVERIFY(desk.panel().document()->asset()->totalTilesCount() < 6);
        QVERIFY(desk.slotsRead().contains("oak"));
        QVERIFY(desk.slotsRead().contains("elm"));
    }

    void savingWritesTheFilesAndTakesTheMarkAway()
    {
        AtlasDesk desk;
        desk.drop({"textures/ash_AM.png"});
        const bool wasModified = desk.item("modifiedMark").isVisible();

        desk.press(Qt::Key_S, Qt::ControlModifier);

        QVERIFY(wasModified);
        QVERIFY(!desk.panel().isModified());
        const AtlasAsset written(desk.project().filePath("textures/quay_AM.atlas").toStdString(), nullptr);
        QCOMPARE(written.getTile(1)->texturePath(AtlasType::MAO), std::string("textures/ash_MAO.png"));
    }

    void filesThatChangeOutsideAreReadAgain()
    {
        AtlasDesk desk;

        SampleSheet::writeAtlas(desk.project(), 3, 2, {"oak", "ash", "elm", "-", "-", "-"});

        QTRY_COMPARE(desk.slotsRead(), QString("oak ash elm - - -"));
        QVERIFY(!desk.panel().isModified());
        desk.messages(); // of the moment in which the files do not agree
    }

    void filesThatChangeUnderEditsAreToldAndTheEditsStay()
    {
        AtlasDesk desk;
        desk.click("slot-0");
        desk.press(Qt::Key_Delete);

        SampleSheet::writeAtlas(desk.project(), 3, 2, {"oak", "ash", "elm", "-", "-", "-"});

        QTRY_VERIFY(desk.text("message").contains("has changed on the disk"));
        QCOMPARE(desk.slotsRead(), QString("- - elm - - -"));
        desk.messages();
    }

    void editsAreLostOnlyWhenItIsAskedForTwice()
    {
        AtlasDesk desk;
        desk.click("slot-0");
        desk.press(Qt::Key_Delete);

        desk.press(Qt::Key_F5);
        const QString once = desk.slotsRead();
        desk.press(Qt::Key_F5);

        QCOMPARE(once, QString("- - elm - - -"));
        QCOMPARE(desk.slotsRead(), QString("oak - elm - - -"));
        QVERIFY(!desk.item("message").isVisible());
    }

    void anAtlasWhoseFilesAreGoneIsToldWhenItIsReadAgain()
    {
        AtlasDesk desk;
        desk.click("slot-0");
        QFile::remove(desk.project().filePath("textures/quay_MAO.atlas"));

        desk.press(Qt::Key_F5);

        QCOMPARE(desk.reads(desk.item("noAtlas")), QString("textures/quay_AM.atlas cannot be shown"));
        QTRY_COMPARE(desk.text("message"), QString("Failed to load MAO atlas data."));
        desk.messages();
    }

    void aTileWithoutItsCompanionIsAProblemThatLeadsToItsSlot()
    {
        AtlasDesk desk;
        desk.click("slot-2");

        desk.click("entry-MAO");
        desk.press(Qt::Key_A, Qt::ControlModifier);
        desk.press(Qt::Key_Delete);
        desk.press(Qt::Key_Return);
        const QString problems = desk.reads(desk.item("problems"));
        desk.click("slot-0");
        desk.click(*desk.rowItems("problems").value(0));

        QCOMPARE(problems, QString("Slot 2: No MAO texture"));
        QCOMPARE(desk.selected(), QString("slot-2"));
        QVERIFY(desk.status().contains("1 problem"));
    }
};

int main(int argc, char** argv)
{
    tst_AtlasPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_atlas_panel.moc"
