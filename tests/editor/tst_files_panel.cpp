#include "desk.h"

#include <panels/files/files_panel.h>

#include <QtTest>

using editor::FilesPanel;

namespace {

const QStringList closed{"boats", "scripts", "textures"};

class FilesDesk : public Desk
{
public:
    /// With a picture of a known size.
    explicit FilesDesk(const std::function<void(const SampleProject&)>& more = [](const SampleProject&) {})
        : Desk("files", [&more](const SampleProject& project) {
              QFile::remove(project.filePath("textures/quay.png"));
              project.write("textures/quay.tga", 80);
              more(project);
          })
    {
        finish();
    }

    SampleProject& project() { return m_project; }
    FilesPanel& files() const { return panel<FilesPanel>(); }
    QStringList folders() const { return names("folders"); }
    QStringList maps() const { return texts("maps"); }
    QStringList results() const { return texts("results"); }
    QString currentResult() const
    {
        for (const QQuickItem* row : rowItems("results")) {
            if (row->property("isCurrent").toBool())
                return reads(*row);
        }
        return {};
    }

    void open(const QString& folder) { doubleClick(*rowItems("folders").value(folders().indexOf(folder)), {100, 10}); }
    void search(const QString& text)
    {
        click("searchText");
        type(text);
        finish();
    }
    /// What goes on in the background.
    void finish()
    {
        if (!QTest::qWaitFor([this] { return !files().isBusy(); }))
            qFatal("The work in the background does not end");
        settle();
    }

private:
    QStringList texts(const QString& list) const
    {
        QStringList texts;
        for (const QQuickItem* row : rowItems(list))
            texts << reads(*row);
        return texts;
    }
};

} // namespace

