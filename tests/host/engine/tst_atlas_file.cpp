#include <host/engine/atlas_file.h>

#include "sample_atlas.h"

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

#include <csignal>
#include <sys/resource.h>

using namespace Ozy::Fennel;

namespace {

QByteArray sampleBytes()
{
    return AtlasFile::encode(sampleAtlas());
}

/// With the checksum made to fit again.
QByteArray resealed(QByteArray bytes)
{
    bytes.chop(4);
    AtlasTexture::AtlasData none;
    const QByteArray frame = AtlasFile::encode(none).left(16);
    QByteArray sealed = frame + bytes.mid(16);
    qToBigEndian<quint32>(quint32(bytes.size() - 16), sealed.data() + 12);
    // CRC-32, bit by bit: a second opinion on the checksum.
    quint32 crc = 0xffffffffU;
    for (const char byte : sealed) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320U : 0);
    }
    QByteArray checksum(4, 0);
    qToBigEndian<quint32>(~crc, checksum.data());
    return sealed + checksum;
}

QByteArray withContent(const QByteArray& content)
{
    return resealed(sampleBytes().left(16) + content + "crc.");
}

QString faultOf(const QByteArray& bytes)
{
    return QString::fromStdString(AtlasFile::decode(bytes).fault);
}

/// The lengths at which the start of a file is taken for a whole one, or refused without a reason.
QStringList acceptedPrefixes(const QByteArray& whole)
{
    QStringList accepted;
    for (int length = 0; length < whole.size(); ++length) {
        if (faultOf(whole.left(length)).isEmpty())
            accepted << QString::number(length);
    }
    return accepted;
}

/// The changes of one byte, as "place: bits", with which a file is still taken, or refused without a reason.
QStringList acceptedChanges(const QByteArray& whole)
{
    QStringList accepted;
    for (int place = 0; place < whole.size(); ++place) {
        for (int bits = 1; bits < 256; ++bits) {
            QByteArray bytes = whole;
            bytes[place] = char(bytes[place] ^ bits);
            if (AtlasFile::decode(bytes).data || faultOf(bytes).isEmpty())
                accepted << QString("%1: %2").arg(place).arg(bits);
        }
    }
    return accepted;
}

/// Kills programs that write a file, each some milliseconds later than the one before, and reads what each has left: what
/// is wrong with it, once a time. A program that could not be killed while it wrote stands there as well.
QStringList tornAfterKills(const QString& path, int kills)
{
    QStringList torn;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess writer;
        writer.start(QCoreApplication::applicationDirPath() + "/atlas_writer", {path, QString::number(kill)});
        writer.waitForReadyRead(30000);
        QTest::qSleep(1 + kill % 7);
        writer.kill();
        writer.waitForFinished(30000);
        if (writer.exitStatus() != QProcess::CrashExit)
            torn << "ended by itself";
        const AtlasFile::Decoded found = AtlasFile::read(path.toStdString());
        if (!found.data)
            torn << QString::fromStdString(found.fault);
    }
    return torn;
}

/// As long as it lives, no file of this program grows above a size: the nearest thing to a full disk.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(SmallDisk)

private:
    rlimit m_before;
};

} // namespace

