#include <editor_options.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using editor::Options;
using editor::parseOptions;

namespace {

struct Outcome
{
    int exitCode;
    QString output;
    QString errors;
};

Outcome runEditor(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(EDITOR_PROGRAM), arguments);
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

class tst_EditorOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutArgumentsTheSampleProjectIsOpened()
    {
        const Options options = parseOptions({});

        QCOMPARE(options.error, QString());
        QVERIFY(QFileInfo(options.content + "/project.json").isFile());
        QCOMPARE(options.panel, QString());
        QCOMPARE(options.screenshot, QString());
        QCOMPARE(options.trace, QString());
        QVERIFY(!options.help);
    }

    void everyOptionIsTakenOver()
    {
        QTemporaryDir folder;

        const Options options = parseOptions({"--content", folder.path(), "--panel=project", "--screenshot",
                                              folder.filePath("shots"), "--trace", "trace.json"});

        QCOMPARE(options.error, QString());
        QCOMPARE(options.content, folder.path());
        QCOMPARE(options.panel, QString("project"));
        QCOMPARE(options.screenshot, folder.filePath("shots"));
        QCOMPARE(options.trace, QString("trace.json"));
    }

    void theDirectoryForPicturesIsMade()
    {
        QTemporaryDir folder;

        parseOptions({"--screenshot", folder.filePath("a/b")});

        QVERIFY(QFileInfo(folder.filePath("a/b")).isDir());
    }

    void helpIsGivenWhateverElseIsWrong()
    {
        const Options options = parseOptions({"--content", "/nowhere", "--help"});

        QVERIFY(options.help);
        QCOMPARE(options.error, QString());
    }

    void badArgumentsEndWithOneLineAndTheCodeTwo_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("line");

        QTest::newRow("unknown option") << QStringList{"--colour"} << "Unknown option 'colour'.";
        QTest::newRow("missing value") << QStringList{"--content"} << "Missing value after '--content'.";
        QTest::newRow("empty value") << QStringList{"--content", ""} << "--content needs a value";
        QTest::newRow("missing directory")
            << QStringList{"--content", "/nowhere"} << "no such directory: \"/nowhere\"";
        QTest::newRow("file for a directory")
            << QStringList{"--content", "/etc/passwd"} << "no such directory: \"/etc/passwd\"";
        QTest::newRow("unknown panel")
            << QStringList{"--panel", "cellar"}
            << "no such panel: \"cellar\"; available: " + editor::panelNames().join(", ");
        QTest::newRow("pictures where no directory can be")
            << QStringList{"--screenshot", "/dev/null/shots"} << "cannot make the directory \"/dev/null/shots\"";
        QTest::newRow("argument without an option") << QStringList{"content"} << "unexpected argument \"content\"";
        QTest::newRow("trace in no directory")
            << QStringList{"--trace", "/nowhere/trace.json"}
            << "cannot write \"/nowhere/trace.json\": No such file or directory";
    }
    void badArgumentsEndWithOneLineAndTheCodeTwo()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, line);

        const Outcome outcome = runEditor(arguments);

        QCOMPARE(outcome.errors, QString("datamodels-editor: %1\n").arg(line));
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.exitCode, 2);
    }

    void helpNamesEveryOptionAndEndsWithTheCodeZero()
    {
        const Outcome outcome = runEditor({"--help"});

        QCOMPARE(outcome.exitCode, 0);
        QCOMPARE(outcome.errors, QString());
        QVERIFY(outcome.output.startsWith("Usage: datamodels-editor [options]\n"));
        QVERIFY(outcome.output.contains("--content DIR"));
        QVERIFY(outcome.output.contains("--panel NAME"));
        QVERIFY(outcome.output.contains("--screenshot DIR"));
        QVERIFY(outcome.output.contains("--trace FILE"));
        QVERIFY(outcome.output.contains("--help"));
    }
};

QTEST_GUILESS_MAIN(tst_EditorOptions)
#include "tst_editor_options.moc"
