#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

/// Paths below a directory, sorted.
QStringList filesBelow(const QDir& folder)
{
    QStringList files;
    for (QDirIterator it(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();)
        files << folder.relativeFilePath(it.next());
    files.sort();
    return files;
}

/// Files of `fresh` that `committed` has not, or has otherwise.
QStringList differences(const QDir& fresh, const QDir& committed)
{
    QStringList different;
    for (const QString& file : filesBelow(fresh)) {
        if (bytesOf(fresh.filePath(file)) != bytesOf(committed.filePath(file)))
            different << file;
    }
    return different;
}

QStringList without(QStringList files, const QStringList& others)
{
    for (const QString& file : others)
        files.removeAll(file);
    return files;
}

qint64 bytesBelow(const QDir& folder)
{
    qint64 total = 0;
    for (const QString& file : filesBelow(folder))
        total += QFileInfo(folder.filePath(file)).size();
    return total;
}

/// The sizes of a tile's three images.
QVector<QSize> sizesOfTile(const QDir& folder, const QString& name)
{
    return {QImage(folder.filePath(name + "_AM.png")).size(), QImage(folder.filePath(name + "_GBMT.png")).size(),
            QImage(folder.filePath(name + "_MAO.png")).size()};
}

} // namespace

class tst_SampleContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_fresh.isValid());
        QCOMPARE(QProcess::execute(QStringLiteral(CONTENT_GENERATOR), {m_fresh.path()}), 0);
    }

    void theGeneratorReproducesTheCommittedFilesByteForByte()
    {
        QCOMPARE(differences(QDir(m_fresh.path()), m_committed), QStringList());
    }

    void onlyTheScriptsAndTheProjectsOwnFilesAreWrittenByHand()
    {
        const QStringList byHand = without(filesBelow(m_committed), filesBelow(QDir(m_fresh.path())));

        const QRegularExpression allowed(
            "^(project\\.json|notes\\.txt|scripts/(canal|crews|rules|tools)/\\w+\\.(lua|py))$");
        QCOMPARE(byHand.filter(allowed), byHand);
        QCOMPARE(byHand.size(), 16);
    }

    void theGeneratorRefusesToRunWithoutADirectory()
    {
        QCOMPARE(QProcess::execute(QStringLiteral(CONTENT_GENERATOR), {}), 2);
    }

    void aDirectoryThatCannotBeWrittenIsAFailure()
    {
        QCOMPARE(QProcess::execute(QStringLiteral(CONTENT_GENERATOR), {"/dev/null/content"}), 1);
    }

    void everyTileHasItsThreeImagesAndTheLastAtHalfTheSide_data()
    {
        QTest::addColumn<QString>("name");

        const QStringList colours = QDir(m_committed.filePath("textures/tiles")).entryList({"*_AM.png"});
        QCOMPARE(colours.size(), 14);
        for (const QString& colour : colours)
            QTest::newRow(qPrintable(colour)) << colour.chopped(7);
    }
    void everyTileHasItsThreeImagesAndTheLastAtHalfTheSide()
    {
        QFETCH(QString, name);

        QCOMPARE(sizesOfTile(m_committed.filePath("textures/tiles"), name),
                 (QVector<QSize>{{128, 128}, {128, 128}, {64, 64}}));
    }

    void itIsSmall()
    {
        QVERIFY(bytesBelow(m_committed) < 1'500'000);
    }

private:
    QTemporaryDir m_fresh;
    const QDir m_committed{QStringLiteral(SAMPLE_CONTENT)};
};

QTEST_GUILESS_MAIN(tst_SampleContent)
#include "tst_sample_content.moc"