class tst_AtlasFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsWrittenIsReadAgain()
    {
        DiskFolder disk;

        QVERIFY(AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr));

        QCOMPARE(AtlasFile::read(disk.bytes("park_AM.atlas")).data == sampleAtlas(), true);
    }

    void anyBytesCanBeAPath()
    {
        AtlasTexture::AtlasData data = sampleAtlas();
        data.tiles[0].second = std::string("\xff\0\n%s", 5);

        QVERIFY(AtlasFile::decode(AtlasFile::encode(data)).data == data);
    }

    void theLargestNumbersSurvive()
    {
        AtlasTexture::AtlasData data;
        data.leadingFlag = 0xffffffffU;
        data.width = 16384;
        data.height = 16384;
        data.tiles = {{{0xffffffffU, 0xfffffffeU, 0x80000000U, 0x7fffffffU}, ""}};

        QVERIFY(AtlasFile::decode(AtlasFile::encode(data)).data == data);
    }

    void theBytesAreThoseOfVersionOne()
    {
        AtlasTexture::AtlasData data;
        data.leadingFlag = 1;
        data.width = 64;
        data.height = 32;
        data.tiles = {{{0, 32, 0, 32}, "a"}};

        QCOMPARE(AtlasFile::encode(data).left(33).toHex(),
                 QByteArray("8941544c0d0a1a0a" "00000001" "00000011" "85" "01" "00" "1840" "1820" "81"
                            "85" "00" "00" "1820" "1820" "4161"));
    }

    void everyPrefixIsRefused()
    {
        QCOMPARE(acceptedPrefixes(sampleBytes()), QStringList());
    }

    void everyChangeOfOneByteIsRefused()
    {
        QCOMPARE(acceptedChanges(sampleBytes()), QStringList());
    }

    void aRefusalTellsItsReason_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        const QByteArray whole = sampleBytes();
        QByteArray later = whole;
        later[11] = 2;
        QByteArray damaged = whole;
        damaged[20] = 'x';

        QTest::newRow("empty") << QByteArray() << "is no atlas file";
        QTest::newRow("another file") << QByteArray(200, 'x') << "is no atlas file";
        QTest::newRow("a frame cut off") << whole.left(12) << "is cut off";
        QTest::newRow("a list cut off") << whole.chopped(1) << "is cut off";
        QTest::newRow("more than a file") << whole + 'x' << "goes on behind its end";
        QTest::newRow("a later version") << later << "has version 2, and only 1 is known";
        QTest::newRow("a changed byte") << damaged << "is damaged: its checksum does not fit";
        QTest::newRow("sealed, but no list") << withContent("\x01") << "holds no readable list of tiles";
    }
    void aRefusalTellsItsReason()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);

        QCOMPARE(faultOf(bytes), reason);
    }

    void contentThatIsNotAsItShouldBeIsRefused_data()
    {
        QTest::addColumn<QByteArray>("content");

        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("too few facts") << QByteArray::fromHex("84010100" "80");
        QTest::newRow("too many facts") << QByteArray::fromHex("860101000080" "00");
        QTest::newRow("a negative size") << QByteArray::fromHex("85010120" "0080");
        QTest::newRow("a size beyond 32 bits") << QByteArray::fromHex("850101" "1b0000000100000000" "0080");
        QTest::newRow("a text for a number") << QByteArray::fromHex("850101" "6161" "0080");
        QTest::newRow("more tiles announced than there are bytes") << QByteArray::fromHex("8501010000" "9a7fffffff");
        QTest::newRow("far more tiles announced") << QByteArray::fromHex("8501010000" "9bffffffffffffffff");
        QTest::newRow("tiles without a number") << QByteArray::fromHex("8501010000" "9fff");
        QTest::newRow("a tile of four") << QByteArray::fromHex("8501010000" "81" "840000010140");
        QTest::newRow("a path longer than the file") << QByteArray::fromHex("8501010000" "81" "8500000101" "5affffffff");
        QTest::newRow("a path in pieces") << QByteArray::fromHex("8501010000" "81" "8500000101" "5f4161ff");
        QTest::newRow("a path as text") << QByteArray::fromHex("8501010000" "81" "8500000101" "6161");
        QTest::newRow("something behind the end") << QByteArray::fromHex("8501010000" "80" "00");
        QTest::newRow("nested without end") << QByteArray(10000, char(0x85));
    }
    void contentThatIsNotAsItShouldBeIsRefused()
    {
        QFETCH(QByteArray, content);

        QVERIFY(!AtlasFile::decodeContent(content));
        QCOMPARE(faultOf(withContent(content)), QString("holds no readable list of tiles"));
    }

    void anAtlasLargerThanTheEngineAllowsIsNeitherReadNorWritten()
    {
        DiskFolder disk;
        disk.write("park_AM.atlas", "before");
        AtlasTexture::AtlasData data = sampleAtlas();
        data.height = 16385;
        LogCapture log;

        const bool isWritten = AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), data, nullptr);

        QVERIFY(!isWritten);
        QCOMPARE(log.messages(), QStringList{QString("5 Could not write atlas file '%1': is larger than 16384 pixels. It is as "
                                                     "it was before.").arg(disk.path("park_AM.atlas"))});
        QCOMPARE(faultOf(AtlasFile::encode(data)), QString("is larger than 16384 pixels"));
    }

    void whatCouldNotBeReadAgainIsNotWritten()
    {
        DiskFolder disk;
        AtlasTexture::AtlasData data = sampleAtlas();
        data.tiles.front().second.resize(std::size_t(AtlasFile::maximumLength), 'x');
        LogCapture log;

        const bool isWritten = AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), data, nullptr);

        QVERIFY(!isWritten);
        QCOMPARE(log.messages(), QStringList{QString("5 Could not write atlas file '%1': is longer than 64 MiB. It is as it was "
                                                     "before.").arg(disk.path("park_AM.atlas"))});
    }

    void numbersOfEverySizeSurvive()
    {
        AtlasTexture::AtlasData data = sampleAtlas();
        data.tiles = {{{23, 24, 255, 256}, std::string(23, 'a')},
                      {{65535, 65536, 0, 1}, std::string(24, 'b')},
                      {{0, 0, 0, 0}, std::string(256, 'c')},
                      {{0, 0, 0, 0}, std::string(65536, 'd')}};

        QVERIFY(AtlasFile::decode(AtlasFile::encode(data)).data == data);
    }

    void aFileThatIsTooLongIsNotEvenRead()
    {
        DiskFolder disk;
        QFile file(disk.path("huge_AM.atlas"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(AtlasFile::maximumLength + 1));

        QCOMPARE(AtlasFile::read(disk.bytes("huge_AM.atlas")).fault, std::string("is larger than 64 MiB"));
    }

    void aFileThatIsNotThereTellsSo()
    {
        DiskFolder disk;

        QCOMPARE(AtlasFile::read(disk.bytes("none_AM.atlas")).fault,
                 std::string("could not be read: No such file or directory"));
    }

    void aFullDiskLeavesTheOldFile()
    {
        DiskFolder disk;
        AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr);
        AtlasTexture::AtlasData larger = sampleAtlas();
        larger.tiles.resize(2000, larger.tiles.front());
        LogCapture log;

        bool isWritten = true;
        {
            const SmallDisk full(4096);
            isWritten = AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), larger, nullptr);
        }

        QVERIFY(!isWritten);
        QVERIFY(AtlasFile::read(disk.bytes("park_AM.atlas")).data == sampleAtlas());
        QCOMPARE(QDir(disk.path()).entryList(QDir::Files), QStringList{"park_AM.atlas"});
        QCOMPARE(log.messages(), QStringList{QString("5 Could not write atlas file '%1': File too large. It is as it was before.")
                                                 .arg(disk.path("park_AM.atlas"))});
    }

    void aDirectoryThatTakesNoFilesIsTold_data()
    {
        QTest::addColumn<QString>("path");

        QTest::newRow("not there") << "/nowhere/at/all/park_AM.atlas";
        QTest::newRow("takes no files") << "/proc/park_AM.atlas";
    }
    void aDirectoryThatTakesNoFilesIsTold()
    {
        QFETCH(QString, path);
        LogCapture log;

        QVERIFY(!AtlasTexture::makeAtlasFile(path.toStdString(), sampleAtlas(), nullptr));

        QCOMPARE(log.messages().join("\n").startsWith("5 Could not write atlas file '" + path + "': "), true);
    }

    void aNameBeyondAsciiIsWrittenAndRead()
    {
        DiskFolder disk;
        const std::string path = disk.bytes(QString::fromUtf8("\xC3\x85ngstr\xC3\xB6m \xE6\x9C\xA8_AM.atlas"));

        QVERIFY(AtlasTexture::makeAtlasFile(path, sampleAtlas(), nullptr));

        QVERIFY(AtlasFile::read(path).data == sampleAtlas());
    }

    void aKilledWriterLeavesOldOrNewAndNothingBetween()
    {
        DiskFolder disk;
        AtlasTexture::makeAtlasFile(disk.bytes("park_AM.atlas"), sampleAtlas(), nullptr);

        QCOMPARE(tornAfterKills(disk.path("park_AM.atlas"), 30), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_AtlasFile)
#include "tst_atlas_file.moc"
