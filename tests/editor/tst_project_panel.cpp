#include "sample_project.h"

#include <panels/project/project_panel.h>

#include <QSignalSpy>
#include <QTextCodec>
#include <QtTest>

using editor::ProjectDetails;
using editor::ProjectNode;
using editor::ProjectPanel;

namespace {

QStringList shown(ProjectPanel& panel)
{
    QStringList names;
    for (int row = 0; row < panel.rows()->rowCount(); ++row)
        names << panel.rows()->index(row, 0).data().toString();
    return names;
}

void go(ProjectPanel& panel, const QString& name)
{
    panel.cursor()->setRow(shown(panel).indexOf(name));
}

QString fact(const ProjectDetails& details, const QString& label)
{
    for (const QVariant& entry : details.facts()) {
        if (entry.toMap().value("label") == label)
            return entry.toMap().value("value").toString();
    }
    return "(none)";
}

QStringList kinds(ProjectPanel& panel)
{
    QStringList lines;
    const QHash<int, QByteArray> roles = panel.kinds()->roleNames();
    for (int row = 0; row < panel.kinds()->rowCount(); ++row) {
        const QModelIndex index = panel.kinds()->index(row);
        lines << index.data(roles.key("title")).toString() + ' ' + index.data(roles.key("count")).toString();
    }
    return lines;
}

} // namespace

