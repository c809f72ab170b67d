#include <host/engine/atlas_file.h>

#include <support/disk_folder.h>

#include <QImage>
#include <QtTest>

using Ozy::Fennel::AtlasFile;

namespace {

/// A content folder with textures for tiles of 4 pixels, and the tool at work in it.
class Workshop
{
public:
    void addTexture(const QString& name, QColor colour = Qt::red) const
    {
        addImage(name + "_AM.png", 8, colour);
        addImage(name + "_GBMT.png", 8, colour);
        addImage(name + "_MAO.png", 4, colour);
    }

    void addImage(const QString& name, int side, QColor colour = Qt::red) const
    {
        disk.makeDirectory(name.section('/', 0, -2));
        QImage image(side, side, QImage::Format_RGBA8888);
        image.fill(colour);
        image.save(disk.path(name));
    }

    /// The exit code; what the tool wrote is kept.
    int run(const QStringList& arguments)
    {
        QProcess tool;
        tool.setWorkingDirectory(disk.path());
        tool.start(QCoreApplication::applicationDirPath() + "/atlas-tool", arguments);
        tool.waitForFinished(60000);
        output = relative(tool.readAllStandardOutput());
        errors = relative(tool.readAllStandardError());
        return tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
    }

    /// The textures in one file of an atlas, slot by slot.
    QStringList texturesOf(const QString& file) const
    {
        QStringList textures;
        const AtlasFile::Decoded decoded = AtlasFile::read(disk.bytes(file));
        if (!decoded.data)
            return {"unreadable"};
        for (const auto& [rect, path] : decoded.data->tiles)
            textures << QString("%1,%2 %3").arg(rect.left).arg(rect.top).arg(QString::fromStdString(path));
        return textures;
    }

    QStringList files() const { return QDir(disk.path()).entryList(QDir::Files); }

    DiskFolder disk;
    QString output;
    QString errors;

private:
    QString relative(const QByteArray& text) const { return QString::fromUtf8(text).remove(disk.path() + "/"); }
};

} // namespace

