#include <panels/panel_table.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int coloursIn(const QImage& image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3) {
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, y));
    }
    return colours.size();
}

/// Absolute paths of what the editor has written.
QStringList picturesIn(const QDir& folder)
{
    QStringList paths;
    for (const QString& name : folder.entryList({"*.png"}, QDir::Files, QDir::Name))
        paths << folder.absoluteFilePath(name);
    return paths;
}

} // namespace

class tst_Screenshots : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        qunsetenv("XDG_RUNTIME_DIR"); // as on a bare machine
        m_process.start(QStringLiteral(EDITOR_PROGRAM), {"--screenshot", m_folder.filePath("shots"), "--trace",
                                                         m_folder.filePath("trace.json")});
        QVERIFY(m_process.waitForFinished(240'000));
    }

    void theEditorLeavesByItselfAndWithoutAWord()
    {
        QCOMPARE(QString::fromUtf8(m_process.readAllStandardError()), QString());
        QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_process.exitCode(), 0);
    }

    void itPrintsWhereThePicturesAre()
    {
        QStringList printed = QString::fromUtf8(m_process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        printed.sort();

        QCOMPARE(printed, picturesIn(m_folder.filePath("shots")));
    }

    void everyPanelHasItsPicture_data()
    {
        QTest::addColumn<QString>("file");

        for (const editor::PanelEntry& entry : editor::panelTable())
            QTest::newRow(entry.name) << QString("%1.png").arg(entry.name);
        QTest::newRow("a filter at work") << "project-filtered.png";
        QTest::newRow("nothing found") << "project-empty.png";
    }
    void everyPanelHasItsPicture()
    {
        QFETCH(QString, file);

        const QImage image(m_folder.filePath("shots/" + file));

        QCOMPARE(image.size(), QSize(1440, 900));
        QVERIFY(coloursIn(image) > 50);
    }

    void theTraceTellsWhatTookTime()
    {
        QFile trace(m_folder.filePath("trace.json"));
        QVERIFY(trace.open(QIODevice::ReadOnly));

        QVERIFY(trace.readAll().contains("\"name\":\"ProjectTreeModel::load\""));
    }

private:
    QTemporaryDir m_folder;
    QProcess m_process;
};

QTEST_GUILESS_MAIN(tst_Screenshots)
#include "tst_screenshots.moc"