class tst_ProjectPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itOpensWithTheTopOfTheProject()
    {
        const SampleProject project;

        ProjectPanel panel({project.path()});

        QCOMPARE(shown(panel), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
        QCOMPARE(panel.cursor()->row(), -1);
        QVERIFY(panel.details()->isEmpty());
        QVERIFY(!panel.isEmpty());
    }

    void rowsTellWhatTheirFilesAre_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("icon");

        QTest::newRow("folder") << "boats" << "Folder" << "boats" << "320 B" << "folder";
        QTest::newRow("model") << "barge.mesh" << "Model" << "boats/barge.mesh" << "300 B" << "model";
        QTest::newRow("map") << "quay.xml" << "Map" << "scripts/arena_defs/quay.xml" << "50 B" << "map";
        QTest::newRow("script") << "weir.lua" << "Script" << "scripts/weir.lua" << "1.5 kB" << "script";
        QTest::newRow("other") << "notes.txt" << "Document" << "notes.txt" << "5 B" << "document";
    }
    void rowsTellWhatTheirFilesAre()
    {
        QFETCH(QString, name);
        const SampleProject project;
        ProjectPanel panel({project.path()});
        panel.rows()->expandAll();

        const QModelIndex row = panel.rows()->index(shown(panel).indexOf(name), 0);

        QTEST(row.data(ProjectNode::KindRole).toString(), "kind");
        QTEST(row.data(ProjectNode::PathRole).toString(), "path");
        QTEST(row.data(ProjectNode::SizeTextRole).toString(), "size");
        QTEST(row.data(ProjectNode::IconRole).toString(), "icon");
        QCOMPARE(row.data(ProjectNode::ModifiedRole).toDateTime(),
                 QFileInfo(project.filePath(row.data(ProjectNode::PathRole).toString())).lastModified());
    }

    void namesOfAnyLanguageAreReadAsTheyAre()
    {
        SampleProject project;
        project.write("Stra\u00dfe/\u6c34\u8eca.lua", 1);

        ProjectPanel panel({project.path()});
        panel.filter()->text()->setText("\u8eca");

        QCOMPARE(shown(panel), (QStringList{"Stra\u00dfe", "\u6c34\u8eca.lua"}));
    }

    void aLinkToAFolderIsNotFollowed()
    {
        SampleProject project;
        QFile::link(project.path(), project.filePath("boats/loop"));

        ProjectPanel panel({project.path()});
        panel.rows()->expandAll();

        QVERIFY(!shown(panel).contains("loop"));
    }

    void theKindsAreThoseOfTheProjectWithTheirNumbers()
    {
        const SampleProject project;

        ProjectPanel panel({project.path()});

        QCOMPARE(kinds(panel), (QStringList{"Everything 10", "Folders 4", "Textures 1", "Models 2", "Maps 1",
                                            "Scripts 1", "Documents 1"}));
    }

    void theStatusTellsTheNumberOfRows()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        QCOMPARE(panel.status(), QString("10 rows"));
    }

    void theStatusTellsHowManyRowsAFilterLeaves()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        panel.filter()->text()->setText("quay");

        QCOMPARE(panel.status(), QString("5 of 10 rows"));
    }

    void aFilterIsToldInTheStatusOnce()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});
        QCoreApplication::processEvents();
        QSignalSpy told(&panel, &ProjectPanel::statusChanged);

        panel.filter()->text()->setText("quay");
        QCoreApplication::processEvents();

        QCOMPARE(told.size(), 1);
    }

    void aFilterOpensWhatItFindsAndItsEndClosesIt()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        panel.filter()->text()->setText("quay.x");
        const QStringList during = shown(panel);
        panel.filter()->clear();

        QCOMPARE(during, (QStringList{"scripts", "arena_defs", "quay.xml"}));
        QCOMPARE(shown(panel), (QStringList{"boats", "scripts", "textures", "notes.txt"}));
    }

    void aFilterThatLeavesNothingSaysSo()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        panel.filter()->text()->setText("lighthouse");

        QVERIFY(panel.isEmpty());
        QCOMPARE(panel.emptyReason(), QString("None of the 10 rows passes the filters"));
        QCOMPARE(panel.status(), QString("0 of 10 rows"));
    }

    void anEmptyProjectSaysSo()
    {
        const QTemporaryDir folder;

        ProjectPanel panel({folder.path()});

        QVERIFY(panel.isEmpty());
        QCOMPARE(panel.emptyReason(), "There are no files in\n" + folder.path());
        QCOMPARE(panel.status(), QString("0 rows"));
    }

    void theDetailsOfAnImageHaveItsSizeAndAPreview()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});
        panel.rows()->expandAll();

        go(panel, "quay.png");

        QCOMPARE(panel.details()->name(), QString("quay.png"));
        QCOMPARE(panel.details()->kind(), QString("Texture"));
        QCOMPARE(fact(*panel.details(), "Image"), QString("24 \u00d7 16 px, RGBA"));
        QCOMPARE(fact(*panel.details(), "Path"), QString("textures/quay.png"));
        QCOMPARE(panel.details()->image(), QUrl::fromLocalFile(project.filePath("textures/quay.png")));
        QCOMPARE(panel.details()->excerpt(), QString());
    }

    void theDetailsOfADamagedImageSayWhatIsWrong()
    {
        SampleProject project;
        project.write("textures/quay.png", 100);
        ProjectPanel panel({project.path()});
        panel.rows()->expandAll();

        go(panel, "quay.png");

        QCOMPARE(fact(*panel.details(), "Image"), QString("Unsupported image format"));
        QCOMPARE(panel.details()->image(), QUrl());
    }

    void theDetailsOfATextFileShowItsBeginning()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        go(panel, "notes.txt");

        QCOMPARE(panel.details()->excerpt(), QString("xxxxx"));
        QCOMPARE(fact(*panel.details(), "Size"), QString("5 bytes"));
    }

    void theDetailsOfAFileThatIsGoneSaySo()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});
        QFile::remove(project.filePath("notes.txt"));

        go(panel, "notes.txt");

        QCOMPARE(fact(*panel.details(), "Text"), QString("No such file or directory"));
    }

    void theDetailsOfAFolderCountWhatIsInIt()
    {
        const SampleProject project;
        ProjectPanel panel({project.path()});

        go(panel, "scripts");

        QCOMPARE(fact(*panel.details(), "Contains"), QString("1 folder, 1 file"));
        QCOMPARE(fact(*panel.details(), "Size"), QString("1.6 kB  (1550 bytes)"));
    }

    void reloadShowsWhatHasChangedOnDiskAndKeepsThePlace()
    {
        SampleProject project;
        ProjectPanel panel({project.path()});
        panel.rows()->toggle(0);
        go(panel, "barge.mesh");
        QFile::remove(project.filePath("boats/Sail.mesh"));
        project.write("boats/anchor.mesh", 7);
        project.write("boats/barge.mesh", 9);

        panel.reload();

        QCOMPARE(shown(panel), (QStringList{"boats", "anchor.mesh", "barge.mesh", "scripts", "textures", "notes.txt"}));
        QCOMPARE(panel.cursor()->row(), 2);
        QCOMPARE(fact(*panel.details(), "Size"), QString("9 bytes"));
    }

    void reloadKeepsTheFilter()
    {
        SampleProject project;
        ProjectPanel panel({project.path()});
        panel.filter()->text()->setText("barge");
        project.write("scripts/barge.lua", 1);

        panel.reload();

        QCOMPARE(shown(panel), (QStringList{"boats", "barge.mesh", "scripts", "barge.lua"}));
        QCOMPARE(panel.status(), QString("4 of 11 rows"));
    }
};

int main(int argc, char** argv)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); // as the editor itself does
    QCoreApplication application(argc, argv);
    tst_ProjectPanel test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_project_panel.moc"