class tst_AtlasTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void createMakesAnAtlasOfAFolderOfTextures()
    {
        Workshop shop;
        shop.addTexture("trees/oak 10");
        shop.addTexture("trees/oak 9");
        shop.addTexture(QString::fromUtf8("trees/\xC3\xA9rable"));

        QCOMPARE(shop.run({"create", "park", "--from", "trees"}), 0);

        QCOMPARE(shop.output, QString("park: 2 by 2 slots of 4 pixels, 3 filled\n"));
        QCOMPARE(shop.texturesOf("park_AM.atlas"), QStringList({"0,0 trees/oak 9_AM.png", "4,0 trees/oak 10_AM.png",
                                                               QString::fromUtf8("0,4 trees/\xC3\xA9rable_AM.png")}));
        QCOMPARE(shop.texturesOf("park_MAO.atlas"), QStringList({"0,0 trees/oak 9_MAO.png", "2,0 trees/oak 10_MAO.png",
                                                                QString::fromUtf8("0,2 trees/\xC3\xA9rable_MAO.png")}));
        QCOMPARE(shop.files(), QStringList({"park_AM.atlas", "park_GBMT.atlas", "park_MAO.atlas"}));
    }

    void theNumberOfColumnsCanBeGiven()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.addTexture("trees/elm");
        shop.addTexture("trees/fir");

        QCOMPARE(shop.run({"create", "park", "--from", "trees", "--columns", "1"}), 0);

        QCOMPARE(shop.output, QString("park: 1 by 3 slots of 4 pixels, 3 filled\n"));
    }

    void aTextureWithoutItsCompanionsMakesNoAtlas()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.addImage("trees/pine_AM.png", 8);

        QCOMPARE(shop.run({"create", "park", "--from", "trees"}), 1);

        QCOMPARE(shop.errors, QString("File 'trees/pine_GBMT.png' doesn't exist.\npark was not written\n"));
        QCOMPARE(shop.files(), QStringList());
    }

    void anAtlasThatIsThereIsWrittenOverOnlyWhenAskedFor()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.disk.write("park_MAO.atlas", "precious");

        QCOMPARE(shop.run({"create", "park", "--from", "trees"}), 1);
        QCOMPARE(shop.errors, QString("park exists; --replace writes over it\n"));
        QCOMPARE(shop.texturesOf("park_MAO.atlas"), QStringList{"unreadable"});

        QCOMPARE(shop.run({"create", "park", "--from", "trees", "--replace"}), 0);
        QCOMPARE(shop.texturesOf("park_MAO.atlas"), QStringList{"0,0 trees/oak_MAO.png"});
    }

    void infoTellsWhatTheThreeFilesHold()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.run({"create", "park", "--from", "trees"});

        QCOMPARE(shop.run({"info", "park_GBMT.atlas"}), 0);

        QCOMPARE(shop.output, QString("park\n"
                                      "  AM: 4 by 4 pixels, 1 by 1 slots of 4 pixels, 1 filled\n"
                                      "  GBMT: 4 by 4 pixels, 1 by 1 slots of 4 pixels, 1 filled\n"
                                      "  MAO: 2 by 2 pixels, 1 by 1 slots of 2 pixels, 1 filled\n"));
    }

    void validateFindsNothingWrongWithASoundAtlas()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.run({"create", "park", "--from", "trees"});

        QCOMPARE(shop.run({"validate", "park"}), 0);

        QCOMPARE(shop.output, QString("park: valid\n"));
        QCOMPARE(shop.errors, QString());
    }

    void validateTellsOfATextureThatHasGone()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.run({"create", "park", "--from", "trees"});
        shop.disk.remove("trees/oak_MAO.png");

        QCOMPARE(shop.run({"validate", "park"}), 1);

        QCOMPARE(shop.errors,
                 QString("park, slot 0: MAO texture 'trees/oak_MAO.png' does not exist\npark: not valid\n"));
    }

    void validateTellsWhyAFileCannotBeRead()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.run({"create", "park", "--from", "trees"});
        shop.disk.write("park_MAO.atlas", "noise");

        QCOMPARE(shop.run({"validate", "park"}), 1);

        QCOMPARE(shop.errors, QString("Atlas file 'park_MAO.atlas' is no atlas file.\n"
                                      "Failed to load MAO atlas data.\npark: not valid\n"));
    }

    void exportDrawsAPictureOfEachClass()
    {
        Workshop shop;
        shop.addTexture("trees/elm", QColor(10, 20, 30, 0));
        shop.addTexture("trees/oak", QColor(200, 100, 50, 255));
        shop.run({"create", "park", "--from", "trees"});

        QCOMPARE(shop.run({"export", "park", "--to", "pictures"}), 0);

        const QImage am(shop.disk.path("pictures/park_AM.png"));
        const QImage mao(shop.disk.path("pictures/park_MAO.png"));
        QCOMPARE(am.size(), QSize(8, 4));
        QCOMPARE(mao.size(), QSize(4, 2));
        // Colours under an alpha of nothing are data all the same.
        QCOMPARE(am.pixel(3, 3), qRgba(10, 20, 30, 0));
        QCOMPARE(am.pixel(4, 0), qRgba(200, 100, 50, 255));
        QCOMPARE(mao.pixel(3, 1), qRgba(200, 100, 50, 255));
    }

    void exportRefusesATextureThatDoesNotFit()
    {
        Workshop shop;
        shop.addTexture("trees/oak");
        shop.run({"create", "park", "--from", "trees"});
        shop.addImage("trees/oak_AM.png", 16);

        QCOMPARE(shop.run({"export", "park", "--to", "pictures"}), 1);

        QCOMPARE(shop.errors, QString("trees/oak_AM.png is no image of 8 by 8 pixels\n"));
        QCOMPARE(QDir(shop.disk.path("pictures")).entryList(QDir::Files), QStringList({"park_GBMT.png", "park_MAO.png"}));
    }

    void aRequestThatMakesNoSenseIsTold_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");

        QTest::newRow("nothing") << QStringList() << "no command";
        QTest::newRow("unknown") << QStringList{"draw", "park"} << "no command 'draw'";
        QTest::newRow("no atlas") << QStringList{"info"} << "no atlas";
        QTest::newRow("two atlases") << QStringList{"export", "park", "town", "--to", "x"} << "more than one atlas";
        QTest::newRow("no source") << QStringList{"create", "park"} << "--from is missing";
        QTest::newRow("no target") << QStringList{"export", "park"} << "--to is missing";
        QTest::newRow("columns") << QStringList{"create", "park", "--from", "x", "--columns", "two"}
                                 << "--columns is no number from 1 to 16384";
        QTest::newRow("content") << QStringList{"info", "park", "--content", "nowhere"}
                                 << "a directory of --content is not there";
    }
    void aRequestThatMakesNoSenseIsTold()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        Workshop shop;

        QCOMPARE(shop.run(arguments), 2);

        QVERIFY2(shop.errors.endsWith("atlas-tool: " + reason + "; atlas-tool --help tells more\n"), qPrintable(shop.errors));
    }
};

QTEST_GUILESS_MAIN(tst_AtlasTool)
#include "tst_atlas_tool.moc"