class tst_FilesPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheFoldersOfTheProjectAndItsMaps()
    {
        const FilesDesk desk;

        QCOMPARE(desk.folders(), closed);
        QCOMPARE(desk.maps(), QStringList{"quay"});
        QCOMPARE(desk.results(), QStringList());
        QVERIFY(desk.item("noResults").isVisible());
    }

    void theWholeProjectIsReadAndCounted()
    {
        const FilesDesk desk;

        QVERIFY2(desk.text("progress").startsWith("Read 4 folders and 6 files, "), qPrintable(desk.text("progress")));
        QVERIFY(!desk.item("cancelScan").isVisible());
    }

    void aFolderIsReadWhenItIsOpened()
    {
        FilesDesk desk;
        QFile::remove(desk.project().filePath("boats/Sail.mesh"));

        desk.open("scripts");

        QCOMPARE(desk.folders(), (QStringList{"boats", "scripts", "arena_defs", "weir.lua", "textures"}));
    }

    void anEmptyFolderDoesNotOpen()
    {
        FilesDesk desk([](const SampleProject& project) { QDir(project.path()).mkdir("empty"); });

        desk.open("empty");

        QCOMPARE(desk.folders(), (QStringList{"boats", "empty", "scripts", "textures"}));
    }

    void rowsGoWithTheirFiles()
    {
        FilesDesk desk;
        desk.open("boats");

        QFile::remove(desk.project().filePath("boats/barge.mesh"));

        QTRY_COMPARE(desk.folders(), (QStringList{"boats", "Sail.mesh", "scripts", "textures"}));
    }

    void aTreeThatIsRemovedTakesAllItsRows()
    {
        FilesDesk desk;
        desk.open("scripts");
        desk.open("arena_defs");

        QDir(desk.project().filePath("scripts")).removeRecursively();

        QTRY_COMPARE(desk.folders(), (QStringList{"boats", "textures"}));
    }

    void whatIsTypedIsLookedForEverywhere()
    {
        FilesDesk desk;

        desk.search("quay");

        QCOMPARE(desk.results(), (QStringList{"quay.xml scripts/arena_defs 50 B", "quay.tga textures 80 B"}));
        QCOMPARE(desk.text("found"), QString("2 found"));
        QVERIFY(desk.pixels(*desk.rowItems("results").first(), QColor("#5f5020")) > 0);
    }

    void aNumberIsMarkedAsItIsWrittenInTheName()
    {
        FilesDesk desk([](const SampleProject& project) { project.write("boats/oar007.mesh", 7); });

        desk.search("oar7");

        QCOMPARE(desk.results(), (QStringList{"oar007.mesh boats 7 B"}));
        QVERIFY(desk.pixels(*desk.rowItems("results").first(), QColor("#5f5020")) > 0);
    }

    void anotherWordTakesTheOldResultsAway()
    {
        FilesDesk desk;
        desk.search("quay");

        desk.search(".xml");

        QCOMPARE(desk.results(), (QStringList{"quay.xml scripts/arena_defs 50 B"}));
    }

    void withoutWordsThereAreNoResults()
    {
        FilesDesk desk;
        desk.search("quay");

        desk.press(Qt::Key_Escape);
        desk.finish();

        QCOMPARE(desk.results(), QStringList());
    }

    void aClickOnAColumnSortsAndASecondTurnsItRound()
    {
        FilesDesk desk;
        desk.search("mesh");

        desk.click("header-size");
        const QStringList ascending = desk.results();
        desk.click("header-size");

        QCOMPARE(ascending, (QStringList{"Sail.mesh boats 20 B", "barge.mesh boats 300 B"}));
        QCOMPARE(desk.results(), (QStringList{"barge.mesh boats 300 B", "Sail.mesh boats 20 B"}));
    }

    void withShiftColumnsAreSortedWithinOneAnother()
    {
        FilesDesk desk([](const SampleProject& project) { project.write("scripts/a.mesh", 20); });
        desk.search("mesh");

        desk.click("header-size");
        desk.click("header-path", Qt::ShiftModifier);
        desk.click("header-path", Qt::ShiftModifier);

        QCOMPARE(desk.results(),
                 (QStringList{"a.mesh scripts 20 B", "Sail.mesh boats 20 B", "barge.mesh boats 300 B"}));
    }

    void nextAndPreviousGoRoundAndShowEachInItsFolder()
    {
        FilesDesk desk;
        desk.search("quay");

        desk.press(Qt::Key_F3);
        const QString first = desk.currentResult();
        desk.press(Qt::Key_F3, Qt::ShiftModifier);

        QCOMPARE(first, QString("quay.xml scripts/arena_defs 50 B"));
        QCOMPARE(desk.currentResult(), QString("quay.tga textures 80 B"));
        QCOMPARE(desk.text("found"), QString("2 of 2"));
        QCOMPARE(desk.currentName("folders"), QString("quay.tga"));
    }

    void aClickOnAResultOpensTheFoldersAboveIt()
    {
        FilesDesk desk;
        desk.search("quay");

        desk.click(*desk.rowItems("results").first());

        QCOMPARE(desk.folders(),
                 (QStringList{"boats", "scripts", "arena_defs", "quay.xml", "weir.lua", "textures"}));
        QCOMPARE(desk.currentName("folders"), QString("quay.xml"));
    }

    void oneFolderIsSearchedAlone()
    {
        FilesDesk desk;
        desk.search("quay");
        desk.click(*desk.rowItems("folders").last());

        desk.click("scanCurrent");
        desk.finish();

        QCOMPARE(desk.results(), (QStringList{"quay.tga textures 80 B"}));
        QVERIFY2(desk.text("progress").startsWith("Read 0 folders and 1 file, "), qPrintable(desk.text("progress")));
    }

    void aScanMayBeCancelled()
    {
        FilesDesk desk;

        desk.files().scanProject();
        desk.files().scan()->cancel();

        QVERIFY(!desk.files().isBusy());
        QVERIFY2(desk.text("progress").startsWith("Cancelled after "), qPrintable(desk.text("progress")));
        desk.search("barge");
        QCOMPARE(desk.results(), (QStringList{"barge.mesh boats 300 B"}));
    }

    void mapsAreTickedAloneAndTogether()
    {
        FilesDesk desk([](const SampleProject& project) { project.write("scripts/arena_defs/weir.xml", 5); });

        desk.click(*desk.rowItems("maps").first());
        const QString one = desk.reads(desk.item("allMaps"));
        desk.click("allMaps");

        QCOMPARE(one, QString("All (1 of 2)"));
        QCOMPARE(desk.reads(desk.item("allMaps")), QString("All (2 of 2)"));
    }

    void lookingAgainFindsWhatHasCome()
    {
        FilesDesk desk;
        desk.project().write("boats/oar.mesh", 7);

        desk.press(Qt::Key_F5);
        desk.finish();
        desk.search("oar");

        QCOMPARE(desk.results(), (QStringList{"oar.mesh boats 7 B"}));
    }

    void thePanelMayCloseWhileItReadsAndSearches()
    {
        FilesDesk desk;

        desk.files().scanProject();
        desk.files().search()->setText("e");

        QVERIFY(desk.files().isBusy());
    }
};

int main(int argc, char** argv)
{
    tst_FilesPanel test;
    return runAtDesk(test, argc, argv);
}
#include "tst_files_panel.moc"
